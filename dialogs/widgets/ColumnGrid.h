#ifndef DIALOGS_WIDGETS_COLUMN_GRID_H_
#define DIALOGS_WIDGETS_COLUMN_GRID_H_

#include <wx/grid.h>

#include <functional>
#include <string>
#include <vector>

#include "dialogs/widgets/WidgetText.h"

namespace imptable {

/// Where in a grid the user wants something, by mouse or by keyboard.
struct GridPlace {
  int row = 0;
  int column = 0;
  wxPoint screen;  // where a menu opens
};

/// A grid that only shows: rows of texts below a header row. A click on a cell asks for what the
/// cell offers. Space, F4 and the menu key do the same. Tab leaves the grid.
class ColumnGrid : public wxGrid {
 public:
  /// @param text  borrowed.
  /// @param ask  called, once the event is over, with the place of a click or key.
  ColumnGrid(wxWindow* parent, const WidgetText& text, std::function<void(const GridPlace&)> ask);

  /// Paints header and rows. Touches only the cells that differ.
  void ShowRows(const std::vector<std::string>& header,
                const std::vector<std::vector<std::string>>& rows);

  /// Paints the background of a cell light yellow, or like that of the other cells.
  void Mark(int row, int column, bool marked);

  /// Moves to a row and scrolls it into sight.
  void GoTo(int row, int column);

  /// Scrolls a cell into sight. @return its place on the screen.
  wxRect CellOnScreen(int row, int column);

 private:
  void AskLater(int row, int column, const wxPoint& screen);
  void OnRelease(wxMouseEvent& event);
  void OnKey(wxKeyEvent& event);
  void FitColumns();

  const WidgetText& text_;
  std::function<void(const GridPlace&)> ask_;
  wxGridCellCoords pressed_ = wxGridNoCellCoords;
};

}  // namespace imptable

#endif  // DIALOGS_WIDGETS_COLUMN_GRID_H_
