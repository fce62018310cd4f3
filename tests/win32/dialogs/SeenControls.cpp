#include "tests/win32/dialogs/SeenControls.h"

#include <cstdint>
#include <vector>

#include "tests/win32/dialogs/ScreenWindows.h"

namespace imptable {
namespace {

/// One of the system's colours.
std::uint32_t SystemColour(int number) {
  const DWORD colour = GetSysColor(number);
  return (std::uint32_t{GetRValue(colour)} << 16U) | (std::uint32_t{GetGValue(colour)} << 8U) |
         GetBValue(colour);
}

/// Where the lines between the cells are. They are looked for on one line of pixels, across a
/// grid's window or down it.
std::vector<int> LinesOf(const ScreenPicture& picture, bool is_across, int along) {
  const std::uint32_t line = SystemColour(COLOR_BTNFACE);
  std::vector<int> lines;
  const int end = is_across ? picture.width() : picture.height();
  for (int at = 0; at < end; ++at) {
    if (picture.Colour(is_across ? at : along, is_across ? along : at) == line) {
      lines.push_back(at);
    }
  }
  return lines;
}

}  // namespace

bool HasHighlight(HWND list) {
  const ScreenPicture picture(PlaceOf(list));
  const std::uint32_t highlight = SystemColour(COLOR_HIGHLIGHT);
  const int middle = picture.width() / 2;
  for (int y = 0; y < picture.height(); ++y) {
    if (picture.Colour(middle, y) == highlight) return true;
  }
  return false;
}

std::optional<POINT> MiddleOfCell(const ScreenPicture& picture, std::size_t row,
                                  std::size_t column) {
  const std::vector<int> below = LinesOf(picture, false, 1);
  if (row >= below.size()) return std::nullopt;
  const int height = below[0] + 1;
  for (std::size_t each = 0; each < below.size(); ++each) {
    if (below[each] + 1 != static_cast<int>(each + 1) * height) return std::nullopt;
  }
  const int top = static_cast<int>(row) * height;
  const std::vector<int> beside = LinesOf(picture, true, top + 1);
  if (column >= beside.size() || beside != LinesOf(picture, true, 1)) return std::nullopt;
  const int left = column == 0 ? 0 : beside[column - 1];
  return POINT{(left + beside[column]) / 2, top + height / 2};
}

}  // namespace imptable
