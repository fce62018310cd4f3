#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/kit/ImportRun.h"
#include "tests/kit/SideFileLines.h"
#include "tests/kit/TextFile.h"

namespace imptable {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

constexpr std::int16_t kResume = 2;

/// A task whose first run inserted lines 1 and 3 and rejected line 2.
class ResumedImport : public testing::Test {
 protected:
  ResumedImport() {
    run_.Source({"1;a", "2;b;x", "3;c"});
    EXPECT_EQ(run_.Go(), 3);
  }

  ImportRun run_;
};

/// Writes the files that an earlier run has left.
void Left(ImportRun& run, const std::string& trace, const std::string& rejected) {
  run.folder.Write("CLIENTS.TRC", trace);
  run.folder.Write("CLIENTS.LER", rejected);
}

TEST_F(ResumedImport, SkipsTheLinesDoneAndTakesTheMendedOne) {
  run_.folder.Write("CLIENTS.LER", "2;mended\n");
  EXPECT_EQ(run_.Go(kResume), 2);
  EXPECT_THAT(run_.Executed(), ElementsAre("1='2' 2='mended'"));
  EXPECT_EQ(run_.progress().read, 3);
  EXPECT_EQ(run_.progress().lines[Outcome::kSkipped], 2);
  EXPECT_EQ(run_.progress().lines[Outcome::kInserted], 1);
  EXPECT_THAT(run_.Report(), Contains(" ----->    3 enreg(s) lu(s)"));
  EXPECT_THAT(run_.Report(), Contains("  -->   Traitement OK : 1 Enregistrement(s) copié(s)"));
}

TEST_F(ResumedImport, CopiesTheFilesOfTheEarlierRunBeforeItWritesItsOwn) {
  run_.Go(kResume);
  EXPECT_THAT(run_.Lines("CLIENTS.LEB"), ElementsAre("2;b;x"));
  EXPECT_THAT(run_.Lines("CLIENTS.TRB"), ElementsAre(Done(1), Rejected(2), Done(3, 1)));
}

TEST_F(ResumedImport, KeepsALineThatIsRejectedAgain) {
  run_.folder.Write("CLIENTS.LER", "2;still;bad\n");
  EXPECT_EQ(run_.Go(kResume), 3);
  EXPECT_THAT(run_.Executed(), IsEmpty());
  EXPECT_THAT(run_.Rejected(), ElementsAre("2;still;bad"));
  EXPECT_THAT(run_.Trace(), ElementsAre(Rejected(2)));
  EXPECT_THAT(run_.Errors(), ElementsAre(StartsWith(ErrorLine(2, ""))));
}

TEST_F(ResumedImport, CountsItsOwnErrorsFromZero) {
  run_.Set("Erreurs", "0");
  run_.Go(kResume);
  EXPECT_EQ(run_.progress().read, 2) << "the line rejected again is the last one";
  EXPECT_EQ(run_.progress().lines[Outcome::kRejected], 1);
}

TEST_F(ResumedImport, TruncatesTheErrorFile) {
  run_.folder.Write("CLIENTS.LER", "2;mended\n");
  run_.Go(kResume);
  EXPECT_THAT(run_.Errors(), IsEmpty());
}

TEST_F(ResumedImport, StartsAfreshWhenARunDoesNotAskForAResume) {
  run_.folder.Write("CLIENTS.LER", "2;mended\n");
  EXPECT_EQ(run_.Go(1), 3);
  EXPECT_THAT(run_.Executed(), ElementsAre("1='1' 2='a'", "1='3' 2='c'"));
  EXPECT_THAT(run_.Lines("CLIENTS.LEB"), ElementsAre("<none>"));
  EXPECT_THAT(run_.Lines("CLIENTS.TRB"), ElementsAre("<none>"));
}

TEST_F(ResumedImport, ReplacesTheCopiesOfAnEarlierResume) {
  run_.folder.Write("CLIENTS.LEB", "old copy\nof several lines\nlonger than the new one\n");
  run_.folder.Write("CLIENTS.TRB", std::string(500, 'x'));
  run_.Go(kResume);
  EXPECT_THAT(run_.Lines("CLIENTS.LEB"), ElementsAre("2;b;x"));
  EXPECT_THAT(run_.Lines("CLIENTS.TRB"), SizeIs(3));
}

TEST(InsertResume, GoesOnWhereALimitEndedTheEarlierRun) {
  ImportRun run;
  run.Set("Erreurs", "0");
  run.Source({"1;a", "2;b;x", "3;c", "4;d"});
  EXPECT_EQ(run.Go(), 3);
  EXPECT_EQ(run.progress().read, 2);
  run.folder.Write("CLIENTS.LER", "2;b\n");
  EXPECT_EQ(run.Go(kResume), 2);
  EXPECT_THAT(run.Executed(), ElementsAre("1='2' 2='b'", "1='3' 2='c'", "1='4' 2='d'"));
}

TEST(InsertResume, CountsATornLastTraceLineAsAbsent) {
  for (const char* torn : {"0", "00000003", "000000031", "00000003000000001"}) {
    ImportRun run;
    run.Source({"1;a", "2;b", "3;c"});
    Left(run, std::string("00000001000000000\n00000002100000001\n") + torn, "2;m\n");
    EXPECT_EQ(run.Go(kResume), 2) << torn;
    EXPECT_THAT(run.Executed(), ElementsAre("1='2' 2='m'", "1='3' 2='c'")) << torn;
  }
}

TEST(InsertResume, ReadsARejectedLineWhoseTraceNeverCameFromTheSource) {
  ImportRun run;
  run.Source({"1;a", "2;b", "3;c"});
  Left(run, "00000001100000001\n", "1;m\n2;rejected untraced\n");
  EXPECT_EQ(run.Go(kResume), 2);
  EXPECT_THAT(run.Executed(), ElementsAre("1='1' 2='m'", "1='2' 2='b'", "1='3' 2='c'"));
}

TEST(InsertResume, TakesNumbersThatTheTracePassesOverForDone) {
  ImportRun run;
  run.Source({"1;a", "2;b", "3;c", "4;d", "5;e", "6;f"});
  Left(run, "00000002100000001\n00000005100000002\n", "2;m\n5;n\n");
  EXPECT_EQ(run.Go(kResume), 2);
  EXPECT_THAT(run.Executed(), ElementsAre("1='2' 2='m'", "1='5' 2='n'", "1='6' 2='f'"));
  EXPECT_EQ(run.progress().lines[Outcome::kSkipped], 3);
}

TEST(InsertResume, RefusesRejectedLinesThatAreFewerThanTheTraceSays) {
  ImportRun run;
  run.Source({"1;a", "2;b", "3;c"});
  Left(run, "00000001100000001\n00000002100000002\n00000003100000003\n", "1;m\n");
  EXPECT_EQ(run.Go(kResume), 1);
  EXPECT_THAT(run.Executed(), IsEmpty());
  EXPECT_EQ(run.folder.Read("CLIENTS.LER"), "1;m\n");
  EXPECT_EQ(run.Report().back(),
            " -->   Erreur lors du traitement - N° 321 ,Format de fichier incorrect : " +
                run.folder.path() + "CLIENTS.LER, 1; " + run.folder.path() +
                "CLIENTS.TRC, 3 : ces nombres de lignes devraient être égaux : ni ajouter ni "
                "enlever de ligne rejetée");
}

TEST(InsertResume, LeavesTheEarlierFilesAloneWhenTheirTraceIsDamaged) {
  for (const std::string damaged : {"0000000x100000001", "rejected by hand", "00000002200000001"}) {
    ImportRun run;
    run.Source({"1;a", "2;b", "3;c"});
    const std::string trace = "00000001000000000\n" + damaged + "\n00000003100000002\n";
    Left(run, trace, "2;m\n3;n\n");
    EXPECT_EQ(run.Go(kResume), 1);
    EXPECT_THAT(run.Executed(), IsEmpty());
    EXPECT_EQ(run.folder.Read("CLIENTS.TRC"), trace);
    EXPECT_EQ(run.folder.Read("CLIENTS.LER"), "2;m\n3;n\n");
    const auto& lines = run.component.host.lines;
    ASSERT_THAT(lines, SizeIs(4));
    EXPECT_EQ(lines[3].text,
              " -->   Erreur lors du traitement - N° 13 ,Incompatibilité de type : " +
                  run.folder.path() + "CLIENTS.TRC, 2");
    EXPECT_EQ(lines[3].kind, ReportKind::kError);
  }
}

TEST(InsertResume, FindsTheEarlierFilesInAnyCase) {
  ImportRun run;
  run.Source({"1;a", "2;b"});
  run.folder.Write("clients.trc", TextFile({Done(1), Rejected(2)}));
  run.folder.Write("Clients.Ler", TextFile({"2;m"}));
  run.folder.Write("clients.leb", "old\n");
  run.folder.Write("clients.trb", "old\n");
  run.Driver("on SQLExecute 1 return -1 diag 23000 1 \"refused\"");
  EXPECT_EQ(run.Go(kResume), 3);
  EXPECT_THAT(run.Executed(), ElementsAre("1='2' 2='m'"));
  EXPECT_THAT(run.Lines("Clients.Ler"), ElementsAre("2;m"));
  EXPECT_THAT(run.Lines("clients.trc"), ElementsAre(Rejected(2)));
  EXPECT_THAT(run.FileNames(),
              ElementsAre("CLIENTS.CSV", "CLIENTS.ERR", "CLIENTS.LEB", "CLIENTS.REP", "CLIENTS.TRB",
                          "Clients.Ler", "clients.trc"))
      << "one trace, not two that differ in case; the old copies are deleted";
  EXPECT_THAT(run.Lines("CLIENTS.LEB"), ElementsAre("2;m"));
}

TEST(InsertResume, ReadsCopiesThatAnEditorGaveAMarkAndOtherLineEnds) {
  ImportRun run;
  run.Source({"1;a", "2;b"});
  Left(run, "00000001100000001\r\n00000002100000002\r\n",
       "\xEF\xBB\xBF"
       "1;m\r\n2;n");
  EXPECT_EQ(run.Go(kResume), 2);
  EXPECT_THAT(run.Executed(), ElementsAre("1='1' 2='m'", "1='2' 2='n'"));
}

TEST(InsertResume, NeedsBothFilesWithSomethingInThemAndTheOption) {
  struct Case {
    const char *trace, *rejected;
    std::int32_t option;
  };
  for (const Case& each : {Case{"", "1;m\n", 1},
                           {"00000001100000001\n", "", 1},
                           {"00000001100000001\n", "1;m\n", 0}}) {
    ImportRun run;
    run.Set("RecErreurs", each.option);
    run.Source({"1;a"});
    Left(run, each.trace, each.rejected);
    EXPECT_EQ(run.Go(kResume), 2);
    EXPECT_THAT(run.Executed(), ElementsAre("1='1' 2='a'")) << each.trace << each.rejected;
  }
}

TEST(InsertResume, CopiesRejectedLinesOfAnyLength) {
  ImportRun run;
  run.Source({"1;a", "2;b"});
  const std::string longest(300'000, 'z');
  Left(run, "00000001100000001\n", TextFile({"1;" + longest}));
  run.Driver("on SQLExecute 1 return -1 diag 23000 1 \"refused\"");
  EXPECT_EQ(run.Go(kResume), 3);
  EXPECT_TRUE(run.folder.Read("CLIENTS.LEB") == TextFile({"1;" + longest}));
  EXPECT_TRUE(run.folder.Read("CLIENTS.LER") == TextFile({"1;" + longest}));
}

}  // namespace
}  // namespace imptable
