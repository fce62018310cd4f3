#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "import/ledger/ResumeOutlook.h"
#include "plugin/ScenarioKeys.h"
#include "plugin/TaskLoading.h"
#include "tests/kit/ImportRun.h"

namespace imptable {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

constexpr std::string_view kOldTrace = "00000001000000000\n00000002100000001\n";
constexpr std::string_view kOldRejected = "2;mended\n";

class RunFiles : public testing::Test {
 protected:
  std::string At(const std::string& name) { return run_.folder.path() + name; }
  void Write(const std::string& name, std::string_view bytes) { run_.folder.Write(name, bytes); }
  bool Exists(const std::string& name) { return run_.folder.Exists(name); }

  void LeaveResumeFiles(const std::string& alias) {
    Write(alias + ".TRC", kOldTrace);
    Write(alias + ".LER", kOldRejected);
  }

  // In a mode without an import only the driver touches the files.
  void ImportNothing() { run_.Set("Mode", 2); }

  ImportRun run_;
};

TEST_F(RunFiles, ReportAMissingDataFileAndSucceed) {
  EXPECT_EQ(run_.Go(), 2);
  EXPECT_THAT(run_.component.host.lines,
              Contains(WrittenLine{" -->   Pas de Fichier " + At("CLIENTS.CSV"),
                                   ReportKind::kInformation, nullptr}));
  EXPECT_THAT(run_.Report(), Not(Contains(" -->   Mode INSERT")));
  EXPECT_THAT(run_.events.raised, ElementsAre("Progress", "Progress", "Progress", "Complete"));
}

TEST_F(RunFiles, ReportAnEmptyDataFileAndSucceed) {
  Write("CLIENTS.CSV", "");
  EXPECT_EQ(run_.Go(), 2);
  EXPECT_THAT(run_.component.host.lines,
              Contains(WrittenLine{" -->   Le Fichier " + At("CLIENTS.CSV") + " est vide",
                                   ReportKind::kInformation, nullptr}));
  EXPECT_THAT(run_.Report(), Not(Contains(" -->   Mode INSERT")));
}

TEST_F(RunFiles, DeleteNothingForADirectoryInThePlaceOfTheDataFile) {
  run_.Set("Suppression", 1);
  run_.Set("SiVide", 1);
  std::filesystem::create_directory(At("CLIENTS.CSV"));
  EXPECT_EQ(run_.Go(), 3);
  EXPECT_THAT(run_.Report(), Contains(HasSubstr("N° 75 ,")));
  EXPECT_THAT(run_.source.LogLines("SQLExecDirect"), IsEmpty());
}

TEST_F(RunFiles, TakeADirectoryThatDoesNotExistForAMissingFile) {
  run_.Set("Dir", At("none"));
  EXPECT_EQ(run_.Go(), 2);
  EXPECT_THAT(run_.Report(), Contains(" -->   Pas de Fichier " + At("none") +
                                      SystemPathSeparator() + "CLIENTS.CSV"));
}

TEST_F(RunFiles, TakeADirectoryThatIsAFileForAMissingFileToo) {
  Write("none", "");
  run_.Set("Dir", At("none"));
  for (const int traced : {0, 1}) {
    run_.Set("RecTrace", traced);
    EXPECT_EQ(run_.Go(), 2) << traced;
    EXPECT_THAT(run_.Report(), Contains(HasSubstr(" -->   Pas de Fichier ")));
  }
}

TEST_F(RunFiles, FailTheRunWhenAnErrorFileIsLeftThoughTheDataFileIsMissing) {
  run_.component.files.Fail(FileOperation::kRemove, 1,
                            std::make_error_code(std::errc::permission_denied));
  Write("CLIENTS.ERR", "old\n");
  EXPECT_EQ(run_.Go(), 3);
  EXPECT_EQ(run_.folder.Read("CLIENTS.ERR"), "old\n");
}

TEST_F(RunFiles, LeaveOutTheDeletionWithoutADataFile) {
  run_.Set("Suppression", 1);
  run_.Set("SiVide", 1);
  run_.Go();
  EXPECT_THAT(run_.source.LogLines("SQLExecDirect"), IsEmpty());
}

TEST_F(RunFiles, EmptyTheTableForAnEmptyFileOnlyWhenTheTaskSaysSo) {
  Write("CLIENTS.CSV", "");
  run_.Set("Suppression", 1);
  for (const std::int32_t policy : {0, 2, -1}) {
    run_.Set("SiVide", policy);
    run_.Go();
    EXPECT_THAT(run_.source.LogLines("SQLExecDirect"), IsEmpty()) << policy;
  }
  run_.Set("SiVide", 1);
  EXPECT_EQ(run_.Go(), 2);
  EXPECT_THAT(run_.source.LogLines("SQLExecDirect"),
              ElementsAre("SQLExecDirect TRUNCATE TABLE \"CLIENT\" = 0"));
  EXPECT_THAT(run_.Executed(), IsEmpty());
}

TEST_F(RunFiles, EmptyTheTableBeforeTheImport) {
  run_.Source({"1;a"});
  run_.Set("Suppression", 1);
  EXPECT_EQ(run_.Go(), 2);
  EXPECT_THAT(run_.source.LogLines("SQLExecDirect"), SizeIs(1));
  EXPECT_THAT(run_.Executed(), SizeIs(1));
}

TEST_F(RunFiles, DeleteBySelectionOnlyWhenThereIsASelectionFile) {
  run_.Source({"1;a"});
  run_.Set("Suppression", 2);
  run_.Go();
  EXPECT_THAT(run_.Report(), Not(Contains(" -->   Suppression Sélective des données")));
  Write("CLIENTS.SUP", "[Table01]\n01=CODE,1,5\n");
  run_.Set("Alias", "CLIENTS ");
  run_.Go();
  EXPECT_THAT(run_.Report(), Contains(" -->   Suppression Sélective des données"))
      << "the alias without its trailing blanks";
  EXPECT_THAT(run_.source.LogLines("SQLExecDirect"), ElementsAre(HasSubstr("DELETE FROM")));
  for (const std::int32_t other : {0, 3}) {
    run_.Set("Suppression", other);
    run_.Go();
    EXPECT_THAT(run_.source.LogLines("SQLExecDirect"), IsEmpty()) << other;
  }
}

TEST_F(RunFiles, HaveTheDataFileNamedByTheAliasWithoutTrailingBlanks) {
  run_.Set("Alias", "CLIENTS  ");
  run_.Source({"1;a"});
  EXPECT_EQ(run_.Go(), 2);
  EXPECT_THAT(run_.Executed(), SizeIs(1));
}

TEST_F(RunFiles, HaveOneNameEachWithoutTheAliasesTrailingBlanks) {
  ImportNothing();
  run_.Set("Alias", "CLIENTS  ");
  for (const char* alias : {"CLIENTS", "CLIENTS  "}) {
    LeaveResumeFiles(alias);
    Write(std::string(alias) + ".ERR", "of another run\n");
  }
  EXPECT_EQ(run_.Go(), 2);
  for (const char* extension : {".ERR", ".TRC", ".LER"}) {
    EXPECT_FALSE(Exists(std::string("CLIENTS") + extension)) << extension;
    EXPECT_TRUE(Exists(std::string("CLIENTS  ") + extension)) << extension;
  }
}

TEST_F(RunFiles, AreDeletedInOrder) {
  ImportNothing();
  run_.Set("Alias", "C  ");
  run_.Go();
  EXPECT_THAT(
      run_.component.files.log(),
      ElementsAre("open read " + At("C.CSV"), "remove " + At("C.ERR"), "remove " + At("C.TRC"),
                  "remove " + At("C.LER"), "remove " + At("C.REP.NEW"), "remove " + At("C.REP"),
                  "remove " + At("C.TRC"), "remove " + At("C.LER"), "remove " + At("C.REP.NEW"),
                  "remove " + At("C.REP")));
}

TEST_F(RunFiles, AreResumedFromWhateverBlanksTheAliasEndsWith) {
  run_.Set("Alias", "CLIENTS  ");
  run_.Source({"1;a", "2;b"});
  LeaveResumeFiles("CLIENTS");
  run_.Go(2);
  EXPECT_TRUE(run_.component.module().run.resume);
}

TEST_F(RunFiles, KeepLeadingBlanksOfTheAlias) {
  run_.Set("Alias", "  A");
  run_.Go();
  EXPECT_THAT(run_.Report(), Contains(" -->   Pas de Fichier " + At("  A.CSV")));
}

TEST_F(RunFiles, HaveTheAliasForACompleteNameOnlyWithUseAlias1) {
  run_.Set("Alias", "in.txt ");
  Write("in.txt", "1;a\n");
  run_.Set("UseAlias", 1);
  EXPECT_EQ(run_.Go(), 2);
  EXPECT_THAT(run_.Executed(), SizeIs(1));
  for (const std::int32_t other : {0, 2, -1}) {
    run_.Set("UseAlias", other);
    run_.Go();
    EXPECT_THAT(run_.Report(), Contains(" -->   Pas de Fichier " + At("in.txt.CSV"))) << other;
  }
}

TEST_F(RunFiles, AddTheirExtensionsToACompleteName) {
  run_.Set("Alias", "in.txt");
  run_.Set("UseAlias", 1);
  Write("in.txt", "1;a;too;many\n");
  EXPECT_EQ(run_.Go(), 3);
  EXPECT_THAT(run_.Lines("in.txt.LER"), ElementsAre("1;a;too;many"));
  EXPECT_TRUE(Exists("in.txt.ERR"));
  EXPECT_TRUE(Exists("in.txt.TRC"));
}

TEST_F(RunFiles, AreFoundWithoutRegardToCase) {
  Write("clients.csv", "1;a\n");
  Write("clients.err", "old\n");
  EXPECT_EQ(run_.Go(), 2);
  EXPECT_THAT(run_.Executed(), SizeIs(1));
  EXPECT_THAT(run_.FileNames(), ElementsAre("CLIENTS.ERR", "clients.csv"));
}

TEST_F(RunFiles, DoNotOutliveARunWithoutErrors) {
  run_.Source({"1;a"});
  EXPECT_EQ(run_.Go(), 2);
  EXPECT_FALSE(Exists("CLIENTS.TRC"));
  EXPECT_FALSE(Exists("CLIENTS.LER"));
}

TEST_F(RunFiles, AreKeptForAResumeAfterARunWithErrors) {
  run_.Source({"1;a", "2;b;c;d"});
  EXPECT_EQ(run_.Go(), 3);
  EXPECT_THAT(run_.Trace(), SizeIs(2));
  EXPECT_THAT(run_.Rejected(), ElementsAre("2;b;c;d"));
}

TEST_F(RunFiles, ThatCannotBeDeletedChangeNothing) {
  run_.Source({"1;a"});
  LeaveResumeFiles("CLIENTS");
  Write("CLIENTS.ERR", "old\n");
  run_.component.files.FailFrom(FileOperation::kRemove, 1,
                                std::make_error_code(std::errc::permission_denied));
  EXPECT_EQ(run_.Go(), 2) << "the import empties them";
  EXPECT_THAT(run_.Report(), SizeIs(8));
  EXPECT_TRUE(Exists("CLIENTS.TRC"));
}

struct ResumeCase {
  const char* name;
  std::int16_t request;
  std::int32_t option;
  std::string_view trace, rejected;  // "-": there is none
  bool resumes;
};

void PrintTo(const ResumeCase& resume, std::ostream* out) { *out << resume.name; }

constexpr ResumeCase kResumeCases[] = {
    {"AskedForWithBothFiles", 2, 1, kOldTrace, kOldRejected, true},
    {"AskedForWithAnyOption", 2, -1, kOldTrace, kOldRejected, true},
    {"NotAskedFor", 1, 1, kOldTrace, kOldRejected, false},
    {"AskedForOtherwise", 3, 1, kOldTrace, kOldRejected, false},
    {"SwitchedOff", 2, 0, kOldTrace, kOldRejected, false},
    {"WithoutTrace", 2, 1, "-", kOldRejected, false},
    {"WithoutRejectedLines", 2, 1, kOldTrace, "-", false},
    {"WithAnEmptyTrace", 2, 1, "", kOldRejected, false},
    {"WithNoRejectedLineInTheFile", 2, 1, kOldTrace, "", false},
    {"WithNeitherFile", 2, 1, "-", "-", false},
};

class ResumePolicy : public testing::TestWithParam<ResumeCase> {
 protected:
  ResumePolicy() {
    const ResumeCase& resume = GetParam();
    run_.Set("RecErreurs", resume.option);
    run_.Source({"1;a", "2;b", "3;c"});
    if (resume.trace != "-") run_.folder.Write("CLIENTS.TRC", resume.trace);
    if (resume.rejected != "-") run_.folder.Write("CLIENTS.LER", resume.rejected);
  }

