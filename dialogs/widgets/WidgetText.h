#ifndef DIALOGS_WIDGETS_WIDGET_TEXT_H_
#define DIALOGS_WIDGETS_WIDGET_TEXT_H_

#include <wx/string.h>

#include <string>
#include <string_view>

#include "platform/text/TextEncoding.h"

namespace imptable {

/// Texts of the component, in the system's code page, and texts of the toolkit.
class WidgetText {
 public:
  /// @param encoding  borrowed.
  explicit WidgetText(const TextEncoding& encoding) : encoding_(encoding) {}

  wxString Shown(std::string_view text) const;
  std::string Stored(const wxString& text) const;

 private:
  const TextEncoding& encoding_;
};

}  // namespace imptable

#endif  // DIALOGS_WIDGETS_WIDGET_TEXT_H_
