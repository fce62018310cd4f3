#ifndef TESTS_DRIVERS_SCRIPT_H_
#define TESTS_DRIVERS_SCRIPT_H_

#include <array>
#include <chrono>
#include <cstdint>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "tests/drivers/CallNames.h"
#include "tests/drivers/Diagnostics.h"
#include "tests/drivers/DriverApi.h"

namespace imptable::scripted {

/// One value of a result row as text, whatever its SQL type; nullopt is NULL.
using Cell = std::optional<std::string>;

/// What a call must have been given.
struct Condition {
  enum class Kind : std::uint8_t {
    kNone,
    kParameterEquals,
    kParameterIsNull,
    kTextEquals,
    kTextIsLike,
  };
  Kind kind = Kind::kNone;
  SQLUSMALLINT parameter = 0;
  std::string value;
};

/// Which of the calls of one name, counted from 1 on one connection.
struct Turn {
  enum class Kind : std::uint8_t { kAny, kNth, kEvery, kFrom };
  Kind kind = Kind::kAny;
  std::uint64_t number = 0;
};

struct Rule {
  Turn turn;
  Condition condition;
  SQLRETURN code = SQL_SUCCESS;
  std::vector<Diagnostic> diagnostics;
};

/// All that the script says about the calls of one name.
struct CallPlan {
  std::vector<Rule> rules;
  std::chrono::milliseconds delay{0};
  std::optional<std::uint64_t> crash_at;
  /// Nothing is said: the call only counts.
  bool IsQuiet() const { return rules.empty() && delay.count() == 0 && !crash_at; }
};

struct RowCountRule {
  Turn turn;
  Condition condition;
  SQLLEN answer = 0;
};

struct ColumnRow {
  Cell name, sql_type, type_name, precision, length, scale, radix, nullable, remarks;
};
struct KeyRow {
  Cell column, sequence, key_name;
};
struct IndexRow {
  Cell column, sequence, index_name, type, non_unique;
};
struct SpecialRow {
  SQLUSMALLINT identifier = SQL_ROWVER;
  Cell column, sql_type, type_name;
};

/// A table of the data source; the first one of a script has no name and answers for any.
struct TableEntry {
  Cell name, type, schema, catalogue;
  std::vector<ColumnRow> columns;
  std::vector<KeyRow> keys;
  std::vector<IndexRow> indexes;
  std::vector<SpecialRow> specials;
};

struct Script {
  using InfoAnswer = std::variant<std::string, SQLUSMALLINT>;

  std::map<SQLUSMALLINT, InfoAnswer> info;
  std::map<SQLUSMALLINT, bool> support;
  std::vector<TableEntry> tables{1};
  std::array<CallPlan, kCallCount> plans;
  std::vector<RowCountRule> row_counts;
  SQLLEN row_count = 1;

  const CallPlan& PlanOf(Call call) const { return plans[static_cast<std::size_t>(call)]; }
  CallPlan& PlanOf(Call call) { return plans[static_cast<std::size_t>(call)]; }
};

/// The line that can't be understood, and why.
class ScriptFault : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// @throws ScriptFault
Script ParseScript(std::string_view text);
/// An empty path is an empty script.
/// @throws ScriptFault, also when the file can't be read.
Script LoadScript(const std::string& path);

}  // namespace imptable::scripted

#endif  // TESTS_DRIVERS_SCRIPT_H_
