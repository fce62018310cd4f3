#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dialogs/testing/TaskDialogRun.h"
#include "platform/testing/PlainEncodings.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class TaskDialogChecks : public testing::Test {
 protected:
  std::string Warning(Message message) {
    return "Warn|" + run_.shown().caption + '|' + run_.module().MessageText(message);
  }

  /// Both buttons refuse in the same way, and write nothing.
  void ExpectRefused(Message message, int tab, const std::string& control) {
    SCOPED_TRACE(run_.module().MessageText(message));
    for (const bool by_apply : {false, true}) {
      run_.view.focused.clear();
      run_.dialog().OnTab(tab == 1 ? 0 : 1);
      by_apply ? run_.dialog().Apply() : run_.dialog().Confirm();
      EXPECT_THAT(run_.Boxes(), ElementsAre(Warning(message)));
      EXPECT_EQ(run_.shown().tab, tab);
      EXPECT_THAT(run_.view.focused, ElementsAre(control));
      EXPECT_THAT(run_.Changes(), IsEmpty());
      EXPECT_EQ(run_.view.hidden, 0);
    }
  }

  void ExpectAccepted() {
    run_.dialog().Apply();
    EXPECT_THAT(run_.Boxes(), IsEmpty());
    EXPECT_THAT(run_.Changes(), Not(IsEmpty()));
  }

  TaskDialogRun run_;
};

TEST_F(TaskDialogChecks, AcceptATaskWithAllThatIsAskedFor) {
  run_.OpenComplete();
  ExpectAccepted();
}

TEST_F(TaskDialogChecks, AskForANameOfANewTask) {
  ImpTablePresenter dialog(run_.services, run_.view, run_, 0, "", "S1");
  dialog.Load();
  dialog.Confirm();
  EXPECT_THAT(run_.Boxes(), ElementsAre(Warning(Message::kEnterTaskName)));
  EXPECT_THAT(run_.view.focused, ElementsAre("txtTache"));
  EXPECT_THAT(run_.Changes(), IsEmpty());
}

TEST_F(TaskDialogChecks, RefuseTheNameOfAnotherTaskWhileTheTaskIsNew) {
  run_.ports.registry.SetText(std::string(TaskDialogRun::kTasks) + "\\t1", "Login", "other");
  run_.OpenComplete();
  ExpectRefused(Message::kTaskExists, 0, "txtTache");
}

TEST_F(TaskDialogChecks, FindTheNameWithoutRegardToTheCaseOfAccentedLettersInAnyCodePage) {
  TaskDialogRun run(std::make_unique<Latin1TextEncoding>());
  // The registry of the tests folds names as UTF-8, so it takes the two spellings for two keys.
  run.ports.registry.SetText(std::string(TaskDialogRun::kTasks) + "\\\xC9T\xC9", "Login", "other");
  ImpTablePresenter dialog(run.services, run.view, run, 0, "\xE9t\xE9", "S1");
  dialog.Load();
  dialog.Confirm();
  EXPECT_THAT(run.Boxes(), ElementsAre("Warn|Importation Table|" +
                                       run.module().MessageText(Message::kTaskExists)));
}

TEST_F(TaskDialogChecks, AcceptTheNameOfTheTaskItself) {
  run_.Stored("Login", "sa");
  run_.OpenExisting();
  run_.dialog().OnText("Combo1", "SOURCE");
  run_.dialog().OnText("txtTable", "CLIENT");
  run_.dialog().OnText("txtAlias", "CLIENTS");
  ExpectAccepted();
}

TEST_F(TaskDialogChecks, AcceptTheNameAfterTheFirstApply) {
  run_.OpenComplete();
  ExpectAccepted();
  ExpectAccepted();
}

TEST_F(TaskDialogChecks, AskForADataSource) {
  run_.OpenComplete().OnText("Combo1", "");
  ExpectRefused(Message::kSelectDataSource, 0, "Combo1");
}

