#include "automation/AutomationText.h"

#include <new>

namespace imptable {

std::string FromWide(std::wstring_view text) {
  const int length = static_cast<int>(text.size());
  // A best-fit character would change a file's name, maybe into that of another file.
  const DWORD flags = GetACP() == CP_UTF8 ? 0 : WC_NO_BEST_FIT_CHARS;
  const int size =
      WideCharToMultiByte(CP_ACP, flags, text.data(), length, nullptr, 0, nullptr, nullptr);
  std::string result(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_ACP, flags, text.data(), length, result.data(), size, nullptr, nullptr);
  return result;
}

std::wstring ToWide(std::string_view text) {
  const int length = static_cast<int>(text.size());
  const int size = MultiByteToWideChar(CP_ACP, 0, text.data(), length, nullptr, 0);
  std::wstring result(static_cast<std::size_t>(size), L'\0');
  MultiByteToWideChar(CP_ACP, 0, text.data(), length, result.data(), size);
  return result;
}

std::string FromAutomation(BSTR text) {
  return text == nullptr ? std::string() : FromWide({text, SysStringLen(text)});
}

BSTR ToAutomation(std::wstring_view text) {
  const BSTR result = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
  if (result == nullptr) throw std::bad_alloc();
  return result;
}

BSTR ToAutomation(std::string_view text) { return ToAutomation(std::wstring_view(ToWide(text))); }

}  // namespace imptable
