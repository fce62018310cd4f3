#ifndef PLATFORM_SYSTEM_MOUSE_POINTER_H_
#define PLATFORM_SYSTEM_MOUSE_POINTER_H_

namespace imptable {

/// The mouse pointer of the host's windows.
class MousePointer {
 public:
  virtual ~MousePointer() = default;
  virtual void ShowHourglass() = 0;
  virtual void Reset() = 0;
};

/// Shows the hourglass while it lives, when it is to be shown at all.
class Hourglass {
 public:
  /// @param pointer  borrowed.
  explicit Hourglass(MousePointer& pointer, bool shown = true)
      : pointer_(shown ? &pointer : nullptr) {
    if (pointer_ != nullptr) pointer_->ShowHourglass();
  }
  Hourglass(const Hourglass&) = delete;
  Hourglass& operator=(const Hourglass&) = delete;
  ~Hourglass() {
    if (pointer_ != nullptr) pointer_->Reset();
  }

 private:
  MousePointer* pointer_;
};

}  // namespace imptable

#endif  // PLATFORM_SYSTEM_MOUSE_POINTER_H_
