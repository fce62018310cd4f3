#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/kit/ImportRun.h"
#include "tests/kit/SideFileLines.h"

namespace imptable {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// Text and kind of the report's lines from the mode's banner to its last one.
std::vector<std::pair<std::string, ReportKind>> ModeLines(const ImportRun& run) {
  std::vector<std::pair<std::string, ReportKind>> lines;
  for (std::size_t n = 4; n + 1 < run.component.host.lines.size(); ++n) {
    lines.emplace_back(run.component.host.lines[n].text, run.component.host.lines[n].kind);
  }
  return lines;
}

TEST(InsertMode, TracesEachLineAndKeepsTheRejectedOnes) {
  ImportRun run;
  run.Source({"1;a", "2;b", "3;c"});
  run.Driver("on SQLExecute 2 return -1 diag 23000 19 \"refused\"");
  EXPECT_EQ(run.Go(), 3);
  EXPECT_THAT(run.Executed(), ElementsAre("1='1' 2='a'", "1='2' 2='b'", "1='3' 2='c'"));
  EXPECT_THAT(run.Trace(), ElementsAre(Done(1), Rejected(2), Done(3, 1)));
  EXPECT_THAT(run.Rejected(), ElementsAre("2;b"));
  EXPECT_THAT(run.Errors(), ElementsAre(ErrorLine(2, 19, "refused")));
  EXPECT_THAT(
      run.Report(),
      ElementsAre(" --> Exécution du Traitement : T1",
                  " ... Connexion à la Source de Données : " + run.source.name(),
                  " ... Suppression des fichiers d'erreurs", " --> TRAITEMENT DE LA TABLE : CLIENT",
                  " -->   Mode INSERT", " ----->    3 enreg(s) lu(s)",
                  " ----->    1 erreur(s) détectée(s),consultez le fichier .ERR",
                  " ----->   2 Enregistrement(s) copié(s)",
                  " --------------- PROCEDURE TERMINEE ---------------"));
}

TEST(InsertMode, ReportsAnImportWithoutErrorsInTwoLines) {
  ImportRun run;
  run.Source({"1;a", "2;b"});
  EXPECT_EQ(run.Go(), 2);
  constexpr auto kInformation = ReportKind::kInformation;
  EXPECT_THAT(
      ModeLines(run),
      ElementsAre(std::pair(" -->   Mode INSERT", kInformation),
                  std::pair(" ----->    2 enreg(s) lu(s)", kInformation),
                  std::pair("  -->   Traitement OK : 2 Enregistrement(s) copié(s)", kInformation)));
  EXPECT_THAT(run.Errors(), IsEmpty()) << "there, and empty";
}

TEST(InsertMode, ReportsInTheHostsLanguage) {
  ImportRun run;
  run.component.registry.SetNumber("SOFTWARE\\KALDO\\Configuration", "Lang", kEnglishOffset);
  run.Source({"1;a;x", "2;b"});
  EXPECT_EQ(run.Go(), 3);
  constexpr auto kInformation = ReportKind::kInformation;
  EXPECT_THAT(
      ModeLines(run),
      ElementsAre(std::pair(" -->   INSERT mode", kInformation),
                  std::pair(" ----->    2 record(s) read", kInformation),
                  std::pair(" ----->    1 error(s) detected, refer to .ERR file", kInformation),
                  std::pair(" ----->   1 Record(s) copied", kInformation)));
  EXPECT_THAT(run.Errors(),
              ElementsAre("15/11/2006 08:30:00.... Line  1 Incorrect record format (presence of "
                          "\"\";\"\" in text fields)"));
}

TEST(InsertMode, CountsAParseFailureAndExecutesNothingForIt) {
  ImportRun run;
  run.Source({"1;a", "2;b;c", "3;d"});
  EXPECT_EQ(run.Go(), 3);
  EXPECT_THAT(run.Executed(), ElementsAre("1='1' 2='a'", "1='3' 2='d'"));
  EXPECT_THAT(run.Trace(), ElementsAre(Done(1), Rejected(2), Done(3, 1)));
  EXPECT_THAT(run.Rejected(), ElementsAre("2;b;c"));
  EXPECT_THAT(
      run.Errors(),
      ElementsAre("15/11/2006 08:30:00.... Ligne  2 Formatage de l'enregistrement incorrect "
                  "(présence de \"\";\"\" dans des champs Alpha)"));
  EXPECT_EQ(run.progress().lines[Outcome::kRejected], 1);
  EXPECT_EQ(run.progress().lines[Outcome::kInserted], 2);
}

TEST(InsertMode, NamesTheTasksDelimiterInAParseFailure) {
  ImportRun run;
  run.Set("DelimiteurFile", "|");
  run.Source({"1|a|b"});
  run.Go();
  EXPECT_THAT(
      run.Errors(),
      ElementsAre("15/11/2006 08:30:00.... Ligne  1 Formatage de l'enregistrement incorrect "
                  "(présence de \"\"|\"\" dans des champs Alpha)"));
}

TEST(InsertMode, WritesALineForEachDiagnosticButCountsTheLineOnce) {
  ImportRun run;
  run.Source({"1;a"});
  run.Driver("on SQLExecute 1 return -1 diag 23000 19 \"first\" diag 01000 -20 \"second\"");
  EXPECT_EQ(run.Go(), 3);
  EXPECT_THAT(run.Errors(), ElementsAre(ErrorLine(1, 19, "first"), ErrorLine(1, "(-20) second")));
  EXPECT_EQ(run.progress().lines[Outcome::kRejected], 1);
}

TEST(InsertMode, TakesSuccessWithInformationForInserted) {
  ImportRun run;
  run.Source({"1;a"});
  run.Driver("on SQLExecute 1 return 1 diag 01004 5 \"truncated\"");
  EXPECT_EQ(run.Go(), 2);
  EXPECT_EQ(run.progress().lines[Outcome::kInserted], 1);
  EXPECT_THAT(run.Errors(), IsEmpty());
}

TEST(InsertMode, ReadsNothingFromAnEmptyLineOfSeveralColumnsButNulls) {
  ImportRun run;
  run.Source({"", "1;a"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Executed(), ElementsAre("1=NULL 2=NULL", "1='1' 2='a'"));
}

TEST(InsertMode, TracesNothingForAnEmptyLineOfASingleColumn) {
  ImportRun run;
  run.Script("column NOM 12 VARCHAR 30 0 1\n");
  run.Driver("on SQLExecute 2 return -1 diag 23000 19 \"refused\"");
  run.Source({"a", "", "b", ""});
  EXPECT_EQ(run.Go(), 3);
  EXPECT_THAT(run.Trace(), ElementsAre(Done(1), Rejected(3)));
  EXPECT_THAT(run.Rejected(), ElementsAre("b"));
  EXPECT_EQ(run.progress().read, 4);
}

TEST(InsertMode, ReadsEachKindOfLineEndAndALastLineWithoutOne) {
  ImportRun run;
  run.folder.Write("CLIENTS.CSV",
                   "\xEF\xBB\xBF"
                   "1;a\r\n2;b\n3;c\r4;d");
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Executed(),
              ElementsAre("1='1' 2='a'", "1='2' 2='b'", "1='3' 2='c'", "1='4' 2='d'"));
}

TEST(InsertMode, ReadsAFileWithNothingButAMarkAsEmpty) {
  ImportRun run;
  run.folder.Write("CLIENTS.CSV", "\xEF\xBB\xBF");
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Report()[4], testing::EndsWith(" est vide"));
  EXPECT_THAT(run.Report()[5], testing::HasSubstr("PROCEDURE TERMINEE"));
}

