#ifndef IMPORT_VALUES_PARAMETER_BUFFER_H_
#define IMPORT_VALUES_PARAMETER_BUFFER_H_

#include <array>
#include <cstddef>
#include <cstring>
#include <string_view>

#include "odbc/OdbcApi.h"

namespace imptable {

/// Bytes of text that a statement parameter can carry; the driver is told this length.
inline constexpr std::size_t kParameterTextBytes = 500;

/// The value of one table column, bound once to the statements of a run. Which field is used
/// depends on the column's SQL type; each has its own length indicator.
struct ParameterBuffer {
  SQLLEN text_indicator = SQL_NULL_DATA;
  SQLLEN number_indicator = SQL_NULL_DATA;
  SQLLEN date_indicator = SQL_NULL_DATA;
  double number = 0;
  SQL_TIMESTAMP_STRUCT date{};                       // begins with the members of a date alone
  std::array<char, kParameterTextBytes + 1> text{};  // ends with a NUL: some drivers read up to it
  bool cut = false;                                  // the text was longer
  bool unreadable = false;  // the text is a value that the number can't take

  /// A text longer than the buffer is cut, in UTF-8 never within a character; an empty one is null.
  void SetText(std::string_view value, bool utf8) {
    if (value.empty()) {
      text_indicator = SQL_NULL_DATA;
      return;
    }
    cut = value.size() > kParameterTextBytes;
    if (cut) value = CutToBuffer(value, utf8);
    std::memcpy(text.data(), value.data(), value.size());
    text[value.size()] = '\0';
    text_indicator = static_cast<SQLLEN>(value.size());
  }

  /// Empty for a null.
  std::string_view Text() const {
    return {text.data(), static_cast<std::size_t>(text_indicator < 0 ? 0 : text_indicator)};
  }

  void SetNumber(double value) {
    number = value;
    number_indicator = 0;
    text_indicator = SQL_NULL_DATA;
    unreadable = false;
  }

  /// Sets the number to null and keeps the text that it can't be read from.
  void SetUnreadableNumber(std::string_view value, bool utf8) {
    SetText(value, utf8);
    number_indicator = SQL_NULL_DATA;
    unreadable = true;
  }

  void SetDate(const SQL_TIMESTAMP_STRUCT& value) {
    date = value;
    date_indicator = 0;
  }

  void SetNull() {
    text_indicator = number_indicator = date_indicator = SQL_NULL_DATA;
    unreadable = false;
  }

 private:
  static std::string_view CutToBuffer(std::string_view value, bool utf8);
};

}  // namespace imptable

#endif  // IMPORT_VALUES_PARAMETER_BUFFER_H_
