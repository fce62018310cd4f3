#include "dialogs/widgets/OriginPicker.h"

#include <wx/button.h>
#include <wx/listbox.h>
#include <wx/textctrl.h>

#include <algorithm>
#include <utility>

#include "dialogs/widgets/FieldSize.h"
#include "dialogs/widgets/SystemWidgets.h"

namespace imptable {
namespace {

constexpr int kVisibleEntries = 8;

}  // namespace

OriginPicker::OriginPicker(wxWindow* page, PageBuilder& build, const WidgetText& text,
                           Handlers handlers)
    : page_(page),
      text_(text),
      handlers_(std::move(handlers)),
      list_(new wxListBox(page, wxID_ANY, wxDefaultPosition, wxDefaultSize, 0, nullptr,
                          wxLB_SINGLE | wxBORDER_SIMPLE)),
      open_(build.Button(page, "Command3", "...")),
      entry_(new wxTextCtrl(page, wxID_ANY)) {
  build.Add(list_, "List1");
  build.Add(entry_, "Text1");
  for (wxWindow* const control : {static_cast<wxWindow*>(list_), static_cast<wxWindow*>(open_),
                                  static_cast<wxWindow*>(entry_)}) {
    control->Hide();
  }
  open_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) {
    Later([this] {
      if (!shown_list_) return;
      handlers_.open(shown_list_->row);
      list_->SetFocus();
    });
  });
  open_->Bind(wxEVT_KILL_FOCUS, [this](wxFocusEvent& event) {
    event.Skip();
    if (!painting_) LeaveUnlessFocused();
  });
  list_->Bind(wxEVT_LEFT_UP, [this](wxMouseEvent& event) {
    event.Skip();
    if (list_->HitTest(event.GetPosition()) != wxNOT_FOUND) PickSelected();
  });
  // A double click. On some systems Enter, too, comes as this event and as no other.
  list_->Bind(wxEVT_LISTBOX_DCLICK, [this](wxCommandEvent&) { PickSelected(); });
  Watch(list_);
  Watch(entry_);
  for (wxWindow* const sibling : page->GetChildren()) LetLieUnderOthers(*sibling);
}

void OriginPicker::Watch(wxWindow* control) {
  const bool is_list = control == list_;
  control->Bind(wxEVT_CHAR_HOOK, [this, is_list](wxKeyEvent& event) {
    const int key = event.GetKeyCode();
    if (key == WXK_RETURN || key == WXK_NUMPAD_ENTER || (is_list && key == WXK_SPACE)) {
      if (is_list) {
        PickSelected();
      } else {
        Later([this] { handlers_.type(text_.Stored(entry_->GetValue())); });
      }
    } else if (key == WXK_ESCAPE) {
      Later(handlers_.leave);
    } else {
      event.Skip();
    }
  });
  control->Bind(wxEVT_KILL_FOCUS, [this, is_list](wxFocusEvent& event) {
    event.Skip();
    if (painting_) return;
    if (is_list) {
      LeaveUnlessFocused();
    } else {
      Later([this] { handlers_.type(text_.Stored(entry_->GetValue())); });
    }
  });
}

void OriginPicker::LeaveUnlessFocused() {
  // Only after this event does the new control have the focus.
  Later([this] {
    if (shown_list_ && !list_->HasFocus() && !open_->HasFocus()) handlers_.leave();
  });
}

void OriginPicker::Later(std::function<void()> action) {
  page_->CallAfter([this, action = std::move(action)] {
    // One closing can make two events: a key, and the loss of the focus. Ignore the second one.
    if (shown_list_ || shown_entry_) action();
  });
}

void OriginPicker::PickSelected() {
  const int selected = list_->GetSelection();
  if (selected == wxNOT_FOUND) return;
  Later([this, selected] {
    if (shown_list_) handlers_.pick(static_cast<std::size_t>(selected));
  });
}

bool OriginPicker::Show(const ColumnLayoutState& state,
                        const std::function<wxRect(std::size_t row)>& cell) {
  const bool was_open = shown_list_ || shown_entry_;
  painting_ = true;
  const bool had_focus = list_->HasFocus() || entry_->HasFocus() || open_->HasFocus();
  const bool opens_entry = state.origin_entry && state.origin_entry != shown_entry_;
  const bool opens_list = state.origin_list && state.origin_list != shown_list_;
  if (opens_entry) ShowEntry(*state.origin_entry, cell(state.origin_entry->row));
  if (opens_list) {
    const std::size_t row = state.origin_list->row;
    ShowList(*state.origin_list, state.field_rows[row].origin, cell(row));
  }
  shown_entry_ = state.origin_entry;
  shown_list_ = state.origin_list;
  entry_->Show(shown_entry_.has_value());
  list_->Show(shown_list_.has_value());
  open_->Show(shown_list_.has_value());
  if (opens_entry) {
    entry_->SetFocus();
    entry_->SetInsertionPointEnd();  // the user types on after the text
  }
  if (opens_list) list_->SetFocus();
  painting_ = false;
  return was_open && had_focus && !shown_list_ && !shown_entry_;
}

void OriginPicker::ShowList(const OriginList& list, const std::string& origin, const wxRect& cell) {
  wxArrayString entries;
  for (const std::string& entry : list.entries) entries.Add(text_.Shown(entry));
  list_->Set(entries);
  if (!entries.empty() && !list_->SetStringSelection(text_.Shown(origin))) list_->SetSelection(0);

  const wxPoint place = list_->GetParent()->ScreenToClient(cell.GetPosition());
  const int button = std::min(cell.height, cell.width);
  open_->SetSize(place.x + cell.width - button, place.y, button, cell.height);
  const int visible = std::clamp(static_cast<int>(entries.size()), 2, kVisibleEntries);
  const int height = HeightOfEntries(*list_, visible);
  const int room = list_->GetParent()->GetClientSize().y;
  const bool below = place.y + cell.height + height <= room;
  list_->SetSize(place.x, below ? place.y + cell.height : std::max(0, place.y - height), cell.width,
                 height);
  open_->Raise();
  list_->Raise();
}

void OriginPicker::ShowEntry(const OriginEntry& entry, const wxRect& cell) {
  entry_->ChangeValue(text_.Shown(entry.text));
  const wxPoint place = list_->GetParent()->ScreenToClient(cell.GetPosition());
  const int height = std::max(cell.height, FieldSize(*entry_, 1).y);
  entry_->SetSize(place.x, place.y - (height - cell.height) / 2, cell.width, height);
  entry_->Raise();
}

}  // namespace imptable
