#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/testing/HostSession.h"
#include "platform/files/LockFile_linux.h"

namespace imptable {
namespace {

using testing::HasSubstr;
using testing::MatchesRegex;
using testing::Not;

/// What is done to tasks and scenarios as a whole. Task "T" of scenario "S" has columns, fields and
/// an action, and has run.
class TaskKeyCommands : public testing::Test {
 protected:
  TaskKeyCommands() {
    Done({"set", "S", "T", "Table=CLIENT", "Dir=" + session.folder.path(), "Alias=IN",
          "Colonnes\\1=4", "Colonnes\\2=1", "Champs\\1=A,,(Col)1", "Etat=2",
          "ExecuteLe=04/03/26 05:06:07", "CréeLe=c", "ModifiéLe=m"});
    EXPECT_EQ(
        session
            .Run({"reg", "import", "-"},
                 "REGEDIT4\n\n[HKLM\\SOFTWARE\\KALDO\\Scenarios\\S\\Taches\\T\\Action\\OnErr]\n"
                 "\"Go\"=\"1\"\n")
            .code,
        0);
  }

  HostSession::Result Run(const std::vector<std::string>& arguments) {
    return session.Run(arguments);
  }

  std::string Done(const std::vector<std::string>& arguments) {
    const HostSession::Result result = session.Run(arguments);
    EXPECT_EQ(result.code, 0) << result.err;
    EXPECT_EQ(result.err, "");
    return result.out;
  }

  std::string Refused(int code, const std::vector<std::string>& arguments) {
    const std::string before = All();
    const HostSession::Result result = session.Run(arguments);
    EXPECT_EQ(result.code, code);
    EXPECT_EQ(result.out, "");
    EXPECT_THAT(result.err, MatchesRegex("imptable: [^\n]+\n"));
    EXPECT_EQ(All(), before);
    return result.err;
  }

  std::string All() { return session.Run({"reg", "export", "-", "HKLM", "--utf8"}).out; }

  /// The answer to the question on a terminal.
  HostSession::Result Answer(const std::string& answer, std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"--registry", session.registry(), "--lang", "en"});
    std::istringstream in(answer);
    std::ostringstream out;
    std::ostringstream err;
    const int code = RunHost(arguments, {.in = in, .out = out, .err = err, .asks = true});
    return {code, out.str(), err.str()};
  }

  std::string LockPath() const { return session.folder.path() + "IN.LCK"; }

  HostSession session;
};

TEST_F(TaskKeyCommands, CopyATaskWithItsSubkeysAndWithoutItsPast) {
  Done({"copy", "s", "t", "Other", "U"});
  EXPECT_EQ(Done({"list"}), "Other\nS\n");
  EXPECT_EQ(Done({"get", "Other", "U"}), "Type=50\nTable=CLIENT\nDir=" + session.folder.path() +
                                             "\nAlias=IN\nColonnes\\1=4\nColonnes\\2=1\n"
                                             "Champs\\1=A,,(Col)1\n");
  EXPECT_THAT(Done({"actions", "Other", "U"}), HasSubstr("[OnErr]#Run scenario : True"));
  EXPECT_EQ(Done({"status", "Other", "U"}), "0\n\n");
  EXPECT_EQ(Done({"status", "S", "T"}), "2\n04/03/26 05:06:07\n");
}

TEST_F(TaskKeyCommands, CopyAndRenameNothingOntoATaskThatThereIs) {
  Done({"set", "S", "U", "Table=OTHER"});
  for (const char* command : {"copy", "rename"}) {
    EXPECT_THAT(Refused(2, {command, "S", "T", "S", "u"}),
                HasSubstr("scenario \"S\" already has a task \"u\": give another name or delete"));
    EXPECT_THAT(Refused(2, {command, "S", "T", "S", "T"}), HasSubstr("already has a task \"T\""));
    EXPECT_THAT(Refused(3, {command, "S", "V", "S", "W"}), HasSubstr("no task \"V\""));
    EXPECT_THAT(Refused(3, {command, "X", "T", "S", "W"}), HasSubstr("no scenario \"X\""));
    EXPECT_THAT(Refused(2, {command, "S", "T", "a\\b", "W"}), HasSubstr("a\\b"));
    EXPECT_THAT(Refused(2, {command, "S", "T", "S", ""}), HasSubstr("wrong name"));
    EXPECT_THAT(Refused(2, {command, "S", "T", "S", std::string(256, 'x')}),
                HasSubstr("(256 characters): a name has 255 at most"));
  }
}

TEST_F(TaskKeyCommands, RenameATaskWithAllThatItHolds) {
  const std::string values = Done({"get", "S", "T"});
  Done({"rename", "S", "T", "Other", "U"});
  EXPECT_EQ(Done({"list", "S"}), "");
  EXPECT_EQ(Done({"get", "Other", "U"}), values);
  EXPECT_THAT(Done({"actions", "Other", "U"}), HasSubstr("[OnErr]#"));
}

TEST_F(TaskKeyCommands, RenameMayChangeCapitalsAlone) {
  const std::string values = Done({"get", "S", "T"});
  Done({"rename", "S", "T", "S", "t"});
  EXPECT_EQ(Done({"list", "S"}), "t\n");
  EXPECT_EQ(Done({"get", "S", "t"}), values);
}

