#include <algorithm>
#include <limits>
#include <optional>

#include "core/ModuleCommun.h"
#include "core/NumberText.h"

namespace imptable {
namespace {

std::string Quoted(std::string_view name, std::string_view text) {
  return '"' + std::string(name) + "\" = \"" + std::string(text) + '"';
}

/// The number rounded half to even, worked out from its digits; nullopt when its whole part has
/// more than 18 digits.
std::optional<std::int64_t> Rounded(const NumberText& number) {
  constexpr std::int64_t kMostDigits = 18;
  std::string digits = std::string(number.whole).append(number.fraction);
  const std::size_t first = std::min(digits.find_first_not_of('0'), digits.size());
  digits.erase(0, first);
  if (digits.empty()) return 0;
  const std::int64_t whole_digits = static_cast<std::int64_t>(number.whole.size()) -
                                    static_cast<std::int64_t>(first) + number.exponent;
  if (whole_digits > kMostDigits) return std::nullopt;
  if (whole_digits < 0) return 0;
  const auto point = static_cast<std::size_t>(whole_digits);
  digits.erase(digits.find_last_not_of('0') + 1);
  digits.resize(std::max(digits.size(), point), '0');

  std::int64_t whole = 0;
  for (const char digit : digits.substr(0, point)) whole = whole * 10 + digit - '0';
  const std::string rest = digits.substr(point);
  if (rest > "5" || (rest == "5" && whole % 2 == 1)) ++whole;
  return number.negative ? -whole : whole;
}

std::int32_t NumberWithin(const SettingValue& value, std::string_view name, std::int32_t least,
                          std::int32_t most) {
  std::optional<std::int64_t> number;
  if (const auto* stored = std::get_if<std::int32_t>(&value)) {
    number = *stored;
  } else {
    const auto text = ParseNumberText(std::get<std::string>(value), ".");
    if (!text) throw RuntimeFault(FaultNumber::kTypeMismatch, Quoted(name, AsText(value)));
    number = Rounded(*text);
  }
  if (!number || *number < least || *number > most) {
    throw RuntimeFault(FaultNumber::kOverflow, Quoted(name, AsText(value)));
  }
  return static_cast<std::int32_t>(*number);
}

}  // namespace

std::string AsText(const SettingValue& value) {
  if (const auto* number = std::get_if<std::int32_t>(&value)) return std::to_string(*number);
  return std::get<std::string>(value);
}

std::int16_t AsInt16(const SettingValue& value, std::string_view name) {
  return static_cast<std::int16_t>(NumberWithin(value, name,
                                                std::numeric_limits<std::int16_t>::min(),
                                                std::numeric_limits<std::int16_t>::max()));
}

std::int32_t AsInt32(const SettingValue& value, std::string_view name) {
  return NumberWithin(value, name, std::numeric_limits<std::int32_t>::min(),
                      std::numeric_limits<std::int32_t>::max());
}

}  // namespace imptable
