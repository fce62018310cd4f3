#include "plugin/ImpTable.h"

#include <chrono>
#include <limits>

#include "core/LocationRestorer.h"
#include "plugin/RunDriver.h"
#include "plugin/ScenarioActions.h"
#include "plugin/ScenarioKeys.h"
#include "plugin/TaskDescription.h"

namespace imptable {
namespace {

constexpr std::chrono::milliseconds kHeartbeat{500};

constexpr std::string_view kConfigurationPath = "SOFTWARE\\KALDO\\Configuration";
constexpr std::string_view kWrapperIcon = "WRAPPER_ICON";

// Action type and wrapper type numbers of the host: never change.
constexpr std::int32_t kTriggerAction = 1;
constexpr std::int32_t kJumpAction = 3;
constexpr std::int32_t kUnjumpableWrapper = 100;

std::int32_t StoredLanguage(ModuleCommun& module) {
  const LocationRestorer restorer(module.location);
  module.location = {kHkeyLocalMachine, std::string(kConfigurationPath)};
  return AsInt32(module.ReadValue("", "Lang", kFrenchOffset), "Lang");
}

}  // namespace

ImpTable::ImpTable(ModuleState& state, ImpTableEvents* events, TaskDialogFactory* dialogs)
    : state_(state), events_(events), dialogs_(dialogs) {
  ModuleCommun& module = state_.commun;
  module.language_offset = StoredLanguage(module);
  report_writer_ = module.host.CreateReportWriter();
}

ImpTable::~ImpTable() {
  if (state_.commun.run.display == Bouton) state_.commun.run.display = nullptr;
  if (state_.commun.report_writer == report_writer_.get()) state_.commun.report_writer = nullptr;
}

void ImpTable::RaiseProgress() {
  if (events_ != nullptr) events_->Progress();
}

void ImpTable::RaiseComplete() {
  if (events_ != nullptr) events_->Complete();
}

void ImpTable::RunT(std::int16_t deferred_request) {
  deferred_run_request_ = deferred_request;
  ExecuteTache();
}

void ImpTable::Run(std::int16_t request) {
  if (request == 0) {
    RaiseComplete();
    return;
  }
  run_request_ = request;
  ExecuteTache();
}

void ImpTable::ExecuteTache() {
  MessageLoop& loop = state_.commun.platform.message_loop;
  loop.Yield();
  mwTimer_ = loop.StartTimer(kHeartbeat, [this] { mwTimer_Tick(); });
  RunDriver driver(state_,
                   {.task = Nom,
                    .scenario = Scen,
                    .tasks = {Regst, RegstCle},
                    .report_path = Rapport,
                    .display = Bouton,
                    .report_writer = report_writer_.get(),
                    .request = run_request_},
                   [this] { RaiseProgress(); });
  driver.Execute();
  mwTimer_.reset();
  driver.Disconnect();
  RaiseComplete();
}

void ImpTable::mwTimer_Tick() {
  RaiseProgress();
  state_.commun.platform.message_loop.Yield();
}

void ImpTable::mwTimer1_Tick() {
  mwTimer1_.reset();
  if (deferred_run_request_ == 0) {
    RaiseComplete();
    return;
  }
  run_request_ = deferred_run_request_;
  ExecuteTache();
}

void ImpTable::ShowDialog(bool as_wrapper) {
  state_.commun.location = {Regst, RegstCle};
  state_.SetExecutionMode(ExecutionMode::kDialog);
  if (dialogs_ == nullptr) throw RuntimeFault(FaultNumber::kNoHostObject, "FrmImpTable");
  const auto dialog = dialogs_->Create(Etat, Nom, Scen);
  if (as_wrapper) {
    dialog->SetCaption(GetTitle());
    dialog->SetIcon(kWrapperIcon);
  }
  dialog->ShowModal();
  const std::int16_t outcome = dialog->Outcome();
  if (outcome == 0 || outcome == 1) Etat = outcome;
  if (as_wrapper) Nom = dialog->TaskName();
}

std::int16_t ImpTable::Affiche() {
  ShowDialog(false);
  return 0;
}

std::int32_t ImpTable::ShowWrapper() {
  ShowDialog(true);
  return Etat;
}

std::string ImpTable::GetTaskDescription() {
  state_.commun.location = {Regst, RegstCle};
  return DescribeTask(state_.commun, Nom, LoadSettings(state_.commun, Nom));
}

std::string ImpTable::GetActions() { return DescribeActions(state_.commun, Nom); }

bool ImpTable::IsActionSupported(std::int32_t action_type) const {
  if (action_type == kTriggerAction && !IsTrigger()) return false;
  return action_type != kJumpAction || GetWrapperType() != kUnjumpableWrapper;
}

std::int32_t ImpTable::GetStatus() const {
  return AsInt32(state_.commun.ReadValue(Nom, "Etat", 0), "Etat");
}

std::string ImpTable::GetSummary() const {
  return state_.commun.host.SummaryOfWrapperType(kWrapperType);
}

std::string ImpTable::GetTitle() const {
  return state_.commun.host.TitleOfWrapperType(kWrapperType);
}

void ImpTable::SetLanguage(std::int32_t language) { state_.commun.language_offset = language; }

void ImpTable::SetWorkingMode(std::int32_t mode) {
  if (mode < std::numeric_limits<std::int16_t>::min() ||
      mode > std::numeric_limits<std::int16_t>::max()) {
    throw RuntimeFault(FaultNumber::kOverflow, std::to_string(mode));
  }
  Etat = static_cast<std::int16_t>(mode);
}

void ImpTable::InitializeProperties(const std::string& name, const std::string& scenario,
                                    std::int32_t language) {
  const KeyPath tasks = TasksKey(scenario);
  Regst = tasks.root;
  RegstCle = tasks.path;
  Nom = name;
  Scen = scenario;
  Etat = 1;
  SetLanguage(language);
}

}  // namespace imptable
