#include "dialogs/widgets/OriginPicker.h"

#include <wx/button.h>
#include <wx/listbox.h>
#include <wx/textctrl.h>

#include <algorithm>
#include <utility>

namespace imptable {
namespace {

constexpr int kVisibleEntries = 8;
constexpr int kEntryHeight = 24;  // in pixels of an ordinary screen

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
    if (shown_list_) Later([this, row = shown_list_->row] { handlers_.open(row); });
  });
  list_->Bind(wxEVT_LISTBOX, [this](wxCommandEvent&) {
    if (!std::exchange(moved_by_key_, false)) PickSelected();
  });
  list_->Bind(wxEVT_KEY_DOWN, [this](wxKeyEvent& event) {
    moved_by_key_ = true;
    event.Skip();
  });
  list_->Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent& event) {
    moved_by_key_ = false;
    event.Skip();
  });
  Watch(list_);
  Watch(entry_);
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
    if (painting_ || event.GetWindow() == open_) return;
    if (is_list) {
      Later(handlers_.leave);
    } else {
      Later([this] { handlers_.type(text_.Stored(entry_->GetValue())); });
    }
  });
}

void OriginPicker::Later(std::function<void()> action) {
  page_->CallAfter([this, action = std::move(action)] {
    // Two events of one closing, as a key and the focus that goes, are one.
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
  if (state.origin_entry && state.origin_entry != shown_entry_) {
    ShowEntry(*state.origin_entry, cell(state.origin_entry->row));
  }
  if (state.origin_list && state.origin_list != shown_list_) {
    ShowList(*state.origin_list, cell(state.origin_list->row));
  }
  shown_entry_ = state.origin_entry;
  shown_list_ = state.origin_list;
  entry_->Show(shown_entry_.has_value());
  list_->Show(shown_list_.has_value());
  open_->Show(shown_list_.has_value());
  if (shown_entry_) entry_->SetFocus();
  if (shown_list_) list_->SetFocus();
  painting_ = false;
  return was_open && had_focus && !shown_list_ && !shown_entry_;
}

void OriginPicker::ShowList(const OriginList& list, const wxRect& cell) {
  wxArrayString entries;
  for (const std::string& entry : list.entries) entries.Add(text_.Shown(entry));
  list_->Set(entries);
  if (!entries.empty()) list_->SetSelection(0);
  moved_by_key_ = false;

  const wxPoint place = page_->ScreenToClient(cell.GetPosition());
  const int button = std::min(cell.height, cell.width);
  open_->SetSize(place.x + cell.width - button, place.y, button, cell.height);
  const int visible = std::clamp(static_cast<int>(entries.size()), 2, kVisibleEntries);
  const int height = visible * page_->FromDIP(kEntryHeight);
  const int room = page_->GetClientSize().y;
  const bool below = place.y + cell.height + height <= room;
  list_->SetSize(place.x, below ? place.y + cell.height : std::max(0, place.y - height), cell.width,
                 height);
  open_->Raise();
  list_->Raise();
}

void OriginPicker::ShowEntry(const OriginEntry& entry, const wxRect& cell) {
  entry_->ChangeValue(text_.Shown(entry.text));
  const wxPoint place = page_->ScreenToClient(cell.GetPosition());
  const int height = std::max(cell.height, entry_->GetBestSize().y);
  entry_->SetSize(place.x, place.y - (height - cell.height) / 2, cell.width, height);
  entry_->Raise();
}

}  // namespace imptable
