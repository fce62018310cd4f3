#include "dialogs/widgets/WidgetText.h"

namespace imptable {

wxString WidgetText::Shown(std::string_view text) const {
  const std::string utf8 = encoding_.ToUtf8(text);
  return wxString::FromUTF8(utf8.data(), utf8.size());
}

std::string WidgetText::Stored(const wxString& text) const {
  const wxScopedCharBuffer utf8 = text.utf8_str();
  return encoding_.FromUtf8(std::string_view(utf8.data(), utf8.length()));
}

}  // namespace imptable
