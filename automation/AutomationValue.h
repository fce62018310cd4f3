#ifndef AUTOMATION_AUTOMATION_VALUE_H_
#define AUTOMATION_AUTOMATION_VALUE_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "automation/AutomationText.h"
#include "automation/ComPointer.h"

namespace imptable {

/// Owner of one automation value; empty when it is made without one. Movable, not copyable.
class AutomationValue {
 public:
  AutomationValue() noexcept { VariantInit(&raw_); }

  /// @param text  in the system's code page.
  explicit AutomationValue(std::string_view text);
  explicit AutomationValue(std::int16_t number);
  explicit AutomationValue(std::int32_t number);

  /// Takes a reference of its own; null is Nothing.
  explicit AutomationValue(IDispatch* object);

  AutomationValue(AutomationValue&& other) noexcept : raw_(other.raw_) { VariantInit(&other.raw_); }
  AutomationValue& operator=(AutomationValue&& other) noexcept {
    std::swap(raw_, other.raw_);
    return *this;
  }
  ~AutomationValue() { VariantClear(&raw_); }

  const VARIANT& raw() const { return raw_; }

  /// For calls that fill in a value; drops the one that is held.
  VARIANT* Receive() {
    VariantClear(&raw_);
    return &raw_;
  }

  /// Both convert the value as automation does. A text is in the system's code page; no value and
  /// Null are the empty text. On failure `result` stays as it was.
  /// @return the system's result code.
  HRESULT ReadText(std::string& result) const;
  HRESULT ReadNumber(std::int32_t& result) const;

  /// True for no value and Null.
  bool IsEmpty() const { return raw_.vt == VT_EMPTY || raw_.vt == VT_NULL; }

  /// @return the object; empty for Nothing and for a value that is no object.
  ComPointer<IDispatch> Object() const;

 private:
  VARIANT raw_;
};

}  // namespace imptable

#endif  // AUTOMATION_AUTOMATION_VALUE_H_
