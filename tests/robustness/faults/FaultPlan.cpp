#include "tests/robustness/faults/FaultPlan.h"

#include <cstdio>
#include <cstdlib>

namespace imptable {
namespace {

// By Operation.
constexpr std::array<std::string_view, kOperations> kNames{
    "file query",
    "file open for reading",
    "file read",
    "file open for writing",
    "file write",
    "file flush",
    "file close",
    "file replace",
    "file remove",
    "registry read",
    "registry write",
    "registry list",
    "selection file read",
    "scenario variable",
    "report line",
    "SQLAllocEnv",
    "SQLAllocConnect",
    "SQLSetConnectOption",
    "SQLDriverConnect",
    "SQLGetInfo",
    "SQLGetFunctions",
    "SQLAllocStmt",
    "SQLColumns",
    "SQLSpecialColumns",
    "SQLPrimaryKeys",
    "SQLBindCol",
    "SQLFetch",
    "SQLPrepare",
    "SQLBindParameter",
    "SQLExecute",
    "SQLExecDirect",
    "SQLRowCount",
    "SQLError",
    "SQLFreeStmt",
    "SQLDisconnect",
    "SQLFreeConnect",
    "SQLFreeEnv",
};

/// Far more than any run of these tests needs: a run that makes so many operations doesn't end by
/// itself.
constexpr std::size_t kMostOperations = 100'000;

}  // namespace

std::string_view NameOf(Operation operation) { return kNames[static_cast<std::size_t>(operation)]; }

OperationGroup GroupOf(Operation operation) {
  if (operation <= Operation::kRemove) return OperationGroup::kFiles;
  if (operation <= Operation::kRegistryList) return OperationGroup::kRegistry;
  if (operation <= Operation::kReportLine) return OperationGroup::kHost;
  return OperationGroup::kOdbc;
}

std::string_view NameOf(Effect effect) {
  switch (effect) {
    case Effect::kFails:
      return "fails";
    case Effect::kDiskFull:
      return "finds the disk full";
    case Effect::kTorn:
      return "is cut short by a full disk";
    case Effect::kInvalidHandle:
      return "gives SQL_INVALID_HANDLE";
    case Effect::kInformation:
      return "gives SQL_SUCCESS_WITH_INFO";
    case Effect::kAnswerLost:
      return "is done but fails";
  }
  return {};
}

std::vector<Effect> EffectsOn(Operation operation) {
  switch (operation) {
    case Operation::kWrite:
      return {Effect::kFails, Effect::kDiskFull, Effect::kTorn};
    case Operation::kOpenWrite:
    case Operation::kFlush:
    case Operation::kClose:
    case Operation::kReplace:
      return {Effect::kFails, Effect::kDiskFull};
    case Operation::kExecute:
    case Operation::kExecDirect:
      return {Effect::kFails, Effect::kInvalidHandle, Effect::kInformation, Effect::kAnswerLost};
    default:
      if (GroupOf(operation) != OperationGroup::kOdbc) return {Effect::kFails};
      return {Effect::kFails, Effect::kInvalidHandle, Effect::kInformation};
  }
}

std::string_view NameOf(Phase phase) {
  constexpr std::array<std::string_view, 10> kPhases{
      "loading", "connecting", "preparing", "checking",     "deleting", "preparing the import",
      "reading", "closing",    "ending",    "disconnecting"};
  return kPhases[static_cast<std::size_t>(phase)];
}

void FaultPlan::Start(std::optional<Fault> fault) {
  counts_.fill(0);
  fault_ = fault;
  occurrences_.clear();
  hits_.clear();
  phase = Phase::kLoading;
  checked_ = false;
  counting_ = true;
}

std::optional<Effect> FaultPlan::Next(Operation operation, std::string_view about) {
  if (!counting_) return std::nullopt;
  const int count = ++counts_[static_cast<std::size_t>(operation)];
  // ".ERR" is the first file to be removed, once the checks have found nothing wrong.
  if (operation == Operation::kRemove && about.ends_with(".ERR")) checked_ = true;
  const bool checking = phase == Phase::kPreparing && !checked_ && source_is_known();
  occurrences_.push_back({operation, checking ? Phase::kChecking : phase, std::string(about)});
  if (occurrences_.size() > kMostOperations) {
    std::fprintf(stderr, "The run doesn't end.\n");
    std::abort();
  }
  if (!fault_ || fault_->operation != operation) return std::nullopt;
  if (count != fault_->nth && !(fault_->persists && count > fault_->nth)) return std::nullopt;
  hits_.push_back(occurrences_.back());
  return fault_->effect;
}

}  // namespace imptable
