#ifndef DIALOGS_IMP_TABLE_PRESENTER_H_
#define DIALOGS_IMP_TABLE_PRESENTER_H_

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "dialogs/DialogServices.h"
#include "dialogs/ImpTableState.h"
#include "dialogs/TablePickerPresenter.h"
#include "dialogs/TaskChecks.h"
#include "dialogs/VariableList.h"
#include "dialogs/columns/ColumnLayoutEditor.h"

namespace imptable {

/// The window of FrmImpTable.
class ImpTableView {
 public:
  virtual ~ImpTableView() = default;

  /// Paints the whole state. Sends no events for what it changes.
  virtual void Show(const ImpTableState& state) = 0;

  /// @param control  a name of kTextControls, "Grid1" or "Grid2"; on the tab that was shown last.
  virtual void Focus(std::string_view control) = 0;

  /// Ends the modal showing.
  virtual void HideDialog() = 0;

  /// Opens the picker, shows FrmTable modally and returns when that has closed.
  virtual void RunTablePicker(TablePickerPresenter& picker) = 0;

  /// Shows the list modally. @return the picked name; nullopt when cancelled.
  virtual std::optional<std::string> PickVariable(const VariableListState& list) = 0;
};

/// Decides what the task configuration dialog does and shows. Every event except plain typing shows
/// the state anew. While an event connects, lists or waits for a window, other events except typing
/// are ignored.
/// Errors: only Load throws. A box shows any other failure, and the dialog stays usable.
class ImpTablePresenter : private ColumnLayoutView {
 public:
  /// Edits the task at the module's present registry location, even when that location changes
  /// later.
  /// @param services, view, column_dialogs  borrowed.
  /// @param working_mode  0 for a new task, anything else for an existing one.
  ImpTablePresenter(const DialogServices& services, ImpTableView& view,
                    ColumnDialogs& column_dialogs, std::int16_t working_mode, std::string task,
                    std::string scenario);
  ImpTablePresenter(const ImpTablePresenter&) = delete;
  ImpTablePresenter& operator=(const ImpTablePresenter&) = delete;

  /// Caption and icon in place of the dialog's own; before Load.
  void SetCaption(const std::string& caption) { state_.caption = caption; }
  void SetIcon(std::string_view resource) { state_.icon = resource; }

  /// Form load: captions, data sources, the task's settings. To be called once. A number that can't
  /// be read takes its default, after a box that names it.
  /// @throws RuntimeFault  device error, when the registry can't be read.
  void Load();

  /// True for an existing task and after every save. The plug-in takes this as the outcome.
  bool saved() const { return saved_; }

  /// True once this dialog has saved the task.
  bool saved_now() const { return saved_now_; }

  /// The name under which the task was last saved; until then the one that the host gave.
  const std::string& task_name() const { return task_name_; }

  const ImpTableState& state() const { return state_; }

  /// The tab of the columns. Events of Grid1, Grid2, List1, Command3 and Text1 go straight to it,
  /// and it shows itself through this presenter's view. To be used after Load only.
  ColumnLayoutEditor& columns() { return *columns_; }

  /// A text of kTextControls was typed.
  void OnText(std::string_view control, const std::string& text);

  /// An entry of Combo1's list was chosen.
  void OnSource(const std::string& data_source);

  /// A box of kCheckControls was clicked.
  void OnCheck(std::string_view control, bool checked);

  /// A button of kOptionControls was clicked.
  void OnOption(std::string_view control, int index);

  /// Any control got the focus, or a text control lost it.
  void OnFocus(std::string_view control);
  void OnLeave(std::string_view control);

  void OnTab(int tab);

  /// UpDown1.
  void OnSpin(bool up);

  /// cmdSv, for the field it stands at, and cmdSv1, for Combo1.
  void OnVariable();
  void OnSourceVariable();

  void OnAdministrator();  // cmdAdminODBC
  void OnTables();         // Command1
  void OnKeys();           // cmdCle
  void OnColumns();        // cmdInfo
  void OnHelp();           // cmdHelp

  void Confirm();  // cmdValider
  void Apply();    // cmdApp
  void Cancel();   // cmdAnnuler, or the window's own closing

 private:
  void Show(const ColumnLayoutState& columns) override;
  void Show() { view_.Show(state_); }

  /// Runs an event at the task's location. A box shows a fault. Ignored while another event runs.
  void Handle(const std::function<void()>& event);
  void Warn(const std::string& text);
  void Fill();
  void LoadTask();
  void FillSources();
  void ChangeSource(const std::string& data_source);
  void LeaveSeparator();
  void InsertVariable(std::string_view control);

  /// @return true when a tooltip has changed.
  bool RefreshTooltips();

  /// Passes the typed column count on to the columns, if it is a valid count.
  void TakeColumnCount();
  void ShowColumnCount();

  /// @return the picked line.
  std::optional<std::string> Pick(PickerMode mode);

  /// @return true for a refusal. Its box was shown, its tab is in front, and its field gets the
  /// focus.
  bool Refuses(const std::optional<Refusal>& refusal);
  bool RefusesColumns();

  /// @return true when all was written.
  bool Save();

  ConnectionFields Connection() const;
  SourceFields Source() const;

  const DialogServices& services_;
  ModuleCommun& module_;
  ImpTableView& view_;
  ColumnDialogs& column_dialogs_;
  KeyPath tasks_;
  std::string scenario_;
  bool saved_;
  bool begun_ = false;  // a save was cut short: the task may exist because of it
  bool saved_now_ = false;
  std::string task_name_;
  ImpTableState state_;
  std::unique_ptr<ColumnLayoutEditor> columns_;
  std::string source_;      // the data source that user, table and key belong to
  std::string separator_;   // the one that the columns were counted with
  std::string_view focus_;  // the control that gets the focus when the event is done
  bool busy_ = false;
};

}  // namespace imptable

#endif  // DIALOGS_IMP_TABLE_PRESENTER_H_
