#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dialogs/testing/TaskDialogRun.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class TaskDialogRules : public testing::Test {
 protected:
  bool Enabled(std::string_view control) const { return run_.view.IsEnabled(control); }

  /// True when the key field can be used; its button and its label must then be usable, too.
  bool KeyEnabled() const {
    const bool enabled = Enabled("txtCle");
    EXPECT_EQ(Enabled("cmdCle"), enabled);
    EXPECT_EQ(Enabled("Label5"), enabled);
    return enabled;
  }

  /// Writes the source file and names it in the dialog's fields.
  void Source(const std::string& bytes) {
    run_.folder.Write("CLIENTS.csv", bytes);
    run_.dialog().OnText("txtRep", run_.folder.path());
    run_.dialog().OnText("txtAlias", "CLIENTS");
  }

  TaskDialogRun run_;
};

TEST_F(TaskDialogRules, GiveAKeyToEveryModeButInsert) {
  ImpTablePresenter& dialog = run_.OpenNew();
  for (const int mode : {1, 2, 3, 4}) {
    dialog.OnOption("optBCP", 0);
    EXPECT_FALSE(KeyEnabled()) << mode;
    EXPECT_FALSE(Enabled("chkPrimKey")) << mode;
    EXPECT_TRUE(Enabled("chkDou")) << mode;
    EXPECT_TRUE(Enabled("txtErr")) << mode;
    dialog.OnOption("optBCP", mode);
    EXPECT_EQ(run_.shown().optBCP, mode);
    EXPECT_TRUE(KeyEnabled()) << mode;
    EXPECT_TRUE(Enabled("chkPrimKey")) << mode;
    EXPECT_FALSE(Enabled("chkDou")) << mode;
    EXPECT_FALSE(Enabled("txtErr")) << mode;
  }
}

TEST_F(TaskDialogRules, EmptyTheDuplicateHandlingWhenTheModeIsNoLongerInsert) {
  ImpTablePresenter& dialog = run_.OpenNew();
  dialog.OnCheck("chkDou", true);
  dialog.OnText("txtErr", "2627");
  dialog.OnOption("optBCP", 1);
  EXPECT_FALSE(run_.shown().chkDou);
  EXPECT_EQ(run_.shown().txtErr, "");
  dialog.OnOption("optBCP", 0);
  EXPECT_FALSE(run_.shown().chkDou);
  EXPECT_EQ(run_.shown().txtErr, "");
}

TEST_F(TaskDialogRules, EmptyTheKeyWhenTheModeIsInsertAgain) {
  ImpTablePresenter& dialog = run_.OpenNew();
  dialog.OnOption("optBCP", 1);
  dialog.OnText("txtCle", "CODE");
  dialog.OnCheck("chkPrimKey", true);
  dialog.OnOption("optBCP", 0);
  EXPECT_EQ(run_.shown().txtCle, "");
  EXPECT_FALSE(run_.shown().chkPrimKey);
  EXPECT_FALSE(KeyEnabled());
}

TEST_F(TaskDialogRules, ClearThePrimaryKeyButKeepTheKeyBetweenTwoKeyedModes) {
  ImpTablePresenter& dialog = run_.OpenNew();
  dialog.OnOption("optBCP", 1);
  dialog.OnText("txtCle", "CODE");
  dialog.OnCheck("chkPrimKey", true);
  dialog.OnOption("optBCP", 4);
  EXPECT_EQ(run_.shown().txtCle, "CODE");
  EXPECT_FALSE(run_.shown().chkPrimKey);
  EXPECT_TRUE(KeyEnabled());
}

TEST_F(TaskDialogRules, ChangeNothingWhenTheSelectedModeIsClickedAgain) {
  ImpTablePresenter& dialog = run_.OpenNew();
  dialog.OnOption("optBCP", 1);
  dialog.OnCheck("chkPrimKey", true);
  dialog.OnOption("optBCP", 1);
  EXPECT_TRUE(run_.shown().chkPrimKey);
}

TEST_F(TaskDialogRules, LockTheKeyWhileThePrimaryKeyIsUsed) {
  ImpTablePresenter& dialog = run_.OpenNew();
  dialog.OnOption("optBCP", 1);
  dialog.OnText("txtCle", "CODE");
  dialog.OnCheck("chkPrimKey", true);
  EXPECT_FALSE(KeyEnabled());
  EXPECT_EQ(run_.shown().txtCle, "CODE");
  dialog.OnCheck("chkPrimKey", false);
  EXPECT_TRUE(KeyEnabled());
}

