#include "tests/drivers/CallNames.h"

#include <algorithm>
#include <array>

namespace imptable::scripted {
namespace {

// In the order of Call.
constexpr std::array<std::string_view, 32> kNames{"SQLAllocEnv",
                                                  "SQLAllocConnect",
                                                  "SQLDriverConnect",
                                                  "SQLConnect",
                                                  "SQLDisconnect",
                                                  "SQLFreeConnect",
                                                  "SQLFreeEnv",
                                                  "SQLGetInfo",
                                                  "SQLSetConnectOption",
                                                  "SQLGetConnectOption",
                                                  "SQLTransact",
                                                  "SQLAllocStmt",
                                                  "SQLFreeStmt",
                                                  "SQLSetStmtOption",
                                                  "SQLGetStmtOption",
                                                  "SQLPrepare",
                                                  "SQLBindParameter",
                                                  "SQLExecute",
                                                  "SQLExecDirect",
                                                  "SQLRowCount",
                                                  "SQLNumParams",
                                                  "SQLNumResultCols",
                                                  "SQLDescribeCol",
                                                  "SQLBindCol",
                                                  "SQLFetch",
                                                  "SQLMoreResults",
                                                  "SQLCancel",
                                                  "SQLTables",
                                                  "SQLColumns",
                                                  "SQLPrimaryKeys",
                                                  "SQLStatistics",
                                                  "SQLSpecialColumns"};
static_assert(kNames.size() == kCallCount);
static_assert(kNames[static_cast<std::size_t>(Call::kExecute)] == "SQLExecute");
static_assert(kNames[static_cast<std::size_t>(Call::kSpecialColumns)] == "SQLSpecialColumns");

}  // namespace

std::string_view NameOf(Call call) { return kNames[static_cast<std::size_t>(call)]; }

std::optional<Call> CallNamed(std::string_view name) {
  const auto found = std::find(kNames.begin(), kNames.end(), name);
  if (found == kNames.end()) return std::nullopt;
  return static_cast<Call>(found - kNames.begin());
}

}  // namespace imptable::scripted
