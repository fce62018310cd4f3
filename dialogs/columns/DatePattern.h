#ifndef DIALOGS_COLUMNS_DATE_PATTERN_H_
#define DIALOGS_COLUMNS_DATE_PATTERN_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/ModuleCommun.h"
#include "import/layout/DateFormat.h"

namespace imptable {

/// A date format as the user reads and chooses it: one of the eight orders in the date format
/// dialog, maybe a separator between the parts, maybe a time at the end.
struct DatePattern {
  std::size_t option = 0;  // 0 to 7
  std::string separator;   // one character of the code page, or empty
  TimeCode time = TimeCode::kNone;

  bool operator==(const DatePattern&) const = default;
};

inline constexpr std::size_t kDateOptionCount = 8;

/// Captions of the options, in both languages; "?" stands for the separator.
inline constexpr std::array<std::string_view, kDateOptionCount> kDateOptionCaptions{
    "jj?mm?aa",   "jj?mm?aaaa", "mm?jj?aa",   "mm?jj?aaaa",
    "aaaa?jj?mm", "aa?jj?mm",   "aaaa?mm?jj", "aa?mm?jj"};

/// The style, 1 to 16, that stores the pattern's option, with or without a separator.
std::uint8_t DateStyleOf(const DatePattern& pattern);

/// The pattern of a stored style; empty for a style that isn't 1 to 16. A style without a separator
/// ignores the one given.
std::optional<DatePattern> DatePatternOf(std::uint8_t style, std::string_view separator,
                                         TimeCode time);

/// The pattern in words of the current language, for example jj/mm/aaaa hh:mm.
std::string DateFormatText(const ModuleCommun& module, const DatePattern& pattern);

/// The reverse of DateFormatText.
/// @return nullopt for a text that is no date format in the current language.
std::optional<DatePattern> ReadDateFormat(const ModuleCommun& module, std::string_view text);

}  // namespace imptable

#endif  // DIALOGS_COLUMNS_DATE_PATTERN_H_
