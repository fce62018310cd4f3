#ifndef DIALOGS_WIDGETS_PAGE_BUILDER_H_
#define DIALOGS_WIDGETS_PAGE_BUILDER_H_

#include <wx/sizer.h>
#include <wx/statbox.h>

#include <functional>
#include <map>
#include <string>
#include <string_view>

class wxButton;
class wxTextCtrl;
class wxWindow;

namespace imptable {

/// Controls by their names; the toolkit owns them.
using NamedControls = std::map<std::string, wxWindow*, std::less<>>;

/// Makes the controls of a page under their own names, which are also their windows' names, without
/// captions. The order in which they are made is their tab order.
class PageBuilder {
 public:
  /// @param controls  borrowed; receives every control that is made.
  explicit PageBuilder(NamedControls& controls) : controls_(controls) {}

  wxWindow* Label(wxWindow* parent, const std::string& name);

  /// @param characters  how wide the field is at least.
  wxTextCtrl* Text(wxWindow* parent, const std::string& name, int characters, long style = 0);

  /// @param caption  for a button that has none in the catalogue; null for all others.
  wxButton* Button(wxWindow* parent, const std::string& name, const char* caption = nullptr);
  wxWindow* Check(wxWindow* parent, const std::string& name);

  /// An option button of an array; the one with index 0 begins its group.
  wxWindow* Option(wxWindow* parent, const std::string& array, int index);

  /// A frame; make its controls with Parent(frame) as their parent.
  wxStaticBoxSizer* Frame(wxWindow* parent, const std::string& name);
  static wxWindow* Parent(wxStaticBoxSizer* frame) { return frame->GetStaticBox(); }

  /// A grid of labels and fields. The fields take all the room that is left. Each field has a gap
  /// at its right edge for the variable button.
  static wxFlexGridSizer* Fields(wxWindow* parent);
  void AddField(wxFlexGridSizer* fields, wxWindow* label, wxWindow* field);

  void Add(wxWindow* control, const std::string& name);

 private:
  NamedControls& controls_;
};

/// Width of the variable button, in pixels of the window's screen.
int VariableButtonWidth(const wxWindow& window);

}  // namespace imptable

#endif  // DIALOGS_WIDGETS_PAGE_BUILDER_H_
