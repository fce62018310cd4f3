#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "host/testing/HostSession.h"
#include "tests/drivers/ScriptedDataSource.h"

namespace imptable {
namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::Not;
using testing::StartsWith;

constexpr char kOneLine[] = "imptable: [^\n]+\n";

class WideTerminal : public Terminal {
 public:
  int Columns() const override { return 200; }
};

/// Task "T" of scenario "S": INSERT of CLIENTS.CSV into a table of the scripted driver.
class RunCommand : public testing::Test {
 protected:
  RunCommand() {
    Driver("");
    session.Run({"set", "S", "T", "Base Cible=" + source.name(), "Table=CLIENT", "Alias=CLIENTS",
                 "Dir=" + session.folder.path(), "FormatFile=1", "Password=top secret"});
    session.folder.Write("CLIENTS.CSV", "1;a\n2;b\n3;c\n");
  }

  void Driver(const std::string& line) {
    source.Script(
        "column CODE 4 INTEGER 10 0 0\n"
        "column NOM 12 VARCHAR 30 0 1\n" +
        line + '\n');
  }

  HostSession::Result Run(const std::vector<std::string>& options = {},
                          const Terminal* terminal = nullptr) {
    std::vector<std::string> arguments{"run", "S", "T", "--report", report()};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return session.Run(arguments, {}, terminal);
  }

  std::string report() const { return session.folder.path() + "report.txt"; }
  std::string Status() { return session.Run({"get", "S", "T", "Etat"}).out; }

