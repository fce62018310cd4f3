#include "automation/LateBound.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <vector>

namespace imptable {
namespace {

/// What an object says about its failure.
struct Exception : EXCEPINFO {
  Exception() : EXCEPINFO{} {}
  Exception(const Exception&) = delete;
  Exception& operator=(const Exception&) = delete;
  ~Exception() {
    SysFreeString(bstrSource);
    SysFreeString(bstrDescription);
    SysFreeString(bstrHelpFile);
  }
};

std::string WithoutLineEnd(std::string text) {
  while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.pop_back();
  return text;
}

std::string CodeText(HRESULT result) {
  std::array<char, 8> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(),
                                 static_cast<std::uint32_t>(result), 16);
  std::string text(digits.data(), end.ptr);
  std::transform(text.begin(), text.end(), text.begin(), [](char digit) {
    return digit >= 'a' ? static_cast<char>(digit - 'a' + 'A') : digit;
  });
  return "0x" + text;
}

std::string DescriptionOf(HRESULT result, Exception& exception) {
  if (result != DISP_E_EXCEPTION) return CodeText(result);
  if (exception.pfnDeferredFillIn != nullptr) exception.pfnDeferredFillIn(&exception);
  std::string given = WithoutLineEnd(FromAutomation(exception.bstrDescription));
  if (!given.empty()) return given;
  if (exception.scode != 0) return CodeText(exception.scode);
  return std::to_string(exception.wCode);
}

RuntimeFault Fault(const std::string& name, const std::string& description) {
  return RuntimeFault(FaultNumber::kNoHostObject, name + " : " + description);
}

RuntimeFault Fault(const std::string& name, HRESULT result) {
  return Fault(name, CodeText(result));
}

bool IsRegistered(const wchar_t* prog_id) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(HKEY_CLASSES_ROOT, prog_id, 0, KEY_QUERY_VALUE, &key) != ERROR_SUCCESS) {
    return false;
  }
  RegCloseKey(key);
  return true;
}

}  // namespace

std::optional<LateBoundMember> LateBound::FindIfThere(const wchar_t* member) const {
  LateBoundMember found{DISPID_UNKNOWN, name_ + '.' + FromWide(member)};
  const ComPointer<IDispatch> kept = object_;
  if (!kept) throw Fault(found.name, E_POINTER);
  auto* name = const_cast<wchar_t*>(member);
  const HRESULT result = kept->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &found.id);
  if (result == DISP_E_UNKNOWNNAME) return std::nullopt;
  if (FAILED(result)) throw Fault(found.name, result);
  return found;
}

LateBoundMember LateBound::Find(const wchar_t* member) const {
  std::optional<LateBoundMember> found = FindIfThere(member);
  if (!found) throw Fault(name_ + '.' + FromWide(member), DISP_E_UNKNOWNNAME);
  return *std::move(found);
}

AutomationValue LateBound::Invoke(const LateBoundMember& member, int kind,
                                  std::span<const AutomationValue> arguments) const {
  const ComPointer<IDispatch> kept = object_;
  if (!kept) throw Fault(member.name, E_POINTER);
  std::vector<VARIANT> raw;
  std::transform(arguments.rbegin(), arguments.rend(), std::back_inserter(raw),
                 [](const AutomationValue& value) { return value.raw(); });
  const bool puts = kind == DISPATCH_PROPERTYPUT;
  DISPID new_value = DISPID_PROPERTYPUT;
  DISPPARAMS parameters{raw.data(), puts ? &new_value : nullptr, static_cast<UINT>(raw.size()),
                        puts ? 1U : 0U};
  AutomationValue answer;
  Exception exception;
  UINT refused = 0;
  const HRESULT result =
      kept->Invoke(member.id, IID_NULL, LOCALE_USER_DEFAULT, static_cast<WORD>(kind), &parameters,
                   puts ? nullptr : answer.Receive(), &exception, &refused);
  if (FAILED(result)) throw Fault(member.name, DescriptionOf(result, exception));
  return answer;
}

std::string TextFrom(const LateBoundMember& member, const AutomationValue& value) {
  std::string text;
  if (const HRESULT result = value.ReadText(text); FAILED(result)) throw Fault(member.name, result);
  return text;
}

std::int32_t NumberFrom(const LateBoundMember& member, const AutomationValue& value) {
  std::int32_t number = 0;
  if (const HRESULT result = value.ReadNumber(number); FAILED(result)) {
    throw Fault(member.name, result);
  }
  return number;
}

std::optional<LateBound> CreateLateBound(const wchar_t* prog_id) {
  CLSID class_id{};
  if (const HRESULT result = CLSIDFromProgID(prog_id, &class_id); FAILED(result)) {
    if (!IsRegistered(prog_id)) return std::nullopt;
    throw Fault(FromWide(prog_id), result);
  }
  ComPointer<IDispatch> object;
  const HRESULT result =
      CoCreateInstance(class_id, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER, IID_IDispatch,
                       object.ReceiveVoid());
  if (FAILED(result)) throw Fault(FromWide(prog_id), result);
  return LateBound(std::move(object), FromWide(prog_id));
}

}  // namespace imptable
