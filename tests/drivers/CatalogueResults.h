#ifndef TESTS_DRIVERS_CATALOGUERESULTS_H_
#define TESTS_DRIVERS_CATALOGUERESULTS_H_

#include "tests/drivers/ResultSet.h"
#include "tests/drivers/Script.h"

namespace imptable::scripted {

/// The table that a catalogue call asks for; nullopt where it was given no text.
struct TableQuery {
  Cell schema, table;
};

/// Result sets of the catalogue calls as ODBC 2 shapes them. Names are patterns for Tables and
/// Columns, with the escape that the script answers to SQL_SEARCH_PATTERN_ESCAPE, and exact for
/// the others. An empty schema is no schema.
ResultSet TablesResult(const Script& script, const TableQuery& query, const Cell& types);
ResultSet ColumnsResult(const Script& script, const TableQuery& query, const Cell& column);
ResultSet PrimaryKeysResult(const Script& script, const TableQuery& query);
ResultSet StatisticsResult(const Script& script, const TableQuery& query, bool unique_only);
ResultSet SpecialColumnsResult(const Script& script, const TableQuery& query,
                               SQLUSMALLINT identifier);

/// '\0' when there is none.
char SearchPatternEscape(const Script& script);

}  // namespace imptable::scripted

#endif  // TESTS_DRIVERS_CATALOGUERESULTS_H_
