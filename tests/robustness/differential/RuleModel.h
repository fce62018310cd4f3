#ifndef TESTS_ROBUSTNESS_DIFFERENTIAL_RULE_MODEL_H_
#define TESTS_ROBUSTNESS_DIFFERENTIAL_RULE_MODEL_H_

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "tests/robustness/differential/RuleValues.h"

namespace imptable::rules {

/// A table column: its SQL type, and whether a statement writes it.
struct Column {
  std::int16_t sql_type = 12;
  bool ignored = false;
};

/// What a task says of its records, in the words of its settings.
struct Task {
  bool utf8 = true;
  int year = 2006;
  std::string user_separator = ".";
  std::string delimiter = ";";          // "DelimiteurFile"
  bool delimited = false;               // "FormatFile" 1
  bool explicit_separator = false;      // "SepDec" 1
  bool blanks_are_null = false;         // "Null" 1
  bool assigned = false;                // "Param" 1
  std::vector<std::string> layout;      // "Colonnes"
  std::vector<std::string> assignment;  // "Champs"
  std::map<std::string, std::string> variables;
  std::vector<Column> columns;
};

/// What a parameter of a statement carries.
struct Value {
  enum class Kind { kNull, kText, kNumber, kDate };
  Kind kind = Kind::kNull;
  std::string text;
  double number = 0;
  Date date;

  bool operator==(const Value&) const = default;
};

struct Record {
  enum class Result { kRefusedTask, kFailed, kEmpty, kRecord };
  Result result = Result::kFailed;
  std::vector<Value> values;  // one a column; only when the line is a record

  bool operator==(const Record&) const = default;
};

/// What a line is by the rules, worked out anew for every line.
Record RecordByTheRules(const Task& task, const std::string& line);

/// The whole record as a text, to be compared with another one.
std::string Described(const Record& record);

}  // namespace imptable::rules

#endif  // TESTS_ROBUSTNESS_DIFFERENTIAL_RULE_MODEL_H_
