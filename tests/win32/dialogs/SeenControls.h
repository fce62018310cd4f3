#ifndef TESTS_WIN32_DIALOGS_SEEN_CONTROLS_H_
#define TESTS_WIN32_DIALOGS_SEEN_CONTROLS_H_

#include <cstddef>
#include <optional>

#include "tests/win32/dialogs/ScreenPicture.h"

// What no message tells of a control, and whoever looks at the screen sees.

namespace imptable {

/// Whether an entry is seen to be selected.
bool HasHighlight(HWND list);

/// The middle of a cell within a grid's window; nothing while the grid isn't fully painted, which
/// is seen by rows of different heights.
std::optional<POINT> MiddleOfCell(const ScreenPicture& picture, std::size_t row,
                                  std::size_t column);

}  // namespace imptable

#endif  // TESTS_WIN32_DIALOGS_SEEN_CONTROLS_H_
