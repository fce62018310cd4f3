#ifndef TESTS_ROBUSTNESS_DIFFERENTIAL_RULE_VALUES_H_
#define TESTS_ROBUSTNESS_DIFFERENTIAL_RULE_VALUES_H_

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace imptable::rules {

// The rules of values once more, slow and one step at a time. Nothing of the component is used.

/// One string a character of the code page; a byte that is no valid UTF-8 is a character.
using Characters = std::vector<std::string>;

Characters CharactersOf(const std::string& text, bool utf8);
std::string TextOf(const Characters& characters, std::size_t from, std::size_t count);
std::string TextOf(const Characters& characters);

/// Without the spaces around it, or at its end. Other blanks stay.
std::string Trimmed(const std::string& text);
std::string TrimmedAtTheEnd(std::string text);

struct Date {
  int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0, nanoseconds = 0;

  bool operator==(const Date&) const = default;
};

/// @param style, time_code  the items of the column's entry.
std::optional<Date> DateByStyle(const Characters& value, const std::string& style,
                                const std::string& time_code, int current_year);

/// yyyy-mm-dd hh:mm:ss.000
std::string FixedForm(const Date& date);

/// Reads the fixed form, the time or its end left out, with any fraction.
std::optional<Date> DateOfFixedForm(const std::string& text);

std::string WithSeparator(const std::string& value, const std::string& separator);

/// @return nullopt when the value has fewer characters than decimals.
std::optional<std::string> WithImpliedDecimals(const Characters& value, std::size_t decimals,
                                               const std::string& separator);

/// The number that the text means to a user of that separator.
std::optional<double> UserNumber(const std::string& text, const std::string& separator);

}  // namespace imptable::rules

#endif  // TESTS_ROBUSTNESS_DIFFERENTIAL_RULE_VALUES_H_
