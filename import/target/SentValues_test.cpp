#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/kit/KeyedRun.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// A run with a key of this type, in a database of this name.
class TypedRun : public KeyedRun {
 public:
  explicit TypedRun(const std::string& type, const std::string& dbms = {},
                    std::int32_t mode = kByDelete)
      : KeyedRun(mode) {
    Table("column CODE " + type + " 10 0 0\ncolumn NOM 12 VARCHAR 30 0 1\n");
    if (!dbms.empty()) Driver("info 17 " + dbms);
  }

  /// Whether a line with this key was executed.
  bool Takes(const std::string& key) {
    Source({key + ";a"});
    Go();
    const bool executed = !Executed().empty();
    EXPECT_EQ(progress().lines[Outcome::kRejected], executed ? 0 : 1) << key;
    return executed;
  }
};

constexpr std::int32_t kByInsert = 0;

class NumberKey : public testing::TestWithParam<const char*> {};

TEST_P(NumberKey, ThatIsNoNumberIsRejectedBeforeItIsSent) {
  for (const std::int32_t mode : {kByUpdate, kByUpdateInsert, kByDelete}) {
    TypedRun run(GetParam(), "", mode);
    run.Source({"12x;a", "12;b"});
    EXPECT_EQ(run.Go(), 3);
    EXPECT_THAT(run.Executed(), SizeIs(1));
    EXPECT_THAT(run.Rejected(), ElementsAre("12x;a"));
    EXPECT_THAT(run.Errors(),
                ElementsAre("15/11/2006 08:30:00.... Ligne  1 Clé \"CODE\" : \"12x\" n'est pas un "
                            "nombre ; la ligne n'a pas été exécutée"));
  }
}

INSTANTIATE_TEST_SUITE_P(OfType, NumberKey,
                         testing::Values("2 NUMERIC", "3 DECIMAL", "4 INTEGER", "5 SMALLINT",
                                         "6 FLOAT", "7 REAL", "8 DOUBLE", "-5 BIGINT",
                                         "-6 TINYINT"));

TEST(KeyValues, ThatWouldBeCutOnTheirWayAreNotSent) {
  for (const std::int32_t mode : {kByUpdate, kByUpdateInsert, kByDelete}) {
    TypedRun run("12 VARCHAR", "", mode);
    EXPECT_TRUE(run.Takes(std::string(500, 'k')));
    EXPECT_FALSE(run.Takes(std::string(501, 'k')));
    EXPECT_THAT(run.Errors(), ElementsAre(testing::HasSubstr("est trop longue")));
  }
  const std::string with_nul("a\0b", 3);
  EXPECT_TRUE(TypedRun("12 VARCHAR", "SQLite").Takes(with_nul));
  EXPECT_FALSE(TypedRun("12 VARCHAR", "PostgreSQL").Takes(with_nul));
}

TEST(KeyValues, AreNamedInEnglishInAnEnglishRun) {
  TypedRun run("4 INTEGER");
  run.component.registry.SetNumber("SOFTWARE\\KALDO\\Configuration", "Lang", kEnglishOffset);
  run.Source({"abc;a"});
  run.Go();
  EXPECT_THAT(run.Errors(), ElementsAre("15/11/2006 08:30:00.... Line  1 Key \"CODE\": \"abc\" is "
                                        "no number; the line was not executed"));
}

TEST(KeyValues, MayBeNumbersWithSignsExponentsAndOuterBlanks) {
  TypedRun run("4 INTEGER");
  for (const char* number : {"7", " 7 ", "\t7", "+7", "-7", "007", "7.0", "7.", ".5", "1e3", "1E-3",
                             "0.7e+1", "12345678901234567890123456789.0123456789"}) {
    EXPECT_TRUE(run.Takes(number)) << number;
  }
  for (const char* text : {"7x",    "x7",     "7 8",        "- 7",       "7-", "--7", "(7)",
                           "0x10",  "1e",     "1e+",        "e3",        ".",  "+",   "1.2.3",
                           "1 000", "12 EUR", "2006-01-02", "7\xC2\xA0", "é",  "NaN", "Infinity"}) {
    EXPECT_FALSE(run.Takes(text)) << text;
  }
}

