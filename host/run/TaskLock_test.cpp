#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "host/testing/HostSession.h"
#include "platform/files/LockFile_linux.h"
#include "tests/drivers/ScriptedDataSource.h"

namespace imptable {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

/// Task "T" of scenario "S": INSERT of CLIENTS.CSV into a table of the scripted driver, with the
/// trace of an earlier run.
class TaskLockOfARun : public testing::Test {
 protected:
  TaskLockOfARun() {
    source.Script("column CODE 4 INTEGER 10 0 0\ncolumn NOM 12 VARCHAR 30 0 1\n");
    Set("T", {"Alias=CLIENTS", "Dir=" + folder()});
    session.folder.Write("CLIENTS.CSV", "1;a\n2;b\n");
    session.folder.Write("CLIENTS.TRC", kTrace);
  }

  void Set(const std::string& task, const std::vector<std::string>& values) {
    std::vector<std::string> arguments{
        "set", "S", task, "Base Cible=" + source.name(), "Table=CLIENT", "FormatFile=1"};
    arguments.insert(arguments.end(), values.begin(), values.end());
    EXPECT_EQ(session.Run(arguments).code, 0);
  }

  HostSession::Result Run(const std::string& task = "T", const std::string& language = "en") {
    return HostSession::RunAsIs({"--registry", session.registry(), "--lang", language, "run", "S",
                                 task, "--report", folder() + "report.txt"});
  }

  std::string folder() const { return session.folder.path(); }
  std::string LockPath() const { return folder() + "CLIENTS.LCK"; }

  static constexpr const char* kTrace = "00000001000000000\n";
  ScriptedDataSource source;
  HostSession session;
};

TEST_F(TaskLockOfARun, RefusesASecondOneBeforeAnythingIsTouched) {
  const std::string values = session.Run({"get", "S", "T"}).out;
  const LockFile other(LockPath());
  const auto result = Run();
  EXPECT_EQ(result.code, 3);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err, "imptable: task \"T\": another run (process " + std::to_string(getpid()) +
                            ") is using its files (lock " + LockPath() +
                            "): wait for its end, or stop it\n");
  EXPECT_FALSE(session.folder.Exists("report.txt"));
  EXPECT_FALSE(session.folder.Exists("CLIENTS.ERR"));
  EXPECT_EQ(session.folder.Read("CLIENTS.TRC"), kTrace);
  EXPECT_EQ(session.Run({"get", "S", "T"}).out, values);
  EXPECT_THAT(source.LogLines(), IsEmpty());
}

TEST_F(TaskLockOfARun, RefusesInFrenchToo) {
  const LockFile other(LockPath());
  EXPECT_EQ(Run("T", "fr").err, "imptable: tâche \"T\" : une autre exécution (processus " +
                                    std::to_string(getpid()) + ") utilise ses fichiers (verrou " +
                                    LockPath() + ") : attendre qu'elle finisse, ou l'arrêter\n");
}

TEST_F(TaskLockOfARun, RefusesWithoutTheProcessWhenThatIsNotKnown) {
  const LockFile other(LockPath());
  session.folder.Write("CLIENTS.LCK", "");
  const auto result = Run();
  EXPECT_EQ(result.code, 3);
  EXPECT_EQ(result.err, "imptable: task \"T\": another run is using its files (lock " + LockPath() +
                            "): wait for its end, or stop it\n");
}

TEST_F(TaskLockOfARun, CountsNoLinesOfARunThatIsStillOnAsLeftOver) {
  const LockFile other(LockPath());
  const auto result = session.Run({"run", "S", "T", "--resume"});
  EXPECT_EQ(result.code, 3);
  EXPECT_THAT(result.err, HasSubstr("another run"));
}

TEST_F(TaskLockOfARun, RefusesAnotherTaskThatHasTheSameFiles) {
  EXPECT_EQ(session.Run({"variable", "S", "FOLDER=" + folder()}).code, 0);
  Set("by a variable", {"Alias=CLIENTS", "Dir=@FOLDER"});
  Set("in lower case", {"Alias=clients", "Dir=" + folder() + "./"});
  Set("with blanks", {"Alias=CLIENTS  ", "Dir=" + folder()});
  Set("other alias", {"Alias=ORDERS", "Dir=" + folder()});
  Set("other folder", {"Alias=CLIENTS", "Dir=" + folder() + "other"});
  std::filesystem::create_directory(folder() + "other");
  const LockFile other(LockPath());
  for (const char* task : {"by a variable", "in lower case", "with blanks"}) {
    EXPECT_EQ(Run(task).code, 3) << task;
  }
  for (const char* task : {"other alias", "other folder"}) {
    EXPECT_EQ(Run(task).code, 0) << task;
  }
}

TEST_F(TaskLockOfARun, GoesWithItsFileWhenTheRunIsDone) {
  EXPECT_EQ(Run().code, 0);
  EXPECT_FALSE(session.folder.Exists("CLIENTS.LCK"));
  source.Script("on SQLDriverConnect return -1 diag 28000 1 \"login failed\"\n");
  EXPECT_EQ(Run().code, 1);
  EXPECT_FALSE(session.folder.Exists("CLIENTS.LCK"));
}

TEST_F(TaskLockOfARun, IsTakenOverFromARunThatWasKilled) {
  session.folder.Write("CLIENTS.LCK", "1\n");
  EXPECT_EQ(Run().code, 0);
  EXPECT_FALSE(session.folder.Exists("CLIENTS.LCK"));
}

TEST_F(TaskLockOfARun, IsNoneWhereTheFolderIsMissingWhichTheRunTells) {
  Set("T", {"Dir=" + folder() + "missing"});
  const auto result = Run();
  EXPECT_EQ(result.code, 0) << result.err;
  EXPECT_THAT(session.folder.Read("report.txt"), HasSubstr("No file"));
}

TEST_F(TaskLockOfARun, IsNotTakenThroughALink) {
  std::filesystem::create_symlink("planted.txt", LockPath());
  const auto result = Run();
  EXPECT_EQ(result.code, 4);
  EXPECT_EQ(result.err, "imptable: task \"T\": the lock " + LockPath() +
                            " can't be used (it is a symbolic link): see that no run is on, then "
                            "remove it\n");
  EXPECT_FALSE(session.folder.Exists("planted.txt"));
  EXPECT_FALSE(session.folder.Exists("report.txt"));
  EXPECT_EQ(session.folder.Read("CLIENTS.TRC"), kTrace);
}

}  // namespace
}  // namespace imptable