  ScriptedDataSource source;
  HostSession session;
};

TEST_F(RunCommand, IsCode0WithASummaryWhenAllWentWell) {
  const auto result = Run();
  EXPECT_EQ(result.code, 0) << result.err;
  EXPECT_EQ(result.err, "");
  EXPECT_THAT(result.out, AllOf(StartsWith("Done: scenario S, task T\n"), HasSubstr("3 inserted"),
                                HasSubstr(report()), Not(HasSubstr("\x1b"))));
  EXPECT_THAT(session.folder.Read("report.txt"), HasSubstr("PROCEDURE TERMINATED"));
  EXPECT_EQ(Status(), "2\n");
}

TEST_F(RunCommand, AdvisesNoResumeAfterADeletionThatFailed) {
  session.Run({"set", "S", "T", "Suppression=2"});
  session.folder.Write("CLIENTS.SUP", "[Table01]\n01=CODE,1\n");
  const auto result = Run();
  EXPECT_EQ(result.code, 1);
  EXPECT_THAT(result.err, HasSubstr("task \"T\""));
  EXPECT_THAT(result.err, Not(HasSubstr("--resume")));
}

TEST_F(RunCommand, PrintsNothingWhenQuiet) {
  const auto result = Run({"--quiet"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err, "");
}

TEST_F(RunCommand, PrintsOneJsonObjectForScripts) {
  const auto result = Run({"--json"});
  EXPECT_EQ(result.code, 0);
  const auto object = nlohmann::json::parse(result.out);
  EXPECT_EQ(object["scenario"], "S");
  EXPECT_EQ(object["status"], 2);
  EXPECT_EQ(object["read"], 3);
  EXPECT_EQ(object["inserted"], 3);
  EXPECT_EQ(object["report"], report());
  EXPECT_GE(object["seconds"], 0);
}

TEST_F(RunCommand, WarnsOfWhatItTakesNoNoticeOf) {
  session.Run({"set", "S", "T", "Suppression=2"});
  const auto result = Run({"--json"});
  EXPECT_EQ(result.code, 0);
  const auto object = nlohmann::json::parse(result.out);
  ASSERT_EQ(object["warnings"].size(), 1U);
  EXPECT_THAT(object["warnings"][0].get<std::string>(),
              HasSubstr("no file " + session.folder.path() + "CLIENTS.SUP"));
  EXPECT_EQ(result.err, "imptable: warning: " + object["warnings"][0].get<std::string>() + "\n");
  EXPECT_EQ(object["inserted"], 3);
}

TEST_F(RunCommand, IsCode1AndNamesTheSideFilesWhenLinesWereRejected) {
  Driver("on SQLExecute 2 return -1 diag 23000 2627 \"duplicate key\"");
  const auto result = Run();
  EXPECT_EQ(result.code, 1);
  EXPECT_THAT(result.out, AllOf(HasSubstr("2 inserted"), HasSubstr("1 rejected"),
                                HasSubstr(session.folder.path() + "CLIENTS.ERR"),
                                HasSubstr(session.folder.path() + "CLIENTS.LER")));
  EXPECT_THAT(result.err, MatchesRegex(kOneLine));
  EXPECT_THAT(result.err, HasSubstr("CLIENTS.LER, then run again with --resume"));
  EXPECT_EQ(Status(), "3\n");
}

TEST_F(RunCommand, GoesOnFromRejectedLinesWithResume) {
  Driver("on SQLExecute 2 return -1 diag 23000 2627 \"duplicate key\"");
  Run();
  Driver("");
  const auto result = Run({"--resume", "--json"});
  EXPECT_EQ(result.code, 0) << result.err;
  const auto object = nlohmann::json::parse(result.out);
  EXPECT_EQ(object["skipped"], 2);
  EXPECT_EQ(object["inserted"], 1);
}

TEST_F(RunCommand, RefusesAResumeWhenThereIsNothingToResume) {
  const auto result = Run({"--resume"});
  EXPECT_EQ(result.code, 3);
  EXPECT_THAT(result.err, AllOf(MatchesRegex(kOneLine), HasSubstr("nothing to resume")));
  EXPECT_THAT(source.LogLines(), IsEmpty());
  EXPECT_FALSE(session.folder.Exists("report.txt"));
}

TEST_F(RunCommand, RefusesAResumeThatWouldStartAfreshBeforeAnythingIsTouched) {
  session.folder.Write("CLIENTS.TRC", "00000001000000000\n00000002000000000\n");
  const auto result = Run({"--resume"});
  EXPECT_EQ(result.code, 3);
  EXPECT_EQ(result.out, "");
  EXPECT_THAT(result.err, MatchesRegex(kOneLine));
  EXPECT_THAT(result.err, AllOf(HasSubstr("2 line(s)"),
                                HasSubstr(": imptable --registry " + session.registry() +
                                          " set S T RecTrace=1, then imptable --registry " +
                                          session.registry() + " run S T --resume\n")));
  EXPECT_FALSE(session.folder.Exists("report.txt"));
  EXPECT_TRUE(session.folder.Exists("CLIENTS.TRC"));
  EXPECT_EQ(Status(), "0\n");
  EXPECT_THAT(source.LogLines(), IsEmpty());
}

TEST_F(RunCommand, ResumesAChainCutOffBeforeItsFirstLineWithoutATrace) {
  session.folder.Write("CLIENTS.REP", "REP 1\n000000020\nEND 00000002\n");
  const auto result = Run({"--resume", "--json"});
  EXPECT_EQ(result.code, 0) << result.err;
  EXPECT_EQ(nlohmann::json::parse(result.out)["inserted"], 2);
}

TEST_F(RunCommand, ResumesFromATraceAloneWhenTheTaskSaysSo) {
  session.folder.Write("CLIENTS.TRC", "00000001000000000\n");
  ASSERT_EQ(session.Run({"set", "S", "T", "RecTrace=1"}).code, 0);
  const auto result = Run({"--resume"});
  EXPECT_EQ(result.code, 0) << result.err;
  EXPECT_THAT(source.LogLines("SQLExecute"), testing::SizeIs(2));
}

TEST_F(RunCommand, IsSummedUpEvenWhereWhatAResumeGoesByCannotBeLookedAt) {
  std::filesystem::create_symlink("CLIENTS.REP", session.folder.path() + "CLIENTS.REP");
  const auto result = Run({"--json"});
  EXPECT_EQ(nlohmann::json::parse(result.out)["status"], 1);
  EXPECT_THAT(result.err, AllOf(MatchesRegex(kOneLine), HasSubstr("CLIENTS.REP")));
  EXPECT_THAT(source.LogLines("SQLExecute"), IsEmpty());
}

TEST_F(RunCommand, IsCode1WhenTheDataSourceRefusesTheConnection) {
  Driver("on SQLDriverConnect return -1 diag 28000 18456 \"login failed\"");
  const auto result = Run();
  EXPECT_EQ(result.code, 1);
  EXPECT_THAT(result.out, StartsWith("No connection: "));
  EXPECT_THAT(result.err, MatchesRegex(kOneLine));
  EXPECT_THAT(result.err,
              AllOf(HasSubstr("no connection to \"" + source.name() + '"'), HasSubstr(report())));
  EXPECT_THAT(result.out + result.err, Not(HasSubstr("top secret")));
}

TEST_F(RunCommand, IsCode1WhenTheDeletionBeforeTheImportFailed) {
  session.Run({"set", "S", "T", "Suppression=1"});
  Driver("on SQLExecDirect return -1 diag 42000 229 \"no right to empty the table\"");
  const auto result = Run();
  EXPECT_EQ(result.code, 1);
  EXPECT_THAT(result.err, MatchesRegex(kOneLine));
  EXPECT_THAT(result.err, AllOf(HasSubstr("task \"T\": the deletion before the import failed"),
                                HasSubstr("see the report " + report())));
  EXPECT_THAT(session.folder.Read("report.txt"), HasSubstr("no right to empty the table"));
  EXPECT_EQ(Status(), "3\n");
}

TEST_F(RunCommand, IsCode4WhenAFaultStoppedTheRun) {
  session.Run(
      {"reg", "import", "-"},
      "REGEDIT4\n\n[HKLM\\SOFTWARE\\KALDO\\Scenarios\\S\\Taches\\T]\n\"Erreurs\"=\"many\"\n");
  const auto result = Run();
  EXPECT_EQ(result.code, 4);
  EXPECT_THAT(result.err, MatchesRegex(kOneLine));
  EXPECT_THAT(result.err, HasSubstr("\"Erreurs\" = \"many\""));
  EXPECT_EQ(Status(), "1\n");
}

TEST_F(RunCommand, IsCode3ForAScenarioOrTaskThatThereIsNot) {
  EXPECT_EQ(session.Run({"run", "S", "U"}).code, 3);
  EXPECT_EQ(session.Run({"run", "X", "T"}).code, 3);
  EXPECT_FALSE(session.folder.Exists("U.txt"));
}

TEST_F(RunCommand, IsCode4BeforeAnythingIsTouchedWhenTheReportCannotBeWritten) {
  const std::string path = session.folder.path() + "none/report.txt";
  const auto result = session.Run({"run", "S", "T", "--report", path});
  EXPECT_EQ(result.code, 4);
  EXPECT_EQ(result.out, "");
  EXPECT_THAT(result.err, MatchesRegex(kOneLine));
  EXPECT_THAT(result.err, AllOf(HasSubstr(path), HasSubstr("--report")));
  EXPECT_EQ(Status(), "0\n");
}

TEST_F(RunCommand, IsCode4WhenReportLinesDoNotReachTheReport) {
  const auto result = session.Run({"run", "S", "T", "--report", "/dev/full"});
  EXPECT_EQ(result.code, 4);
  EXPECT_THAT(result.err, MatchesRegex(kOneLine));
  EXPECT_THAT(result.err, HasSubstr("report /dev/full"));
  EXPECT_EQ(Status(), "2\n");
}

TEST_F(RunCommand, WritesItsReportThroughALinkOfTheUser) {
  std::filesystem::create_symlink("elsewhere.txt", report());
  EXPECT_EQ(Run().code, 0);
  EXPECT_THAT(session.folder.Read("elsewhere.txt"), HasSubstr("PROCEDURE TERMINATED"));
}

TEST_F(RunCommand, IsCode4WhenTheReportIsALinkOfSomebodyElse) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can make another user's link";
  std::filesystem::create_symlink("elsewhere.txt", report());
  ASSERT_EQ(lchown(report().c_str(), 65534, 65534), 0);
  const auto result = Run();
  EXPECT_EQ(result.code, 4);
  EXPECT_EQ(result.err, "imptable: report " + report() +
                            ": can't be written (it is another user's symbolic link): give another "
                            "one with --report\n");
  EXPECT_FALSE(session.folder.Exists("elsewhere.txt"));
  EXPECT_EQ(Status(), "0\n");
}

TEST_F(RunCommand, ShowsALiveLineOnATerminalAndRemovesItBeforeTheSummary) {
  const WideTerminal terminal;
  const auto result = Run({}, &terminal);
  EXPECT_EQ(result.code, 0);
  EXPECT_THAT(result.out,
              AllOf(StartsWith("\r\x1b[K0 read"), HasSubstr("\r\x1b[KDone: scenario S, task T\n")));
  EXPECT_THAT(Run({"--quiet"}, &terminal).out, IsEmpty());
  EXPECT_THAT(Run({"--json"}, &terminal).out, StartsWith("{"));
}

TEST_F(RunCommand, SpeaksTheLanguageAskedForInTheReportToo) {
  const auto result = HostSession::RunAsIs(
      {"--registry", session.registry(), "--lang", "fr", "run", "S", "T", "--report", report()});
  EXPECT_THAT(result.out, StartsWith("Terminé : scénario S, tâche T\n"));
  EXPECT_THAT(session.folder.Read("report.txt"), HasSubstr("PROCEDURE TERMINEE"));
}

TEST_F(RunCommand, ReportsToTheTasksNameInTheCurrentDirectoryUnlessTold) {
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(session.folder.path());
  session.Run({"set", "S", "a/b", "Base Cible=" + source.name()});
  EXPECT_THAT(session.Run({"run", "S", "T"}).out, HasSubstr("  report    T.txt\n"));
  session.Run({"run", "S", "a/b"});
  std::filesystem::current_path(before);
  EXPECT_TRUE(session.folder.Exists("T.txt"));
  EXPECT_TRUE(session.folder.Exists("a_b.txt"));
}

TEST_F(RunCommand, KeepsItsCodeWhenNobodyReadsTheSummary) {
  std::ostream closed(nullptr);
  std::ostringstream err;
  EXPECT_EQ(RunHost({"--registry", session.registry(), "--lang", "en", "run", "S", "T", "--report",
                     report()},
                    closed, err),
            0);
  EXPECT_THAT(err.str(), HasSubstr("standard output couldn't be written"));
}

/// Asks for the end of the run, as Ctrl-C does, the moment the live line is first drawn.
class InterruptingTerminal : public Terminal {
 public:
  explicit InterruptingTerminal(int signal) : signal_(signal) {}
  int Columns() const override {
    if (!raised_) raise(signal_);
    raised_ = true;
    return 200;
  }