TEST_F(TaskDialogRules, IgnoreAClickOnABoxThatIsDisabled) {
  ImpTablePresenter& dialog = run_.OpenNew();
  dialog.OnCheck("chkPrimKey", true);
  EXPECT_FALSE(run_.shown().chkPrimKey);
}

TEST_F(TaskDialogRules, OfferTheSeparatorForADelimitedFileAndLengthsForAFixedOne) {
  ImpTablePresenter& dialog = run_.OpenNew();
  dialog.OnOption("optForm", 0);
  EXPECT_FALSE(Enabled("txtDelimiteurFile"));
  EXPECT_FALSE(Enabled("Label7"));
  EXPECT_THAT(run_.shown().columns.file_header, SizeIs(4));
  dialog.OnSpin(true);
  EXPECT_TRUE(dialog.columns().ClickFileRow(0).length_enabled);
  dialog.OnOption("optForm", 1);
  EXPECT_TRUE(Enabled("txtDelimiteurFile"));
  EXPECT_TRUE(Enabled("Label7"));
  EXPECT_THAT(run_.shown().columns.file_header, SizeIs(3));
  EXPECT_FALSE(dialog.columns().ClickFileRow(0).length_enabled);
}

TEST_F(TaskDialogRules, CountTheColumnsAgainForEitherFileFormat) {
  ImpTablePresenter& dialog = run_.OpenNew();
  Source("a;b;;c\n");
  const std::string four = "Inform|Importation Table|Le fichier contient 4 colonne(s)";
  dialog.OnOption("optForm", 0);
  EXPECT_THAT(run_.Boxes(), ElementsAre(four));
  EXPECT_EQ(run_.shown().textNbCol, "4");
  EXPECT_THAT(run_.shown().columns.file_rows, SizeIs(4));
  dialog.OnOption("optForm", 1);
  EXPECT_THAT(run_.Boxes(), ElementsAre(four));
  dialog.OnOption("optForm", 1);
  EXPECT_THAT(run_.Boxes(), IsEmpty());
}

TEST_F(TaskDialogRules, NameTheFileByItsOption) {
  ImpTablePresenter& dialog = run_.OpenNew();
  EXPECT_EQ(run_.view.Caption("Label2"), "Alias");
  dialog.OnOption("OptCsv", 1);
  EXPECT_EQ(run_.shown().OptCsv, 1);
  EXPECT_EQ(run_.view.Caption("Label2"), "Fichier");
  dialog.OnOption("OptCsv", 0);
  EXPECT_EQ(run_.view.Caption("Label2"), "Alias");
}

TEST_F(TaskDialogRules, PutTheSeparatorBackWhenItIsLeftEmpty) {
  ImpTablePresenter& dialog = run_.OpenNew();
  Source("a;b\n");
  dialog.OnText("txtDelimiteurFile", "");
  dialog.OnLeave("txtDelimiteurFile");
  EXPECT_EQ(run_.shown().txtDelimiteurFile, ";");
  EXPECT_THAT(run_.Boxes(), IsEmpty());  // ";" was the separator before
}

TEST_F(TaskDialogRules, CountTheColumnsWhenAnotherSeparatorIsLeft) {
  ImpTablePresenter& dialog = run_.OpenNew();
  Source("a,b,c;d\n");
  dialog.OnText("txtDelimiteurFile", ",");
  EXPECT_THAT(run_.Boxes(), IsEmpty());
  dialog.OnLeave("txtDelimiteurFile");
  EXPECT_THAT(run_.Boxes(), SizeIs(1));
  EXPECT_EQ(run_.shown().textNbCol, "3");
  dialog.OnLeave("txtDelimiteurFile");
  EXPECT_THAT(run_.Boxes(), IsEmpty());
  dialog.OnText("txtDelimiteurFile", "");
  dialog.OnLeave("txtDelimiteurFile");
  EXPECT_EQ(run_.shown().txtDelimiteurFile, ";");
  EXPECT_THAT(run_.Boxes(), SizeIs(1));
  EXPECT_EQ(run_.shown().textNbCol, "2");
}

TEST_F(TaskDialogRules, CompareASeparatorWithTheStoredOne) {
  run_.Stored("FormatFile", 1);
  run_.Stored("DelimiteurFile", ",");
  ImpTablePresenter& dialog = run_.OpenExisting();
  Source("a,b\n");
  dialog.OnLeave("txtDelimiteurFile");
  EXPECT_THAT(run_.Boxes(), IsEmpty());
}

