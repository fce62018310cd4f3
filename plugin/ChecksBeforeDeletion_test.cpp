#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

#include "tests/kit/ImportRun.h"

namespace imptable {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

/// A reason why nothing can be imported, known before the first line.
struct Obstacle {
  const char* name;
  std::function<void(ImportRun&)> raise;
};

const Obstacle kObstacles[] = {
    {"the data file is a folder",
     [](ImportRun& run) {
       std::filesystem::remove(run.folder.path() + "CLIENTS.CSV");
       std::filesystem::create_directory(run.folder.path() + "CLIENTS.CSV");
     }},
    {"the error limit is too large", [](ImportRun& run) { run.Set("Erreurs", "40000"); }},
    {"the error limit is negative", [](ImportRun& run) { run.Set("Erreurs", "-2"); }},
    {"the layout can't be understood", [](ImportRun& run) { run.Columns({"5,x"}); }},
    {"an origin can't be understood", [](ImportRun& run) { run.Assign({"CODE,4,(Col)x"}); }},
    {"the error code is no number",
     [](ImportRun& run) {
       run.Set("DupKey", 1);
       run.Set("CodErr", "none");
     }},
    {"the table is unknown", [](ImportRun& run) { run.Script(""); }},
    {"the columns can't be listed",
     [](ImportRun& run) { run.Driver("on SQLColumns return -1 diag 42000 1 \"no right\""); }},
    {"the statement can't be prepared",
     [](ImportRun& run) { run.Driver("on SQLPrepare return -1 diag 42000 1 \"bad table\""); }},
    {"a value can't be bound",
     [](ImportRun& run) { run.Driver("on SQLBindParameter return -1 diag 07009 1 \"no\""); }},
    {"a side file can't be opened",
     [](ImportRun& run) {
       std::filesystem::create_directories(run.folder.path() + "CLIENTS.ERR/x");
     }},
};

const Obstacle kKeyObstacles[] = {
    {"there is no key", [](ImportRun& run) { run.Set("Cle/Index", ""); }},
    {"the key is no column", [](ImportRun& run) { run.Set("Cle/Index", "NONE"); }},
    {"the driver knows no primary keys",
     [](ImportRun& run) {
       run.Set("PrimKey", 1);
       run.Driver("support 65 no");
     }},
};

/// A task that would delete before its import.
void DeletesFirst(ImportRun& run, std::int32_t deletion) {
  run.Set("Suppression", deletion);
  run.Set("RecErreurs", 1);
  run.folder.Write("CLIENTS.SUP", "[Table01]\n01=CODE,1,9\n");
  run.Source({"1;a", "2;b"});
}

void ExpectNothingDeleted(ImportRun& run, const std::string& what) {
  EXPECT_THAT(run.source.LogLines("SQLExecDirect"), IsEmpty()) << what;
  EXPECT_THAT(run.Executed(), IsEmpty()) << what;
  EXPECT_THAT(run.Report(), Not(Contains(HasSubstr("Suppression Globale")))) << what;
  EXPECT_THAT(run.Report(), Not(Contains(HasSubstr("Suppression Sélective")))) << what;
  EXPECT_THAT(run.Report(), Contains(HasSubstr("0 enreg(s) lu(s)"))) << what;
}

TEST(ChecksBeforeDeletion, DeleteNothingForALineThatCannotBeImported) {
  for (const std::int32_t deletion : {1, 2}) {
    for (const Obstacle& obstacle : kObstacles) {
      ImportRun run;
      DeletesFirst(run, deletion);
      obstacle.raise(run);
      EXPECT_EQ(run.Go(), 3) << obstacle.name;
      ExpectNothingDeleted(run, obstacle.name);
    }
  }
}

TEST(ChecksBeforeDeletion, HoldInEveryModeThatTakesAKey) {
  for (const std::int32_t mode : {1, 3, 4}) {
    for (const auto& obstacles :
         {std::vector<Obstacle>(std::begin(kObstacles), std::end(kObstacles)),
          std::vector<Obstacle>(std::begin(kKeyObstacles), std::end(kKeyObstacles))}) {
      for (const Obstacle& obstacle : obstacles) {
        if (std::string(obstacle.name).starts_with("the error code")) continue;  // INSERT's alone
        ImportRun run;
        DeletesFirst(run, 1);
        run.Set("Mode", mode);
        run.Set("Cle/Index", "CODE");
        obstacle.raise(run);
        EXPECT_EQ(run.Go(), 3) << mode << ' ' << obstacle.name;
        ExpectNothingDeleted(run, obstacle.name);
      }
    }
  }
}

TEST(ChecksBeforeDeletion, ReportWhatTheyFoundAfterTheModesBanner) {
  ImportRun run;
  DeletesFirst(run, 1);
  run.Set("Erreurs", "-1");
  run.Go();
  std::vector<std::string> starts;
  for (const std::string& line : run.Report()) starts.push_back(line.substr(0, 20));
  EXPECT_THAT(
      run.Report(),
      ElementsAre(HasSubstr("Exécution du Traitement"), HasSubstr("Connexion à la Source"),
                  HasSubstr("Suppression des fichiers"), HasSubstr("TRAITEMENT DE LA TABLE"),
                  HasSubstr("Mode INSERT"), HasSubstr("N° 6 ,"), HasSubstr("0 enreg(s) lu"),
                  HasSubstr("Traitement OK : 0"), HasSubstr("PROCEDURE TERMINEE")));
}

TEST(ChecksBeforeDeletion, ComeBeforeTheDeletionWhoseLinesComeBeforeTheBanner) {
  ImportRun run;
  DeletesFirst(run, 1);
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Report(),
              ElementsAre(HasSubstr("Exécution du Traitement"), HasSubstr("Connexion à la Source"),
                          HasSubstr("Suppression des fichiers"),
                          HasSubstr("TRAITEMENT DE LA TABLE"), HasSubstr("Suppression Globale"),
                          HasSubstr("Mode INSERT"), HasSubstr("2 enreg(s) lu"),
                          HasSubstr("Traitement OK : 2"), HasSubstr("PROCEDURE TERMINEE")));
}

