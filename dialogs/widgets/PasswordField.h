#ifndef DIALOGS_WIDGETS_PASSWORD_FIELD_H_
#define DIALOGS_WIDGETS_PASSWORD_FIELD_H_

#include <wx/panel.h>

#include <functional>

class wxTextCtrl;

namespace imptable {

/// A text field that can be masked and unmasked while the user types. It is made of two fields in
/// the same place, since not every toolkit can switch the mask of a field.
class PasswordField : public wxPanel {
 public:
  PasswordField(wxWindow* parent, int characters);

  /// The control as a PasswordField; null when it is another kind of control.
  static PasswordField* From(wxWindow& control);

  /// @param handler  called with each text that is typed.
  void OnText(std::function<void(const wxString& text)> handler);

  /// @param handler  called when the focus comes to either field or leaves it, but not when it
  /// moves from one to the other.
  void OnFocus(std::function<void(bool comes)> handler);

  /// Paints text and mask; the caret stays where it is.
  void Show(const wxString& text, bool masked);

  void SetFocus() override;
  bool Enable(bool enable = true) override;

 private:
  void Watch(wxTextCtrl* field);

  wxTextCtrl* masked_;
  wxTextCtrl* plain_;
  wxTextCtrl* shown_;
  bool swapping_ = false;
  std::function<void(const wxString& text)> on_text_;
  std::function<void(bool comes)> on_focus_;
};

}  // namespace imptable

#endif  // DIALOGS_WIDGETS_PASSWORD_FIELD_H_
