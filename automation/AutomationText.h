#ifndef AUTOMATION_AUTOMATION_TEXT_H_
#define AUTOMATION_AUTOMATION_TEXT_H_

#include <string>
#include <string_view>

#include "automation/AutomationApi.h"

namespace imptable {

/// UTF-16 to the system's code page. A character that the code page lacks becomes the code page's
/// default character.
std::string FromWide(std::wstring_view text);

/// The system's code page to UTF-16.
std::wstring ToWide(std::string_view text);

/// The same for a string of automation. Null is the empty string; NULs inside are kept.
std::string FromAutomation(BSTR text);

/// @return a new string, the caller's.
/// @throws std::bad_alloc
BSTR ToAutomation(std::wstring_view text);
BSTR ToAutomation(std::string_view text);

/// Owner of one automation string.
class AutomationString {
 public:
  AutomationString() = default;
  explicit AutomationString(std::wstring_view text) : text_(ToAutomation(text)) {}
  AutomationString(const AutomationString&) = delete;
  AutomationString& operator=(const AutomationString&) = delete;
  ~AutomationString() { SysFreeString(text_); }

  BSTR get() const { return text_; }

  /// For calls that fill in a string; drops the one that is held.
  BSTR* Receive() {
    SysFreeString(text_);
    text_ = nullptr;
    return &text_;
  }
  std::wstring_view view() const { return {text_ == nullptr ? L"" : text_, SysStringLen(text_)}; }

 private:
  BSTR text_ = nullptr;
};

}  // namespace imptable

#endif  // AUTOMATION_AUTOMATION_TEXT_H_
