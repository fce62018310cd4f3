#include "import/target/SentValues.h"

#include <array>
#include <cmath>

#include "core/MessageCatalogue.h"
#include "import/values/DateConversion.h"
#include "import/values/KeyText.h"

namespace imptable {
namespace {

/// ODBC's numbers of types of numbers: never change.
constexpr bool IsNumberType(std::int16_t sql_type) {
  switch (sql_type) {
    case SQL_NUMERIC:
    case SQL_DECIMAL:
    case SQL_INTEGER:
    case SQL_SMALLINT:
    case SQL_FLOAT:
    case SQL_REAL:
    case SQL_DOUBLE:
    case SQL_BIGINT:
    case SQL_TINYINT:
      return true;
    default:
      return false;
  }
}

struct Complaint {
  std::string_view french, english;
};

/// By rule.
constexpr std::array<Complaint, 8> kComplaints{{
    {"est trop longue", "is too long"},
    {"n'est pas un nombre", "is no number"},
    {"n'est ni 0 ni 1", "is neither 0 nor 1"},
    {"n'est pas une date", "is no date"},
    {"n'est pas une date", "is no date"},
    {"n'est pas une heure", "is no time"},
    {"n'est pas une suite d'octets en hexadécimal", "is no string of bytes in hexadecimal"},
    {"n'est pas un nombre entier de bits", "is no whole number of bits"},
}};

/// Whether a double is a whole number that isn't below zero and stands for no other.
bool IsWholeAndExact(double number) {
  constexpr double kMost = 9007199254740992.0;  // 2 to the power of 53
  return number >= 0 && number <= kMost && std::trunc(number) == number;
}

}  // namespace

SentValues::SentValues(const ModuleCommun& module, OdbcSession& session, const TargetTable& table)
    : module_(module), session_(session), table_(table) {
  for (std::size_t i = 0; i < table_.columns().size(); ++i) {
    const TableColumn& column = table_.columns()[i];
    if (table_.is_key(i)) {
      checked_.push_back({i, KeyRuleOf(column)});
    } else if (const auto rule = ValueRuleOf(column); rule && table_.is_bound(i)) {
      checked_.push_back({i, *rule});
    }
  }
}

std::optional<SentValues::Rule> SentValues::ValueRuleOf(const TableColumn& column) const {
  const Dialect& dialect = *session_.dialect;
  if (dialect.driver_converts && column.sql_type == kSqlTime) return Rule::kTime;
  if (dialect.driver_converts && HoldsBytes(column.sql_type)) return Rule::kBytes;
  if (dialect.bits_are_numbers && IsBitString(column)) return Rule::kBits;
  return std::nullopt;
}

SentValues::Rule SentValues::KeyRuleOf(const TableColumn& column) const {
  if (const auto rule = ValueRuleOf(column)) return *rule;
  if (IsNumberType(column.sql_type)) return Rule::kNumber;
  if (column.sql_type == kSqlTime) {
    return session_.dialect->misreads_times ? Rule::kTime : Rule::kWhole;
  }
  if (!session_.dialect->misreads_keys) return Rule::kWhole;
  if (column.sql_type == SQL_BIT) return Rule::kBit;
  if (column.sql_type == kSqlDate) return Rule::kDate;
  return column.sql_type == kSqlTimestamp ? Rule::kDateAndTime : Rule::kWhole;
}

bool SentValues::Holds(Rule rule, const ParameterBuffer& buffer) const {
  const bool is_null = buffer.text_indicator == SQL_NULL_DATA;
  const Dialect& dialect = *session_.dialect;
  switch (rule) {
    case Rule::kWhole:
      return is_null || !buffer.cut;
    case Rule::kNumber:
      if (buffer.unreadable) return false;
      return is_null ||
             (!buffer.cut &&
              IsNumberText(buffer.Text(),
                           {dialect.misreads_keys ? "" : session_.system_decimal_separator,
                            dialect.number_words}));
    case Rule::kBit:
      return is_null || IsBitText(buffer.Text());
    case Rule::kTime:
      return is_null || (!buffer.cut && IsTimeText(buffer.Text(), dialect.has_packed_times));
    case Rule::kBits:
      return !buffer.unreadable &&
             (buffer.number_indicator == SQL_NULL_DATA || IsWholeAndExact(buffer.number));
    case Rule::kBytes:
      return is_null || (!buffer.cut && IsHexText(buffer.Text()));
    case Rule::kDate:
      return buffer.date_indicator == SQL_NULL_DATA || IsDateInBounds(buffer.date);
    case Rule::kDateAndTime:
      return buffer.date_indicator == SQL_NULL_DATA ||
             (IsDateInBounds(buffer.date) && IsTimeInBounds(buffer.date));
  }
  return true;
}

void SentValues::Report(const Checked& checked) {
  const ParameterBuffer& buffer = table_.buffer(checked.column);
  std::string value(buffer.Text());
  if (checked.rule == Rule::kBits && !buffer.unreadable) value = std::to_string(buffer.number);
  if (checked.rule == Rule::kDate || checked.rule == Rule::kDateAndTime) {
    const auto text = FormatDateValue(buffer.date);
    value.assign(text.data(), text.size());
  }
  const TextEncoding& encoding = module_.platform.encoding;
  const bool english = module_.language_offset == kEnglishOffset;
  const auto& [french_complaint, english_complaint] =
      kComplaints[static_cast<std::size_t>(checked.rule)];
  const bool is_key = table_.is_key(checked.column);
  const std::string_view noun =
      english ? (is_key ? "Key" : "Column") : (is_key ? "Clé" : "Colonne");
  session_.ReportText(encoding.FromUtf8(std::string(noun) + " \"") +
                      table_.columns()[checked.column].name +
                      encoding.FromUtf8(english ? "\": \"" : "\" : \"") + value + "\" " +
                      encoding.FromUtf8(english ? english_complaint : french_complaint) +
                      encoding.FromUtf8(english ? "; the line was not executed"
                                                : " ; la ligne n'a pas été exécutée"));
}

bool SentValues::Check() {
  for (const Checked& checked : checked_) {
    if (Holds(checked.rule, table_.buffer(checked.column))) continue;
    Report(checked);
    return false;
  }
  return true;
}

}  // namespace imptable
