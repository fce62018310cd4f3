#include "import/target/TargetTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/kit/ScriptedSession.h"

namespace imptable {
namespace {

using testing::ElementsAre;

/// The table CLIENT of a task, as a script of the driver describes it.
class LoadedTable {
 public:
  explicit LoadedTable(std::string_view script) : session_(script) {
    EXPECT_TRUE(session_.Connect());
    session_.run().table = "CLIENT";
  }

  void Assign(const std::string& number, const std::string& value) {
    session_.run().assignments.push_back({number, value});
  }

  std::vector<bool> Ignored(bool with_special_columns = true) {
    TargetTable table(session_.component.module(), session_.odbc());
    EXPECT_TRUE(table.Load(with_special_columns));
    std::vector<bool> ignored;
    for (const TargetColumn& column : table.columns()) ignored.push_back(column.ignored);
    return ignored;
  }

 private:
  ScriptedSession session_;
};

TEST(TargetTable, LeavesOutTheColumnsWhoseAssignmentEndsWithIgnore) {
  struct Case {
    const char* assignment;
    bool ignored;
  };
  for (const Case& each :
       {Case{"Ignore", true}, Case{"NOM Ignore", true}, Case{"XIgnore", true},
        Case{"IgnoreIgnore", true}, Case{"Ignore ", false}, Case{"ignore", false},
        Case{"IGNORE", false}, Case{"gnore", false}, Case{"IgnoreX", false}, Case{"", false}}) {
    LoadedTable table("column CODE 4 INTEGER 10 0 0\n");
    table.Assign("1", each.assignment);
    EXPECT_THAT(table.Ignored(), ElementsAre(each.ignored)) << '"' << each.assignment << '"';
  }
}

TEST(TargetTable, FindsAnAssignmentByTheColumnsPlaceFromOne) {
  std::string script;
  for (int n = 1; n <= 11; ++n) script += "column C" + std::to_string(n) + " 4 INTEGER 10 0 0\n";
  LoadedTable table(script);
  table.Assign("10", "Ignore");
  table.Assign("0", "Ignore");
  table.Assign("3", "7");
  table.Assign("2", "Ignore");
  table.Assign("12", "Ignore");
  const std::vector<bool> ignored = table.Ignored();
  for (std::size_t i = 0; i < ignored.size(); ++i) EXPECT_EQ(ignored[i], i == 1 || i == 9) << i;
}

TEST(TargetTable, LeavesOutNoColumnButThoseThatTheDatabaseVersionsItself) {
  LoadedTable table(
      "column CODE 4 INTEGER 10 0 0\n"
      "column NOM 12 VARCHAR 30 0 1\n"
      "column V1 -2 TIMESTAMP 8 0 0\n"
      "column V2 -2 TIMESTAMP 8 0 0\n"
      "rowversion V2\nrowversion V1\n");
  table.Assign("1", "Ignore");
  EXPECT_THAT(table.Ignored(), ElementsAre(true, false, true, true));
}

TEST(TargetTable, FindsAVersionedColumnByItsExactName) {
  for (const char* reported : {"", "rowversion OTHER\n", "rowversion ts\n", "rowversion T\n",
                               "rowversion TSX\n", "rowversion null\n", "rowid TS\n"}) {
    LoadedTable table("column TS -2 TIMESTAMP 8 0 0\n" + std::string(reported));
    EXPECT_THAT(table.Ignored(), ElementsAre(false)) << reported;
  }
}

TEST(TargetTable, LeavesOutTheFirstOfTwoColumnsOfOneName) {
  LoadedTable table(
      "column TS -2 TIMESTAMP 8 0 0\n"
      "column TS -2 TIMESTAMP 8 0 0\n"
      "rowversion TS\n");
  EXPECT_THAT(table.Ignored(), ElementsAre(true, false));
}

TEST(TargetTable, LeavesOutWhatTheDatabaseVersionsItselfWhateverIsAssignedToIt) {
  LoadedTable table(
      "column CODE 4 INTEGER 10 0 0\n"
      "column TS -2 TIMESTAMP 8 0 0\n"
      "rowversion TS\n");
  table.Assign("2", "1");
  EXPECT_THAT(table.Ignored(), ElementsAre(false, true));
  EXPECT_THAT(table.Ignored(false), ElementsAre(false, false));
}

}  // namespace
}  // namespace imptable
