#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "import/ImportLoop.h"
#include "tests/kit/ImportRun.h"
#include "tests/kit/SideFileLines.h"

namespace imptable {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

TEST(ErrorLimit, EndsTheImportAfterTheLineThatCrossesIt) {
  ImportRun run;
  run.Set("Erreurs", "2");
  run.Source({"1;a", "2;b", "3;c", "4;d", "5;e"});
  run.Driver("on SQLExecute from 1 return -1 diag 23000 1 \"refused\"");
  EXPECT_EQ(run.Go(), 3);
  EXPECT_THAT(run.Rejected(), ElementsAre("1;a", "2;b", "3;c"));
  EXPECT_THAT(run.Trace(), ElementsAre(Rejected(1), Rejected(2, 2), Rejected(3, 3)));
  EXPECT_THAT(run.Report(), Contains(" ----->    3 enreg(s) lu(s)"));
}

TEST(ErrorLimit, CountsParseFailuresAndRefusalsAlike) {
  ImportRun run;
  run.Set("Erreurs", "1");
  run.Source({"1;a;x", "2;b", "3;c", "4;d"});
  run.Driver("on SQLExecute 1 return -1 diag 23000 1 \"refused\"");
  EXPECT_EQ(run.Go(), 3);
  EXPECT_EQ(run.progress().read, 2);
  EXPECT_EQ(run.progress().lines[Outcome::kRejected], 2);
}

TEST(ErrorLimit, OfZeroEndsAtTheFirstErrorAndKeepsTheRowsBefore) {
  ImportRun run;
  run.Set("Erreurs", "0");
  run.Source({"1;a", "2;b;x", "3;c"});
  EXPECT_EQ(run.Go(), 3);
  EXPECT_EQ(run.progress().read, 2);
  EXPECT_EQ(run.progress().lines[Outcome::kInserted], 1);
}

TEST(ErrorLimit, IsNotCrossedByAsManyErrors) {
  ImportRun run;
  run.Set("Erreurs", "2");
  run.Source({"1;a;x", "2;b;x", "3;c"});
  EXPECT_EQ(run.Go(), 3);
  EXPECT_EQ(run.progress().read, 3);
}

TEST(ErrorLimit, IsAHundredUnlessTheTaskSaysOtherwise) {
  ImportRun run;
  run.Source(std::vector<std::string>(150, "1;a;x"));
  EXPECT_EQ(run.Go(), 3);
  EXPECT_EQ(run.progress().read, 101);
}

TEST(ErrorLimit, MayBeTheLargestNumberOfSixteenBits) {
  ImportRun run;
  run.Set("Erreurs", "32767");
  run.Source({"1;a"});
  EXPECT_EQ(run.Go(), 2);
}

TEST(ErrorLimit, BelowZeroIsRefusedLikeOneTooLargeBeforeAnythingIsTouched) {
  for (const char* limit : {"-1", "-32768", "-40000", "32768"}) {
    ImportRun run;
    run.Set("Erreurs", limit);
    run.Set("Suppression", 1);
    run.Source({"1;a", "2;b"});
    for (const char* file : {"CLIENTS.ERR", "CLIENTS.LER", "CLIENTS.TRC"}) {
      run.folder.Write(file, "of the last run\n");
    }
    EXPECT_EQ(run.Go(), 3) << limit;
    EXPECT_EQ(run.progress().read, 0) << limit;
    EXPECT_THAT(run.source.LogLines("SQLExecDirect"), IsEmpty()) << limit;
    EXPECT_THAT(run.Report(), Contains(HasSubstr(std::string("\"Erreurs\" = \"") + limit)));
    for (const char* file : {"CLIENTS.ERR", "CLIENTS.LER", "CLIENTS.TRC"}) {
      EXPECT_EQ(run.folder.Read(file), "of the last run\n") << limit << file;
    }
  }
}

TEST(ErrorLimit, BeyondSixteenBitsIsAFaultBeforeTheFirstLine) {
  ImportRun run;
  run.Set("Erreurs", "32768");
  run.Source({"1;a"});
  EXPECT_EQ(run.Go(), 3);
  EXPECT_THAT(run.Executed(), IsEmpty());
  const auto& lines = run.component.host.lines;
  ASSERT_THAT(lines, SizeIs(9));
  EXPECT_THAT(lines[5].text,
              StartsWith(" -->   Erreur lors du traitement - N° 6 ,Dépassement de capacité"));
  EXPECT_EQ(lines[5].kind, ReportKind::kError);
  EXPECT_EQ(lines[6].text, " ----->    0 enreg(s) lu(s)");
  EXPECT_TRUE(run.component.module().run.pre_deletion_failed);
  EXPECT_TRUE(run.component.module().run.error_reported);
}

TEST(IgnorableDuplicate, IsTracedAsDoneAndCountedAsNothing) {
  ImportRun run;
  run.Set("DupKey", 1);
  run.Set("CodErr", "2627");
  run.Set("Erreurs", "0");
  run.Source({"1;a", "1;b", "2;c"});
  run.Driver("on SQLExecute 2 return -1 diag 23000 2627 \"duplicate\"");
  EXPECT_EQ(run.Go(), 2);
  EXPECT_EQ(run.progress().lines[Outcome::kInserted], 2);
  EXPECT_EQ(run.progress().lines[Outcome::kRejected], 0);
  EXPECT_EQ(run.progress().lines[Outcome::kIgnored], 1);
  EXPECT_THAT(run.Errors(), IsEmpty());
  EXPECT_THAT(run.Report(), Contains("  -->   Traitement OK : 2 Enregistrement(s) copié(s)"));
}

TEST(IgnorableDuplicate, LeavesADoneLineInTheTrace) {
  ImportRun run;
  run.Set("DupKey", 1);
  run.Set("CodErr", " 2627 ");
  run.Source({"1;a", "1;b", "2;c;x"});
  run.Driver("on SQLExecute 2 return -1 diag 23000 2627 \"duplicate\"");
  EXPECT_EQ(run.Go(), 3);
  EXPECT_THAT(run.Trace(), ElementsAre(Done(1), Done(2), Rejected(3)));
  EXPECT_THAT(run.Rejected(), ElementsAre("2;c;x"));
}

TEST(IgnorableDuplicate, IsAnErrorWithAnotherCodeOrWithoutTheOption) {
  struct Case {
    std::int32_t option;
    const char* code;
  };
  for (const Case& each : {Case{1, "2601"}, {0, "2627"}}) {
    ImportRun run;
    run.Set("DupKey", each.option);
    run.Set("CodErr", each.code);
    run.Source({"1;a"});
    run.Driver("on SQLExecute 1 return -1 diag 23000 2627 \"duplicate\"");
    EXPECT_EQ(run.Go(), 3) << each.code;
    EXPECT_EQ(run.progress().lines[Outcome::kRejected], 1) << each.code;
    EXPECT_THAT(run.Errors(), ElementsAre(ErrorLine(1, 2627, "duplicate")));
  }
}

TEST(IgnorableDuplicate, IsFoundAmongSeveralDiagnostics) {
  ImportRun run;
  run.Set("DupKey", 1);
  run.Set("CodErr", "2627");
  run.Source({"1;a"});
  run.Driver("on SQLExecute 1 return -1 diag 23000 2627 \"duplicate\" diag 01000 3621 \"ended\"");
  EXPECT_EQ(run.Go(), 2);
  EXPECT_EQ(run.progress().lines[Outcome::kIgnored], 1);
  EXPECT_THAT(run.Errors(), IsEmpty());
}

TEST(IgnorableDuplicate, WithACodeThatIsNoNumberIsAFaultBeforeTheFirstLine) {
  ImportRun run;
  run.Set("DupKey", 1);
  run.Set("CodErr", "23000-2627");
  run.Source({"1;a"});
  EXPECT_EQ(run.Go(), 3);
  EXPECT_THAT(run.Executed(), IsEmpty());
  const auto& lines = run.component.host.lines;
  ASSERT_THAT(lines, SizeIs(9));
  EXPECT_THAT(lines[5].text, StartsWith(" -->   Erreur lors du traitement - N° 13 ,"));
  EXPECT_EQ(lines[5].kind, ReportKind::kError);
  EXPECT_EQ(lines[6].text, " ----->    0 enreg(s) lu(s)");
  EXPECT_EQ(lines[7].text, "  -->   Traitement OK : 0 Enregistrement(s) copié(s)");
}

TEST(IgnorableDuplicate, NeedsNoNumberWithoutTheOption) {
  ImportRun run;
  run.Set("CodErr", "nonsense");
  run.Source({"1;a"});
  EXPECT_EQ(run.Go(), 2);
}

}  // namespace
}  // namespace imptable