TEST_F(TaskDialogRules, ReadTheFirstLineAtEachChangeOfTabWithoutTouchingTheColumns) {
  ImpTablePresenter& dialog = run_.OpenNew();
  dialog.OnTab(3);
  EXPECT_EQ(run_.shown().tab, 3);
  EXPECT_EQ(run_.shown().columns.first_line, "");
  Source("a;b;c\nd;e;f\n");
  dialog.OnTab(0);
  EXPECT_EQ(run_.shown().columns.first_line, "a;b;c");
  EXPECT_EQ(run_.shown().textNbCol, "0");
  EXPECT_THAT(run_.Boxes(), IsEmpty());
}

TEST_F(TaskDialogRules, NeverBringATabToTheFrontThatIsSwitchedOff) {
  ImpTablePresenter& dialog = run_.OpenNew();
  for (const int tab : {4, 5, 6, -1}) {
    dialog.OnTab(tab);
    EXPECT_EQ(run_.shown().tab, 0) << tab;
  }
}

TEST_F(TaskDialogRules, AddAndRemoveNumberedColumnsByTheSpinner) {
  ImpTablePresenter& dialog = run_.OpenNew();
  dialog.OnSpin(true);
  dialog.OnSpin(true);
  EXPECT_EQ(run_.shown().textNbCol, "2");
  ASSERT_THAT(run_.shown().columns.file_rows, SizeIs(2));
  EXPECT_EQ(run_.shown().columns.file_rows[1].number, "2");
  for (int step = 0; step < 3; ++step) dialog.OnSpin(false);
  EXPECT_EQ(run_.shown().textNbCol, "0");
  EXPECT_THAT(run_.shown().columns.file_rows, IsEmpty());
}

TEST_F(TaskDialogRules, NeverSpinBeyondWhatATaskCanStore) {
  ImpTablePresenter& dialog = run_.OpenNew();
  dialog.OnText("textNbCol", "32766");
  dialog.OnSpin(true);
  dialog.OnSpin(true);
  EXPECT_EQ(run_.shown().textNbCol, "32767");
}

TEST_F(TaskDialogRules, SpinFromATypedCountAndFromTheFormerOneWhereNoneIsTyped) {
  ImpTablePresenter& dialog = run_.OpenNew();
  dialog.OnText("textNbCol", "5");
  dialog.OnSpin(true);
  EXPECT_EQ(run_.shown().textNbCol, "6");
  dialog.OnText("textNbCol", "12x");
  dialog.OnSpin(true);
  EXPECT_EQ(run_.shown().textNbCol, "7");
  EXPECT_THAT(run_.Boxes(), IsEmpty());
}

TEST_F(TaskDialogRules, TakeATypedColumnCountWhenItsFieldIsLeft) {
  ImpTablePresenter& dialog = run_.OpenNew();
  dialog.OnText("textNbCol", "12");
  EXPECT_THAT(run_.shown().columns.file_rows, IsEmpty());
  dialog.OnLeave("textNbCol");
  EXPECT_THAT(run_.shown().columns.file_rows, SizeIs(12));
  for (const char* text : {"12x", "-3", "99999", "1.5"}) {
    dialog.OnText("textNbCol", text);
    dialog.OnLeave("textNbCol");
    EXPECT_THAT(run_.Boxes(), ElementsAre("Warn|Importation Table|Valeur incorrecte")) << text;
    EXPECT_EQ(run_.shown().textNbCol, "12") << text;
  }
  dialog.OnText("textNbCol", "");
  dialog.OnLeave("textNbCol");
  EXPECT_EQ(run_.shown().textNbCol, "0");
}

TEST_F(TaskDialogRules, ShowNothingAnewForPlainTyping) {
  ImpTablePresenter& dialog = run_.OpenNew();
  const int before = run_.view.times_shown;
  dialog.OnText("txtTable", "CLIENT");
  dialog.OnText("txtComm", "note");
  EXPECT_EQ(run_.view.times_shown, before);
  EXPECT_EQ(dialog.state().txtTable, "CLIENT");
}

TEST_F(TaskDialogRules, OpenTheHelpOnlyWhereTheHostHasOne) {
  int opened = 0;
  run_.services.open_help = [&] { ++opened; };
  ImpTablePresenter& dialog = run_.OpenNew();
  EXPECT_TRUE(Enabled("cmdHelp"));
  dialog.OnHelp();
  EXPECT_EQ(opened, 1);
}

TEST_F(TaskDialogRules, HideTheDialogWithoutSavingOnCancel) {
  ImpTablePresenter& dialog = run_.OpenComplete();
  dialog.Cancel();
  EXPECT_EQ(run_.view.hidden, 1);
  EXPECT_THAT(run_.Changes(), IsEmpty());
  EXPECT_FALSE(dialog.saved());
  EXPECT_EQ(dialog.task_name(), "T1");
}

}  // namespace
}  // namespace imptable