TEST_F(TaskDialogChecks, AskForAUser) {
  run_.OpenComplete().OnText("txtLogin", "");
  ExpectRefused(Message::kEnterUser, 0, "txtLogin");
}

TEST_F(TaskDialogChecks, AskWhetherAUserIsWantedWhereTheProgramSaysThatNoneMayBe) {
  run_.services.question_without_user = "Without?";
  run_.OpenComplete().OnText("txtLogin", "");
  run_.boxes.answer = false;
  run_.dialog().Confirm();
  EXPECT_THAT(run_.Boxes(), ElementsAre("Ask|Importation Table|Without?"));
  EXPECT_THAT(run_.Changes(), IsEmpty());
  EXPECT_EQ(run_.shown().tab, 0);
  EXPECT_THAT(run_.view.focused, ElementsAre("txtLogin"));
  run_.boxes.answer = true;
  run_.dialog().Confirm();
  EXPECT_THAT(run_.Changes(), testing::Contains("T1|Login = "));
}

TEST_F(TaskDialogChecks, AskForATable) {
  run_.OpenComplete().OnText("txtTable", "");
  ExpectRefused(Message::kChooseTable, 0, "txtTable");
}

TEST_F(TaskDialogChecks, AskForASourceFile) {
  for (const char* alias : {"", " ", " CLIENTS"}) {
    run_.OpenComplete().OnText("txtAlias", alias);
    ExpectRefused(Message::kEnterFile, 0, "txtAlias");
  }
}

TEST_F(TaskDialogChecks, AskForAnErrorCodeOfDuplicates) {
  run_.OpenComplete().OnCheck("chkDou", true);
  for (const char* code : {"", "12a", "a", " ", "99999999999", "inf"}) {
    run_.dialog().OnText("txtErr", code);
    ExpectRefused(Message::kEnterErrorCode, 2, "txtErr");
  }
  for (const char* code : {"12", "-803", " 2627 ", "@CODE", "@"}) {
    run_.dialog().OnText("txtErr", code);
    ExpectAccepted();
  }
}

TEST_F(TaskDialogChecks, AskForNoErrorCodeWhereDuplicatesAreErrors) {
  run_.OpenComplete().OnText("txtErr", "12a");
  ExpectAccepted();
}

TEST_F(TaskDialogChecks, AskForNoErrorCodeWhereAKeyedTaskWasStoredWithDuplicatesIgnored) {
  run_.Stored("Base Cible", "SOURCE");
  run_.Stored("Login", "sa");
  run_.Stored("Table", "CLIENT");
  run_.Stored("Alias", "CLIENTS");
  run_.Stored("Mode", 1);
  run_.Stored("Cle/Index", "CODE");
  run_.Stored("DupKey", 1);
  run_.OpenExisting();
  EXPECT_TRUE(run_.shown().chkDou);
  ExpectAccepted();
}

TEST_F(TaskDialogChecks, AskForAKeyInEveryModeButInsert) {
  ImpTablePresenter& dialog = run_.OpenComplete();
  for (const int mode : {1, 2, 3, 4}) {
    dialog.OnOption("optBCP", mode);
    for (const char* key : {"", " CODE"}) {
      dialog.OnText("txtCle", key);
      ExpectRefused(Message::kEnterKey, 0, "txtCle");
    }
    dialog.OnCheck("chkPrimKey", true);
    ExpectAccepted();
    dialog.OnCheck("chkPrimKey", false);
    dialog.OnText("txtCle", "CODE");
    ExpectAccepted();
  }
}

TEST_F(TaskDialogChecks, RefuseAColumnCountThatIsNone) {
  run_.OpenComplete();
  for (const char* count : {"12x", "-1", "99999", "32768"}) {
    run_.dialog().OnText("textNbCol", count);
    ExpectRefused(Message::kIncorrectValue, 1, "textNbCol");
  }
}

TEST_F(TaskDialogChecks, TakeAColumnCountThatWasNeverLeft) {
  run_.OpenComplete().OnText("textNbCol", " 3 ");
  run_.dialog().Apply();
  EXPECT_EQ(run_.shown().textNbCol, "3");
  EXPECT_EQ(run_.ports.registry.Number(TaskDialogRun::kTask, "NombreColonnes"), 3);
}