TEST(InsertMode, FindsTheSourceByAliasOrByItsCompleteNameInAnyCase) {
  struct Case {
    const char *alias, *file;
    std::int32_t complete;
  };
  for (const Case& each : {Case{"CLIENTS", "CLIENTS.CSV", 0},
                           {"CLIENTS  ", "clients.csv", 0},
                           {"Clients", "CLIENTS.Csv", 0},
                           {"data.txt", "data.txt", 1},
                           {"data.txt ", "DATA.TXT", 1}}) {
    ImportRun run;
    run.Set("Alias", each.alias);
    run.Set("UseAlias", each.complete);
    run.folder.Write(each.file, "1;a\n");
    EXPECT_EQ(run.Go(), 2) << each.alias;
    EXPECT_THAT(run.Executed(), ElementsAre("1='1' 2='a'")) << each.alias;
  }
}

TEST(InsertMode, NamesSideFilesAfterTheCompleteName) {
  ImportRun run;
  run.Set("Alias", "data.txt");
  run.Set("UseAlias", 1);
  run.folder.Write("data.txt", "1;a;b\n");
  EXPECT_EQ(run.Go(), 3);
  EXPECT_THAT(run.Lines("data.txt.LER"), ElementsAre("1;a;b"));
  EXPECT_THAT(run.Lines("data.txt.TRC"), ElementsAre(Rejected(1)));
  EXPECT_THAT(run.Lines("data.txt.ERR"), SizeIs(1));
}

