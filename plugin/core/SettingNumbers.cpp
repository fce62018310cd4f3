#include <charconv>
#include <cmath>
#include <limits>

#include "plugin/core/Blanks.h"
#include "plugin/core/ModuleCommun.h"

namespace imptable {
namespace {

std::string Quoted(std::string_view name, std::string_view text) {
  return '"' + std::string(name) + "\" = \"" + std::string(text) + '"';
}

/// Half to even, whatever rounding mode the host's process has set.
double RoundHalfToEven(double number) {
  const double below = std::floor(number);
  const double rest = number - below;
  if (rest < 0.5) return below;
  if (rest > 0.5) return below + 1;
  return std::fmod(below, 2) == 0 ? below : below + 1;
}

std::int32_t NumberWithin(const SettingValue& value, std::string_view name, std::int32_t least,
                          std::int32_t most) {
  double number = 0;
  if (const auto* stored = std::get_if<std::int32_t>(&value)) {
    number = *stored;
  } else {
    std::string_view text = WithoutBlanks(std::get<std::string>(value));
    if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool out_of_range = error == std::errc::result_out_of_range;
    if ((error != std::errc() && !out_of_range) || end != text.data() + text.size() ||
        std::isnan(number)) {
      throw RuntimeFault(FaultNumber::kTypeMismatch, Quoted(name, std::get<std::string>(value)));
    }
    if (out_of_range) number = std::numeric_limits<double>::infinity();
    number = std::isinf(number) ? number : RoundHalfToEven(number);
  }
  if (number < least || number > most) {
    throw RuntimeFault(FaultNumber::kOverflow, Quoted(name, AsText(value)));
  }
  return static_cast<std::int32_t>(number);
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