TEST(KeyValues, MayBeNullInAnyColumn) {
  EXPECT_TRUE(TypedRun("4 INTEGER").Takes(""));
  EXPECT_TRUE(TypedRun("6 FLOAT").Takes("Null"));
  EXPECT_TRUE(TypedRun("10 TIME", "MariaDB").Takes(""));
  EXPECT_TRUE(TypedRun("9 DATE", "MariaDB").Takes(""));
}

TEST(KeyValues, MayHaveTheUsersSeparatorUnlessTheDatabaseMisreadsIt) {
  for (const char* dbms : {"", "SQLite", "PostgreSQL", "MariaDB"}) {
    TypedRun run("2 NUMERIC", dbms);
    EXPECT_FALSE(run.Takes("1,5")) << dbms;
    run.component.registry.SetText({kHkeyCurrentUser, "Control Panel\\International"}, "sDecimal",
                                   ",");
    EXPECT_EQ(run.Takes("1,5"), std::string(dbms) != "MariaDB") << dbms;
    EXPECT_TRUE(run.Takes("1.5")) << dbms;
  }
}

TEST(KeyValues, MayBeTheNumbersThatPostgresqlHasWordsFor) {
  TypedRun run("7 REAL", "PostgreSQL");
  for (const char* number : {"NaN", "nan", "Infinity", "-Infinity", "inf", " +Inf "}) {
    EXPECT_TRUE(run.Takes(number)) << number;
  }
  EXPECT_FALSE(run.Takes("Nano"));
}

TEST(KeyValues, AreRejectedWhenTheNumberIsTooLongToBeSentWhole) {
  TypedRun run("4 INTEGER");
  EXPECT_TRUE(run.Takes(std::string(499, '0') + '1'));
  EXPECT_FALSE(run.Takes(std::string(499, '0') + "12"));
  EXPECT_FALSE(run.Takes("1" + std::string(499, ' ') + "2"));
}

TEST(KeyValues, OfOtherTypesGoAsTheyAre) {
  for (const char* type : {"12 VARCHAR", "1 CHAR", "-1 TEXT", "-7 BOOLEAN", "10 TIME"}) {
    EXPECT_TRUE(TypedRun(type).Takes("12x")) << type;
  }
}

TEST(KeyValues, OfTimesDatesAndBitsAreLookedAtWhereTheDatabaseMisreadsThem) {
  TypedRun time("10 TIME", "MariaDB");
  for (const char* text : {"10:00", "10:00:00", " 9:5:7 ", "-10:00:00", "838:59:59", "10", "100000",
                           "10:00:00.5", "2006-01-02 10:00:00.000", "0000-00-00 10:00:00.000"}) {
    EXPECT_TRUE(time.Takes(text)) << text;
  }
  for (const char* text : {"abc", "25:61:00", "9:59:60", "839:00:00", "10:00:00x", "0x0a", "10h",
                           "999999", "2006-01-02 25:00:00", "2006-01-02 24:00:00",
                           "2006-13-02 10:00:00", "10:", ":10", "1e3", "2006-01-02"}) {
    EXPECT_FALSE(time.Takes(text)) << text;
  }
  TypedRun plain_time("10 TIME", "PostgreSQL");
  for (const char* text :
       {"10:00", "10:00:00", " 9:5:7 ", "2006-01-02 10:00:00.000", "23:59:59", "24:00:00"}) {
    EXPECT_TRUE(plain_time.Takes(text)) << text;
  }
  for (const char* text : {"abc", "10", "100000", "-10:00:00", "10:00 PM", "2006-01-02", "25:00:00",
                           "838:59:59", "008:30:00", "24:00:01", "::"}) {
    EXPECT_FALSE(plain_time.Takes(text)) << text;
  }
  TypedRun bit("-7 BIT", "MariaDB");
  for (const char* text : {"0", "1", " 1", "01"}) EXPECT_TRUE(bit.Takes(text)) << text;
  for (const char* text : {"2", "true", "x", "-1"}) EXPECT_FALSE(bit.Takes(text)) << text;
  TypedRun bits("-2 BIT", "MariaDB");
  EXPECT_TRUE(bits.Takes("12"));
  EXPECT_FALSE(bits.Takes("abc"));
  TypedRun date("9 DATE", "MariaDB");
  for (const char* text : {"2006-02-30", "2006-00-00", "0000-00-00", "2006-12-31 25:00"}) {
    EXPECT_TRUE(date.Takes(text)) << text;
  }
  for (const char* text : {"2006-13-01", "2006-01-32"}) EXPECT_FALSE(date.Takes(text)) << text;
  TypedRun stamp("11 TIMESTAMP", "MariaDB");
  EXPECT_TRUE(stamp.Takes("2006-12-31 23:59:59"));
  for (const char* text : {"2006-13-01", "2006-12-31 24:00", "2006-12-31 23:60"}) {
    EXPECT_FALSE(stamp.Takes(text)) << text;
  }
}

