#include "import/target/Execution.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/kit/ScriptedSession.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A prepared statement on a connected session whose driver behaves as a script says.
class Prepared {
 public:
  explicit Prepared(const std::string& script) : session_(script) {
    EXPECT_TRUE(session_.Connect());
    EXPECT_EQ(statement_.Allocate(session_.odbc().connection), SQL_SUCCESS);
    const std::string text = "INSERT INTO T VALUES (1)";
    EXPECT_EQ(SQLPrepare(statement_.raw(), SqlText(text), SQL_NTS), SQL_SUCCESS);
  }

  RecordResult Insert(std::optional<SQLINTEGER> ignorable = std::nullopt) {
    return ResultOfInsert(ExecuteInsert(session_.odbc(), statement_.raw(), ignorable));
  }
  RecordResult Update() {
    return ResultOfKeyed(ExecuteKeyed(session_.odbc(), statement_.raw()), Outcome::kModified);
  }

 private:
  ScriptedSession session_;
  Statement statement_;
};

std::string Refusal(const std::string& diagnostics) {
  return "on SQLExecute 1 return -1 " + diagnostics;
}

std::vector<std::string> Texts(const RecordResult& result) {
  std::vector<std::string> texts;
  for (const RecordDiagnostic& each : result.diagnostics) texts.push_back(each.driver.text);
  return texts;
}

TEST(ExecutedInsert, IsRejectedWithAllThatTheDatabaseSays) {
  Prepared insert(Refusal("diag 23505 7 first diag 01000 3 second"));
  const RecordResult result = insert.Insert();
  EXPECT_EQ(result.outcome, Outcome::kRejected);
  EXPECT_THAT(Texts(result), ElementsAre("first", "second"));
  EXPECT_EQ(result.diagnostics[0].stage, RecordDiagnostic::Stage::kExecution);
  EXPECT_EQ(result.diagnostics[0].driver.state, "23505");
  EXPECT_EQ(result.diagnostics[0].driver.native_code, 7);
}

TEST(ExecutedInsert, IsRejectedByADatabaseThatSaysNothing) {
  Prepared insert(Refusal(""));
  const RecordResult result = insert.Insert();
  EXPECT_EQ(result.outcome, Outcome::kRejected);
  EXPECT_THAT(Texts(result), IsEmpty());
}

TEST(ExecutedInsert, IsAnIgnoredDuplicateWithTheCodeThatTheTaskIgnores) {
  struct Case {
    SQLINTEGER ignorable;
    const char* native;
    bool ignored;
  };
  for (const Case& each : {Case{2627, "2627", true}, Case{-803, "-803", true}, Case{0, "0", true},
                           Case{2627, "2628", false}, Case{803, "-803", false}}) {
    Prepared insert(Refusal("diag 23000 " + std::string(each.native) + " text"));
    EXPECT_EQ(insert.Insert(each.ignorable).outcome,
              each.ignored ? Outcome::kIgnored : Outcome::kRejected)
        << each.native;
  }
}

TEST(ExecutedInsert, IsNoIgnoredDuplicateUnlessTheTaskIgnoresSome) {
  Prepared insert(Refusal("diag 23000 0 \"duplicate key\""));
  const RecordResult result = insert.Insert();
  EXPECT_EQ(result.outcome, Outcome::kRejected);
  EXPECT_THAT(Texts(result), ElementsAre("duplicate key"));
}

TEST(ExecutedInsert, KeepsWhatWasSaidBeforeAnIgnoredDuplicateAndNothingBehindIt) {
  Prepared insert(Refusal("diag 42000 1 first diag 23000 2627 duplicate diag 01000 3 third"));
  const RecordResult result = insert.Insert(2627);
  EXPECT_EQ(result.outcome, Outcome::kIgnored);
  EXPECT_THAT(Texts(result), ElementsAre("first"));
}

TEST(ExecutedUpdate, HasAnOutcomeForEachCount) {
  struct Case {
    const char* rows;
    Outcome outcome;
  };
  for (const Case& each : {Case{"0", Outcome::kUnmatched}, Case{"-1", Outcome::kUncounted},
                           Case{"1", Outcome::kModified}, Case{"2", Outcome::kModified}}) {
    Prepared update("rowcount " + std::string(each.rows));
    const RecordResult result = update.Update();
    EXPECT_EQ(result.outcome, each.outcome) << each.rows;
    EXPECT_THAT(result.diagnostics, IsEmpty()) << each.rows;
  }
}

TEST(ExecutedUpdate, IsUnmatchedWhenTheCountIsRefusedAndSaysSo) {
  Prepared update("on SQLRowCount 1 return -1 diag HY000 5 \"no count\"");
  const RecordResult result = update.Update();
  EXPECT_EQ(result.outcome, Outcome::kUnmatched);
  EXPECT_THAT(Texts(result), ElementsAre("no count"));
}

TEST(ExecutedUpdate, HasSomethingSaidOfARefusedCountEvenWhenTheDatabaseSaysNothing) {
  Prepared update("on SQLRowCount 1 return -1");
  EXPECT_THAT(Texts(update.Update()), ElementsAre(""));
}

}  // namespace
}  // namespace imptable
