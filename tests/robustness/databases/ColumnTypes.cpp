#include "tests/robustness/databases/ColumnTypes.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <optional>

namespace imptable {
namespace {

std::string Trimmed(const std::string& text) {
  constexpr const char* kSpace = " \t\n\v\f\r";
  const std::size_t first = text.find_first_not_of(kSpace);
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(kSpace) - first + 1);
}

std::string Folded(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), [](char c) {
    return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  });
  return text;
}

/// The whole text as a number, else nullopt. A hexadecimal number, which strtod would read, isn't
/// one.
std::optional<double> Number(const std::string& text) {
  const std::string trimmed = Trimmed(text);
  if (trimmed.empty() || trimmed.find_first_not_of("0123456789+-.eE") != std::string::npos) {
    return std::nullopt;
  }
  char* end = nullptr;
  const double number = std::strtod(trimmed.c_str(), &end);
  if (*end != '\0') return std::nullopt;
  return number;
}

struct Moment {
  int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
  bool operator==(const Moment&) const = default;
};

std::optional<Moment> DateOf(const std::string& text, bool with_time) {
  const std::string trimmed = Trimmed(text);
  Moment moment;
  int used = 0;
  if (std::sscanf(trimmed.c_str(), "%4d-%2d-%2d%n", &moment.year, &moment.month, &moment.day,
                  &used) != 3) {
    return std::nullopt;
  }
  const std::string time = Trimmed(trimmed.substr(static_cast<std::size_t>(used)));
  if (!time.empty() &&
      std::sscanf(time.c_str(), "%2d:%2d:%2d", &moment.hour, &moment.minute, &moment.second) < 2) {
    return std::nullopt;
  }
  if (!with_time) moment.hour = moment.minute = moment.second = 0;
  return moment;
}

/// In seconds.
std::optional<int> TimeOf(const std::string& text) {
  std::string time = Trimmed(text);
  if (const std::size_t blank = time.find(' '); blank != std::string::npos) {
    if (!DateOf(time.substr(0, blank), false)) return std::nullopt;
    time = time.substr(blank + 1);
  }
  if (time.empty() || time.find_first_not_of("0123456789:.+-") != std::string::npos) {
    return std::nullopt;
  }
  int hour = 0;
  int minute = 0;
  int second = 0;
  if (time.find(':') == std::string::npos) {
    const int packed = std::atoi(time.c_str());
    hour = packed / 10'000;
    minute = packed / 100 % 100;
    second = packed % 100;
  } else if (std::sscanf(time.c_str(), "%d:%d:%d", &hour, &minute, &second) < 2) {
    return std::nullopt;
  }
  if (minute > 59 || second > 59) return std::nullopt;
  return (hour * 60 + minute) * 60 + second;
}

}  // namespace

