#include "tests/win32/component/Client.h"

namespace imptable {

std::wstring GetText(const ComPointer<_ImpTable>& task,
                     HRESULT (STDMETHODCALLTYPE _ImpTable::*getter)(BSTR*)) {
  AutomationString text;
  EXPECT_EQ((task.get()->*getter)(text.Receive()), S_OK);
  return std::wstring(text.view());
}

ErrorInformation TakeErrorInformation() {
  ErrorInformation result;
  ComPointer<IErrorInfo> info;
  if (GetErrorInfo(0, info.Receive()) != S_OK) return result;
  AutomationString source;
  AutomationString description;
  info->GetSource(source.Receive());
  info->GetDescription(description.Receive());
  info->GetGUID(&result.interface_id);
  result.source = source.view();
  result.description = description.view();
  return result;
}

Arguments::~Arguments() {
  for (VARIANT& argument : reversed_) VariantClear(&argument);
}

VARIANT& Arguments::Add(VARTYPE type) {
  VARIANT& added = *reversed_.emplace(reversed_.begin());
  VariantInit(&added);
  V_VT(&added) = type;
  return added;
}

Arguments& Arguments::Text(std::wstring_view text) {
  const BSTR string = ToAutomation(text);
  V_BSTR(&Add(VT_BSTR)) = string;
  return *this;
}

Arguments& Arguments::Number(LONG number) {
  V_I4(&Add(VT_I4)) = number;
  return *this;
}

Arguments& Arguments::Short(short number) {
  V_I2(&Add(VT_I2)) = number;
  return *this;
}

Arguments& Arguments::Double(double number) {
  V_R8(&Add(VT_R8)) = number;
  return *this;
}

Arguments& Arguments::Object(IDispatch* object) {
  V_DISPATCH(&Add(VT_DISPATCH)) = ComPointer<IDispatch>(object).Release();
  return *this;
}

Arguments& Arguments::Null() {
  Add(VT_NULL);
  return *this;
}

Arguments& Arguments::Missing() {
  V_ERROR(&Add(VT_ERROR)) = DISP_E_PARAMNOTFOUND;
  return *this;
}

Arguments& Arguments::NumberAt(LONG* number) { return Raw(VT_I4 | VT_BYREF, number); }

Arguments& Arguments::VariantAt(VARIANT* value) { return Raw(VT_VARIANT | VT_BYREF, value); }

Arguments& Arguments::Raw(VARTYPE type, void* reference) {
  V_BYREF(&Add(type)) = reference;
  return *this;
}

Outcome Call(IDispatch* object, const wchar_t* name, Arguments& arguments, WORD flags) {
  Outcome outcome;
  DISPID id = DISPID_UNKNOWN;
  std::wstring writable(name);
  LPOLESTR names = writable.data();
  outcome.result = object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
  if (FAILED(outcome.result)) return outcome;

  std::vector<VARIANT>& reversed = arguments.reversed();
  DISPID put = DISPID_PROPERTYPUT;
  DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
  if ((flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0) {
    parameters.rgdispidNamedArgs = &put;
    parameters.cNamedArgs = 1;
  }
  VARIANT value;
  VariantInit(&value);
  EXCEPINFO fault{};
  outcome.result = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, &value,
                                  &fault, &outcome.wrong_argument);
  outcome.type = V_VT(&value);
  if (SUCCEEDED(VariantChangeType(&value, &value, 0, VT_BSTR))) {
    outcome.text = std::wstring(V_BSTR(&value), SysStringLen(V_BSTR(&value)));
  }
  VariantClear(&value);
  outcome.fault = fault.scode;
  if (fault.bstrSource != nullptr) outcome.source = fault.bstrSource;
  if (fault.bstrDescription != nullptr) outcome.description = fault.bstrDescription;
  SysFreeString(fault.bstrSource);
  SysFreeString(fault.bstrDescription);
  SysFreeString(fault.bstrHelpFile);
  return outcome;
}

Outcome Call(IDispatch* object, const wchar_t* name) {
  Arguments none;
  return Call(object, name, none);
}

STDMETHODIMP Sink::QueryInterface(REFIID iid, void** object) {
  *object = nullptr;
  if (iid != IID_IUnknown && iid != IID_IDispatch &&
      (iid != DIID___ImpTable || !knows_event_interface)) {
    return E_NOINTERFACE;
  }
  *object = this;
  AddRef();
  return S_OK;
}

STDMETHODIMP_(ULONG) Sink::Release() {
  const ULONG left = --references_;
  if (left == 0) delete this;
  return left;
}

STDMETHODIMP Sink::Invoke(DISPID event, REFIID iid, LCID, WORD flags, DISPPARAMS* arguments,
                          VARIANT*, EXCEPINFO*, UINT*) {
  events.push_back(event);
  if (iid != IID_NULL || flags != DISPATCH_METHOD || arguments->cArgs != 0 ||
      arguments->cNamedArgs != 0) {
    arguments_were_empty = false;
  }
  return on_event ? on_event(event) : S_OK;
}

ComPointer<IConnectionPoint> EventsOf(IUnknown* object) {
  ComPointer<IConnectionPoint> point;
  const auto container = Query<IConnectionPointContainer>(object);
  if (container) container->FindConnectionPoint(DIID___ImpTable, point.Receive());
  return point;
}

Client::Client() : task_(dll_.NewTask()) {
  if (!task_) throw std::runtime_error("The DLL makes no object.");
}

Client::~Client() = default;

}  // namespace imptable
