#ifndef AUTOMATION_DISPATCH_DISPLAY_H_
#define AUTOMATION_DISPATCH_DISPLAY_H_

#include <cstdint>
#include <memory>
#include <string>

#include "automation/LateBound.h"
#include "core/HostLibrary.h"

namespace imptable {

/// The form of a display, by the names of its members. Errors: as LateBound.
class DispatchForm : public HostForm {
 public:
  /// One form and its members, looked up once.
  struct Target {
    explicit Target(ComPointer<IDispatch> form);
    LateBound object;
    LateBoundMember text;
    LateBoundMember tag;
  };

  /// From now on the members belong to this form. Without a form each of them fails.
  void Use(std::shared_ptr<const Target> target);

  std::string Text() const override;
  void SetText(const std::string& text) override;
  std::int32_t Tag() const override;
  void SetTag(std::int32_t tag) override;

 private:
  /// A shared pointer for the length of a call: the host may call back and exchange the form.
  std::shared_ptr<const Target> Current() const;

  std::shared_ptr<const Target> target_;
};

/// The host's `Bouton`, shown to the component as a display. It holds one reference to the present
/// object of the host. The display itself stays where it is, so the host may exchange the object,
/// or take it away, in the middle of a run.
class DispatchDisplay : public HostDisplay {
 public:
  DispatchDisplay() = default;
  DispatchDisplay(const DispatchDisplay&) = delete;
  DispatchDisplay& operator=(const DispatchDisplay&) = delete;

  /// Takes a reference to the object and releases the former one. Null is Nothing. Doesn't call the
  /// object.
  void Set(IDispatch* object);

  /// @return the object as it was set, borrowed; null when there is none.
  IDispatch* object() const;

  /// @return the form as the object gives it now; null when there is no object or it has no form.
  /// @throws RuntimeFault  no such host object, when the object can't give it.
  HostForm* wForm() override;

 private:
  struct Button;

  std::shared_ptr<Button> button_;
  DispatchForm form_;
};

}  // namespace imptable

#endif  // AUTOMATION_DISPATCH_DISPLAY_H_
