#include "import/target/SentValues.h"

#include <cmath>
#include <utility>

#include "import/values/DateConversion.h"
#include "import/values/KeyText.h"

namespace imptable {
namespace {

/// ODBC's codes of number types: never change.
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

/// Whether a double is a whole number from 0 on that no other whole number is rounded to.
bool IsWholeAndExact(double number) {
  constexpr double kMost = 9007199254740992.0;  // 2 to the power of 53
  return number >= 0 && number <= kMost && std::trunc(number) == number;
}

}  // namespace

SentValues::SentValues(const OdbcSession& session, const TargetTable& table,
                       std::string decimal_separator)
    : session_(session), table_(table), decimal_separator_(std::move(decimal_separator)) {
  for (std::size_t i = 0; i < table_.columns().size(); ++i) {
    const TargetColumn& column = table_.columns()[i];
    if (column.is_key) {
      checked_.push_back({i, KeyRuleOf(column)});
    } else if (const auto rule = ValueRuleOf(column); rule && column.bound) {
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

Complaint SentValues::ComplaintOf(Rule rule) {
  switch (rule) {
    case Rule::kWhole:
      return Complaint::kTooLong;
    case Rule::kNumber:
      return Complaint::kNoNumber;
    case Rule::kBit:
      return Complaint::kNoBit;
    case Rule::kDate:
    case Rule::kDateAndTime:
      return Complaint::kNoDate;
    case Rule::kTime:
      return Complaint::kNoTime;
    case Rule::kBytes:
      return Complaint::kNoBytes;
    case Rule::kBits:
      return Complaint::kNoWholeBits;
  }
  return Complaint::kTooLong;
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
              IsNumberText(buffer.Text(), {dialect.misreads_keys ? "" : decimal_separator_,
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

RecordDiagnostic SentValues::DiagnosticOf(const Checked& checked) const {
  const ParameterBuffer& buffer = table_.buffer(checked.column);
  const TargetColumn& column = table_.columns()[checked.column];
  RecordDiagnostic diagnostic{.complaint = ComplaintOf(checked.rule),
                              .column = column.name,
                              .is_key = column.is_key,
                              .value = std::string(buffer.Text())};
  if (checked.rule == Rule::kBits && !buffer.unreadable) {
    diagnostic.value = std::to_string(buffer.number);
  }
  if (checked.rule == Rule::kDate || checked.rule == Rule::kDateAndTime) {
    const auto text = FormatDateValue(buffer.date);
    diagnostic.value.assign(text.data(), text.size());
  }
  return diagnostic;
}

std::optional<RecordDiagnostic> SentValues::Check(const RecordParser& parser,
                                                  std::string_view line) const {
  const bool may_be_cut =
      session_.dialect->cuts_at_nul && line.find('\0') != std::string_view::npos;
  if (may_be_cut && parser.HasTextWithNul()) {
    return RecordDiagnostic{.complaint = Complaint::kHoldsNul};
  }
  for (const Checked& checked : checked_) {
    if (!Holds(checked.rule, table_.buffer(checked.column))) return DiagnosticOf(checked);
  }
  return std::nullopt;
}

}  // namespace imptable
