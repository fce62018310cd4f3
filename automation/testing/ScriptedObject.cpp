#include "automation/testing/ScriptedObject.h"

#include <algorithm>

namespace imptable {
namespace {

std::string Shown(const VARIANT& value, const ObjectLog& log) {
  switch (value.vt) {
    case VT_EMPTY:
      return "Empty";
    case VT_BSTR:
      return '\'' + FromAutomation(value.bstrVal) + '\'';
    case VT_I2:
      return "i2 " + std::to_string(value.iVal);
    case VT_I4:
      return "i4 " + std::to_string(value.lVal);
    case VT_DISPATCH: {
      if (value.pdispVal == nullptr) return "Nothing";
      const auto name = log.names.find(value.pdispVal);
      return name == log.names.end() ? "an object" : name->second;
    }
    default:
      return "type " + std::to_string(value.vt);
  }
}

/// Arguments in the method's order: automation has the last one first.
std::vector<VARIANT> InOrder(const DISPPARAMS& parameters) {
  std::vector<VARIANT> arguments(parameters.rgvarg, parameters.rgvarg + parameters.cArgs);
  std::reverse(arguments.begin(), arguments.end());
  return arguments;
}

std::string Joined(std::span<const VARIANT> arguments, const ObjectLog& log) {
  std::string text;
  for (const VARIANT& argument : arguments) {
    text += (text.empty() ? "" : ", ") + Shown(argument, log);
  }
  return text;
}

HRESULT STDMETHODCALLTYPE FillIn(EXCEPINFO* exception) {
  exception->bstrDescription = SysAllocString(L"described later");
  return S_OK;
}

HRESULT Report(const ScriptedFailure& failure, EXCEPINFO* exception) {
  if (failure.result == DISP_E_EXCEPTION && exception != nullptr) {
    *exception = {};
    exception->bstrSource = SysAllocString(L"the object");
    if (!failure.description.empty()) {
      exception->bstrDescription = SysAllocString(failure.description.c_str());
    }
    exception->scode = failure.code;
    if (failure.describes_itself_later) exception->pfnDeferredFillIn = FillIn;
  }
  return failure.result;
}

}  // namespace

STDMETHODIMP ScriptedObject::QueryInterface(REFIID iid, void** object) noexcept {
  *object = nullptr;
  if (iid != IID_IUnknown && iid != IID_IDispatch) return E_NOINTERFACE;
  *object = static_cast<IDispatch*>(this);
  AddRef();
  return S_OK;
}

STDMETHODIMP_(ULONG) ScriptedObject::Release() noexcept {
  const ULONG left = --references_;
  if (left == 0) delete this;
  return left;
}

STDMETHODIMP ScriptedObject::GetTypeInfoCount(UINT* count) noexcept {
  *count = 0;
  return S_OK;
}

STDMETHODIMP ScriptedObject::GetTypeInfo(UINT /*index*/, LCID /*locale*/,
                                         ITypeInfo** /*info*/) noexcept {
  return E_NOTIMPL;
}

STDMETHODIMP ScriptedObject::GetIDsOfNames(REFIID /*iid*/, LPOLESTR* names, UINT count,
                                           LCID /*locale*/, DISPID* ids) noexcept {
  if (count != 1) return E_NOTIMPL;
  const std::wstring name = names[0];
  log_.lookups.push_back(name_ + '.' + FromWide(name));
  ids[0] = DISPID_UNKNOWN;
  if (!members_.contains(name)) return DISP_E_UNKNOWNNAME;
  const auto known = std::find(numbered_.begin(), numbered_.end(), name);
  ids[0] = static_cast<DISPID>(known - numbered_.begin()) + 1;
  if (known == numbered_.end()) numbered_.push_back(name);
  return S_OK;
}

STDMETHODIMP ScriptedObject::Invoke(DISPID id, REFIID /*iid*/, LCID /*locale*/, WORD flags,
                                    DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                    UINT* /*wrong_argument*/) noexcept {
  if (id < 1 || static_cast<std::size_t>(id) > numbered_.size()) return DISP_E_MEMBERNOTFOUND;
  const std::wstring name = numbered_[static_cast<std::size_t>(id) - 1];
  const std::vector<VARIANT> arguments = InOrder(*parameters);
  std::string call = name_ + '.' + FromWide(name);
  if (flags == DISPATCH_PROPERTYPUT) {
    if (parameters->cNamedArgs != 1 || parameters->rgdispidNamedArgs[0] != DISPID_PROPERTYPUT ||
        result != nullptr) {
      return DISP_E_PARAMNOTOPTIONAL;
    }
    call += " = " + Joined(arguments, log_);
  } else if (flags == DISPATCH_METHOD) {
    call += '(' + Joined(arguments, log_) + ')';
  } else if (flags != (DISPATCH_PROPERTYGET | DISPATCH_METHOD)) {
    return DISP_E_MEMBERNOTFOUND;
  }
  log_.calls.push_back(call);
  try {
    const Member member = members_[name];
    const AutomationValue answer = member ? member(arguments) : AutomationValue();
    if (result != nullptr) VariantCopy(result, const_cast<VARIANT*>(&answer.raw()));
    return S_OK;
  } catch (const ScriptedFailure& failure) {
    return Report(failure, exception);
  }
}

std::string TextArgument(const VARIANT& argument) {
  if (argument.vt != VT_BSTR) throw ScriptedFailure{.result = DISP_E_TYPEMISMATCH};
  return FromAutomation(argument.bstrVal);
}

}  // namespace imptable
