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

  /// Paints all of it; sends no events for what it changes.
  virtual void Show(const ImpTableState& state) = 0;

  /// @param control  a name of kTextControls, "Grid1" or "Grid2"; on the tab that was shown last.
  virtual void Focus(std::string_view control) = 0;

  /// Ends the modal showing.
  virtual void HideDialog() = 0;

  /// Shows FrmTable modally around the presenter, from its Open to its closing.
  virtual void RunTablePicker(TablePickerPresenter& picker) = 0;

  /// Shows the list modally. @return the picked name; nullopt when cancelled.
  virtual std::optional<std::string> PickVariable(const VariableListState& list) = 0;
};

/// Decides in the task configuration dialog. Every event but plain typing shows the state anew;
/// while one connects, lists or waits for a window, the others but typing are ignored.
/// Errors: none leaves a member but Load; a box shows what failed and the dialog stays usable.
class ImpTablePresenter : private ColumnLayoutView {
 public:
  /// Edits the task at the module's current registry location, wherever that moves meanwhile.
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

  /// True for an existing task and after every save: what the plug-in takes back as outcome.
  bool saved() const { return saved_; }

  /// True once this dialog has saved the task.
  bool saved_now() const { return saved_now_; }

  /// The name under which the task was last saved; until then the one that the host gave.
  const std::string& task_name() const { return task_name_; }

  const ImpTableState& state() const { return state_; }

  /// The tab of the columns: what happens in Grid1, Grid2, List1, Command3 and Text1 goes straight
  /// to it. It shows itself through this presenter's view. To be used after Load only.
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

  /// Runs an event: at the task's location, faults in a box; ignored while another one runs.
  void Handle(const std::function<void()>& event);
  void Warn(const std::string& text);
  void Fill();
  void LoadTask();
  void FillSources();
  void ChangeSource(const std::string& data_source);
  void LeaveSeparator();
  void InsertVariable(std::string_view control);

  /// @return true when one has changed.
  bool RefreshTooltips();

  /// Brings a column count that was typed, and is one, to the columns.
  void TakeColumnCount();
  void ShowColumnCount();

  /// @return the picked line.
  std::optional<std::string> Pick(PickerMode mode);

  /// @return true after the box, the field's tab is then in front and the field gets the focus.
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
  bool begun_ = false;  // a save wrote a part: a task of that name that is there now is this one
  bool saved_now_ = false;
  std::string task_name_;
  ImpTableState state_;
  std::unique_ptr<ColumnLayoutEditor> columns_;
  std::string source_;      // whose fields the others are
  std::string separator_;   // by which the columns were counted
  std::string_view focus_;  // the control that gets the focus when the event is done
  bool busy_ = false;
};

}  // namespace imptable

#endif  // DIALOGS_IMP_TABLE_PRESENTER_H_
