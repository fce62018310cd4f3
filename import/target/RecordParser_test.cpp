#include "import/target/RecordParser.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "import/source/FieldSplitting.h"
#include "platform/testing/PlainEncodings.h"
#include "tests/kit/TestComponent.h"

namespace imptable {
namespace {

using testing::ElementsAre;

constexpr std::size_t kMany = 100;

std::vector<std::string_view> Delimited(std::string_view line, std::string_view delimiter = ";",
                                        std::size_t most = kMany) {
  std::vector<std::string_view> fields{"left over"};
  SplitDelimited(line, delimiter, 1, most, fields);
  return fields;
}

std::vector<std::string_view> FixedWidth(std::string_view line,
                                         const std::vector<std::size_t>& widths, bool utf8 = true) {
  std::vector<std::string_view> fields{"left over"};
  SplitFixedWidth(line, widths, utf8, fields);
  return fields;
}

TargetColumn Bound(const char* name, std::int16_t sql_type) {
  TargetColumn column;
  column.name = name;
  column.sql_type = sql_type;
  column.bound = true;
  return column;
}

/// What one line becomes in VARCHAR columns: their texts, or the parser's answer.
std::vector<std::string> Parsed(TestComponent& component, std::size_t column_count,
                                std::string_view line) {
  const std::vector<TargetColumn> columns(column_count, Bound("C", kSqlVarchar));
  std::vector<ParameterBuffer> buffers(column_count);
  RecordParser parser(CompileRecordPlan(component.module(), columns, buffers));
  switch (parser.ParseRecord(line)) {
    case ParseResult::kFailed:
      return {"<failed>"};
    case ParseResult::kEmpty:
      return {"<empty>"};
    case ParseResult::kRecord:
      break;
  }
  std::vector<std::string> texts;
  for (const ParameterBuffer& buffer : buffers) {
    texts.push_back(
        buffer.text_indicator == SQL_NULL_DATA
            ? "<null>"
            : std::string(buffer.text.data(), static_cast<std::size_t>(buffer.text_indicator)));
  }
  return texts;
}

TEST(RecordParser, SplitsALineAtEachDelimiter) {
  EXPECT_THAT(Delimited("x;y"), ElementsAre("x", "y"));
  EXPECT_THAT(Delimited("a;;b"), ElementsAre("a", "", "b"));
  EXPECT_THAT(Delimited("a;b;"), ElementsAre("a", "b", ""));
  EXPECT_THAT(Delimited(";a"), ElementsAre("", "a"));
  EXPECT_THAT(Delimited(""), ElementsAre(""));
  EXPECT_THAT(Delimited(";"), ElementsAre("", ""));
  EXPECT_THAT(Delimited("a,b"), ElementsAre("a,b"));
}

TEST(RecordParser, KnowsNoTextQualifier) {
  EXPECT_THAT(Delimited("\"a;b\";'c'"), ElementsAre("\"a", "b\"", "'c'"));
}

TEST(RecordParser, SplitsAtAnyDelimiter) {
  EXPECT_THAT(Delimited("a\tb", "\t"), ElementsAre("a", "b"));
  EXPECT_THAT(Delimited("a b", " "), ElementsAre("a", "b"));
  EXPECT_THAT(Delimited("a||b||c", "||"), ElementsAre("a", "|b", "|c"))
      << "the next field starts one character after the delimiter's start";
}

TEST(RecordParser, StopsSplittingOnceALineHasTooManyFields) {
  EXPECT_THAT(Delimited("a;b;c;d", ";", 3), ElementsAre("a", "b", "c"));
}

TEST(RecordParser, CutsAFixedWidthLineIntoItsWidths) {
  EXPECT_THAT(FixedWidth("ABCDE", {3, 2}), ElementsAre("ABC", "DE"));
  EXPECT_THAT(FixedWidth("ABCDEFG", {3, 2}), ElementsAre("ABC", "DE"));
  EXPECT_THAT(FixedWidth("ABCD", {3, 2, 4}), ElementsAre("ABC", "D", ""));
  EXPECT_THAT(FixedWidth("", {3, 2}), ElementsAre("", ""));
  EXPECT_THAT(FixedWidth("ABC", {0, 3}), ElementsAre("", "ABC"));
  EXPECT_THAT(FixedWidth("A;  B", {2, 3}), ElementsAre("A;", "  B"));
}

TEST(RecordParser, CountsWidthsInCharactersOfTheCodePage) {
  EXPECT_THAT(FixedWidth("é€𝄞AB", {3, 2}), ElementsAre("é€𝄞", "AB"));
  EXPECT_THAT(FixedWidth("é€AB", {2, 3}, false), ElementsAre("é", "€"));
  EXPECT_THAT(FixedWidth("\xE9t\xE9XY", {3, 2}), ElementsAre("\xE9t\xE9", "XY"))
      << "bytes that are no UTF-8 are one character each and passed on";
}

TEST(RecordParser, CutsByTheCodePageOfTheSystem) {
  for (const bool utf8 : {true, false}) {
    TestComponent component(utf8 ? std::unique_ptr<TextEncoding>(new Utf8TextEncoding)
                                 : std::unique_ptr<TextEncoding>(new Latin1TextEncoding));
    component.module().run.column_layout = {"1,,2", "1,,2"};
    EXPECT_THAT(Parsed(component, 2, "éàxy"),
                utf8 ? ElementsAre("éà", "xy") : ElementsAre("é", "à"));
    EXPECT_THAT(Parsed(component, 2, "\xE9\xE0xy"), ElementsAre("\xE9\xE0", "xy"));
  }
}

TEST(RecordParser, AdvancesByOneCharacterOfTheDelimiterWhateverItsBytes) {
  TestComponent component;
  component.module().run.file_format = FileFormat::kDelimited;
  component.module().run.delimiter = "§";
  EXPECT_THAT(Parsed(component, 3, "a§b§c"), ElementsAre("a", "b", "c"));
  component.module().run.delimiter = "§§";
  EXPECT_THAT(Parsed(component, 2, "a§§b"), ElementsAre("a", "§b"));
}

TEST(RecordParser, FailsOnALineWithMoreFieldsThanTheTableHasColumns) {
  TestComponent component;
  component.module().run.file_format = FileFormat::kDelimited;
  component.module().run.delimiter = ";";
  EXPECT_THAT(Parsed(component, 2, "a;b"), ElementsAre("a", "b"));
  EXPECT_THAT(Parsed(component, 2, "a;b;"), ElementsAre("<failed>"));
  EXPECT_THAT(Parsed(component, 2, "a"), ElementsAre("a", "<null>"));
}

TEST(RecordParser, HasAnEmptyRecordOnlyForTheEmptyValueOfASingleColumn) {
  TestComponent component;
  component.module().run.file_format = FileFormat::kDelimited;
  component.module().run.delimiter = ";";
  EXPECT_THAT(Parsed(component, 1, ""), ElementsAre("<empty>"));
  EXPECT_THAT(Parsed(component, 1, " "), ElementsAre(" "));
  EXPECT_THAT(Parsed(component, 2, ""), ElementsAre("<null>", "<null>"));
  component.module().run.null_option = Flag::kOn;
  EXPECT_THAT(Parsed(component, 1, " "), ElementsAre("<empty>"));
}

TEST(RecordParser, ForgetsTheValuesOfTheLineBefore) {
  TestComponent component;
  component.module().run.file_format = FileFormat::kDelimited;
  component.module().run.delimiter = ";";
  const std::vector<TargetColumn> columns{Bound("A", kSqlVarchar), Bound("B", kSqlFloat),
                                          Bound("C", kSqlDate)};
  std::vector<ParameterBuffer> buffers(columns.size());
  RecordParser parser(CompileRecordPlan(component.module(), columns, buffers));
  ASSERT_EQ(parser.ParseRecord("a;1.5;2006-11-15"), ParseResult::kRecord);
  EXPECT_EQ(buffers[0].text_indicator, 1);
  EXPECT_EQ(buffers[1].number, 1.5);
  EXPECT_EQ(buffers[2].date.day, 15);
  ASSERT_EQ(parser.ParseRecord(";;"), ParseResult::kRecord);
  EXPECT_EQ(buffers[0].text_indicator, SQL_NULL_DATA);
  EXPECT_EQ(buffers[1].number_indicator, SQL_NULL_DATA);
  EXPECT_EQ(buffers[2].date_indicator, SQL_NULL_DATA);
}

}  // namespace
}  // namespace imptable
