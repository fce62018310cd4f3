#ifndef DIALOGS_WIDGETS_ORIGIN_PICKER_H_
#define DIALOGS_WIDGETS_ORIGIN_PICKER_H_

#include <wx/gdicmn.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "dialogs/columns/ColumnLayoutState.h"
#include "dialogs/widgets/PageBuilder.h"
#include "dialogs/widgets/WidgetText.h"

class wxButton;
class wxListBox;
class wxTextCtrl;

namespace imptable {

/// List1 with Command3, and Text1: the controls over an origin's cell while the user chooses it.
class OriginPicker {
 public:
  /// Called for what the user does there, never while the picker paints.
  struct Handlers {
    std::function<void(std::size_t row)> open;  // Command3
    std::function<void(std::size_t entry)> pick;
    std::function<void(const std::string& text)> type;
    std::function<void()> leave;  // without a choice
  };

  /// @param page  receives the controls. @param text  borrowed.
  OriginPicker(wxWindow* page, PageBuilder& build, const WidgetText& text, Handlers handlers);
  OriginPicker(const OriginPicker&) = delete;
  OriginPicker& operator=(const OriginPicker&) = delete;

  /// @param cell  gives the place of a row's origin on the screen.
  /// @return true when the picker has just been closed: the focus belongs to the grid then.
  bool Show(const ColumnLayoutState& state, const std::function<wxRect(std::size_t row)>& cell);

 private:
  void Watch(wxWindow* control);
  void LeaveUnlessFocused();
  void Later(std::function<void()> action);
  void PickSelected();
  void ShowList(const OriginList& list, const std::string& origin, const wxRect& cell);
  void ShowEntry(const OriginEntry& entry, const wxRect& cell);

  wxWindow* page_;
  const WidgetText& text_;
  Handlers handlers_;
  wxListBox* list_;
  wxButton* open_;
  wxTextCtrl* entry_;
  std::optional<OriginList> shown_list_;
  std::optional<OriginEntry> shown_entry_;
  bool painting_ = false;
};

}  // namespace imptable

#endif  // DIALOGS_WIDGETS_ORIGIN_PICKER_H_
