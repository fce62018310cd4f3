// Any text as a date, a number or a text for a parameter.
#include <array>
#include <string>

#include "import/layout/DateFormat.h"
#include "import/values/DateConversion.h"
#include "import/values/NumberConversion.h"
#include "import/values/ParameterBuffer.h"
#include "platform/text/CharacterCount.h"
#include "tests/robustness/differential/RuleValues.h"
#include "tests/robustness/fuzz/FuzzInput.h"
#include "tests/robustness/fuzz/Property.h"

namespace imptable {
namespace {

constexpr std::array<const char*, 5> kSeparators{".", ",", "::", "\xC2\xA0", ""};

rules::Date DateOf(const SQL_TIMESTAMP_STRUCT& date) {
  return {date.year,
          date.month,
          date.day,
          date.hour,
          date.minute,
          date.second,
          static_cast<int>(date.fraction)};
}

template <typename Dates>
bool Agree(const Dates& given, const std::optional<rules::Date>& expected) {
  return given.has_value() == expected.has_value() && (!given || DateOf(*given) == *expected);
}

void CheckDates(const std::string& value, const rules::Characters& characters, std::size_t style,
                std::size_t time, bool utf8) {
  const auto code = static_cast<TimeCode>(time);
  const DateFormat format{static_cast<std::uint8_t>(style), code};
  const auto date = ReadDateValue(value, format, 20, utf8);
  const char* const item = code == TimeCode::kSeconds ? "1" : code == TimeCode::kMinutes ? "0" : "";
  Require(Agree(date, rules::DateByStyle(characters, std::to_string(style), item, 2006)),
          "a date is as the rules have it");
  if (date) {
    const auto text = FormatDateValue(*date);
    const std::string fixed(text.data(), text.size());
    Require(fixed == rules::FixedForm(DateOf(*date)),
            "a date's fixed form is as the rules have it");
    Require(Agree(ReadIsoDate(fixed), DateOf(*date)), "the fixed form reads as the date");
  }
  Require(Agree(ReadIsoDate(value), rules::DateOfFixedForm(value)),
          "a text in the fixed form is as the rules have it");
}

void CheckNumbers(const std::string& value, const rules::Characters& characters,
                  const std::string& separator, std::size_t decimals, bool utf8) {
  Require(ReadUserNumber(value, separator) == rules::UserNumber(value, separator),
          "a number is what it means to the user");
  std::string out = "left over";
  ReplaceDecimalSeparator(value, separator, out);
  Require(out == rules::WithSeparator(value, separator), "one separator is replaced");
  const auto expected = rules::WithImpliedDecimals(characters, decimals, separator);
  const bool inserted = InsertDecimalSeparator(value, decimals, separator, utf8, out);
  Require(inserted == expected.has_value() && (!inserted || out == *expected),
          "implied decimals are counted in characters");
}

void CheckCounts(const std::string& value, const rules::Characters& characters, std::size_t count,
                 bool utf8) {
  Require(CountCharacters(value, utf8) == characters.size(), "characters are counted");
  Require(BytesOfCharacters(value, count, utf8) == rules::TextOf(characters, 0, count).size(),
          "characters are measured");
}

void CheckText(const std::string& value, std::size_t count, bool utf8) {
  // A text that is longer than the buffer, now and then.
  std::string text = value;
  if (count >= 0xE0) text.insert(0, 490, 'x');
  struct {
    ParameterBuffer buffer;
    std::array<char, 8> behind{};
  } bound;
  bound.buffer.SetText(text, utf8);
  std::string kept = text;
  if (text.size() > kParameterTextBytes) {
    kept.clear();
    for (const std::string& character : rules::CharactersOf(text, utf8)) {
      if (kept.size() + character.size() > kParameterTextBytes) break;
      kept += character;
    }
  }
  if (kept.empty()) {
    Require(bound.buffer.text_indicator == SQL_NULL_DATA, "an empty text is null");
    return;
  }
  Require(bound.buffer.text_indicator == static_cast<SQLLEN>(kept.size()) &&
              std::string_view(bound.buffer.text.data(), kept.size()) == kept,
          "a parameter holds as many characters as fit");
  Require(bound.behind == std::array<char, 8>{}, "nothing is written behind a parameter");
}

void CheckValue(FuzzInput input) {
  const bool utf8 = input.Flag();
  const std::size_t style = input.Below(17);
  const std::size_t time = input.Below(3);
  const std::string separator = kSeparators[input.Below(kSeparators.size())];
  const std::size_t count = input.Byte();
  const std::string value(input.Rest());
  const rules::Characters characters = rules::CharactersOf(value, utf8);
  CheckDates(value, characters, style, time, utf8);
  CheckNumbers(value, characters, separator, count, utf8);
  CheckCounts(value, characters, count, utf8);
  CheckText(value, count, utf8);
}

}  // namespace
}  // namespace imptable

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  imptable::CheckValue({data, size});
  return 0;
}
