#include "import/values/DateConversion.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "import/layout/DateFormat.h"

namespace imptable {
namespace {

constexpr int kCentury = 20;
constexpr const char* kNoDate = "<no date>";

std::string TextOf(const std::optional<SQL_TIMESTAMP_STRUCT>& date) {
  if (!date) return kNoDate;
  const auto text = FormatDateValue(*date);
  return {text.data(), text.size()};
}

std::string Converted(std::string_view value, int style, TimeCode time = TimeCode::kNone,
                      bool utf8 = true) {
  return TextOf(ReadDateValue(value, {static_cast<std::uint8_t>(style), time}, kCentury, utf8));
}

TEST(DateConversion, ReadsTheSameDayInEveryStyle) {
  constexpr std::array<std::string_view, 16> kValues{
      "15112006",   "151106",   "11152006",   "111506",    "061511",   "061115",
      "15/11/2006", "15/11/06", "11/15/2006", "11/15/06",  "06/15/11", "06/11/15",
      "20061511",   "20061115", "2006/15/11", "2006/11/15"};
  for (std::size_t n = 0; n < kValues.size(); ++n) {
    EXPECT_EQ(Converted(kValues[n], static_cast<int>(n) + 1), "2006-11-15 00:00:00.000")
        << "style " << n + 1;
  }
}

TEST(DateConversion, ReadsTheTimeFromTheEndOfTheValueInEveryStyle) {
  constexpr std::array<std::string_view, 16> kValues{
      "15112006",   "151106",   "11152006",   "111506",    "061511",   "061115",
      "15/11/2006", "15/11/06", "11/15/2006", "11/15/06",  "06/15/11", "06/11/15",
      "20061511",   "20061115", "2006/15/11", "2006/11/15"};
  for (std::size_t n = 0; n < kValues.size(); ++n) {
    const int style = static_cast<int>(n) + 1;
    const std::string day(kValues[n]);
    EXPECT_EQ(Converted(day + " 08:30", style, TimeCode::kMinutes), "2006-11-15 08:30:00.000")
        << "style " << style;
    EXPECT_EQ(Converted(day + "T23.59.58", style, TimeCode::kSeconds), "2006-11-15 23:59:58.000")
        << "style " << style;
    EXPECT_EQ(Converted(day + " 08:30", style), "2006-11-15 00:00:00.000") << "style " << style;
  }
}

TEST(DateConversion, GivesTwoDigitYearsTheCurrentCenturyWithoutAPivot) {
  EXPECT_EQ(Converted("150399", 2), "2099-03-15 00:00:00.000");
  EXPECT_EQ(Converted("150300", 2), "2000-03-15 00:00:00.000");
  EXPECT_EQ(TextOf(ReadDateValue("150399", {2, TimeCode::kNone}, 19, true)),
            "1999-03-15 00:00:00.000");
}

TEST(DateConversion, PutsATwoDigitYearBehindTheCenturyAsItStands) {
  EXPECT_EQ(Converted("15039", 2), "0209-03-15 00:00:00.000");
  EXPECT_EQ(Converted("15039 ", 2), "0209-03-15 00:00:00.000");
  EXPECT_EQ(Converted("1503 9", 2), kNoDate) << "20 9 is no number";
  EXPECT_EQ(Converted("9 0315", 6), "0209-03-15 00:00:00.000");
}

TEST(DateConversion, SkipsTheSeparatorsByPositionWhateverTheyAre) {
  for (const char* value : {"15/11/2006", "15-11-2006", "15.11-2006", "15 11 2006", "1591192006",
                            "15é11é2006", "15€11𝄞2006"}) {
    EXPECT_EQ(Converted(value, 7), "2006-11-15 00:00:00.000") << value;
  }
}

TEST(DateConversion, CountsPositionsInCharactersOfTheCodePage) {
  EXPECT_EQ(Converted("15\xE9"
                      "11\xE9"
                      "2006",
                      7, TimeCode::kNone, false),
            "2006-11-15 00:00:00.000");
  EXPECT_EQ(Converted("15\xE9"
                      "11\xE9"
                      "2006",
                      7),
            "2006-11-15 00:00:00.000")
      << "a byte that is no UTF-8 is one character";
  EXPECT_EQ(Converted("15é11é2006", 7, TimeCode::kNone, false), kNoDate)
      << "two bytes are two characters of a single-byte code page";
}

TEST(DateConversion, ReadsTheTwoEndsOfALongValueOnly) {
  std::string middle;
  for (int i = 0; i < 300; ++i) middle += "é";
  EXPECT_EQ(Converted("15é11é2006" + middle + "08h30é59", 7, TimeCode::kSeconds),
            "2006-11-15 08:30:59.000");
  EXPECT_EQ(Converted("15/11/2006" + std::string(1000, 'x') + "08:30:59", 7, TimeCode::kSeconds),
            "2006-11-15 08:30:59.000");
}

TEST(DateConversion, ReadsATimeShorterThanItsFormFromItsStart) {
  EXPECT_EQ(Converted("08:30:5", 0, TimeCode::kSeconds), "0000-00-00 08:30:05.000");
  EXPECT_EQ(Converted("08:3", 0, TimeCode::kMinutes), "0000-00-00 08:03:00.000");
  EXPECT_EQ(Converted("08:30", 0, TimeCode::kSeconds), kNoDate) << "no seconds at all";
}

TEST(DateConversion, LeavesTheDayAtZeroForAStyleOutsideTheTable) {
  EXPECT_EQ(Converted("15/11/2006", 0), "0000-00-00 00:00:00.000");
}

TEST(DateConversion, PassesImpossibleDatesOn) {
  EXPECT_EQ(Converted("99132006", 1), "2006-13-99 00:00:00.000");
  EXPECT_EQ(Converted("00000000", 1), "0000-00-00 00:00:00.000");
  EXPECT_EQ(Converted("15112006 25:61:99", 1, TimeCode::kSeconds), "2006-11-15 25:61:99.000");
}

TEST(DateConversion, IgnoresBlanksAroundTheDigitsOfAPart) {
  EXPECT_EQ(Converted(" 5 12006", 1), "2006-01-05 00:00:00.000");
  EXPECT_EQ(Converted("5 1 2006", 1), "2006-01-05 00:00:00.000");
  EXPECT_EQ(Converted("1511 206", 1), "0206-11-15 00:00:00.000");
  EXPECT_EQ(Converted("15112006  8:30", 1, TimeCode::kMinutes), "2006-11-15 08:30:00.000");
}

TEST(DateConversion, RefusesAPartWithoutDigitsOrWithAnythingElse) {
  struct Case {
    const char* value;
    int style;
    TimeCode time;
  };
  for (const Case& each : {Case{"", 1, TimeCode::kNone},
                           {"    ", 1, TimeCode::kNone},
                           {"1511", 1, TimeCode::kNone},
                           {"15112 06", 1, TimeCode::kNone},
                           {"1511    ", 1, TimeCode::kNone},
                           {"1a112006", 1, TimeCode::kNone},
                           {"15+12006", 1, TimeCode::kNone},
                           {"-1112006", 1, TimeCode::kNone},
                           {"15\t12006", 1, TimeCode::kNone},
                           {"１１112006", 1, TimeCode::kNone},
                           {"15/11/", 7, TimeCode::kNone},
                           {"15112006 aa:30", 1, TimeCode::kMinutes},
                           {"15112006 08:  ", 1, TimeCode::kMinutes},
                           {"15112006 08:30:xx", 1, TimeCode::kSeconds}}) {
    EXPECT_EQ(Converted(each.value, each.style, each.time), kNoDate) << each.value;
  }
}

TEST(DateConversion, TakesTheWidthOfAFormatFromItsLayout) {
  constexpr std::array<std::size_t, 16> kWidths{8, 6, 8, 6, 6, 6, 10, 8, 10, 8, 8, 8, 8, 8, 10, 10};
  for (std::size_t n = 0; n < kWidths.size(); ++n) {
    const auto style = static_cast<std::uint8_t>(n + 1);
    EXPECT_EQ(DateFormatWidth({style, TimeCode::kNone}), kWidths[n]) << "style " << n + 1;
    EXPECT_EQ(DateFormatWidth({style, TimeCode::kMinutes}), kWidths[n] + 6) << "style " << n + 1;
    EXPECT_EQ(DateFormatWidth({style, TimeCode::kSeconds}), kWidths[n] + 9) << "style " << n + 1;
  }
}

TEST(DateConversion, ReadsTheFixedFormWithAnOptionalTime) {
  EXPECT_EQ(TextOf(ReadIsoDate("2006-11-15")), "2006-11-15 00:00:00.000");
  EXPECT_EQ(TextOf(ReadIsoDate("  2006-11-15  ")), "2006-11-15 00:00:00.000");
  EXPECT_EQ(TextOf(ReadIsoDate("2006-11-15 08:30")), "2006-11-15 08:30:00.000");
  EXPECT_EQ(TextOf(ReadIsoDate("2006-11-15 08:30:59")), "2006-11-15 08:30:59.000");
  const auto fraction = ReadIsoDate("2006-11-15 08:30:59.25");
  ASSERT_TRUE(fraction);
  EXPECT_EQ(fraction->fraction, 250'000'000U);
  const auto finest = ReadIsoDate("2006-11-15 08:30:59.123456789");
  ASSERT_TRUE(finest);
  EXPECT_EQ(finest->fraction, 123'456'789U);
}

TEST(DateConversion, RefusesEveryOtherFormOfATextThatNoLayoutConverted) {
  for (const char* value :
       {"", " ", "15/11/2006", "2006/11/15", "20061115", "2006-11-1", "2006-1-15", "06-11-15",
        "2006-11-15x", "2006-11-15T08:30", "2006-11-15 08", "2006-11-15 8:30",
        "2006-11-15 08:30:", "2006-11-15 08:30:5", "2006-11-15 08:30:59.",
        "2006-11-15 08:30:59.1234567890", "2006-11-15 08:30:59,5", "2006-11-15 08:30 Uhr"}) {
    EXPECT_EQ(TextOf(ReadIsoDate(value)), kNoDate) << value;
  }
}

}  // namespace
}  // namespace imptable
