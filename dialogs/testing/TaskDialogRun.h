#ifndef DIALOGS_TESTING_TASK_DIALOG_RUN_H_
#define DIALOGS_TESTING_TASK_DIALOG_RUN_H_

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "dialogs/ImpTablePresenter.h"
#include "dialogs/testing/RecordingBoxes.h"
#include "dialogs/testing/RecordingImpTableView.h"
#include "dialogs/testing/WatchedRegistry.h"
#include "platform/testing/TemporaryFolder.h"
#include "tests/drivers/ScriptedDataSource.h"
#include "tests/kit/TestComponent.h"

namespace imptable {

/// Counts its runs, and does meanwhile what a test wants.
class RecordingAdministrator : public OdbcAdministrator {
 public:
  void RunAndWait() override {
    ++runs;
    if (meanwhile) meanwhile();
  }
  int runs = 0;
  std::function<void()> meanwhile;
};

/// The configuration dialog of task "T1" of scenario "S1", without a window: what it shows, its
/// boxes and what it writes are kept. There is one data source, of the scripted driver.
class TaskDialogRun : public ColumnDialogs {
 public:
  static constexpr const char* kTasks = "SOFTWARE\\KALDO\\Scenarios\\S1\\Taches";
  static constexpr const char* kTask = "SOFTWARE\\KALDO\\Scenarios\\S1\\Taches\\T1";

  explicit TaskDialogRun(
      std::unique_ptr<TextEncoding> code_page = std::make_unique<Utf8TextEncoding>());

  /// What the task's key holds before the dialog opens.
  void Stored(std::string_view name, std::string_view text);
  void Stored(std::string_view name, std::int32_t number);
  void StoredIn(std::string_view subkey, const std::vector<std::string>& values);

  ImpTablePresenter& Open(std::int16_t working_mode);
  ImpTablePresenter& OpenNew() { return Open(0); }
  ImpTablePresenter& OpenExisting() { return Open(1); }

  /// A new task with all that the checks ask for: INSERT from CLIENTS of the scripted data source.
  ImpTablePresenter& OpenComplete();

  ImpTablePresenter& dialog() { return *presenter_; }
  const ImpTableState& shown() const { return view.state; }
  ModuleCommun& module() { return state.commun; }

  /// The changes of the registry since the last call.
  std::vector<std::string> Changes() { return std::exchange(journal.changes, {}); }

  /// The boxes since the last call, those of the database included.
  std::vector<std::string> Boxes();

  std::optional<std::string> AskDateFormat(const std::string&) override { return std::nullopt; }
  std::optional<std::string> AskNumber(NumberKind, const std::string&) override {
    return std::nullopt;
  }

  ScriptedDataSource source;
  TemporaryFolder folder;
  TestComponent ports;
  WatchedRegistry journal{ports.registry, kTasks};
  ModuleState state;
  RecordingBoxes boxes;
  RecordingAdministrator administrator;
  DialogServices services{state.commun, boxes, administrator};
  RecordingImpTableView view;

 private:
  std::unique_ptr<ImpTablePresenter> presenter_;
  std::size_t warnings_seen_ = 0;
};

}  // namespace imptable

#endif  // DIALOGS_TESTING_TASK_DIALOG_RUN_H_
