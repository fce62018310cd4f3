#include "plugin/RunDriver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/kit/ImportRun.h"

namespace imptable {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;
using testing::Not;

class NoForm : public HostDisplay {
 public:
  HostForm* wForm() override { return nullptr; }
};

/// Report lines and events in one list, as they come.
class DrivenRun : public testing::Test {
 protected:
  DrivenRun() {
    run_.events.listener = [this](const std::string& event) {
      run_.component.host.lines.push_back({'<' + event + '>', ReportKind::kSuccess, nullptr});
    };
  }

  std::string Connecting() {
    return " ... Connexion à la Source de Données : " + run_.source.name();
  }
  std::string File(const std::string& name) { return run_.folder.path() + name; }

  std::vector<std::int16_t> Kinds() {
    std::vector<std::int16_t> kinds;
    for (const WrittenLine& line : run_.component.host.lines) {
      if (!line.text.starts_with('<')) kinds.push_back(static_cast<std::int16_t>(line.kind));
    }
    return kinds;
  }

  ImportRun run_;
};

TEST_F(DrivenRun, ReportsItsStepsAndRaisesItsEventsInOrder) {
  run_.Source({"1;a"});
  EXPECT_EQ(run_.Go(), 2);
  EXPECT_THAT(
      run_.Report(),
      ElementsAre("<Progress>", " --> Exécution du Traitement : T1", Connecting(), "<Progress>",
                  " ... Suppression des fichiers d'erreurs", " --> TRAITEMENT DE LA TABLE : CLIENT",
                  "<Progress>", " -->   Mode INSERT", " ----->    1 enreg(s) lu(s)",
                  "  -->   Traitement OK : 1 Enregistrement(s) copié(s)",
                  " --------------- PROCEDURE TERMINEE ---------------", "<Complete>"));
  EXPECT_THAT(Kinds(), ElementsAre(0, 2, 2, 2, 2, 2, 2, 0));
}

TEST_F(DrivenRun, ReportsInEnglishOnceTheLanguageIsEnglish) {
  run_.component.registry.SetNumber("SOFTWARE\\KALDO\\Configuration", "Lang", 10000);
  run_.Set("Mode", 2);
  run_.Source({"1;a"});
  run_.Go();
  EXPECT_THAT(run_.Report(),
              ElementsAre("<Progress>", " --> Run process: T1",
                          " ... Connect to data source: " + run_.source.name(), "<Progress>",
                          " ... Delete error logs", " --> PROCESS TABLE: CLIENT", "<Progress>",
                          " --------------- PROCEDURE TERMINATED ---------------", "<Complete>"));
}

TEST_F(DrivenRun, GivesTheReportWriterScenarioPathAndTheHostsObject) {
  NoForm button;
  run_.Source({"1;a"});
  run_.events.listener = nullptr;
  run_.GoBy([&](ImpTable& task) {
    task.Bouton = &button;
    task.Run(1);
    EXPECT_EQ(run_.component.module().run.display, &button);
  });
  EXPECT_EQ(run_.component.host.scenario, "S1");
  EXPECT_EQ(run_.component.host.report_path, File("report.txt"));
  EXPECT_EQ(run_.component.module().report_path, File("report.txt"));
  EXPECT_THAT(run_.component.host.lines,
              AllOf(Not(IsEmpty()), Each(Field(&WrittenLine::display, &button))));
}

TEST_F(DrivenRun, WritesItsStatusBeforeAndAfterAndTheTimeOfItsEnd) {
  run_.component.clock.Set({2009, 3, 7, 4, 5, 6});
  run_.Source({"1;a"});
  run_.Go();
  const std::string task(ImportRun::kTaskPath);
  EXPECT_THAT(
      run_.component.registry.writes(),
      ElementsAre(task + "|Etat=1", task + "|ExecuteLe=07/03/09 04:05:06", task + "|Etat=2"));
  EXPECT_EQ(run_.component.registry.Number(task, "Etat"), 2);
  EXPECT_EQ(run_.component.registry.Text(task, "ExecuteLe"), "07/03/09 04:05:06");
}

TEST_F(DrivenRun, IsSeenAsRunningUntilItsLastEvent) {
  run_.Source({"1;a"});
  std::vector<std::int32_t> states;
  run_.events.listener = [&](const std::string&) {
    states.push_back(run_.component.registry.Number(ImportRun::kTaskPath, "Etat").value_or(-1));
  };
  run_.Go();
  EXPECT_THAT(states, ElementsAre(1, 1, 1, 2));
}

TEST_F(DrivenRun, SetsTheSharedLocationToTheTasks) {
  run_.component.module().location = {kHkeyCurrentUser, "elsewhere"};
  run_.Go();
  EXPECT_EQ(run_.component.module().location.root, kHkeyLocalMachine);
  EXPECT_EQ(run_.component.module().location.path, "SOFTWARE\\KALDO\\Scenarios\\S1\\Taches");
}

TEST_F(DrivenRun, ConnectsWithTheTasksSourceUserAndPassword) {
  run_.Set("Login", "@U");
  run_.Set("Password", "secret");
  run_.component.host.variables["U"] = "scott";
  run_.Go();
  EXPECT_THAT(run_.source.LogLines("SQLDriverConnect"),
              ElementsAre(testing::HasSubstr("UID=scott;PWD=secret")));
}

TEST_F(DrivenRun, DisconnectsOnceBetweenItsStatusAndComplete) {
  run_.Source({"1;a"});
  std::vector<std::size_t> disconnects;
  run_.events.listener = [&](const std::string&) {
    disconnects.push_back(run_.source.LogLines("SQLDisconnect").size());
  };
  std::int32_t status_while_closing = 0;
  run_.component.message_loop.AtYield(4, [&] {
    status_while_closing = run_.component.registry.Number(ImportRun::kTaskPath, "Etat").value_or(0);
  });
  run_.Go();
  EXPECT_THAT(disconnects, ElementsAre(0, 0, 0, 1));
  EXPECT_EQ(status_while_closing, 2);
}

TEST_F(DrivenRun, DispatchesByTheMode) {
  struct Mode {
    std::int32_t number;
    std::string_view banner;
  };
  constexpr Mode kModes[] = {
      {0, " -->   Mode INSERT"},
      {1, " -->   Mode UPDATE"},
      {3, " -->   Mode UPDATE/INSERT"},
      {4, " -->   Mode DELETE"},
  };
  run_.Source({"1;a"});
  for (const Mode& mode : kModes) {
    run_.Set("Mode", mode.number);
    run_.Go();
    EXPECT_THAT(run_.Report(), Contains(mode.banner));
  }
}

TEST_F(DrivenRun, ImportsNothingInTheModesWithoutARoutine) {
  for (const std::int32_t mode : {2, 5, -1, 32767}) {
    run_.Source({"1;a"});
    run_.Set("Mode", mode);
    EXPECT_EQ(run_.Go(), 2) << mode;
    EXPECT_THAT(run_.Report(),
                ElementsAre("<Progress>", " --> Exécution du Traitement : T1", Connecting(),
                            "<Progress>", " ... Suppression des fichiers d'erreurs",
                            " --> TRAITEMENT DE LA TABLE : CLIENT", "<Progress>",
                            " --------------- PROCEDURE TERMINEE ---------------", "<Complete>"));
    EXPECT_THAT(run_.source.LogLines("SQLPrepare"), IsEmpty());
    EXPECT_THAT(run_.source.LogLines("SQLExecDirect"), IsEmpty());
  }
}

TEST_F(DrivenRun, StillDeletesFirstInAModeWithoutARoutine) {
  run_.Source({"1;a"});
  run_.Set("Mode", 2);
  run_.Set("Suppression", 1);
  EXPECT_EQ(run_.Go(), 2);
  EXPECT_THAT(run_.source.LogLines("SQLExecDirect"), testing::SizeIs(1));
}

TEST_F(DrivenRun, ForgetsTheErrorsOfTheRunBefore) {
  run_.Source({"1;a;b;c"});
  EXPECT_EQ(run_.Go(), 3);
  run_.Source({"1;a"});
  EXPECT_EQ(run_.Go(), 2);
  EXPECT_EQ(run_.progress().lines[Outcome::kRejected], 0);
  EXPECT_EQ(run_.progress().read, 1);
}

TEST_F(DrivenRun, ForgetsAFailedDeletionOfTheRunBefore) {
  run_.Source({"1;a"});
  run_.Set("Suppression", 1);
  run_.Driver("on SQLExecDirect return -1 diag 42000 1 \"refused\"");
  EXPECT_EQ(run_.Go(), 3);
  EXPECT_THAT(run_.Executed(), IsEmpty()) << "no import after a failed deletion";
  run_.Set("Suppression", 0);
  EXPECT_EQ(run_.Go(), 2);
  EXPECT_THAT(run_.Executed(), testing::SizeIs(1));
}

TEST_F(DrivenRun, TakesTheUsersDecimalSeparatorBeforeTheImport) {
  run_.component.registry.SetText({kHkeyCurrentUser, "Control Panel\\International"}, "sDecimal",
                                  ",");
  run_.Go();
  EXPECT_EQ(run_.component.module().run.decimal_separator, ",");
}

TEST_F(DrivenRun, LetsTwoTasksOfAComponentRunOneAfterTheOther) {
  run_.Source({"1;a"});
  run_.component.registry.SetText("SOFTWARE\\KALDO\\Scenarios\\S2\\Taches\\Other", "Base Cible",
                                  "there is no such source");
  run_.GoBy([this](ImpTable& task) {
    ImpTable other(run_.component.state, &run_.events);
    other.InitializeProperties("Other", "S2", 0);
    other.Run(1);
    EXPECT_EQ(other.GetStatus(), 3);
    EXPECT_EQ(run_.component.host.scenario, "S2");
    task.Run(1);
    EXPECT_EQ(run_.component.host.scenario, "S1");
  });
  EXPECT_EQ(run_.component.registry.Number(ImportRun::kTaskPath, "Etat"), 2);
  EXPECT_EQ(run_.component.registry.Number("SOFTWARE\\KALDO\\Scenarios\\S2\\Taches\\Other", "Etat"),
            3);
}

}  // namespace
}  // namespace imptable
