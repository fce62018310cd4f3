#include "dialogs/columns/FileColumn.h"

#include <gmock/gmock.h>

#include <tuple>

#include "dialogs/columns/DatePattern.h"
#include "tests/kit/TestComponent.h"

namespace imptable {
namespace {

std::string Delimited(const FileColumn& column) {
  TestComponent component;
  return FileColumnCode(component.module(), column, false);
}

std::string Fixed(const FileColumn& column) {
  TestComponent component;
  return FileColumnCode(component.module(), column, true);
}

TEST(FileColumn, IsStoredWithoutTheItemsThatItsTypeDoesNotNeedInADelimitedFile) {
  EXPECT_EQ(Delimited({FileColumnType::kText, "", ""}), "1");
  EXPECT_EQ(Delimited({FileColumnType::kByte, "", ""}), "2");
  EXPECT_EQ(Delimited({FileColumnType::kInteger, "", ""}), "3");
  EXPECT_EQ(Delimited({FileColumnType::kLong, "", ""}), "4");
  EXPECT_EQ(Delimited({FileColumnType::kSingle, "2", ""}), "5,2");
  EXPECT_EQ(Delimited({FileColumnType::kDouble, "0", ""}), "6,0");
  EXPECT_EQ(Delimited({FileColumnType::kSingle, "", ""}), "5");
  EXPECT_EQ(Delimited({FileColumnType::kBoolean, "", ""}), "8");
}

TEST(FileColumn, IsStoredWithItsLengthInAFixedWidthFile) {
  EXPECT_EQ(Fixed({FileColumnType::kText, "", "12"}), "1,,12");
  EXPECT_EQ(Fixed({FileColumnType::kByte, "", "3"}), "2,,3");
  EXPECT_EQ(Fixed({FileColumnType::kSingle, "2", "10"}), "5,2,10");
  EXPECT_EQ(Fixed({FileColumnType::kDouble, "0", "8"}), "6,0,8");
  EXPECT_EQ(Fixed({FileColumnType::kBoolean, "", "1"}), "8,,1");
}

TEST(FileColumn, IsAlwaysStoredWithFiveItemsForADate) {
  EXPECT_EQ(Delimited({FileColumnType::kDate, "jj/mm/aaaa hh:mm:ss", ""}), "7,7,,/,1");
  EXPECT_EQ(Delimited({FileColumnType::kDate, "aaaa-mm-jj hh:mm", ""}), "7,16,,-,0");
  EXPECT_EQ(Delimited({FileColumnType::kDate, "jjmmaa", ""}), "7,2,,,");
  EXPECT_EQ(Fixed({FileColumnType::kDate, "jj/mm/aaaa", ""}), "7,7,,/,");
  EXPECT_EQ(Fixed({FileColumnType::kDate, "jj/mm/aaaa", "12"}), "7,7,12,/,");
}

TEST(FileColumn, StoresTheStyleOfADateInTheLanguageItIsShownIn) {
  TestComponent component;
  component.module().language_offset = kEnglishOffset;
  EXPECT_EQ(
      FileColumnCode(component.module(), {FileColumnType::kDate, "yyyy-dd-mm hh:mm:ss", ""}, false),
      "7,15,,-,1");
}

/// Every column that the dialog can make, in the current language.
std::vector<FileColumn> Columns(const ModuleCommun& module, bool fixed_width) {
  std::vector<FileColumn> columns;
  const std::vector<std::string> lengths =
      fixed_width ? std::vector<std::string>{"1", "12", "32767"} : std::vector<std::string>{""};
  for (const std::string& length : lengths) {
    for (const FileColumnType type :
         {FileColumnType::kText, FileColumnType::kByte, FileColumnType::kInteger,
          FileColumnType::kLong, FileColumnType::kBoolean}) {
      columns.push_back({type, "", length});
    }
    for (const FileColumnType type : {FileColumnType::kSingle, FileColumnType::kDouble}) {
      for (const char* decimals : {"", "0", "2", "15"}) columns.push_back({type, decimals, length});
    }
    for (std::uint8_t style = 1; style <= kDateStyles.size(); ++style) {
      for (const char* separator : {"/", "-", ".", " ", ",", "m", "0", "é", "€"}) {
        for (const TimeCode time : {TimeCode::kNone, TimeCode::kMinutes, TimeCode::kSeconds}) {
          columns.push_back({FileColumnType::kDate,
                             DateFormatText(module, *DatePatternOf(style, separator, time)),
                             length});
        }
      }
    }
  }
  return columns;
}

/// Language, and whether the file is of fixed width.
class StoredFileColumn : public testing::TestWithParam<std::tuple<std::int32_t, bool>> {
 protected:
  StoredFileColumn() : fixed(std::get<bool>(GetParam())) {
    component.module().language_offset = std::get<std::int32_t>(GetParam());
  }
  TestComponent component;
  bool fixed;
};

TEST_P(StoredFileColumn, IsReadBackAsItWasShown) {
  for (const FileColumn& column : Columns(component.module(), fixed)) {
    const std::string code = FileColumnCode(component.module(), column, fixed);
    bool readable = true;
    EXPECT_EQ(ReadFileColumn(component.module(), code, fixed, readable), column) << code;
    EXPECT_TRUE(readable) << code;
  }
}

TEST_P(StoredFileColumn, MeansToTheImportWhatTheDialogShows) {
  for (const FileColumn& column : Columns(component.module(), fixed)) {
    const std::string code = FileColumnCode(component.module(), column, fixed);
    const ColumnDefinition meant = ParseColumnLayout({code}, fixed)[0];
    EXPECT_EQ(meant.type, column.type) << code;
    if (fixed) {
      EXPECT_EQ(std::to_string(meant.width), column.length) << code;
    }
    if (column.type == FileColumnType::kDate) {
      const auto pattern = ReadDateFormat(component.module(), column.decimals);
      ASSERT_TRUE(pattern) << code;
      EXPECT_EQ(meant.date.style, DateStyleOf(*pattern)) << code;
      EXPECT_EQ(meant.date.time, pattern->time) << code;
    } else {
      const std::string decimals = column.decimals.empty() ? "0" : column.decimals;
      EXPECT_EQ(std::to_string(meant.decimals), decimals) << code;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(AllLanguagesAndFormats, StoredFileColumn,
                         testing::Combine(testing::Values(kFrenchOffset, kEnglishOffset),
                                          testing::Bool()));

struct Reading {
  const char* code;
  FileColumn column;
};

TEST(FileColumn, IsReadFromWhateverAnotherHandStored) {
  TestComponent component;
  for (const Reading& reading : {
           Reading{"1,,12", {FileColumnType::kText, "", "12"}},
           Reading{"1", {FileColumnType::kText, "", ""}},
           Reading{"1,5, 012 ", {FileColumnType::kText, "", "12"}},
           Reading{"3,2,10", {FileColumnType::kInteger, "2", "10"}},
           Reading{"5,02,10,x,y,z", {FileColumnType::kSingle, "2", "10"}},
           Reading{"7,1,,/,", {FileColumnType::kDate, "jjmmaaaa", ""}},
           Reading{"7,7,,//,2", {FileColumnType::kDate, "jj/mm/aaaa", ""}},
           Reading{"7,14", {FileColumnType::kDate, "aaaammjj", ""}},
       }) {
    bool readable = true;
    EXPECT_EQ(ReadFileColumn(component.module(), reading.code, true, readable), reading.column)
        << reading.code;
    EXPECT_TRUE(readable) << reading.code;
  }
}

TEST(FileColumn, LeavesEmptyWhatCanNotBeReadAndSaysSo) {
  TestComponent component;
  for (const Reading& reading : {
           Reading{"", {FileColumnType::kText, "", ""}},
           Reading{"0,,3", {FileColumnType::kText, "", "3"}},
           Reading{"9", {FileColumnType::kText, "", ""}},
           Reading{"Texte", {FileColumnType::kText, "", ""}},
           Reading{"5,x,10", {FileColumnType::kSingle, "", "10"}},
           Reading{"5,-2,10", {FileColumnType::kSingle, "", "10"}},
           Reading{"1,,a", {FileColumnType::kText, "", ""}},
           Reading{"7,,10,/,1", {FileColumnType::kDate, "", "10"}},
           Reading{"7,17,,/,1", {FileColumnType::kDate, "", ""}},
           Reading{"7", {FileColumnType::kDate, "", ""}},
       }) {
    bool readable = true;
    EXPECT_EQ(ReadFileColumn(component.module(), reading.code, true, readable), reading.column)
        << reading.code;
    EXPECT_FALSE(readable) << reading.code;
  }
}

TEST(FileColumn, HasNoLengthInADelimitedFileWhateverIsStored) {
  TestComponent component;
  for (const char* code : {"1,,12", "1,,x"}) {
    bool readable = true;
    EXPECT_EQ(ReadFileColumn(component.module(), code, false, readable),
              (FileColumn{FileColumnType::kText, "", ""}));
    EXPECT_TRUE(readable) << code;
  }
}

TEST(FileColumn, KeepsACommaAsSeparatorOfADateWithoutShiftingTheItems) {
  TestComponent component;
  EXPECT_EQ(Delimited({FileColumnType::kDate, "jj,mm,aaaa hh:mm", ""}), "7,7,,,0");
  bool readable = true;
  EXPECT_EQ(ReadFileColumn(component.module(), "7,7,,,0", false, readable).decimals,
            "jj,mm,aaaa hh:mm");
}

TEST(FileColumn, KeepsTheDecimalsThatAnotherHandGaveAnInteger) {
  TestComponent component;
  bool readable = true;
  const FileColumn column = ReadFileColumn(component.module(), "3,2", false, readable);
  EXPECT_EQ(FileColumnCode(component.module(), column, false), "3,2");
}

}  // namespace
}  // namespace imptable
