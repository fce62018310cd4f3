#include "tests/win32/host/LateBoundTask.h"

#include <algorithm>
#include <cstdio>
#include <memory>

#include "tests/win32/host/Failure.h"
#include "tests/win32/host/WideText.h"

namespace imptable {
namespace {

std::string Hexadecimal(HRESULT result) {
  char text[16];
  std::snprintf(text, sizeof text, "0x%08lx", static_cast<unsigned long>(result));
  return text;
}

void Require(HRESULT result, const std::string& what) {
  if (SUCCEEDED(result)) return;
  throw Failure(ExitCode::kFault, what + " failed with " + Hexadecimal(result));
}

std::string TextOf(BSTR text) {
  return text == nullptr ? std::string() : Narrow({text, SysStringLen(text)});
}

/// One argument and the place that a reference to it leads to.
struct Passed {
  VARIANT value{};
  VARIANT reference{};

  explicit Passed(const LateBoundTask::Argument& argument) {
    if (const auto* number = std::get_if<std::int16_t>(&argument)) {
      value.vt = VT_I2;
      value.iVal = *number;
    } else if (const auto* wide_number = std::get_if<std::int32_t>(&argument)) {
      value.vt = VT_I4;
      value.lVal = *wide_number;
    } else {
      const std::wstring text = Wide(std::get<std::string>(argument));
      value.vt = VT_BSTR;
      value.bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    }
    reference.vt = static_cast<VARTYPE>(value.vt | VT_BYREF);
    reference.byref = &value.lVal;
  }
  Passed(const Passed&) = delete;
  Passed& operator=(const Passed&) = delete;
  ~Passed() { VariantClear(&value); }
};

}  // namespace

LateBoundTask::LateBoundTask(const wchar_t* class_name) {
  CLSID id{};
  Require(CLSIDFromProgID(class_name, &id), "finding the class " + Narrow(class_name));
  Require(CoGetClassObject(id, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory,
                           reinterpret_cast<void**>(&factory_)),
          "loading the component of " + Narrow(class_name));
}

LateBoundTask::~LateBoundTask() {
  if (object_ != nullptr) object_->Release();
  factory_->Release();
}

void LateBoundTask::Create() {
  Require(factory_->CreateInstance(nullptr, IID_IDispatch, reinterpret_cast<void**>(&object_)),
          "creating the object");
}

void LateBoundTask::Invoke(const std::string& member, WORD kind, DISPPARAMS& arguments,
                           VARIANT* result) {
  std::wstring name = Wide(member);
  LPOLESTR names = name.data();
  DISPID id = 0;
  Require(object_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id),
          "looking for " + member);
  EXCEPINFO exception{};
  const HRESULT code = object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &arguments, result,
                                       &exception, nullptr);
  if (code == DISP_E_EXCEPTION) {
    if (exception.pfnDeferredFillIn != nullptr) exception.pfnDeferredFillIn(&exception);
    const std::string text = TextOf(exception.bstrDescription);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrHelpFile);
    throw Failure(ExitCode::kFault,
                  member + " failed with " + Hexadecimal(exception.scode) + ", " + text);
  }
  Require(code, member);
}

void LateBoundTask::Call(const std::string& method, std::vector<Argument> arguments) {
  std::vector<VARIANT> references;
  std::vector<std::unique_ptr<Passed>> passed;
  std::reverse(arguments.begin(), arguments.end());
  for (const Argument& argument : arguments) {
    passed.push_back(std::make_unique<Passed>(argument));
    references.push_back(passed.back()->reference);
  }
  DISPPARAMS parameters{references.data(), nullptr, static_cast<UINT>(references.size()), 0};
  Invoke(method, DISPATCH_METHOD, parameters, nullptr);
}

void LateBoundTask::Put(const std::string& property, Argument value) {
  Passed passed(value);
  DISPID put = DISPID_PROPERTYPUT;
  DISPPARAMS parameters{&passed.value, &put, 1, 1};
  Invoke(property, DISPATCH_PROPERTYPUT, parameters, nullptr);
}

std::int32_t LateBoundTask::Number(const std::string& method) {
  DISPPARAMS none{};
  VARIANT result{};
  Invoke(method, DISPATCH_METHOD, none, &result);
  VARIANT number{};
  const HRESULT code = VariantChangeType(&number, &result, 0, VT_I4);
  VariantClear(&result);
  Require(code, method + " as a number");
  return number.lVal;
}

}  // namespace imptable
