#include "tests/robustness/differential/RuleModel.h"

#include <algorithm>
#include <iomanip>
#include <limits>
#include <sstream>

namespace imptable::rules {
namespace {

/// A setting that can't be understood: no line is read.
struct RefusedTask {};
/// The line can't be converted.
struct FailedLine {};

constexpr std::int16_t kSmallInt = 5;
constexpr std::int16_t kFloat = 6;
constexpr std::int16_t kDate = 9;
constexpr std::int16_t kTimestamp = 11;
constexpr std::size_t kTextBytes = 500;

std::vector<std::string> Items(const std::string& list) {
  std::vector<std::string> items(1);
  for (const char byte : list) {
    if (byte == ',') {
      items.emplace_back();
    } else {
      items.back() += byte;
    }
  }
  return items;
}

/// The n-th item, from 1; empty past the last one.
std::string Item(const std::string& entry, std::size_t n) {
  const auto items = Items(entry);
  return n <= items.size() ? items[n - 1] : "";
}

std::size_t WholeNumber(const std::string& text) {
  const std::string digits = Trimmed(text);
  if (digits.empty() || digits.find_first_not_of("0123456789") != std::string::npos) {
    throw RefusedTask();
  }
  std::uint64_t number = 0;
  for (const char digit : digits) {
    number = 10 * number + static_cast<std::uint64_t>(digit - '0');
    if (number > std::numeric_limits<std::uint32_t>::max()) throw RefusedTask();
  }
  return number;
}

bool TakesTheNumberRule(const std::string& entry) {
  const std::string code = Item(entry, 1);
  return code == "3" || code == "5" || code == "6";
}

std::size_t DecimalsOf(const std::string& entry) {
  const std::string item = Item(entry, 2);
  return item.empty() ? 0 : WholeNumber(item);
}

/// A date without a width is as wide as its format, with one blank before a time.
std::size_t WidthOf(const std::string& entry) {
  const std::string width = Item(entry, 3);
  if (!width.empty() || Item(entry, 1) != "7") return WholeNumber(width);
  static const std::map<std::string, std::size_t> widths{
      {"1", 8},  {"2", 6},  {"3", 8},  {"4", 6},  {"5", 6},  {"6", 6},  {"7", 10},  {"8", 8},
      {"9", 10}, {"10", 8}, {"11", 8}, {"12", 8}, {"13", 8}, {"14", 8}, {"15", 10}, {"16", 10}};
  const auto found = widths.find(Item(entry, 2));
  const std::string time = Item(entry, 5);
  return (found == widths.end() ? 0 : found->second) + (time == "1" ? 9 : time == "0" ? 6 : 0);
}

std::vector<std::string> DelimitedFields(const Characters& line, const Characters& delimiter) {
  const auto stands_at = [&](std::size_t at) {
    return at + delimiter.size() <= line.size() &&
           std::equal(delimiter.begin(), delimiter.end(),
                      line.begin() + static_cast<std::ptrdiff_t>(at));
  };
  std::vector<std::string> fields;
  for (std::size_t pos = 0;;) {
    std::size_t p = pos;
    while (p < line.size() && !stands_at(p)) ++p;
    fields.push_back(TextOf(line, pos, p - pos));
    if (p >= line.size()) return fields;
    pos = p + 1;
  }
}

std::vector<std::string> FixedFields(const Characters& line, const Task& task) {
  std::vector<std::string> fields;
  std::size_t pos = 0;
  for (const std::string& entry : task.layout) {
    const std::size_t width = WidthOf(entry);
    fields.push_back(TextOf(line, pos, width));
    pos += width;
  }
  return fields;
}

/// Where a column's value comes from.
struct Origin {
  bool is_field = false;
  std::size_t field = 0;  // from 0
  std::string text;       // the value, when it isn't a field's
};

Origin OriginOf(const Task& task, std::size_t column) {
  if (!task.assigned || task.assignment.empty()) return {true, column, ""};
  if (column >= task.assignment.size()) return {};
  const std::string item = Items(task.assignment[column]).back();
  if (item == "Null") return {};
  if (item.starts_with("(Col)")) {
    const std::size_t number = WholeNumber(item.substr(5));
    if (number == 0) throw RefusedTask();
    return {true, number - 1, ""};
  }
  if (item.starts_with("@")) {
    const auto found = task.variables.find(item.substr(1));
    return {false, 0, found == task.variables.end() ? "" : found->second};
  }
  return {false, 0, item};
}

/// The value "Null" stands for no value.
std::string WithoutNull(const Task& task, const std::string& value) {
  return (task.blanks_are_null ? TrimmedAtTheEnd(value) : value) == "Null" ? "" : value;
}

std::string Converted(const Task& task, const std::string& entry, std::string value,
                      std::int16_t sql_type) {
  const std::string code = Item(entry, 1);
  if (code == "7") {
    if (value.empty() || (task.blanks_are_null && Trimmed(value).empty())) return "";
    const auto date =
        DateByStyle(CharactersOf(value, task.utf8), Item(entry, 2), Item(entry, 5), task.year);
    if (!date) throw FailedLine();
    value = FixedForm(*date);
  }
  if (TakesTheNumberRule(entry) && !Trimmed(value).empty()) {
    const std::string separator = sql_type == kSmallInt ? "." : task.user_separator;
    if (task.explicit_separator) {
      value = WithSeparator(value, separator);
    } else {
      const auto number =
          WithImpliedDecimals(CharactersOf(value, task.utf8), DecimalsOf(entry), separator);
      if (!number) throw FailedLine();
      value = *number;
    }
  }
  return value;
}

Value StoredValue(const Task& task, const std::string& value, std::int16_t sql_type) {
  if (value.empty()) return {};
  Value stored;
  if (sql_type == kFloat) {
    const auto number = UserNumber(value, task.user_separator);
    if (!number) throw FailedLine();
    stored.kind = Value::Kind::kNumber;
    stored.number = *number;
  } else if (sql_type == kDate || sql_type == kTimestamp) {
    const auto date = DateOfFixedForm(value);
    if (!date) throw FailedLine();
    stored.kind = Value::Kind::kDate;
    stored.date = *date;
  } else {
    stored.kind = Value::Kind::kText;
    for (const std::string& character : CharactersOf(value, task.utf8)) {
      if (stored.text.size() + character.size() > kTextBytes) break;
      stored.text += character;
    }
  }
  return stored;
}

void CheckTask(const Task& task) {
  for (const std::string& entry : task.layout) {
    if (TakesTheNumberRule(entry)) DecimalsOf(entry);
    if (!task.delimited) WidthOf(entry);
  }
  for (std::size_t i = 0; i < task.columns.size(); ++i) OriginOf(task, i);
}

Record Worked(const Task& task, const std::string& line) {
  CheckTask(task);
  const Characters characters = CharactersOf(line, task.utf8);
  const std::vector<std::string> fields =
      task.delimited ? DelimitedFields(characters, CharactersOf(task.delimiter, task.utf8))
                     : FixedFields(characters, task);
  if (fields.size() > task.columns.size()) throw FailedLine();
  Record record;
  std::string text;
  for (std::size_t i = 0; i < task.columns.size(); ++i) {
    if (i > 0) text += ",";
    record.values.emplace_back();
    if (task.columns[i].ignored) continue;
    const Origin origin = OriginOf(task, i);
    std::string value = origin.text;
    if (origin.is_field) {
      value = origin.field < fields.size() ? fields[origin.field] : "";
      const std::string entry = origin.field < task.layout.size() ? task.layout[origin.field] : "";
      value = Converted(task, entry, WithoutNull(task, value), task.columns[i].sql_type);
    }
    if (task.blanks_are_null) value = TrimmedAtTheEnd(value);
    value = WithoutNull(task, value);
    text += value;
    record.values.back() = StoredValue(task, value, task.columns[i].sql_type);
  }
  record.result = text.empty() ? Record::Result::kEmpty : Record::Result::kRecord;
  if (text.empty()) record.values.clear();
  return record;
}

}  // namespace

Record RecordByTheRules(const Task& task, const std::string& line) {
  try {
    return Worked(task, line);
  } catch (const RefusedTask&) {
    return {Record::Result::kRefusedTask, {}};
  } catch (const FailedLine&) {
    return {Record::Result::kFailed, {}};
  }
}

std::string Described(const Record& record) {
  switch (record.result) {
    case Record::Result::kRefusedTask:
      return "the task is refused";
    case Record::Result::kFailed:
      return "the line is refused";
    case Record::Result::kEmpty:
      return "an empty record";
    case Record::Result::kRecord:
      break;
  }
  std::ostringstream text;
  for (const Value& value : record.values) {
    switch (value.kind) {
      case Value::Kind::kNull:
        text << "NULL ";
        break;
      case Value::Kind::kText:
        text << std::quoted(value.text) << ' ';
        break;
      case Value::Kind::kNumber:
        text << std::setprecision(17) << value.number << ' ';
        break;
      case Value::Kind::kDate:
        text << FixedForm(value.date) << '+' << value.date.nanoseconds << "ns ";
        break;
    }
  }
  return text.str();
}

}  // namespace imptable::rules
