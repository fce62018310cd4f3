#ifndef TESTS_KIT_IMPORT_RUN_H_
#define TESTS_KIT_IMPORT_RUN_H_

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files/FileSystem.h"
#include "platform/testing/TemporaryFolder.h"
#include "plugin/ImpTable.h"
#include "tests/drivers/ScriptedDataSource.h"
#include "tests/kit/TestComponent.h"

namespace imptable {

/// The events that a run raised, in order.
class RecordingEvents : public ImpTableEvents {
 public:
  void Progress() override { Raise("Progress"); }
  void Complete() override { Raise("Complete"); }

  std::vector<std::string> raised;

  /// Called within each event with its name.
  std::function<void(const std::string&)> listener;

 private:
  void Raise(const std::string& event) {
    raised.push_back(event);
    if (listener) listener(event);
  }
};

/// A task "T1" of scenario "S1", run through the whole component against the scripted driver.
///
/// Unless a test says otherwise: INSERT of the delimited file CLIENTS.CSV into the table CLIENT,
/// whose columns are CODE (INTEGER) and NOM (VARCHAR 30), fed by position.
class ImportRun {
 public:
  ImportRun();

  /// Replaces the description of the table and the driver's behaviour.
  void Script(std::string_view script) { script_ = script; }

  /// Adds a line to the script, as "on SQLExecute 2 return -1 diag ...".
  void Driver(std::string_view line);

  void Set(std::string_view name, std::string_view text);
  void Set(std::string_view name, std::int32_t number);

  /// "Colonnes" and "NombreColonnes"; entry n at index n - 1.
  void Columns(const std::vector<std::string>& entries);

  /// "Champs" and "Param" 1.
  void Assign(const std::vector<std::string>& values);

  /// Writes the source file, each line followed by a line feed.
  void Source(const std::vector<std::string>& lines);

  /// Runs the task. @param request  1, or 2 for a resume. @return its "Etat".
  std::int32_t Go(std::int16_t request = 1);

  /// Lets `start` run the task, as another member of its contract does. @return its "Etat".
  std::int32_t GoBy(const std::function<void(ImpTable&)>& start);

  const RunProgress& progress() { return component.module().run.progress; }
  std::vector<std::string> Report() const { return component.host.Texts(); }

  /// Lines of a file of the run, without their line ends; a last line without one has "<torn>"
  /// after it. A file that doesn't exist gives the one line "<none>".
  std::vector<std::string> Lines(const std::string& name,
                                 std::string_view line_end = SystemLineEnd()) const;
  std::vector<std::string> Errors() const { return Lines("CLIENTS.ERR"); }
  std::vector<std::string> Rejected() const { return Lines("CLIENTS.LER"); }
  std::vector<std::string> Trace() const { return Lines("CLIENTS.TRC"); }

  /// Names of the run's files, in alphabetical order.
  std::vector<std::string> FileNames() const;

  /// What the driver was given to execute, as "1='7' 2='a'".
  std::vector<std::string> Executed() const;

  /// How many statements of the run were allocated and not dropped.
  std::int64_t OpenStatements() const;

  static constexpr std::string_view kTaskPath = "SOFTWARE\\KALDO\\Scenarios\\S1\\Taches\\T1";

  ScriptedDataSource source;
  TemporaryFolder folder;
  TestComponent component;
  RecordingEvents events;

 private:
  std::string script_;
};

}  // namespace imptable

#endif  // TESTS_KIT_IMPORT_RUN_H_