TEST(KeyValues, SayWhichDateIsNone) {
  TypedRun run("9 DATE", "MariaDB");
  run.Source({"2006-13-01;a"});
  run.Go();
  EXPECT_THAT(run.Errors(),
              ElementsAre("15/11/2006 08:30:00.... Ligne  1 Clé \"CODE\" : \"2006-13-01 "
                          "00:00:00.000\" n'est pas une date ; la ligne n'a pas été exécutée"));
}

/// Runs lines of CODE and NOM. @return those that were rejected.
std::vector<std::string> RejectedBy(std::int32_t mode, const std::string& dbms,
                                    const std::string& type,
                                    const std::vector<std::string>& lines) {
  KeyedRun run(mode);
  run.Table("column CODE 4 INTEGER 10 0 0\ncolumn NOM " + type + " 30 0 1\n");
  run.Driver("info 17 " + dbms);
  run.Source(lines);
  run.Go();
  if (run.progress().lines[Outcome::kRejected] == 0) return {};
  EXPECT_EQ(run.progress().lines[Outcome::kRejected],
            static_cast<std::int64_t>(run.Rejected().size()));
  return run.Rejected();
}

TEST(SentValues, ThatADriverWouldTurnIntoOthersAreRejectedInEveryColumn) {
  for (const std::int32_t mode : {kByInsert, kByUpdate, kByUpdateInsert}) {
    const std::vector<std::string> times{"1;8:30", "2;8h30", "3;", "4;-08:30:00", "5;a:b"};
    EXPECT_THAT(RejectedBy(mode, "PostgreSQL", "10 time", times),
                ElementsAre("2;8h30", "4;-08:30:00", "5;a:b"));
    EXPECT_THAT(RejectedBy(mode, "MariaDB", "10 TIME", times), IsEmpty())
        << "the server says so itself";
    const std::vector<std::string> bytes{"1;00fF", "2;a\\b", "3;abc", "4;"};
    EXPECT_THAT(RejectedBy(mode, "PostgreSQL", "-3 bytea", bytes), ElementsAre("2;a\\b", "3;abc"));
    EXPECT_THAT(RejectedBy(mode, "SQLite", "-3 BLOB", bytes), IsEmpty());
    const std::vector<std::string> bits{"1;12", "2;x", "3;", "4;1.5", "5;-1", "6;9e15", "7;1e16"};
    EXPECT_THAT(RejectedBy(mode, "MariaDB", "-2 BIT", bits),
                ElementsAre("2;x", "4;1.5", "5;-1", "7;1e16"));
  }
}

TEST(SentValues, OfAColumnThatIsNoKeyAreCalledAColumns) {
  KeyedRun run(kByUpdate);
  run.Table("column CODE 4 INTEGER 10 0 0\ncolumn NOM 10 time 30 0 1\n");
  run.Driver("info 17 PostgreSQL");
  run.Source({"1;8h30"});
  run.Go();
  EXPECT_THAT(run.Errors(),
              ElementsAre("15/11/2006 08:30:00.... Ligne  1 Colonne \"NOM\" : \"8h30\" n'est pas "
                          "une heure ; la ligne n'a pas été exécutée"));
}

}  // namespace
}  // namespace imptable
