#ifndef TESTS_WIN32_DIALOGS_SCREEN_PICTURE_H_
#define TESTS_WIN32_DIALOGS_SCREEN_PICTURE_H_

#include <cstdint>
#include <string>
#include <vector>

#include "platform/windows/Windows_win32.h"

namespace imptable {

/// What is to be seen at a place of the screen.
class ScreenPicture {
 public:
  explicit ScreenPicture(const RECT& place);

  int width() const { return width_; }
  int height() const { return height_; }

  /// Red, green and blue of a point, counted from the upper left corner: 0xRRGGBB.
  std::uint32_t Colour(int x, int y) const;

  /// Writes a file of the kind BMP. @throws std::runtime_error  when it can't.
  void Save(const std::wstring& file) const;

 private:
  int width_;
  int height_;
  std::vector<std::uint32_t> points_;  // from the upper left, line by line
};

}  // namespace imptable

#endif  // TESTS_WIN32_DIALOGS_SCREEN_PICTURE_H_
