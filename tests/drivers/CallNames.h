#ifndef TESTS_DRIVERS_CALLNAMES_H_
#define TESTS_DRIVERS_CALLNAMES_H_

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace imptable::scripted {

/// The calls that a script can answer and that the log shows. SQLError and SQLGetFunctions are
/// left out: the driver manager asks them on its own account, many times a connection.
enum class Call : std::uint8_t {
  kAllocEnv,
  kAllocConnect,
  kDriverConnect,
  kConnect,
  kDisconnect,
  kFreeConnect,
  kFreeEnv,
  kGetInfo,
  kSetConnectOption,
  kGetConnectOption,
  kTransact,
  kAllocStmt,
  kFreeStmt,
  kSetStmtOption,
  kGetStmtOption,
  kPrepare,
  kBindParameter,
  kExecute,
  kExecDirect,
  kRowCount,
  kNumParams,
  kNumResultCols,
  kDescribeCol,
  kBindCol,
  kFetch,
  kMoreResults,
  kCancel,
  kTables,
  kColumns,
  kPrimaryKeys,
  kStatistics,
  kSpecialColumns,
};

inline constexpr std::size_t kCallCount = static_cast<std::size_t>(Call::kSpecialColumns) + 1;

std::string_view NameOf(Call call);
std::optional<Call> CallNamed(std::string_view name);

}  // namespace imptable::scripted

#endif  // TESTS_DRIVERS_CALLNAMES_H_
