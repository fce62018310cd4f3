#ifndef TESTS_ROBUSTNESS_KILLS_TABLESQL_H_
#define TESTS_ROBUSTNESS_KILLS_TABLESQL_H_

#include <string>

#include "tests/robustness/kills/TableModel.h"
#include "tests/scenarios/Database.h"

namespace imptable {

/// SQL that waits for what a server still does for a dead process; it does nothing in SQLite.
std::string WaitSql(DatabaseKind kind);

/// SQL that makes the tables client and executions anew and empty.
std::string TableSql(DatabaseKind kind, Work work);

std::string RowsSql(const TableModel& table);

/// SQL of triggers that log, in table executions, each row of client that is inserted, changed or
/// deleted. They refuse to delete kept rows.
std::string TriggerSql(DatabaseKind kind, Work work);

}  // namespace imptable

#endif  // TESTS_ROBUSTNESS_KILLS_TABLESQL_H_
