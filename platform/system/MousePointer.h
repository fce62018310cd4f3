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

}  // namespace imptable

#endif  // PLATFORM_SYSTEM_MOUSE_POINTER_H_
