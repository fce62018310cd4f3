#ifndef TESTS_DIALOGS_CUT_CONTROLS_H_
#define TESTS_DIALOGS_CUT_CONTROLS_H_

#include <string>
#include <vector>

namespace imptable {

/// The controls in sight of the dialog in front that are too small for what they say, or that reach
/// out of the window that they are in. To be asked on the main thread.
std::vector<std::string> CutControls();

/// While it lives, windows that are made get this font, such as "Sans 20", as the desktop's.
class DesktopFont {
 public:
  explicit DesktopFont(const std::string& font);
  ~DesktopFont();
  DesktopFont(const DesktopFont&) = delete;
  DesktopFont& operator=(const DesktopFont&) = delete;

 private:
  std::string before_;
};

}  // namespace imptable

#endif  // TESTS_DIALOGS_CUT_CONTROLS_H_
