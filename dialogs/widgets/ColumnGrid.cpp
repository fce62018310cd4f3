#include "dialogs/widgets/ColumnGrid.h"

#include <algorithm>
#include <utility>

namespace imptable {
namespace {

const wxSize kSmallestGrid(38, 11);  // in characters

const wxColour& KeyColour() {
  static const wxColour colour(255, 255, 192);  // light yellow
  return colour;
}

/// True for a menu key and for the keys that serve as one.
bool AsksForMenu(const wxKeyEvent& event) {
  switch (event.GetKeyCode()) {
    case WXK_SPACE:
    case WXK_F4:
    case WXK_WINDOWS_MENU:
    case WXK_MENU:
      return !event.HasAnyModifiers();
    case WXK_F10:
      return event.GetModifiers() == wxMOD_SHIFT;
    default:
      return false;
  }
}

}  // namespace

ColumnGrid::ColumnGrid(wxWindow* parent, const WidgetText& text,
                       std::function<void(const GridPlace&)> ask)
    : wxGrid(parent, wxID_ANY), text_(text), ask_(std::move(ask)) {
  CreateGrid(0, 0);
  EnableEditing(false);
  HideRowLabels();
  DisableDragRowSize();
  SetColLabelSize(wxGRID_AUTOSIZE);
  SetDefaultCellOverflow(false);
  SetMinSize({kSmallestGrid.x * GetCharWidth(), kSmallestGrid.y * GetCharHeight()});
  const auto on_press = [this](wxGridEvent& event) {
    event.Skip();
    pressed_ = wxGridCellCoords(event.GetRow(), event.GetCol());
  };
  Bind(wxEVT_GRID_CELL_LEFT_CLICK, on_press);
  Bind(wxEVT_GRID_CELL_RIGHT_CLICK, on_press);
  // Two quick clicks count as two clicks: a menu may open between them.
  Bind(wxEVT_GRID_CELL_LEFT_DCLICK, on_press);
  GetGridWindow()->Bind(wxEVT_LEFT_UP, &ColumnGrid::OnRelease, this);
  GetGridWindow()->Bind(wxEVT_RIGHT_UP, &ColumnGrid::OnRelease, this);
  Bind(wxEVT_KEY_DOWN, &ColumnGrid::OnKey, this);
  Bind(wxEVT_GRID_TABBING, [this](wxGridEvent& event) {
    Navigate(event.ShiftDown() ? wxNavigationKeyEvent::IsBackward
                               : wxNavigationKeyEvent::IsForward);
  });
  Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    event.Skip();
    FitColumns();
  });
}

// Asks only at the release. A menu that opened while the button is down would close at the release.
void ColumnGrid::OnRelease(wxMouseEvent& event) {
  event.Skip();
  const wxGridCellCoords pressed = std::exchange(pressed_, wxGridNoCellCoords);
  const wxPoint place = CalcUnscrolledPosition(event.GetPosition());
  if (XYToCell(place) != pressed) return;
  AskLater(pressed.GetRow(), pressed.GetCol(),
           GetGridWindow()->ClientToScreen(event.GetPosition()));
}

void ColumnGrid::AskLater(int row, int column, const wxPoint& screen) {
  if (row < 0 || column < 0) return;
  CallAfter([this, place = GridPlace{row, column, screen}] { ask_(place); });
}

void ColumnGrid::OnKey(wxKeyEvent& event) {
  const int row = GetGridCursorRow();
  const int column = GetGridCursorCol();
  if (!AsksForMenu(event) || row < 0 || column < 0) {
    event.Skip();
    return;
  }
  AskLater(row, column, CellOnScreen(row, column).GetBottomLeft());
}

void ColumnGrid::ShowRows(const std::vector<std::string>& header,
                          const std::vector<std::vector<std::string>>& rows) {
  const wxGridUpdateLocker locker(this);
  const auto resize = [](int now, int wanted, auto append, auto remove) {
    if (wanted > now) append(wanted - now);
    if (wanted < now) remove(wanted, now - wanted);
  };
  const int columns = static_cast<int>(header.size());
  const int count = static_cast<int>(rows.size());
  bool changed = columns != GetNumberCols() || count != GetNumberRows();
  resize(
      GetNumberCols(), columns, [this](int more) { AppendCols(more); },
      [this](int at, int fewer) { DeleteCols(at, fewer); });
  resize(
      GetNumberRows(), count, [this](int more) { AppendRows(more); },
      [this](int at, int fewer) { DeleteRows(at, fewer); });
  for (int column = 0; column < columns; ++column) {
    const auto at = static_cast<std::size_t>(column);
    const wxString label = text_.Shown(header[at]);
    if (GetColLabelValue(column) != label) {
      SetColLabelValue(column, label);
      changed = true;
    }
    for (int row = 0; row < count; ++row) {
      const wxString value = text_.Shown(rows[static_cast<std::size_t>(row)][at]);
      if (GetCellValue(row, column) == value) continue;
      SetCellValue(row, column, value);
      changed = true;
    }
  }
  if (changed) FitColumns();
}

void ColumnGrid::FitColumns() {
  const int columns = GetNumberCols();
  if (columns == 0) return;
  AutoSizeColumns(false);
  // The last column takes the room that the others leave.
  int others = 0;
  for (int column = 0; column + 1 < columns; ++column) others += GetColSize(column);
  const int room = GetGridWindow()->GetClientSize().x - others;
  SetColSize(columns - 1, std::max(GetColSize(columns - 1), room));
}

void ColumnGrid::Mark(int row, int column, bool marked) {
  const wxColour wanted = marked ? KeyColour() : GetDefaultCellBackgroundColour();
  if (GetCellBackgroundColour(row, column) == wanted) return;
  SetCellBackgroundColour(row, column, wanted);
  // Dark letters on the light ground, whatever the desktop's colours are.
  SetCellTextColour(row, column, marked ? *wxBLACK : GetDefaultCellTextColour());
  ForceRefresh();
}

void ColumnGrid::GoTo(int row, int column) {
  if (row >= GetNumberRows() || column >= GetNumberCols()) return;
  MakeCellVisible(row, column);
  SetGridCursor(row, column);
}

wxRect ColumnGrid::CellOnScreen(int row, int column) {
  MakeCellVisible(row, column);
  wxRect cell = CellToRect(row, column);
  cell.SetPosition(GetGridWindow()->ClientToScreen(CalcScrolledPosition(cell.GetPosition())));
  return cell;
}

}  // namespace imptable
