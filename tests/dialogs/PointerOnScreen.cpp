#include "tests/dialogs/PointerOnScreen.h"

#include <X11/Xlib.h>
#include <X11/extensions/Xfixes.h>

#include <chrono>
#include <stdexcept>
#include <thread>

#include "tests/dialogs/MainThread.h"

namespace imptable {
namespace {

template <typename Condition>
void WaitUntil(Condition condition) {
  const auto end = std::chrono::steady_clock::now() + kPatience;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) {
      throw std::runtime_error("the mouse pointer stays as it is");
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
}

}  // namespace

/// A connection to the screen of its own, apart from that of the dialogs.
struct PointerOnScreen::Screen {
  Display* display = XOpenDisplay(nullptr);
};

PointerOnScreen::PointerOnScreen() : screen_(std::make_unique<Screen>()) {
  if (screen_->display == nullptr) throw std::runtime_error("there is no screen");
  int first_event = 0;
  int first_error = 0;
  if (XFixesQueryExtension(screen_->display, &first_event, &first_error) == 0) {
    throw std::runtime_error("the screen doesn't show its pointer");
  }
}

PointerOnScreen::~PointerOnScreen() { XCloseDisplay(screen_->display); }

PointerOnScreen::Image PointerOnScreen::Shape() const {
  XFixesCursorImage* const image = XFixesGetCursorImage(screen_->display);
  if (image == nullptr) throw std::runtime_error("the screen doesn't show its pointer");
  const Image pixels(image->pixels,
                     image->pixels + std::size_t{image->width} * std::size_t{image->height});
  XFree(image);
  return pixels;
}

void PointerOnScreen::WaitFor(const Image& shape) const {
  WaitUntil([&] { return Shape() == shape; });
}

void PointerOnScreen::WaitForOtherThan(const Image& shape) const {
  WaitUntil([&] { return Shape() != shape; });
}

}  // namespace imptable
