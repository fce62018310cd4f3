#ifndef DIALOGS_WIDGETS_TOOLKIT_H_
#define DIALOGS_WIDGETS_TOOLKIT_H_

#include <memory>

namespace imptable {

/// The window toolkit while it runs. One at a time; on the thread that shows the windows.
class Toolkit {
 public:
  /// @return null when there is no screen to show windows on.
  static std::unique_ptr<Toolkit> Start();

  Toolkit(const Toolkit&) = delete;
  Toolkit& operator=(const Toolkit&) = delete;
  ~Toolkit();

 private:
  Toolkit() = default;
};

}  // namespace imptable

#endif  // DIALOGS_WIDGETS_TOOLKIT_H_
