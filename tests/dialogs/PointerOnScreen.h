#ifndef TESTS_DIALOGS_POINTER_ON_SCREEN_H_
#define TESTS_DIALOGS_POINTER_ON_SCREEN_H_

#include <memory>
#include <vector>

namespace imptable {

/// The mouse pointer as the screen shows it, whether the dialogs answer or not.
class PointerOnScreen {
 public:
  /// The pixels of a pointer.
  using Image = std::vector<unsigned long>;

  /// @throws std::runtime_error  when the screen doesn't say.
  PointerOnScreen();
  ~PointerOnScreen();
  PointerOnScreen(const PointerOnScreen&) = delete;
  PointerOnScreen& operator=(const PointerOnScreen&) = delete;

  Image Shape() const;

  /// Waits until the pointer has this shape, or another one.
  /// @throws std::runtime_error  when it doesn't get it in time.
  void WaitFor(const Image& shape) const;
  void WaitForOtherThan(const Image& shape) const;

 private:
  struct Screen;
  std::unique_ptr<Screen> screen_;
};

}  // namespace imptable

#endif  // TESTS_DIALOGS_POINTER_ON_SCREEN_H_
