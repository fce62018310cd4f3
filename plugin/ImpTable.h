#ifndef PLUGIN_IMP_TABLE_H_
#define PLUGIN_IMP_TABLE_H_

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "core/TaskDialog.h"
#include "platform/system/MessageLoop.h"
#include "plugin/ModuleState.h"

namespace imptable {

/// Where the task's events go.
class ImpTableEvents {
 public:
  virtual ~ImpTableEvents() = default;
  virtual void Progress() = 0;
  virtual void Complete() = 0;
};

/// One import task, as the host drives it. The host's contract sets its members and their meaning;
/// the automation layer only translates. All members are called on one thread.
/// Errors: a RuntimeFault leaves any member that fails; the object stays usable.
class ImpTable {
 public:
  /// Reads the language offset from the registry and creates the report writer.
  /// @param state, events  borrowed; must outlive the object. events may be null.
  /// @param dialogs  borrowed; null when no dialog can be shown.
  ImpTable(ModuleState& state, ImpTableEvents* events, TaskDialogFactory* dialogs = nullptr);
  ImpTable(const ImpTable&) = delete;
  ImpTable& operator=(const ImpTable&) = delete;
  ~ImpTable();

  // Properties: plain storage.
  std::string Nom;                // task name
  std::int32_t Regst = 0;         // registry root
  std::string RegstCle;           // path below it of the key that holds the scenario's tasks
  std::int16_t Etat = 0;          // working mode; receives the dialog's outcome
  std::string Rapport;            // path of the execution report
  std::string Scen;               // scenario
  HostDisplay* Bouton = nullptr;  // passed on to every report write; borrowed, outlives the object

  void RunT(std::int16_t deferred_request);

  /// 0 raises Complete and does nothing else; 2 asks for a resume.
  void Run(std::int16_t request);
  void ExecuteTache();

  /// Shows the configuration dialog. @return 0.
  /// @throws RuntimeFault  no such host object, when there are no dialogs to show.
  std::int16_t Affiche();

  /// The same with the host's caption and the wrapper's icon. @return Etat after the dialog.
  std::int32_t ShowWrapper();

  /// The task's settings as an HTML fragment.
  std::string GetTaskDescription();

  /// The scenario actions of the task of this name; empty when it has none. The task is looked for
  /// at the current registry location, as a description, a dialog or a run has set it.
  std::string GetActions();

  bool IsTrigger() const { return false; }
  bool IsActionSupported(std::int32_t action_type) const;

  /// Name of the bitmap resource that pictures the wrapper.
  std::string_view GetPicture() const { return "WRAPPER_PICTURE"; }

  /// The task's "Etat" value at the current registry location; 0 when absent or empty.
  std::int32_t GetStatus() const;
  std::string GetSummary() const;
  std::string GetTitle() const;
  std::int32_t GetWrapperType() const { return kWrapperType; }
  std::int32_t GetWorkingMode() const { return Etat; }
  const std::string& GetName() const { return Nom; }

  void SetLanguage(std::int32_t language);
  void SetName(const std::string& name) { Nom = name; }
  void SetRegistryRoot(std::int32_t root) { Regst = root; }
  void SetRegistrySubKey(const std::string& path) { RegstCle = path; }
  void SetReportFilePath(const std::string& path) { Rapport = path; }
  void SetScenario(const std::string& scenario) { Scen = scenario; }

  /// @throws RuntimeFault  overflow when the mode doesn't fit 16 bits; Etat is then unchanged.
  void SetWorkingMode(std::int32_t mode);

  void InitializeProperties(const std::string& name, const std::string& scenario,
                            std::int32_t language);

  /// The tick handlers of the heartbeat and of the second timer, which nothing starts.
  void mwTimer_Tick();
  void mwTimer1_Tick();

 private:
  void RaiseProgress();
  void RaiseComplete();
  void ShowDialog(bool as_wrapper);

  ModuleState& state_;
  ImpTableEvents* events_;
  TaskDialogFactory* dialogs_;
  std::unique_ptr<ReportWriter> report_writer_;
  std::int16_t run_request_ = 0;
  std::int16_t deferred_run_request_ = 0;
  std::unique_ptr<Timer> mwTimer_;
  std::unique_ptr<Timer> mwTimer1_;
};

}  // namespace imptable

#endif  // PLUGIN_IMP_TABLE_H_
