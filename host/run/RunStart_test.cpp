#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "host/testing/HostSession.h"
#include "tests/drivers/ScriptedDataSource.h"

namespace imptable {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::MatchesRegex;
using testing::SizeIs;

constexpr char kOneLine[] = "imptable: [^\n]+\n";
constexpr char kFailingDriver[] = "on SQLExecute 2 return -1 diag 23000 2627 \"duplicate key\"";

/// Task "T" of scenario "S", whose last run rejected the second of three lines.
class ChainLeft : public testing::Test {
 protected:
  ChainLeft() {
    session.Run({"set", "S", "T", "Base Cible=" + source.name(), "Table=CLIENT", "Alias=CLIENTS",
                 "Dir=" + session.folder.path(), "FormatFile=1"});
    Source("1;a\n2;b\n3;c\n");
    Driver(kFailingDriver);
    EXPECT_EQ(Run().code, 1);
    Driver("");
  }

  void Driver(const std::string& line) {
    source.Script(
        "column CODE 4 INTEGER 10 0 0\n"
        "column NOM 12 VARCHAR 30 0 1\n" +
        line + '\n');
  }
  void Source(const std::string& text) { session.folder.Write("CLIENTS.CSV", text); }
  HostSession::Result Run(const std::vector<std::string>& options = {}) {
    std::vector<std::string> arguments{"run", "S", "T", "--report",
                                       session.folder.path() + "report.txt"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    calls_before = source.LogLines().size();
    executions_before = source.LogLines("SQLExecute").size();
    return session.Run(arguments);
  }
  std::vector<std::string> Left() {
    std::vector<std::string> left;
    for (const char* const name : {"CLIENTS.ERR", "CLIENTS.LER", "CLIENTS.TRC", "CLIENTS.REP"}) {
      left.push_back(session.folder.Exists(name) ? session.folder.Read(name) : "<none>");
    }
    return left;
  }
  /// How often the last run called SQLExecute.
  std::size_t Executions() { return source.LogLines("SQLExecute").size() - executions_before; }

  /// The run ends with code 3 before anything is touched, and says this.
  void ExpectRefused(const std::vector<std::string>& options, const std::string& what) {
    const std::vector<std::string> before = Left();
    const std::string report = session.folder.Read("report.txt");
    const auto result = Run(options);
    EXPECT_EQ(result.code, 3) << result.err;
    EXPECT_THAT(result.err, AllOf(MatchesRegex(kOneLine), HasSubstr(what)));
    EXPECT_EQ(Left(), before);
    EXPECT_EQ(session.folder.Read("report.txt"), report);
    EXPECT_EQ(source.LogLines().size(), calls_before) << "it connected";
  }

  ScriptedDataSource source;
  HostSession session;
  std::size_t calls_before = 0;
  std::size_t executions_before = 0;
};

TEST_F(ChainLeft, IsResumedByEitherOption) {
  for (const char* const option : {"--resume", "--auto"}) {
    const auto result = Run({option, "--json"});
    EXPECT_EQ(result.code, 0) << result.err;
    const auto object = nlohmann::json::parse(result.out);
    EXPECT_EQ(object["resumed"], true);
    EXPECT_EQ(object["skipped"], 2);
    EXPECT_EQ(object["inserted"], 1);
    Driver(kFailingDriver);
    Run();
    Driver("");
  }
}

TEST_F(ChainLeft, IsNotResumedWithoutItsDataFile) {
  for (const char* const option : {"--resume", "--auto"}) {
    std::filesystem::remove(session.folder.path() + "CLIENTS.CSV");
    ExpectRefused({option}, "the data file " + session.folder.path() + "CLIENTS.CSV is missing");
    Source("");
    ExpectRefused({option}, "the data file " + session.folder.path() + "CLIENTS.CSV is empty");
    Source("1;a\n2;b\n3;c\n");
    session.Run({"set", "S", "T", "Mode=2"});
    ExpectRefused({option}, "Mode=2 imports nothing");
    session.Run({"set", "S", "T", "Mode=0"});
  }
  EXPECT_EQ(Run({"--resume"}).code, 0);
}

TEST_F(ChainLeft, IsNotResumedWithAnotherDataFileUnlessItIsSaid) {
  Source("1;a\n2;b\n3;other\n");
  ExpectRefused({"--resume"}, "isn't the file of the run to resume (12 bytes");
  EXPECT_EQ(Run({"--resume", "--changed-file"}).code, 0);
}

TEST_F(ChainLeft, IsGivenUpForAnotherDataFileByAScheduler) {
  Source("7;x\n8;y\n");
  const std::string rejected = session.folder.Read("CLIENTS.LER");
  const auto result = Run({"--auto", "--json"});
  EXPECT_EQ(result.code, 0) << result.err;
  EXPECT_THAT(result.err,
              AllOf(MatchesRegex(kOneLine), HasSubstr("1 rejected line(s) are given up"),
                    HasSubstr("CLIENTS.LER.OLD")));
  EXPECT_EQ(session.folder.Read("CLIENTS.LER.OLD"), rejected);
  const auto object = nlohmann::json::parse(result.out);
  EXPECT_EQ(object["resumed"], false);
  EXPECT_EQ(object["inserted"], 2);
}

TEST_F(ChainLeft, IsKeptBesideThoseThatWereGivenUpBefore) {
  session.folder.Write("CLIENTS.LER", "2;kept without a line end");
  Source("7;x\n8;y\n");
  Driver(kFailingDriver);
  EXPECT_EQ(Run({"--auto"}).code, 1);
  Source("9;z\n");
  Driver("");
  EXPECT_EQ(Run({"--auto"}).code, 0);
  EXPECT_EQ(session.folder.Read("CLIENTS.LER.OLD"), "2;kept without a line end\n8;y\n");
}

TEST_F(ChainLeft, IsKeptOnceThoughTheRunsThatGaveItUpCameNoFurther) {
  const std::string rejected = session.folder.Read("CLIENTS.LER");
  Source("7;x\n8;y\n");
  Driver("on SQLDriverConnect return -1 diag 08001 17 \"no server\"");
  for (int night = 0; night < 3; ++night) EXPECT_EQ(Run({"--auto"}).code, 1);
  EXPECT_EQ(session.folder.Read("CLIENTS.LER.OLD"), rejected);
  Driver("");
  EXPECT_EQ(Run({"--auto"}).code, 0);
  EXPECT_EQ(session.folder.Read("CLIENTS.LER.OLD"), rejected);
}

TEST_F(ChainLeft, IsNotGivenUpForAFileThatHoldsAByteOrderMarkAlone) {
  Source("\xEF\xBB\xBF");
  ExpectRefused({"--auto"}, "CLIENTS.CSV is empty");
  EXPECT_EQ(nlohmann::json::parse(Run({"--json"}).out)["file"]["state"], "empty");
}

TEST_F(ChainLeft, IsNotGivenUpToAnotherTaskWithoutAWord) {
  session.Run({"set", "S", "U", "Base Cible=" + source.name(), "Table=CLIENT", "Alias=CLIENTS",
               "Dir=" + session.folder.path(), "FormatFile=1"});
  const auto result = session.Run({"run", "S", "U", "--json", "--report", "/dev/null"});
  EXPECT_EQ(result.code, 0);
  EXPECT_THAT(result.err, AllOf(MatchesRegex(kOneLine), HasSubstr("the task \"S\\T\"")));
  EXPECT_THAT(nlohmann::json::parse(result.out)["warnings"], SizeIs(1U));
  EXPECT_EQ(session.Run({"run", "S", "U", "--report", "/dev/null"}).err, "");
}

TEST_F(ChainLeft, IsNotGivenUpByASchedulerWhenItHadNotComeToItsEnd) {
  std::string chain = session.folder.Read("CLIENTS.REP");
  chain.resize(chain.find("READ"));
  session.folder.Write("CLIENTS.REP", chain);
  Source("7;x\n8;y\n");
  ExpectRefused({"--auto"}, "isn't the file of the run to resume");
  EXPECT_FALSE(session.folder.Exists("CLIENTS.LER.OLD"));
}

TEST_F(ChainLeft, IsNotGivenUpWhenItsRejectedLinesCannotBeKept) {
  Source("7;x\n8;y\n");
  std::filesystem::create_directory(session.folder.path() + "CLIENTS.LER.OLD");
  const std::vector<std::string> before = Left();
  const auto result = Run({"--auto"});
  EXPECT_EQ(result.code, 4);
  EXPECT_THAT(result.err, AllOf(MatchesRegex(kOneLine), HasSubstr("can't be kept")));
  EXPECT_EQ(Left(), before);
  EXPECT_FALSE(session.folder.Exists("CLIENTS.LER.OLD.NEW"));
}

TEST_F(ChainLeft, IsNotResumedByAnotherTaskOrToAnotherTable) {
  session.Run({"set", "S", "T", "Table=OTHER"});
  ExpectRefused({"--resume"}, "Table=\"CLIENT\", the task has Table=\"OTHER\"");
  ExpectRefused({"--auto"}, "Table=\"CLIENT\", the task has Table=\"OTHER\"");
  session.Run({"set", "S", "T", "Table=CLIENT"});
  session.Run({"set", "S", "U", "Base Cible=" + source.name(), "Table=CLIENT", "Alias=CLIENTS",
               "Dir=" + session.folder.path(), "FormatFile=1"});
  const std::vector<std::string> before = Left();
  for (const char* const option : {"--resume", "--auto"}) {
    const auto result = session.Run({"run", "S", "U", option});
    EXPECT_EQ(result.code, 3);
    EXPECT_THAT(result.err, HasSubstr("is that of the task \"S\\T\""));
    EXPECT_EQ(Left(), before);
  }
}

TEST_F(ChainLeft, IsNotResumedWithLinesAddedToTheRejectedOnes) {
  session.folder.Write("CLIENTS.LER", "2;b\n2;c\n");
  ExpectRefused({"--resume"}, "CLIENTS.LER has 2 line(s), but 1 were rejected");
  ExpectRefused({"--auto"}, "CLIENTS.LER has 2 line(s), but 1 were rejected");
}

TEST_F(ChainLeft, IsNotResumedWhenItIsDamaged) {
  const std::vector<std::string> names{"CLIENTS.TRC", "CLIENTS.REP"};
  for (const std::string& name : names) {
    const std::string good = session.folder.Read(name);
    session.folder.Write(name, "REP 2\ndamaged\n");
    const std::vector<std::string> before = Left();
    const auto result = Run({"--resume"});
    EXPECT_EQ(result.code, 4);
    EXPECT_THAT(result.err, AllOf(MatchesRegex(kOneLine), HasSubstr(name),
                                  HasSubstr("nothing was "
                                            "touched")));
    EXPECT_EQ(Left(), before);
    session.folder.Write(name, good);
  }
  EXPECT_EQ(Run({"--resume"}).code, 0);
}

TEST_F(ChainLeft, IsNotResumedWithTheOptionOff) {
  session.Run({"set", "S", "T", "RecErreurs=0"});
  ExpectRefused({"--resume"}, "set S T RecErreurs=1, then imptable ");
}

TEST_F(ChainLeft, OfARunThatRejectedNothingNeedsItsTraceOption) {
  session.folder.Write("CLIENTS.LER", "");
  session.folder.Write("CLIENTS.TRC", "00000001000000000\n00000002000000000\n");
  for (const char* const option : {"--resume", "--auto"}) {
    ExpectRefused({option}, "set S T RecTrace=1, then imptable ");
  }
  EXPECT_EQ(session.Run({"set", "S", "T", "RecTrace=1"}).code, 0);
  EXPECT_EQ(Run({"--resume"}).code, 0);
  EXPECT_EQ(Executions(), 1U);
}

TEST_F(ChainLeft, IsNoneOnceItsRunWasStoredAsDone) {
  session.folder.Write("CLIENTS.LER", "");
  session.folder.Write("CLIENTS.TRC", "00000001000000000\n00000002000000000\n00000003000000000\n");
  session.Run({"set", "S", "T", "Etat=2"});
  ExpectRefused({"--resume"}, "every line of");
  ExpectRefused({"--auto"}, "every line of");
  session.folder.Write("CLIENTS.CSV", "7;g\n8;h\n");
  EXPECT_EQ(Run({"--auto"}).code, 0);
  EXPECT_EQ(Executions(), 2U) << "afresh";
}

TEST_F(ChainLeft, IsToldToBeNoneAfterASuccessWithoutAdviceThatWouldImportItAgain) {
  EXPECT_EQ(Run({"--resume"}).code, 0);
  const auto result = Run({"--resume"});
  EXPECT_EQ(result.code, 3);
  EXPECT_THAT(result.err, HasSubstr("its last run succeeded"));
}

TEST_F(ChainLeft, BeginsAfreshByASchedulerWhereThereIsNone) {
  EXPECT_EQ(Run({"--resume"}).code, 0);
  const auto again = Run({"--auto", "--json"});
  EXPECT_EQ(again.code, 0);
  EXPECT_EQ(nlohmann::json::parse(again.out)["resumed"], false);
  EXPECT_EQ(Executions(), 3U);
  std::filesystem::remove(session.folder.path() + "CLIENTS.CSV");
  EXPECT_EQ(Run({"--auto"}).code, 0) << "a missing file included";
}

TEST_F(ChainLeft, IsNoMatterToARunThatIsAskedForAfresh) {
  Source("7;x\n");
  EXPECT_EQ(Run().code, 0);
  EXPECT_EQ(Executions(), 1U);
}

TEST_F(ChainLeft, IsToldInJsonWhenItIsRefused) {
  Source("");
  const auto result = Run({"--resume", "--json"});
  EXPECT_EQ(result.code, 3);
  const auto object = nlohmann::json::parse(result.out);
  EXPECT_EQ(object["code"], 3);
  EXPECT_EQ(object["scenario"], "S");
  EXPECT_EQ("imptable: " + object["message"].get<std::string>() + '\n', result.err);
  EXPECT_TRUE(object["status"].is_null());
}

TEST_F(ChainLeft, IsReplacedByNothingWhenAForeignFileHasItsPlace) {
  session.folder.Write("CLIENTS.REP", "my own report\n");
  for (const std::vector<std::string>& options :
       {std::vector<std::string>{}, {"--resume"}, {"--auto"}}) {
    const std::vector<std::string> before = Left();
    const auto result = Run(options);
    EXPECT_EQ(result.code, 4);
    EXPECT_THAT(result.err, AllOf(MatchesRegex(kOneLine), HasSubstr("CLIENTS.REP")));
    EXPECT_EQ(Left(), before);
  }
}

TEST_F(ChainLeft, OfALockThatIsNoneStopsTheRun) {
  session.folder.Write("CLIENTS.LCK", "my own notes, of several words\n");
  ASSERT_EQ(Run().code, 4);
  EXPECT_EQ(session.folder.Read("CLIENTS.LCK"), "my own notes, of several words\n");
  for (const char* const own : {"", "12", "1234\n"}) {
    session.folder.Write("CLIENTS.LCK", own);
    EXPECT_EQ(Run().code, 0) << own;
  }
}

TEST_F(ChainLeft, KnowsAMissingFileThatWasRequired) {
  EXPECT_EQ(Run({"--resume"}).code, 0);
  EXPECT_EQ(Run({"--require-file"}).code, 0);
  std::filesystem::remove(session.folder.path() + "CLIENTS.CSV");
  const auto empty_night = Run({"--json"});
  EXPECT_EQ(empty_night.code, 0);
  EXPECT_EQ(nlohmann::json::parse(empty_night.out)["file"]["state"], "missing");
  EXPECT_THAT(Run().out, HasSubstr("CLIENTS.CSV (missing)\n"));
  Source("4;bad;x\n");
  ASSERT_EQ(Run().code, 1);
  std::filesystem::remove(session.folder.path() + "CLIENTS.CSV");
  session.Run({"set", "S", "T", "Etat=2"});
  const std::vector<std::string> before = Left();
  const auto required = Run({"--require-file", "--json"});
  EXPECT_EQ(Left(), before) << "nothing of the last run is given up";
  EXPECT_EQ(session.Run({"get", "S", "T", "Etat"}).out, "3\n");
  EXPECT_EQ(required.code, 1);
  EXPECT_THAT(required.err, AllOf(MatchesRegex(kOneLine), HasSubstr("CLIENTS.CSV is missing")));
  EXPECT_EQ(nlohmann::json::parse(required.out)["code"], 1);
  Source("");
  const auto empty = Run({"--require-file", "--json"});
  EXPECT_EQ(empty.code, 0);
  EXPECT_EQ(nlohmann::json::parse(empty.out)["file"]["state"], "empty");
  session.Run({"set", "S", "T", "Dir=" + session.folder.path() + "none"});
  EXPECT_EQ(Run({"--require-file"}).code, 1);
}

TEST(RunRefusals, AreJsonObjectsToo) {
  HostSession session;
  struct Case {
    std::vector<std::string> arguments;
    int code;
  };
  for (const Case& each : {Case{{"run", "S", "T", "--json"}, 3}, Case{{"run", "--json"}, 2},
                           Case{{"run", "S", "T", "--json", "--what"}, 2},
                           Case{{"run", "S", "T", "--resume", "--auto", "--json"}, 2},
                           Case{{"run", "S", "T", "--changed-file", "--json"}, 2}}) {
    const auto result = session.Run(each.arguments);
    EXPECT_EQ(result.code, each.code);
    const auto object = nlohmann::json::parse(result.out);
    EXPECT_EQ(object["code"], each.code);
    EXPECT_EQ("imptable: " + object["message"].get<std::string>() + '\n', result.err);
    EXPECT_THAT(object, SizeIs(25U));
  }
}

}  // namespace
}  // namespace imptable
