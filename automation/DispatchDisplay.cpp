#include "automation/DispatchDisplay.h"

#include <optional>
#include <utility>

#include "automation/HostObjectNames.h"

namespace imptable {

DispatchForm::Target::Target(ComPointer<IDispatch> form)
    : object(std::move(form), "wForm"),
      text(object.Find(button_object::kText)),
      tag(object.Find(button_object::kTag)) {}

void DispatchForm::Use(std::shared_ptr<const Target> target) {
  // The former target's end may call back into this form: the new target has to be in place first.
  target_.swap(target);
}

std::shared_ptr<const DispatchForm::Target> DispatchForm::Current() const {
  if (!target_) throw RuntimeFault(FaultNumber::kNoHostObject, "wForm");
  return target_;
}

std::string DispatchForm::Text() const {
  const auto form = Current();
  return TextFrom(form->text, form->object.Get(form->text));
}

void DispatchForm::SetText(const std::string& text) {
  const auto form = Current();
  form->object.Put(form->text, text);
}

std::int32_t DispatchForm::Tag() const {
  const auto form = Current();
  return NumberFrom(form->tag, form->object.Get(form->tag));
}

void DispatchForm::SetTag(std::int32_t tag) {
  const auto form = Current();
  form->object.Put(form->tag, tag);
}

struct DispatchDisplay::Button {
  explicit Button(IDispatch* dispatch) : object(ComPointer<IDispatch>(dispatch), "Bouton") {}

  LateBound object;
  bool is_looked_up = false;
  std::optional<LateBoundMember> form_member;
  std::shared_ptr<const DispatchForm::Target> form;  // the last form that the object gave
};

void DispatchDisplay::Set(IDispatch* object) {
  auto former = object == nullptr ? nullptr : std::make_shared<Button>(object);
  button_.swap(former);
  form_.Use(nullptr);
}

IDispatch* DispatchDisplay::object() const { return button_ ? button_->object.get() : nullptr; }

HostForm* DispatchDisplay::wForm() {
  const std::shared_ptr<Button> button = button_;
  if (!button) return nullptr;
  if (!button->is_looked_up) {
    button->form_member = button->object.FindIfThere(button_object::kForm);
    button->is_looked_up = true;
  }
  if (!button->form_member) return nullptr;
  ComPointer<IDispatch> form = button->object.Get(*button->form_member).Object();
  if (!form) return nullptr;
  if (!button->form || button->form->object.get() != form.get()) {
    button->form = std::make_shared<const DispatchForm::Target>(std::move(form));
  }
  if (button != button_) return nullptr;  // the host has set another object meanwhile
  form_.Use(button->form);
  return &form_;
}

}  // namespace imptable
