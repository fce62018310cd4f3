#ifndef TESTS_ROBUSTNESS_FAULTS_FAULT_PLAN_H_
#define TESTS_ROBUSTNESS_FAULTS_FAULT_PLAN_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace imptable {

/// The operations that a run asks of the world around it, each counted by itself.
enum class Operation : std::uint8_t {
  kQuery,
  kOpenRead,
  kRead,
  kOpenWrite,
  kWrite,
  kFlush,
  kClose,
  kReplace,
  kRemove,
  kRegistryRead,
  kRegistryWrite,
  kRegistryList,
  kProfileRead,
  kVariable,
  kReportLine,
  kAllocEnv,
  kAllocConnect,
  kSetConnectOption,
  kDriverConnect,
  kGetInfo,
  kGetFunctions,
  kAllocStmt,
  kColumns,
  kSpecialColumns,
  kPrimaryKeys,
  kBindCol,
  kFetch,
  kPrepare,
  kBindParameter,
  kExecute,
  kExecDirect,
  kRowCount,
  kError,
  kFreeStmt,
  kDisconnect,
  kFreeConnect,
  kFreeEnv,
};

inline constexpr std::size_t kOperations = static_cast<std::size_t>(Operation::kFreeEnv) + 1;

/// The operation's name in the figures; for an ODBC function, the function's own.
std::string_view NameOf(Operation operation);

enum class OperationGroup : std::uint8_t { kFiles, kRegistry, kHost, kOdbc };
OperationGroup GroupOf(Operation operation);

/// What becomes of an operation that a fault hits.
enum class Effect : std::uint8_t {
  kFails,          // isn't done; gives an error
  kDiskFull,       // isn't done; gives "no space left on device"
  kTorn,           // half of the bytes are written, then the disk is full
  kInvalidHandle,  // isn't done; gives SQL_INVALID_HANDLE, without a diagnostic
  kInformation,    // is done; gives SQL_SUCCESS_WITH_INFO
  kAnswerLost,     // is done; gives an error all the same
};

std::string_view NameOf(Effect effect);
std::vector<Effect> EffectsOn(Operation operation);

/// How far a run has come, by what it has reported and asked for.
enum class Phase : std::uint8_t {
  kLoading,
  kConnecting,
  kPreparing,  // connected: what the last run left, side files
  kChecking,   // the settings and the source, while everything is as the last run left it
  kDeleting,
  kImportPreparing,
  kReading,
  kClosing,
  kEnding,
  kDisconnecting,
};

std::string_view NameOf(Phase phase);

/// One operation as it happened.
struct Occurrence {
  Operation operation;
  Phase phase;
  std::string about;  // path, value or text that it was given; may be empty
};

/// The nth operation of a kind, counted from 1, and with `persists` all after it.
struct Fault {
  Operation operation;
  int nth;
  bool persists;
  Effect effect;
};

/// Counts the operations of one run and says which of them a fault hits.
class FaultPlan {
 public:
  /// Begins to count anew, with or without a fault.
  void Start(std::optional<Fault> fault);

  /// Everything works again and nothing is counted.
  void Stop() { counting_ = false; }

  /// To be called for each operation.
  /// @return its effect when the fault hits it.
  std::optional<Effect> Next(Operation operation, std::string_view about);

  /// Forgets the last hit: there was nothing that the fault could spoil.
  void TakeBack() { hits_.pop_back(); }

  int Count(Operation operation) const { return counts_[static_cast<std::size_t>(operation)]; }

  /// All operations, in the order of the run.
  const std::vector<Occurrence>& occurrences() const { return occurrences_; }

  /// The operations that the fault hit.
  const std::vector<Occurrence>& hits() const { return hits_; }

  const std::optional<Fault>& fault() const { return fault_; }

  /// Set by whoever sees the run reach a phase.
  Phase phase = Phase::kLoading;

  /// Whether the run has looked at its source.
  std::function<bool()> source_is_known;

 private:
  std::array<int, kOperations> counts_{};
  std::optional<Fault> fault_;
  std::vector<Occurrence> occurrences_;
  std::vector<Occurrence> hits_;
  bool checked_ = false;
  bool counting_ = false;
};

}  // namespace imptable

#endif  // TESTS_ROBUSTNESS_FAULTS_FAULT_PLAN_H_
