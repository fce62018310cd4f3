#include "import/target/KeyValues.h"

#include <array>

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
constexpr std::array<Complaint, 6> kComplaints{{
    {"est trop longue", "is too long"},
    {"n'est pas un nombre", "is no number"},
    {"n'est ni 0 ni 1", "is neither 0 nor 1"},
    {"n'est pas une date", "is no date"},
    {"n'est pas une date", "is no date"},
    {"n'est pas une heure", "is no time"},
}};

}  // namespace

KeyValues::KeyValues(const ModuleCommun& module, OdbcSession& session, const TargetTable& table)
    : module_(module), session_(session), table_(table) {
  for (std::size_t i = 0; i < table_.columns().size(); ++i) {
    if (table_.is_key(i)) keys_.push_back({i, RuleOf(table_.columns()[i])});
  }
}

KeyValues::Rule KeyValues::RuleOf(const TableColumn& column) const {
  if (IsNumberType(column.sql_type)) return Rule::kNumber;
  if (column.sql_type == kSqlTime) {
    return session_.dialect->misreads_times ? Rule::kTime : Rule::kWhole;
  }
  if (!session_.dialect->misreads_keys) return Rule::kWhole;
  if (column.sql_type == SQL_BIT) return Rule::kBit;
  if (column.type_name == "BIT") return Rule::kNumber;
  if (column.sql_type == kSqlDate) return Rule::kDate;
  return column.sql_type == kSqlTimestamp ? Rule::kDateAndTime : Rule::kWhole;
}

bool KeyValues::Holds(Rule rule, const ParameterBuffer& buffer) const {
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
    case Rule::kDate:
      return buffer.date_indicator == SQL_NULL_DATA || IsDateInBounds(buffer.date);
    case Rule::kDateAndTime:
      return buffer.date_indicator == SQL_NULL_DATA ||
             (IsDateInBounds(buffer.date) && IsTimeInBounds(buffer.date));
  }
  return true;
}

void KeyValues::Report(const Key& key) {
  const ParameterBuffer& buffer = table_.buffer(key.column);
  std::string value(buffer.Text());
  if (key.rule == Rule::kDate || key.rule == Rule::kDateAndTime) {
    const auto text = FormatDateValue(buffer.date);
    value.assign(text.data(), text.size());
  }
  const TextEncoding& encoding = module_.platform.encoding;
  const bool english = module_.language_offset == kEnglishOffset;
  const auto& [french_complaint, english_complaint] =
      kComplaints[static_cast<std::size_t>(key.rule)];
  session_.ReportText(encoding.FromUtf8(english ? "Key \"" : "Clé \"") +
                      table_.columns()[key.column].name +
                      encoding.FromUtf8(english ? "\": \"" : "\" : \"") + value + "\" " +
                      encoding.FromUtf8(english ? english_complaint : french_complaint) +
                      encoding.FromUtf8(english ? "; the line was not executed"
                                                : " ; la ligne n'a pas été exécutée"));
}

bool KeyValues::Check() {
  for (const Key& key : keys_) {
    if (Holds(key.rule, table_.buffer(key.column))) continue;
    Report(key);
    return false;
  }
  return true;
}

}  // namespace imptable
