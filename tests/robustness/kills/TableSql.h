#ifndef TESTS_ROBUSTNESS_KILLS_TABLESQL_H_
#define TESTS_ROBUSTNESS_KILLS_TABLESQL_H_

#include <string>

#include "tests/robustness/kills/TableModel.h"
#include "tests/scenarios/Database.h"

namespace imptable {

/// Waits for what a server still does for a process that is gone; nothing in SQLite.
std::string WaitSql(DatabaseKind kind);

/// Tables client and executions, anew and empty.
std::string TableSql(DatabaseKind kind, Work work);

std::string RowsSql(const TableModel& table);

/// What logs, in table executions, each row of client that is inserted, changed or deleted, and
/// refuses the deletion of kept ones.
std::string TriggerSql(DatabaseKind kind, Work work);

}  // namespace imptable

#endif  // TESTS_ROBUSTNESS_KILLS_TABLESQL_H_
