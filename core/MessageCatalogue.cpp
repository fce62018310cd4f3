#include "core/MessageCatalogue.h"

#include <array>
#include <limits>
#include <string_view>

#include "core/RuntimeFault.h"

namespace imptable {
namespace {

struct Row {
  std::int32_t number;
  std::string_view french;
  std::string_view english;
};

constexpr std::array kRows{
#define MESSAGE(name, number, french, english) Row{number, french, english},
#include "resources/Messages.inc"
#undef MESSAGE
};

constexpr bool NumbersRunFromOneWithoutGap() {
  for (std::size_t i = 0; i < kRows.size(); ++i) {
    if (kRows[i].number != static_cast<std::int32_t>(i) + 1) return false;
  }
  return true;
}

static_assert(kRows.size() == kMessageCount);
static_assert(NumbersRunFromOneWithoutGap());

}  // namespace

MessageCatalogue::MessageCatalogue(const TextEncoding& encoding) {
  french_.reserve(kRows.size());
  english_.reserve(kRows.size());
  for (const Row& row : kRows) {
    french_.push_back(encoding.FromUtf8(row.french));
    english_.push_back(encoding.FromUtf8(row.english));
  }
}

const std::string& MessageCatalogue::Text(std::int32_t number, std::int32_t language_offset) const {
  const std::int64_t entry = std::int64_t{number} + language_offset;
  if (entry > std::numeric_limits<std::int32_t>::max() ||
      entry < std::numeric_limits<std::int32_t>::min()) {
    throw RuntimeFault(FaultNumber::kOverflow,
                       std::to_string(number) + " + " + std::to_string(language_offset));
  }
  const bool known_number = number >= 1 && number <= kMessageCount;
  const auto index = static_cast<std::size_t>(number) - 1;
  if (known_number && language_offset == kFrenchOffset) return french_[index];
  if (known_number && language_offset == kEnglishOffset) return english_[index];
  throw RuntimeFault(FaultNumber::kResourceNotFound, std::to_string(entry));
}

}  // namespace imptable