TEST(InsertMode, YieldsAfterEveryLine) {
  const auto yields = [](const std::vector<std::string>& lines) {
    ImportRun run;
    run.Source(lines);
    run.Go();
    return run.component.message_loop.yields();
  };
  const int one = yields({"1;a"});
  EXPECT_EQ(yields({"1;a", "2;b;c", "3;d"}), one + 2);
}

TEST(InsertMode, FinishesTheLineAndClosesEverythingWhenAskedToStop) {
  ImportRun run;
  run.Source({"1;a", "2;b", "3;c"});
  int line = 0;
  for (int yield = 1; yield < 100; ++yield) {
    run.component.message_loop.AtYield(yield, [&run, &line] {
      line = static_cast<int>(run.progress().read);
      if (line == 2) run.component.module().run.stop_requested = true;
    });
  }
  EXPECT_EQ(run.Go(), 3);
  EXPECT_THAT(run.Executed(), ElementsAre("1='1' 2='a'", "1='2' 2='b'"));
  EXPECT_THAT(run.Trace(), ElementsAre(Done(1), Done(2)));
  EXPECT_TRUE(run.component.module().run.interrupted);
  EXPECT_THAT(run.Report(), Contains(" ----->    2 enreg(s) lu(s)"));
  EXPECT_THAT(run.component.files.log(), Contains("close " + run.folder.path() + "CLIENTS.TRC"));
}

TEST(InsertMode, ShowsTheHourglassOnlyInThePointerMode) {
  for (const char* mode : {"P", "", "p", "PP", "X"}) {
    ImportRun run;
    run.component.module().pointer_mode = mode;
    run.Source({"1;a"});
    EXPECT_EQ(run.Go(), 2);
    const int expected = std::string_view(mode) == "P" ? 1 : 0;
    EXPECT_EQ(run.component.pointer.shown, expected) << mode;
    EXPECT_EQ(run.component.pointer.reset, expected) << mode;
  }
}

TEST(InsertMode, ResetsThePointerAfterAFaultToo) {
  ImportRun run;
  run.component.module().pointer_mode = "P";
  run.component.files.Fail(FileOperation::kOpenRead, 1, std::make_error_code(std::errc::io_error));
  run.Source({"1;a"});
  EXPECT_EQ(run.Go(), 3);
  EXPECT_EQ(run.component.pointer.shown, 1);
  EXPECT_EQ(run.component.pointer.reset, 1);
}

}  // namespace
}  // namespace imptable
