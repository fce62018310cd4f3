#include "tests/drivers/BoundParameter.h"

#include <charconv>
#include <cstdio>
#include <cstring>
#include <system_error>

namespace imptable::scripted {
namespace {

using Kind = ParameterValue::Kind;

// The caller's buffers needn't be aligned.
template <typename T>
T Load(const void* value) {
  T loaded;
  std::memcpy(&loaded, value, sizeof loaded);
  return loaded;
}

template <typename T>
ParameterValue Number(const void* value) {
  char text[64];
  const auto [end, error] = std::to_chars(text, text + sizeof text, Load<T>(value));
  return {Kind::kNumber, std::string(text, end)};
}

ParameterValue Text(const BoundParameter& parameter, SQLLEN length) {
  const char* value = static_cast<const char*>(parameter.value);
  if (length == SQL_NTS) return {Kind::kText, value};
  return {Kind::kText, std::string(value, static_cast<std::size_t>(length))};
}

ParameterValue Date(const void* value) {
  const auto date = Load<SQL_DATE_STRUCT>(value);
  char text[32];
  std::snprintf(text, sizeof text, "%04d-%02u-%02u", date.year, date.month, date.day);
  return {Kind::kMoment, text};
}

ParameterValue Time(const void* value) {
  const auto time = Load<SQL_TIME_STRUCT>(value);
  char text[32];
  std::snprintf(text, sizeof text, "%02u:%02u:%02u", time.hour, time.minute, time.second);
  return {Kind::kMoment, text};
}

ParameterValue Timestamp(const void* value) {
  const auto moment = Load<SQL_TIMESTAMP_STRUCT>(value);
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%04d-%02u-%02u %02u:%02u:%02u", moment.year, moment.month,
                moment.day, moment.hour, moment.minute, moment.second);
  std::string text = buffer;
  if (moment.fraction != 0) {
    std::snprintf(buffer, sizeof buffer, ".%09lu", static_cast<unsigned long>(moment.fraction));
    text += buffer;
    text.erase(text.find_last_not_of('0') + 1);
  }
  return {Kind::kMoment, text};
}

bool ParseNumber(const std::string& text, double& number) {
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  return error == std::errc{} && stop == end;
}

}  // namespace

ParameterValue ReadParameter(const BoundParameter& parameter) {
  if (!parameter.is_bound) return {};
  const SQLLEN length = parameter.indicator != nullptr ? *parameter.indicator : SQL_NTS;
  if (length == SQL_NULL_DATA) return {Kind::kNull, ""};
  if (parameter.value == nullptr || (length < 0 && length != SQL_NTS)) {
    return {Kind::kUnreadable, "<indicator " + std::to_string(length) + ">"};
  }
  switch (parameter.c_type) {
    case SQL_C_CHAR:
      return Text(parameter, length);
    case SQL_C_DOUBLE:
      return Number<SQLDOUBLE>(parameter.value);
    case SQL_C_FLOAT:
      return Number<SQLREAL>(parameter.value);
    case SQL_C_SHORT:
    case SQL_C_SSHORT:
      return Number<SQLSMALLINT>(parameter.value);
    case SQL_C_LONG:
    case SQL_C_SLONG:
      return Number<SQLINTEGER>(parameter.value);
    case SQL_C_DATE:
    case SQL_C_TYPE_DATE:
      return Date(parameter.value);
    case SQL_C_TIME:
    case SQL_C_TYPE_TIME:
      return Time(parameter.value);
    case SQL_C_TIMESTAMP:
    case SQL_C_TYPE_TIMESTAMP:
      return Timestamp(parameter.value);
    default:
      return {Kind::kUnreadable, "<ctype " + std::to_string(parameter.c_type) + ">"};
  }
}

bool Equals(const ParameterValue& value, const std::string& wanted) {
  switch (value.kind) {
    case Kind::kUnbound:
    case Kind::kNull:
    case Kind::kUnreadable:
      return false;
    case Kind::kNumber: {
      double left = 0;
      double right = 0;
      return ParseNumber(value.text, left) && ParseNumber(wanted, right) && left == right;
    }
    case Kind::kText:
    case Kind::kMoment:
      return value.text == wanted;
  }
  return false;
}

std::string Describe(const BoundParameters& parameters) {
  std::string line;
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    if (i > 0) line += ' ';
    line += std::to_string(i + 1) + '=';
    const ParameterValue value = ReadParameter(parameters[i]);
    switch (value.kind) {
      case Kind::kUnbound:
        line += "<unbound>";
        break;
      case Kind::kNull:
        line += "NULL";
        break;
      case Kind::kText:
        line += '\'' + value.text + '\'';
        break;
      case Kind::kMoment:
        line += '{' + value.text + '}';
        break;
      case Kind::kNumber:
      case Kind::kUnreadable:
        line += value.text;
        break;
    }
  }
  return line;
}

}  // namespace imptable::scripted
