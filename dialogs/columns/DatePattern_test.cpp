#include "dialogs/columns/DatePattern.h"

#include <gmock/gmock.h>

#include <set>

#include "tests/kit/TestComponent.h"

namespace imptable {
namespace {

constexpr std::array<std::int32_t, 2> kLanguages{kFrenchOffset, kEnglishOffset};
constexpr std::array<TimeCode, 3> kTimes{TimeCode::kNone, TimeCode::kMinutes, TimeCode::kSeconds};

struct OptionFormat {
  std::size_t option;
  std::string_view french, english;  // with the separator "/"
  std::uint8_t style_without, style_with;
};

constexpr std::array<OptionFormat, 8> kOptionFormats{{
    {0, "jj/mm/aa", "dd/mm/yy", 2, 8},
    {1, "jj/mm/aaaa", "dd/mm/yyyy", 1, 7},
    {2, "mm/jj/aa", "mm/dd/yy", 4, 10},
    {3, "mm/jj/aaaa", "mm/dd/yyyy", 3, 9},
    {4, "aaaa/jj/mm", "yyyy/dd/mm", 13, 15},
    {5, "aa/jj/mm", "yy/dd/mm", 5, 11},
    {6, "aaaa/mm/jj", "yyyy/mm/dd", 14, 16},
    {7, "aa/mm/jj", "yy/mm/dd", 6, 12},
}};

std::string Without(std::string text, char sign) {
  std::erase(text, sign);
  return text;
}

TEST(DateFormat, IsWrittenInTheOrderOfItsOptionAndInTheLanguageOfTheUser) {
  TestComponent component;
  for (const OptionFormat& format : kOptionFormats) {
    component.module().language_offset = kFrenchOffset;
    EXPECT_EQ(DateFormatText(component.module(), {format.option, "/", {}}), format.french);
    EXPECT_EQ(DateFormatText(component.module(), {format.option, "", {}}),
              Without(std::string(format.french), '/'));
    component.module().language_offset = kEnglishOffset;
    EXPECT_EQ(DateFormatText(component.module(), {format.option, "/", {}}), format.english);
    EXPECT_EQ(DateFormatText(component.module(), {format.option, "", {}}),
              Without(std::string(format.english), '/'));
  }
}

TEST(DateFormat, IsStoredAsTheStyleOfItsOrderWithOrWithoutSeparator) {
  for (const OptionFormat& format : kOptionFormats) {
    EXPECT_EQ(DateStyleOf({format.option, "", {}}), format.style_without);
    EXPECT_EQ(DateStyleOf({format.option, "-", {}}), format.style_with);
  }
}

TEST(DateFormat, ShowsWhereTheImportReadsEachPart) {
  TestComponent component;
  for (std::uint8_t style = 1; style <= kDateStyles.size(); ++style) {
    const auto pattern = DatePatternOf(style, ".", TimeCode::kNone);
    ASSERT_TRUE(pattern) << int{style};
    const std::string text = DateFormatText(component.module(), *pattern);
    const DateStyle& parts = kDateStyles[style - 1U];
    EXPECT_EQ(text.substr(parts.day_at - 1U, 2), "jj") << int{style};
    EXPECT_EQ(text.substr(parts.month_at - 1U, 2), "mm") << int{style};
    EXPECT_EQ(text.substr(parts.year_at - 1U, parts.year_digits),
              std::string(parts.year_digits, 'a'))
        << int{style};
    EXPECT_EQ(text.size(), DateFormatWidth({style, TimeCode::kNone})) << int{style};
  }
}

TEST(DateFormat, EndsWithABlankAndItsTime) {
  TestComponent component;
  EXPECT_EQ(DateFormatText(component.module(), {4, "-", TimeCode::kSeconds}),
            "aaaa-jj-mm hh:mm:ss");
  EXPECT_EQ(DateFormatText(component.module(), {6, "", TimeCode::kMinutes}), "aaaammjj hh:mm");
  component.module().language_offset = kEnglishOffset;
  EXPECT_EQ(DateFormatText(component.module(), {4, "-", TimeCode::kSeconds}),
            "yyyy-dd-mm hh:mm:ss");
}

/// Every character of one byte, and some of several.
std::vector<std::string> Separators() {
  std::vector<std::string> separators{"", "é", "€", "𝄞"};
  for (int byte = 1; byte < 256; ++byte) separators.emplace_back(1, static_cast<char>(byte));
  return separators;
}

TEST(DateFormat, IsReadBackFromItsTextWhateverItsSeparator) {
  TestComponent component;
  int read = 0;
  for (const std::int32_t language : kLanguages) {
    component.module().language_offset = language;
    for (std::uint8_t style = 1; style <= kDateStyles.size(); ++style) {
      for (const std::string& separator : Separators()) {
        for (const TimeCode time : kTimes) {
          const DatePattern pattern = *DatePatternOf(style, separator, time);
          const std::string text = DateFormatText(component.module(), pattern);
          EXPECT_EQ(ReadDateFormat(component.module(), text), pattern) << text;
          if (!separator.empty()) {
            EXPECT_EQ(DateStyleOf(pattern), style) << text;
          }
          ++read;
        }
      }
    }
  }
  EXPECT_EQ(read, 2 * 16 * 259 * 3);
}

TEST(DateFormat, HasATextOfItsOwnForEachStyle) {
  TestComponent component;
  std::set<std::string> texts;
  for (std::uint8_t style = 1; style <= kDateStyles.size(); ++style) {
    for (const TimeCode time : kTimes) {
      texts.insert(DateFormatText(component.module(), *DatePatternOf(style, "/", time)));
    }
  }
  EXPECT_EQ(texts.size(), 16U * 3);
}

TEST(DateFormat, KeepsOneByteAsSeparatorInASingleByteCodePage) {
  TestComponent component(std::make_unique<Latin1TextEncoding>());
  const DatePattern pattern{1, "\xE9", TimeCode::kNone};
  EXPECT_EQ(ReadDateFormat(component.module(),
                           "jj\xE9mm\xE9"
                           "aaaa"),
            pattern);
  EXPECT_EQ(ReadDateFormat(component.module(),
                           "jj\xC3\xA9mm\xC3\xA9"
                           "aaaa"),
            std::nullopt);
}

TEST(DateFormat, IsNotReadFromATextThatIsNone) {
  TestComponent component;
  for (const char* text : {"",
                           " ",
                           "Texte",
                           "2",
                           "jj",
                           "jj/mm",
                           "jj/mm/aaa",
                           "jj/mm-aaaa",
                           "jj//mm//aaaa",
                           "jjmmjj",
                           "mm/mm/aaaa",
                           "dd/mm/yyyy",
                           "JJ/MM/AAAA",
                           "jj/mm/aaaa ",
                           " jj/mm/aaaa",
                           "hh:mm",
                           "hh:mm:ss",
                           " hh:mm",
                           "jj/mm/aaaahh:mm",
                           "jj/mm/aaaa hh",
                           "jj/mm/aaaa hh:mm:ss hh:mm",
                           "jjmmaaaaa"}) {
    EXPECT_EQ(ReadDateFormat(component.module(), text), std::nullopt) << text;
  }
}

TEST(DateFormat, HasNoPatternForAStyleThatIsNotOneOfTheSixteen) {
  for (const std::uint8_t style : std::array<std::uint8_t, 3>{0, 17, 255}) {
    EXPECT_EQ(DatePatternOf(style, "/", TimeCode::kNone), std::nullopt) << int{style};
  }
}

TEST(DateFormat, NamesEachOptionByItsPartsInFrench) {
  TestComponent component;
  for (std::size_t option = 0; option < kDateOptionCount; ++option) {
    EXPECT_EQ(DateFormatText(component.module(), {option, "?", TimeCode::kNone}),
              kDateOptionCaptions[option]);
  }
}

}  // namespace
}  // namespace imptable
