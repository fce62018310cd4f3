#ifndef TESTS_DRIVERS_RESULTSET_H_
#define TESTS_DRIVERS_RESULTSET_H_

#include <cstddef>
#include <string_view>
#include <vector>

#include "tests/drivers/Diagnostics.h"
#include "tests/drivers/DriverApi.h"
#include "tests/drivers/Script.h"

namespace imptable::scripted {

/// What SQLBindCol was given; no target is an unbound column.
struct BoundColumn {
  SQLSMALLINT c_type = 0;
  void* target = nullptr;
  SQLLEN size = 0;
  SQLLEN* indicator = nullptr;
};

struct ResultColumn {
  std::string_view name;
  SQLSMALLINT sql_type;
  SQLULEN size;
};

using ResultRow = std::vector<Cell>;

/// Rows waiting to be fetched; without columns, there is no cursor.
struct ResultSet {
  std::vector<ResultColumn> columns;
  std::vector<ResultRow> rows;
  std::size_t next = 0;
};

/// Writes the next row to the bound columns.
/// @return SQL_NO_DATA_FOUND after the last one; SQL_SUCCESS_WITH_INFO when a text was cut.
SQLRETURN FetchRow(ResultSet& result, const std::vector<BoundColumn>& bound,
                   DiagnosticQueue& diagnostics);

}  // namespace imptable::scripted

#endif  // TESTS_DRIVERS_RESULTSET_H_