const std::vector<ColumnType>& TypesOf(DatabaseKind kind) {
  using enum KeyKind;
  static const std::vector<ColumnType> sqlite{{"INTEGER", kWhole},
                                              {"SMALLINT", kWhole},
                                              {"BIGINT", kWhole},
                                              {"TINYINT", kWhole},
                                              {"DECIMAL(12,3)", kNumber},
                                              {"NUMERIC(8,2)", kNumber},
                                              {"FLOAT", kNumber},
                                              {"REAL", kNumber},
                                              {"DOUBLE", kNumber},
                                              {"VARCHAR(30)", kText},
                                              {"CHAR(4)", kText},
                                              {"TEXT", kText},
                                              {"DATE", kDate},
                                              {"TIME", kTime},
                                              {"TIMESTAMP", kNone},
                                              {"DATETIME", kNone},
                                              {"BOOLEAN", kBit},
                                              {"BLOB", kNone}};
  static const std::vector<ColumnType> postgresql{{"INTEGER", kWhole},
                                                  {"SMALLINT", kWhole},
                                                  {"BIGINT", kWhole},
                                                  {"OID", kWhole},
                                                  {"DECIMAL(12,3)", kNumber},
                                                  {"NUMERIC", kNumber},
                                                  {"FLOAT8", kNumber},
                                                  {"FLOAT4", kNumber},
                                                  {"MONEY", kNone},
                                                  {"VARCHAR(30)", kText},
                                                  {"CHAR(4)", kText},
                                                  {"TEXT", kText},
                                                  {"DATE", kDate},
                                                  {"TIME", kTime},
                                                  {"TIMESTAMP", kDateTime},
                                                  {"TIMESTAMPTZ", kNone},
                                                  {"BOOLEAN", kNone},
                                                  {"UUID", kNone},
                                                  {"BYTEA", kNone},
                                                  {"JSON", kNone},
                                                  {"INTERVAL", kNone}};
  static const std::vector<ColumnType> mariadb{{"TINYINT", kWhole},
                                               {"SMALLINT", kWhole},
                                               {"MEDIUMINT", kWhole},
                                               {"INT", kWhole},
                                               {"INT UNSIGNED", kWhole},
                                               {"BIGINT", kWhole},
                                               {"DECIMAL(12,3)", kNumber},
                                               {"FLOAT", kNumber},
                                               {"DOUBLE", kNumber},
                                               {"VARCHAR(30)", kText},
                                               {"CHAR(4)", kText},
                                               {"TEXT", kNone},
                                               {"VARBINARY(10)", kText},
                                               {"DATE", kDate},
                                               {"TIME", kTime},
                                               {"TIMESTAMP NULL", kNone},
                                               {"DATETIME", kDateTime},
                                               {"YEAR", kNone},
                                               {"BIT(1)", kBit},
                                               {"BIT(8)", kWhole},
                                               {"BOOLEAN", kBit},
                                               {"ENUM('a','b')", kNone},
                                               {"SET('x','y')", kNone},
                                               {"UUID", kNone},
                                               {"JSON", kNone}};
  switch (kind) {
    case DatabaseKind::kSqlite:
      return sqlite;
    case DatabaseKind::kPostgresql:
      return postgresql;
    case DatabaseKind::kMariadb:
      return mariadb;
  }
  return sqlite;
}

std::vector<std::string> RowKeys(KeyKind kind, bool zero_dates) {
  std::vector<std::string> keys;
  const auto two_digits = [](int n) { return (n < 10 ? "0" : "") + std::to_string(n); };
  for (int n = 0; n < 24; ++n) {
    switch (kind) {
      case KeyKind::kWhole:
        keys.push_back(std::to_string(n * 3));
        break;
      case KeyKind::kNumber:
        keys.push_back(std::to_string(n) + (n % 2 == 0 ? "" : ".5"));
        break;
      case KeyKind::kBit:
        if (n < 2) keys.push_back(std::to_string(n));
        break;
      case KeyKind::kText:
        keys.push_back("r" + two_digits(n));
        break;
      case KeyKind::kDate:
      case KeyKind::kDateTime:
        if (n == 0 && !zero_dates) break;
        keys.push_back((n == 0 ? "0000-00-00" : "2006-01-" + two_digits(n)) +
                       (kind == KeyKind::kDate ? "" : " " + two_digits(n) + ":00:00"));
        break;
      case KeyKind::kTime:
        keys.push_back(two_digits(n) + ":00:00");
        break;
      case KeyKind::kNone:
        break;
    }
  }
  return keys;
}

std::string Literal(KeyKind kind, const std::string& key) {
  const bool is_number =
      kind == KeyKind::kWhole || kind == KeyKind::kNumber || kind == KeyKind::kBit;
  return is_number ? key : '\'' + key + '\'';
}

bool MayName(KeyKind kind, const std::string& line_key, const std::string& row_key) {
  switch (kind) {
    case KeyKind::kWhole:
    case KeyKind::kNumber:
    case KeyKind::kBit:
      return Number(line_key) && Number(line_key) == Number(row_key);
    case KeyKind::kText:
      return Folded(line_key.substr(0, line_key.find_last_not_of(' ') + 1)) == row_key;
    case KeyKind::kDate:
      return DateOf(line_key, false) && DateOf(line_key, false) == DateOf(row_key, false);
    case KeyKind::kDateTime:
      return DateOf(line_key, true) && DateOf(line_key, true) == DateOf(row_key, true);
    case KeyKind::kTime:
      return TimeOf(line_key) && TimeOf(line_key) == TimeOf(row_key);
    case KeyKind::kNone:
      break;
  }
  return false;
}

}  // namespace imptable
