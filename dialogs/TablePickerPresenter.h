#ifndef DIALOGS_TABLE_PICKER_PRESENTER_H_
#define DIALOGS_TABLE_PICKER_PRESENTER_H_

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "dialogs/ConnectedListing.h"
#include "dialogs/DialogServices.h"

namespace imptable {

/// What FrmTable lists.
enum class PickerMode : std::uint8_t { kTables, kKeys };

/// What FrmTable shows.
struct TablePickerState {
  std::string caption;     // of the form; its icon is "ICO1"
  std::string cmdValider;  // captions
  std::string cmdAnnuler;
  // List1: a table as its owner, a tab and its name; a key as its columns, separated by ",".
  std::vector<std::string> lines;

  bool operator==(const TablePickerState&) const = default;
};

class TablePickerView {
 public:
  virtual ~TablePickerView() = default;
  virtual void Show(const TablePickerState& state) = 0;
  virtual void CloseDialog() = 0;
};

/// Lists the tables of a data source, or the keys of a table, and remembers the line that is
/// picked.
/// Errors: no member throws. A box shows what failed, and the list keeps what was listed before.
class TablePickerPresenter {
 public:
  /// @param services  borrowed.
  /// @param fields  as typed in the configuration dialog; the table and its owner matter for keys
  /// only.
  TablePickerPresenter(const DialogServices& services, PickerMode mode, std::string scenario,
                       ConnectionFields fields);
  TablePickerPresenter(const TablePickerPresenter&) = delete;
  TablePickerPresenter& operator=(const TablePickerPresenter&) = delete;

  /// Shows the dialog's captions, connects, lists, disconnects and shows the lines. To be called
  /// once, when the dialog is built.
  /// @param view  borrowed; must outlive every later call.
  void Open(TablePickerView& view);

  /// cmdValider, or a double click in List1. Closes.
  /// @param line  index of the selected line; none, or one that isn't there, picks nothing.
  void Confirm(std::optional<std::size_t> line);

  /// cmdAnnuler, or the window's own closing: picks nothing. Closes.
  void Cancel();

  /// The picked line; nullopt as long as none is picked.
  const std::optional<std::string>& picked() const { return picked_; }

 private:
  void List();
  void ListTables(Catalogue& catalogue);

  /// @return true when all that the driver can list was listed.
  bool ListKeys(Catalogue& catalogue);
  void Warn(const std::string& text);

  const DialogServices& services_;
  PickerMode mode_;
  std::string scenario_;
  ConnectionFields fields_;
  TablePickerView* view_ = nullptr;
  TablePickerState state_;
  std::optional<std::string> picked_;
  bool listing_ = false;
};

}  // namespace imptable

#endif  // DIALOGS_TABLE_PICKER_PRESENTER_H_