TEST(ChecksBeforeDeletion, KeepTheDiagnosticsOfTheTableInTheErrorFile) {
  ImportRun run;
  DeletesFirst(run, 1);
  run.Driver("on SQLPrepare return -1 diag 42000 208 \"no such table\"");
  EXPECT_EQ(run.Go(), 3);
  EXPECT_THAT(run.Errors(), ElementsAre(HasSubstr("( 208) no such table")));
}

TEST(ChecksBeforeDeletion, LetADeletionComplainToTheReportAndLeaveNoEmptyFiles) {
  ImportRun run;
  DeletesFirst(run, 1);
  run.Driver("on SQLExecDirect return -1 diag 42000 229 \"no right to empty\"");
  EXPECT_EQ(run.Go(), 3);
  EXPECT_THAT(run.Report(), Contains(HasSubstr("( 229) no right to empty")));
  EXPECT_THAT(run.Errors(), ElementsAre("<none>"));
  EXPECT_THAT(run.Rejected(), ElementsAre("<none>"));
  EXPECT_THAT(run.Trace(), ElementsAre("<none>"));
}

TEST(ChecksBeforeDeletion, TakeTheTaskAsItWasReadAtTheStart) {
  ImportRun run;
  DeletesFirst(run, 1);
  run.Assign({"CODE,4,(Col)1", "NOM,12,(Col)2"});
  // Another process changes the task while the rows are being deleted.
  run.events.listener = [&, milestone = 0](const std::string& event) mutable {
    if (event == "Progress" && ++milestone == 2) run.Assign({"Ignore", "NOM,12,(Col)x"});
  };
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Executed(), ElementsAre("1='1' 2='a'", "1='2' 2='b'"));
}

}  // namespace
}  // namespace imptable