TEST_F(TaskKeyCommands, TakeNoTaskThatRunsItsNameOrItsKey) {
  Done({"set", "S", "Another", "Table=A"});
  const LockFile lock(LockPath());
  for (const std::vector<std::string>& command : std::vector<std::vector<std::string>>{
           {"rename", "S", "T", "S", "U"}, {"delete", "S", "T"}, {"delete", "S", "--yes"}}) {
    EXPECT_THAT(Refused(3, command), HasSubstr("is using its files (lock " + LockPath()));
  }
  Done({"copy", "S", "T", "S", "U"});
  Done({"delete", "S", "Another"});
}

TEST_F(TaskKeyCommands, DeleteAScenarioWithAllThatItHolds) {
  Done({"set", "S", "U", "Dir=" + session.folder.path(), "Alias=IN"});
  Done({"variable", "S", "V=1"});
  Done({"variable", "Other", "V=1"});
  Done({"delete", "S", "--yes"});
  EXPECT_EQ(Done({"list"}), "Other\n");
  EXPECT_THAT(All(), Not(HasSubstr("Scenarios\\S")));
  EXPECT_FALSE(session.folder.Exists("IN.LCK"));
}

TEST_F(TaskKeyCommands, DeleteAScenarioOnlyWithAWordWhereNobodyCanBeAsked) {
  EXPECT_THAT(Refused(2, {"delete", "S"}), HasSubstr("give --yes"));
  EXPECT_THAT(Refused(2, {"delete", "S", ""}), HasSubstr("wrong name"));
  EXPECT_THAT(Refused(3, {"delete", "X", "--yes"}), HasSubstr("no scenario \"X\""));
}

TEST_F(TaskKeyCommands, DeleteAsksOnATerminal) {
  const std::string before = All();
  for (const char* answer : {"", "\n", "n\n", "no\n", "yess\n"}) {
    const auto scenario = Answer(answer, {"delete", "S"});
    EXPECT_EQ(scenario.code, 1) << answer;
    EXPECT_EQ(scenario.err,
              "delete scenario \"S\" with its 1 task(s)? [y/N] "
              "imptable: nothing was deleted\n");
    EXPECT_EQ(Answer(answer, {"delete", "S", "T"}).code, 1);
  }
  EXPECT_EQ(All(), before);
  const auto task = Answer("y\n", {"delete", "S", "T"});
  EXPECT_EQ(task.code, 0);
  EXPECT_EQ(task.err, "delete task \"T\" of scenario \"S\"? [y/N] ");
  EXPECT_EQ(Answer("", {"delete", "S", "--yes"}).code, 0);
  EXPECT_EQ(Done({"list"}), "");
}

TEST_F(TaskKeyCommands, UnsetRemovesValuesSoThatTheyTakeTheirDefaults) {
  Done({"unset", "S", "T", "TABLE", "colonnes\\2", "Login"});
  EXPECT_EQ(Run({"get", "S", "T", "Table"}).code, 3);
  EXPECT_EQ(Run({"get", "S", "T", "Colonnes\\2"}).code, 3);
  EXPECT_EQ(Done({"get", "S", "T", "Colonnes\\1"}), "4\n");
  EXPECT_THAT(Done({"get", "S", "T", "ModifiéLe"}), MatchesRegex("[0-9/]{8} [0-9:]{8}\n"));
}

TEST_F(TaskKeyCommands, UnsetRemovesAllOrNothing) {
  EXPECT_THAT(Refused(2, {"unset", "S", "T", "Table", "Speed"}), HasSubstr("\"Speed\""));
  EXPECT_THAT(Refused(2, {"unset", "S", "T", "Password=secret"}), Not(HasSubstr("secret")));
  EXPECT_THAT(Refused(3, {"unset", "S", "U", "Table"}), HasSubstr("no task \"U\""));
  EXPECT_THAT(Refused(2, {"unset", "S", "T"}), HasSubstr("NAME is missing"));
}

TEST_F(TaskKeyCommands, VariableDeletesOne) {
  Done({"variable", "S", "V=1"});
  Done({"variable", "S", "W=2"});
  Done({"variable", "S", "v", "--delete"});
  EXPECT_EQ(Done({"variable", "S"}), "W=2\n");
  EXPECT_THAT(Refused(3, {"variable", "S", "V", "--delete"}), HasSubstr("no variable \"V\""));
  EXPECT_THAT(Refused(3, {"variable", "X", "V", "--delete"}), HasSubstr("no scenario \"X\""));
  for (const std::vector<std::string>& command :
       std::vector<std::vector<std::string>>{{"variable", "S", "--delete"},
                                             {"variable", "S", "W=3", "--delete"},
                                             {"variable", "S", "W", "--delete", "--stdin"}}) {
    EXPECT_THAT(Refused(2, command), HasSubstr("--delete removes one variable: give its name"));
  }
}

TEST_F(TaskKeyCommands, LeaveColumnsInTheOrderOfTheirNumbers) {
  Done({"set", "S", "U", "Champs\\10=(Col)10", "Champs\\2=(Col)2"});
  Done({"set", "S", "U", "Champs\\1=(Col)1", "champs\\2=Null"});
  EXPECT_THAT(Done({"get", "S", "U"}),
              HasSubstr("Champs\\1=(Col)1\nChamps\\2=Null\nChamps\\10=(Col)10\n"));
}

}  // namespace
}  // namespace imptable
