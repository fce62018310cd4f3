#include "automation/AutomationValue.h"

namespace imptable {
namespace {

/// A value of another type, made from one that stays as it is.
HRESULT Change(const VARIANT& from, VARTYPE type, AutomationValue& to) {
  return VariantChangeTypeEx(to.Receive(), const_cast<VARIANT*>(&from), LOCALE_USER_DEFAULT,
                             VARIANT_ALPHABOOL, type);
}

}  // namespace

AutomationValue::AutomationValue(std::string_view text) : AutomationValue() {
  raw_.bstrVal = ToAutomation(text);
  raw_.vt = VT_BSTR;
}

AutomationValue::AutomationValue(std::int16_t number) : AutomationValue() {
  raw_.iVal = number;
  raw_.vt = VT_I2;
}

AutomationValue::AutomationValue(std::int32_t number) : AutomationValue() {
  raw_.lVal = number;
  raw_.vt = VT_I4;
}

AutomationValue::AutomationValue(IDispatch* object) : AutomationValue() {
  raw_.pdispVal = ComPointer<IDispatch>(object).Release();
  raw_.vt = VT_DISPATCH;
}

HRESULT AutomationValue::ReadText(std::string& result) const {
  if (raw_.vt == VT_NULL) {
    result.clear();
    return S_OK;
  }
  AutomationValue text;
  const HRESULT changed = Change(raw_, VT_BSTR, text);
  if (SUCCEEDED(changed)) result = FromAutomation(text.raw_.bstrVal);
  return changed;
}

HRESULT AutomationValue::ReadNumber(std::int32_t& result) const {
  AutomationValue number;
  const HRESULT changed = Change(raw_, VT_I4, number);
  if (SUCCEEDED(changed)) result = number.raw_.lVal;
  return changed;
}

ComPointer<IDispatch> AutomationValue::Object() const {
  AutomationValue object;
  if (FAILED(Change(raw_, VT_DISPATCH, object)) || object.raw_.vt != VT_DISPATCH) return {};
  return ComPointer<IDispatch>(object.raw_.pdispVal);
}

}  // namespace imptable