 private:
  int signal_;
  mutable bool raised_ = false;
};

TEST_F(RunCommand, IsCode130WhenInterruptedAndLeavesTheSignalsAsTheyWere) {
  const InterruptingTerminal terminal(SIGINT);
  struct sigaction before {};
  sigaction(SIGINT, nullptr, &before);
  const auto result = Run({}, &terminal);
  EXPECT_EQ(result.code, 130);
  EXPECT_THAT(result.out, HasSubstr("Interrupted: scenario S, task T\n"));
  EXPECT_THAT(result.err, MatchesRegex(kOneLine));
  EXPECT_THAT(result.err, HasSubstr("task \"T\": interrupted before its first line"));
  struct sigaction after {};
  sigaction(SIGINT, nullptr, &after);
  EXPECT_EQ(after.sa_handler, before.sa_handler);
}

TEST_F(RunCommand, IsCode130WhenTerminated) {
  const InterruptingTerminal terminal(SIGTERM);
  EXPECT_EQ(Run({}, &terminal).code, 130);
}

TEST_F(RunCommand, ListsTheDataSources) {
  const auto result = session.Run({"sources"});
  EXPECT_EQ(result.code, 0);
  EXPECT_THAT(result.out, HasSubstr(source.name() + "\n"));
  EXPECT_EQ(result.err, "");
}

TEST(SourcesCommand, SaysHowToAddADataSourceWhenThereIsNone) {
  HostSession session;
  const ScopedVariable user("ODBCINI", session.folder.Write("odbc.ini", ""));
  const ScopedVariable system("ODBCSYSINI", session.folder.path());
  const auto result = session.Run({"sources"});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.out, "");
  EXPECT_THAT(result.err,
              AllOf(StartsWith("imptable: no ODBC "), HasSubstr("data source"), EndsWith("\n")));
}

}  // namespace
}  // namespace imptable
