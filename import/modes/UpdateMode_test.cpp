#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/kit/KeyedRun.h"
#include "tests/kit/SideFileLines.h"

namespace imptable {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr std::string_view kReportLineEnd = "\r\n";  // on every system

/// The lines that the component itself appended to the report, without their kind and time.
std::vector<std::string> OwnLines(const KeyedRun& run) {
  std::vector<std::string> texts;
  for (const std::string& line : run.Lines("report.txt", kReportLineEnd)) {
    if (line == "<none>") return {};
    texts.push_back(line.substr(line.find("08:30:00") + 9));
  }
  return texts;
}

TEST(UpdateMode, CountsTheLinesThatChangedARow) {
  KeyedRun run(kByUpdate);
  run.Driver("rowcount where 3 = \"2\" = 0");
  run.Source({"1;a", "2;b", "3;c"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_EQ(run.ModeLines(), (KeyedRun::KindLines{Information(" -->   Mode UPDATE"),
                                                  Information(" ----->    3 enreg(s) lu(s)")}));
  EXPECT_THAT(OwnLines(run),
              ElementsAre("  -->   Traitement OK :  2 Enregistrement(s) modifié(s)"));
  EXPECT_EQ(run.progress().lines[Outcome::kModified], 2);
  EXPECT_EQ(run.progress().lines[Outcome::kRejected], 0);
  EXPECT_THAT(run.Errors(), IsEmpty()) << "a key that matches no row is no error";
}

TEST(UpdateMode, WritesItsSuccessLineAsTheOnlyOneByTheComponentItself) {
  class Form : public HostForm {
   public:
    std::string Text() const override { return text; }
    void SetText(const std::string& shown) override { text = shown; }
    std::int32_t Tag() const override { return 0; }
    void SetTag(std::int32_t) override {}
    std::string text;
  };
  class Button : public HostDisplay {
   public:
    HostForm* wForm() override { return &form; }
    Form form;
  };
  KeyedRun run(kByUpdate);
  Button button;
  run.Source({"1;a"});
  run.GoBy([&button](ImpTable& task) {
    task.Bouton = &button;
    task.Run(1);
  });
  EXPECT_THAT(run.Report(), Not(Contains(HasSubstr("Traitement OK"))));
  EXPECT_THAT(run.Lines("report.txt", kReportLineEnd),
              ElementsAre("15/11/2006 08:30:00   -->   Traitement OK :  1 Enregistrement(s) "
                          "modifié(s)"));
  EXPECT_THAT(button.form.text, HasSubstr("Traitement OK :  1 Enregistrement(s) modifié(s)"));
}

TEST(UpdateMode, WritesItsSuccessLineAsInformation) {
  KeyedRun run(kByUpdate);
  run.Source({"1;a"});
  run.GoBy([&run](ImpTable& task) {
    task.SetReportFilePath(run.folder.path() + "report.htm");
    task.Run(1);
  });
  EXPECT_THAT(run.Lines("report.htm", kReportLineEnd),
              ElementsAre("<strong>15/11/2006 08:30:00   -->   Traitement OK :  1 "
                          "Enregistrement(s) modifié(s)</strong><br>"));
}

TEST(UpdateMode, ReportsItsErrorsThroughTheHostOnly) {
  KeyedRun run(kByUpdate);
  run.Driver("on SQLExecute 2 return -1 diag 22018 5 \"no number\"");
  run.Source({"1;a", "2;b", "3;c", "4;d;e"});
  EXPECT_EQ(run.Go(), 3);
  EXPECT_EQ(run.ModeLines(),
            (KeyedRun::KindLines{
                Information(" -->   Mode UPDATE"), Information(" ----->    4 enreg(s) lu(s)"),
                Information(" ----->    2 erreur(s) détectée(s),consultez le fichier .ERR"),
                Information(" ----->    2 Enregistrement(s) modifié(s)")}));
  EXPECT_THAT(OwnLines(run), IsEmpty());
  EXPECT_THAT(run.Rejected(), ElementsAre("2;b", "4;d;e"));
  EXPECT_THAT(run.Trace(), ElementsAre(Done(1), Rejected(2), Done(3, 1), Rejected(4, 2)));
  EXPECT_THAT(run.Errors(),
              ElementsAre(ErrorLine(2, 5, "no number"),
                          HasSubstr(".... Ligne  4 Formatage de l'enregistrement incorrect")));
}

TEST(UpdateMode, ReportsInEnglish) {
  KeyedRun run(kByUpdate);
  run.component.registry.SetNumber("SOFTWARE\\KALDO\\Configuration", "Lang", kEnglishOffset);
  run.Source({"1;a", "2;b;c"});
  run.Go();
  EXPECT_EQ(run.ModeLines(),
            (KeyedRun::KindLines{Information(" -->   UPDATE mode"),
                                 Information(" ----->    2 record(s) read"),
                                 Information(" ----->    1 error(s) detected, refer to .ERR file"),
                                 Information(" ----->    1 Record(s) edited")}));
  run.Source({"1;a"});
  run.Go();
  EXPECT_THAT(OwnLines(run), ElementsAre("  -->   Process OK :  1 Record(s) edited"));
}

TEST(UpdateMode, EndsWithSuccessWhenACountAloneIsRefused) {
  KeyedRun run(kByUpdate);
  run.Driver("on SQLRowCount 1 return -1 diag S1000 7 \"no count\"");
  run.Source({"1;a", "2;b"});
  EXPECT_EQ(run.Go(), 3);
  EXPECT_THAT(OwnLines(run),
              ElementsAre("  -->   Traitement OK :  1 Enregistrement(s) modifié(s)"));
}

TEST(UpdateMode, KeepsNoResumeFilesWhenTheTaskWantsNone) {
  KeyedRun run(kByUpdate);
  run.Set("RecErreurs", 0);
  run.Driver("on SQLExecute 1 return -1 diag S1000 7 \"no\"");
  run.Source({"1;a", "2;b"});
  EXPECT_EQ(run.Go(), 3);
  EXPECT_THAT(run.Trace(), ElementsAre("<none>"));
  EXPECT_THAT(run.Rejected(), ElementsAre("<none>"));
  EXPECT_EQ(run.progress().lines[Outcome::kModified], 1);
}

TEST(UpdateMode, FindsTheSourceByItsCompleteName) {
  KeyedRun run(kByUpdate);
  run.Set("Alias", "data.txt");
  run.Set("UseAlias", 1);
  run.folder.Write("data.txt", "1;a\n");
  EXPECT_EQ(run.Go(), 2);
  EXPECT_EQ(run.progress().lines[Outcome::kModified], 1);
}

TEST(UpdateMode, GivesTheKeyThatTheFileFeedsWhereverItStands) {
  KeyedRun run(kByUpdate);
  run.Assign({"CODE,INTEGER,(Col)2", "NOM,VARCHAR,(Col)1"});
  run.Source({"a;7"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Executed(), ElementsAre("1='7' 2='a' 3='7'"));
}

TEST(UpdateMode, LooksForAConstantKeyOfEveryLine) {
  KeyedRun run(kByUpdate);
  run.Assign({"CODE,INTEGER,9", "NOM,VARCHAR,(Col)1"});
  run.Source({"a", "b"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_THAT(run.Executed(), ElementsAre("1='9' 2='a' 3='9'", "1='9' 2='b' 3='9'"));
}

}  // namespace
}  // namespace imptable
