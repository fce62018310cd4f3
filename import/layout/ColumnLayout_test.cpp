#include "import/layout/ColumnLayout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/RuntimeFault.h"

namespace imptable {
namespace {

ColumnDefinition Parsed(const std::string& entry, bool fixed_width = false) {
  return ParseColumnLayout({entry}, fixed_width).at(0);
}

std::string FaultOf(const std::vector<std::string>& entries, bool fixed_width) {
  try {
    ParseColumnLayout(entries, fixed_width);
  } catch (const RuntimeFault& fault) {
    return std::to_string(static_cast<int>(fault.number())) + ' ' + fault.detail();
  }
  return "none";
}

std::string OriginFault(std::string_view value) {
  try {
    ParseColumnOrigin(value, "4");
  } catch (const RuntimeFault& fault) {
    return std::to_string(static_cast<int>(fault.number())) + ' ' + fault.detail();
  }
  return "none";
}

TEST(ColumnLayout, KnowsEveryTypeCode) {
  EXPECT_EQ(Parsed("1").type, FileColumnType::kText);
  EXPECT_EQ(Parsed("2").type, FileColumnType::kByte);
  EXPECT_EQ(Parsed("3").type, FileColumnType::kInteger);
  EXPECT_EQ(Parsed("4").type, FileColumnType::kLong);
  EXPECT_EQ(Parsed("5").type, FileColumnType::kSingle);
  EXPECT_EQ(Parsed("6").type, FileColumnType::kDouble);
  EXPECT_EQ(Parsed("7").type, FileColumnType::kDate);
  EXPECT_EQ(Parsed("8").type, FileColumnType::kBoolean);
}

TEST(ColumnLayout, TakesAnEntryWithoutAKnownCodeForAText) {
  for (const char* entry : {"", ",", "0", "9", "77", "x", "0,7,12"}) {
    EXPECT_EQ(Parsed(entry).type, FileColumnType::kText) << entry;
  }
}

TEST(ColumnLayout, ReadsItemsByTheirPosition) {
  EXPECT_EQ(Parsed("5,2").decimals, 2U);
  EXPECT_EQ(Parsed("6,3,").decimals, 3U);
  EXPECT_EQ(Parsed("3,4").decimals, 4U);
  EXPECT_EQ(Parsed("1,,12", true).width, 12U);
  const ColumnDefinition single = Parsed("5,2,10", true);
  EXPECT_EQ(single.decimals, 2U);
  EXPECT_EQ(single.width, 10U);
}

TEST(ColumnLayout, HasNoImpliedDecimalsInAnEmptyOrMissingItem) {
  EXPECT_EQ(Parsed("5").decimals, 0U);
  EXPECT_EQ(Parsed("5,").decimals, 0U);
  EXPECT_EQ(Parsed("6,,10", true).decimals, 0U);
}

TEST(ColumnLayout, ReadsDateStyleAndTimeCode) {
  for (int style = 1; style <= 16; ++style) {
    EXPECT_EQ(Parsed("7," + std::to_string(style) + ",,/,1").date.style, style);
  }
  for (const char* entry : {"7", "7,", "7,0,,,", "7,17,,,", "7,-1,,,", "7,1x,,,", "7,01,,,"}) {
    EXPECT_EQ(Parsed(entry).date.style, 0) << entry;
  }
  EXPECT_EQ(Parsed("7,7,,/,1").date.time, TimeCode::kSeconds);
  EXPECT_EQ(Parsed("7,7,,/,0").date.time, TimeCode::kMinutes);
  EXPECT_EQ(Parsed("7,7,,/,").date.time, TimeCode::kNone);
  EXPECT_EQ(Parsed("7,7").date.time, TimeCode::kNone);
  EXPECT_EQ(Parsed("7,7,,/,2").date.time, TimeCode::kNone);
  EXPECT_EQ(Parsed("7,14,14,,0", true).width, 14U);
}

TEST(ColumnLayout, GivesADateWithoutWidthTheWidthOfItsFormat) {
  EXPECT_EQ(Parsed("7,7,,/,1", true).width, 19U);
  EXPECT_EQ(Parsed("7,14,,,", true).width, 8U);
}

TEST(ColumnLayout, NamesTheEntryThatItCannotRead) {
  EXPECT_EQ(FaultOf({"1", "5,x"}, false), "13 \"Colonnes\\2\" = \"5,x\"");
  EXPECT_EQ(FaultOf({"6,1.5"}, false), "13 \"Colonnes\\1\" = \"6,1.5\"");
  EXPECT_EQ(FaultOf({"6,-1"}, false), "13 \"Colonnes\\1\" = \"6,-1\"");
  EXPECT_EQ(FaultOf({"1,,2", "1"}, true), "13 \"Colonnes\\2\" = \"1\"");
  EXPECT_EQ(FaultOf({"1,,x"}, true), "13 \"Colonnes\\1\" = \"1,,x\"");
  EXPECT_EQ(FaultOf({"1,,x", ""}, false), "none") << "a delimited file has no widths";
  EXPECT_EQ(FaultOf({"1,x", "4,x", "7,x,,,"}, false), "none") << "no decimals in these types";
}

TEST(ColumnLayout, KeepsTheOrderOfTheFileColumns) {
  const auto layout = ParseColumnLayout({"1,,3", "1,,2"}, true);
  ASSERT_EQ(layout.size(), 2U);
  EXPECT_EQ(layout[0].width, 3U);
  EXPECT_EQ(layout[1].width, 2U);
}

TEST(ColumnLayout, TakesTheOriginFromTheLastItemOfAnAssignment) {
  using Kind = ColumnOrigin::Kind;
  struct Case {
    const char* value;
    Kind kind;
    std::size_t field;
    const char* text;
  };
  for (const Case& each : {Case{"CODE,INTEGER,(Col)3", Kind::kField, 2, ""},
                           {"(Col)1", Kind::kField, 0, ""},
                           {"CODE,(Col) 12", Kind::kField, 11, ""},
                           {"CODE,Null", Kind::kNull, 0, ""},
                           {"CODE,null", Kind::kConstant, 0, "null"},
                           {"CODE,@SITE", Kind::kVariable, 0, "SITE"},
                           {"CODE,@", Kind::kVariable, 0, ""},
                           {"CODE,constant", Kind::kConstant, 0, "constant"},
                           {"CODE,", Kind::kConstant, 0, ""},
                           {"", Kind::kConstant, 0, ""},
                           {"CODE, x ", Kind::kConstant, 0, " x "},
                           {"(Col)1,Ignore", Kind::kConstant, 0, "Ignore"},
                           {"CODE,(col)1", Kind::kConstant, 0, "(col)1"}}) {
    const ColumnOrigin origin = ParseColumnOrigin(each.value, "1");
    EXPECT_EQ(origin.kind, each.kind) << each.value;
    EXPECT_EQ(origin.field, each.field) << each.value;
    EXPECT_EQ(origin.text, each.text) << each.value;
  }
}

TEST(ColumnLayout, NamesTheAssignmentThatItCannotRead) {
  EXPECT_EQ(OriginFault("CODE,(Col)"), "13 \"Champs\\4\" = \"CODE,(Col)\"");
  EXPECT_EQ(OriginFault("CODE,(Col)x"), "13 \"Champs\\4\" = \"CODE,(Col)x\"");
  EXPECT_EQ(OriginFault("CODE,(Col)-1"), "13 \"Champs\\4\" = \"CODE,(Col)-1\"");
  EXPECT_EQ(OriginFault("CODE,(Col)0"), "9 \"Champs\\4\" = \"CODE,(Col)0\"");
}

TEST(ColumnLayout, TakesNumbersOfUpTo32Bits) {
  const auto layout = ParseColumnLayout({"1,,4294967295", "5,2147483648,1"}, true);
  EXPECT_EQ(layout.at(0).width, 4294967295U);
  EXPECT_EQ(layout.at(1).decimals, 2147483648U);
  EXPECT_EQ(ParseColumnOrigin("(Col)2147483648", "1").field, 2147483647U);
  EXPECT_THROW(ParseColumnLayout({"1,,4294967296"}, true), RuntimeFault);
}

}  // namespace
}  // namespace imptable