  ImportRun run_;
};

TEST_P(ResumePolicy, KeepsBothFilesOrDeletesBoth) {
  run_.Go(GetParam().request);
  EXPECT_EQ(run_.component.module().run.resume, GetParam().resumes);
  // A resume begins with copies of what it found.
  const std::vector<bool> kept{run_.folder.Exists("CLIENTS.TRB"),
                               run_.folder.Exists("CLIENTS.LEB")};
  EXPECT_THAT(kept, ElementsAre(GetParam().resumes, GetParam().resumes));
}

TEST_P(ResumePolicy, ImportsAllLinesOrTheFailedAndTheRemainingOnes) {
  run_.Go(GetParam().request);
  if (GetParam().resumes) {
    EXPECT_THAT(run_.Executed(), ElementsAre("1='2' 2='mended'", "1='3' 2='c'"));
  } else {
    EXPECT_THAT(run_.Executed(), ElementsAre("1='1' 2='a'", "1='2' 2='b'", "1='3' 2='c'"));
  }
}

TEST_P(ResumePolicy, DeletesBeforeTheImportOnlyWhenItStartsAfresh) {
  run_.Set("Suppression", 1);
  run_.Go(GetParam().request);
  EXPECT_THAT(run_.source.LogLines("SQLExecDirect"), SizeIs(GetParam().resumes ? 0 : 1));
}

TEST_P(ResumePolicy, IsForetoldWithoutTouchingAnything) {
  ModuleCommun& module = run_.component.module();
  module.location = TasksKey("S1");
  TakeTask(module, OpenTask(module, "S1", "T1"));
  const auto outlook = LookAtResume(module);
  const ResumeCase& resume = GetParam();
  const bool could = resume.resumes || resume.request != 2;
  EXPECT_EQ(outlook.answer == ResumeAnswer::kResumes, could);
  EXPECT_EQ(outlook.chain.reached_path, run_.folder.path() + "CLIENTS.TRC");
  EXPECT_EQ(outlook.chain.reached, resume.trace == kOldTrace ? 2 : 0);
  EXPECT_EQ(run_.folder.Exists("CLIENTS.TRC"), resume.trace != "-");
  EXPECT_EQ(run_.folder.Exists("CLIENTS.LER"), resume.rejected != "-");
  EXPECT_THAT(run_.component.registry.writes(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Resume, ResumePolicy, testing::ValuesIn(kResumeCases),
                         [](const auto& tested) { return tested.param.name; });

}  // namespace
}  // namespace imptable