TEST_F(TaskDialogChecks, EndWithTheColumnsOfTheFile) {
  run_.OpenComplete().OnOption("optForm", 0);
  run_.dialog().OnSpin(true);
  run_.view.focused.clear();
  run_.dialog().Confirm();
  EXPECT_THAT(run_.Boxes(), ElementsAre(Warning(Message::kEnterTextLength) + '1'));
  EXPECT_EQ(run_.shown().tab, 3);
  EXPECT_THAT(run_.view.focused, ElementsAre("Grid1"));
  EXPECT_EQ(run_.shown().columns.selected_file_row, 0U);
  EXPECT_THAT(run_.Changes(), IsEmpty());
}

TEST_F(TaskDialogChecks, EndWithTheOriginsOfTheTablesColumns) {
  run_.Stored("FormatFile", 1);
  run_.Stored("Param", 1);
  run_.Stored("Login", "sa");
  run_.Stored("Alias", "CLIENTS");
  run_.Stored("Base Cible", "@SOURCE");
  run_.ports.host.variables["SOURCE"] = run_.source.name();
  run_.Stored("Table", "CLIENT");
  run_.StoredIn("Champs", {"CODE,INTEGER,Null", "NOM,VARCHAR,"});
  run_.OpenExisting();
  run_.dialog().Confirm();
  EXPECT_THAT(run_.Boxes(), ElementsAre(Warning(Message::kEnterOrigin) + "NOM"));
  EXPECT_EQ(run_.shown().tab, 3);
  EXPECT_THAT(run_.view.focused, ElementsAre("Grid2"));
  EXPECT_THAT(run_.Changes(), IsEmpty());
}

TEST_F(TaskDialogChecks, ComeInTheirOrder) {
  struct Step {
    Message message;
    std::function<void(ImpTablePresenter&)> mend;
  };
  run_.ports.registry.SetText(TaskDialogRun::kTask, "Login", "other");
  run_.OpenNew();
  run_.dialog().OnCheck("chkDou", true);
  run_.dialog().OnText("textNbCol", "x");
  const std::vector<Step> steps{
      {Message::kTaskExists,
       [&](ImpTablePresenter&) {
         run_.ports.registry.DeleteKey({kHkeyLocalMachine, TaskDialogRun::kTask});
       }},
      {Message::kSelectDataSource,
       [](ImpTablePresenter& dialog) { dialog.OnText("Combo1", "SOURCE"); }},
      {Message::kEnterUser, [](ImpTablePresenter& dialog) { dialog.OnText("txtLogin", "sa"); }},
      {Message::kChooseTable,
       [](ImpTablePresenter& dialog) { dialog.OnText("txtTable", "CLIENT"); }},
      {Message::kEnterFile,
       [](ImpTablePresenter& dialog) { dialog.OnText("txtAlias", "CLIENTS"); }},
      {Message::kEnterErrorCode, [](ImpTablePresenter& dialog) { dialog.OnOption("optBCP", 1); }},
      {Message::kEnterKey, [](ImpTablePresenter& dialog) { dialog.OnText("txtCle", "CODE"); }},
      {Message::kIncorrectValue,
       [](ImpTablePresenter& dialog) { dialog.OnText("textNbCol", "1"); }},
  };
  for (const Step& step : steps) {
    run_.dialog().Apply();
    EXPECT_THAT(run_.Boxes(), ElementsAre(Warning(step.message)));
    step.mend(run_.dialog());
  }
  ExpectAccepted();
}

TEST_F(TaskDialogChecks, SpeakTheLanguageAndCarryTheCaptionOfTheDialog) {
  run_.module().language_offset = kEnglishOffset;
  run_.OpenNew();
  run_.dialog().Apply();
  EXPECT_THAT(run_.Boxes(), ElementsAre("Warn|Import Table|Select data source"));
}

}  // namespace
}  // namespace imptable
