#include "host/run/TaskOpening.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iostream>
#include <memory>

#include "host/testing/HostSession.h"
#include "plugin/ImpTable.h"
#include "plugin/ScenarioKeys.h"
#include "tests/drivers/ScriptedDataSource.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// Task "T" of scenario "S": INSERT of CLIENTS.CSV into a table of the scripted driver.
class TaskOpeningOfARun : public testing::Test {
 protected:
  TaskOpeningOfARun() {
    source_.Script("column CODE 4 INTEGER 10 0 0\ncolumn NOM 12 VARCHAR 30 0 1\n");
    Set({"Base Cible=" + source_.name(), "Table=CLIENT", "FormatFile=1", "Alias=CLIENTS",
         "Dir=" + session_.folder.path()});
    session_.folder.Write("CLIENTS.CSV", "1;a\n");
    session_.folder.Write("CLIENTS.TRC", kTrace);
  }

  void Set(std::vector<std::string> values) {
    values.insert(values.begin(), {"set", "S", "T"});
    ASSERT_EQ(session_.Run(values).code, 0);
  }

  HostSession::Result Run() {
    return session_.Run({"run", "S", "T", "--report", session_.folder.path() + "report.txt"});
  }

  void ExpectNothingDone(const HostSession::Result& result) {
    EXPECT_EQ(result.code, 3);
    EXPECT_EQ(result.out, "");
    EXPECT_THAT(source_.LogLines(), IsEmpty());
    EXPECT_FALSE(session_.folder.Exists("report.txt"));
    EXPECT_EQ(session_.folder.Read("CLIENTS.TRC"), kTrace);
    EXPECT_EQ(session_.Run({"status", "S", "T"}).out, "0\n\n");
  }

  static constexpr const char* kTrace = "00000001000000000\n";
  ScriptedDataSource source_;
  HostSession session_;
};

TEST_F(TaskOpeningOfARun, RefusesAnUnsetVariableOfAnySettingBeforeConnecting) {
  for (const char* name : {"Base Cible", "Login", "Table", "Password", "Owner", "Alias", "Dir",
                           "CodErr", "Cle/Index"}) {
    const std::string before = session_.Run({"get", "S", "T", name, "--show-password"}).out;
    Set({std::string(name) + "=@NAME"});
    const auto result = Run();
    ExpectNothingDone(result);
    EXPECT_EQ(result.err, "imptable: task \"T\": \"" + std::string(name) +
                              "\" = \"@NAME\", but scenario \"S\" has no variable \"NAME\": set it "
                              "with \"imptable variable\"\n");
    Set({std::string(name) + "=" + before.substr(0, before.size() - 1)});
  }
}

TEST_F(TaskOpeningOfARun, RefusesAnEmptyDataSource) {
  Set({"Base Cible="});
  const auto result = Run();
  ExpectNothingDone(result);
  EXPECT_EQ(result.err,
            "imptable: task \"T\": it has no data source: give \"Base Cible\" a value\n");
  Set({"Base Cible=@DB"});
  ASSERT_EQ(session_.Run({"variable", "S", "DB="}).code, 0);
  EXPECT_EQ(Run().code, 3);
}

TEST_F(TaskOpeningOfARun, TakesTheTaskThatItReadWhateverIsWrittenMeanwhile) {
  HostContext context(session_.registry(), Language::kEnglish, std::cerr);
  ASSERT_TRUE(OpenTaskOnce(context, "S", "T"));
  Set({"Table=OTHER", "Alias=OTHERS"});
  ASSERT_TRUE(context.state.commun.opened_task);
  EXPECT_EQ(context.state.commun.opened_task->table, "CLIENT");
  ImpTable task(context.state, nullptr);
  task.InitializeProperties("T", "S", 0);
  task.SetReportFilePath(session_.folder.path() + "report.txt");
  task.Run(1);
  EXPECT_THAT(source_.LogLines("SQLPrepare"), ElementsAre(HasSubstr("INTO \"CLIENT\"")));
  EXPECT_FALSE(context.state.commun.opened_task) << "a later run reads the task anew";
}

TEST_F(TaskOpeningOfARun, ReadsTheWholeTaskAtOneMoment) {
  const HostContext context(session_.registry(), Language::kEnglish, std::cerr);
  const auto text = [&](const char* name) {
    return context.store.Read(TaskKey("S", "T"), name)->data;
  };
  auto moment = std::make_unique<RegistryStore::Moment>(context.store);
  EXPECT_EQ(text("Table"), std::string("CLIENT\0", 7));
  Set({"Table=OTHER", "Alias=OTHERS"});
  EXPECT_EQ(text("Alias"), std::string("CLIENTS\0", 8));
  moment.reset();
  EXPECT_EQ(text("Alias"), std::string("OTHERS\0", 7));
}

}  // namespace
}  // namespace imptable
