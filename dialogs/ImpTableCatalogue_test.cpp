#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dialogs/testing/TaskDialogRun.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class TaskDialogCatalogue : public testing::Test {
 protected:
  /// The user selects this line in the picker and confirms.
  void Pick(std::optional<std::size_t> line) {
    run_.view.in_picker = [line](TablePickerPresenter& picker) { picker.Confirm(line); };
  }

  ImpTablePresenter& OpenKeyed() {
    ImpTablePresenter& dialog = run_.OpenComplete();
    dialog.OnText("txtOwn", "dbo");
    dialog.OnOption("optBCP", 1);
    return dialog;
  }

  TaskDialogRun run_;
};

TEST_F(TaskDialogCatalogue, FillsOwnerAndTableFromThePickedLine) {
  run_.source.Script("table VENTES TABLE dbo\ntable CLIENT\n");
  ImpTablePresenter& dialog = run_.OpenNew();
  dialog.OnText("Combo1", run_.source.name());
  Pick(0);
  dialog.OnTables();
  EXPECT_EQ(run_.shown().txtOwn, "dbo");
  EXPECT_EQ(run_.shown().txtTable, "VENTES");
  Pick(1);
  dialog.OnTables();
  EXPECT_EQ(run_.shown().txtOwn, "");
  EXPECT_EQ(run_.shown().txtTable, "CLIENT");
  EXPECT_EQ(run_.view.picker.closed, 2);
}

TEST_F(TaskDialogCatalogue, SplitsAPickedLineAtItsFirstTab) {
  run_.source.Script("table \"VEN\\tTES\" TABLE dbo\n");
  ImpTablePresenter& dialog = run_.OpenNew();
  dialog.OnText("Combo1", run_.source.name());
  Pick(0);
  dialog.OnTables();
  EXPECT_EQ(run_.shown().txtOwn, "dbo");
  EXPECT_EQ(run_.shown().txtTable, "VEN\tTES");
}

TEST_F(TaskDialogCatalogue, KeepsItsFieldsWhenNothingIsPicked) {
  run_.source.Script("table VENTES TABLE dbo\nkey CODE 1 PK\n");
  ImpTablePresenter& dialog = OpenKeyed();
  dialog.OnText("txtCle", "NOM");
  for (const bool by_cancel : {false, true}) {
    Pick(std::nullopt);
    if (by_cancel) run_.view.in_picker = [](TablePickerPresenter& picker) { picker.Cancel(); };
    dialog.OnTables();
    dialog.OnKeys();
    EXPECT_EQ(run_.shown().txtOwn, "dbo");
    EXPECT_EQ(run_.shown().txtTable, "CLIENT");
    EXPECT_EQ(run_.shown().txtCle, "NOM");
  }
}

TEST_F(TaskDialogCatalogue, WritesThePickedKeyAsItStands) {
  run_.source.Script("key CODE 1 PK\nindex NOM 1 IX 3\nindex VILLE 2 IX 3\n");
  ImpTablePresenter& dialog = OpenKeyed();
  Pick(1);
  dialog.OnKeys();
  EXPECT_EQ(run_.shown().txtCle, "NOM,VILLE");
  EXPECT_THAT(run_.source.LogLines("SQLStatistics"),
              ElementsAre(HasSubstr("schema=dbo table=CLIENT")));
}

TEST_F(TaskDialogCatalogue, ConnectsWithWhatIsTypedNow) {
  run_.ports.host.variables["SRC"] = run_.source.name();
  ImpTablePresenter& dialog = run_.OpenNew();
  dialog.OnText("Combo1", "@SRC");
  dialog.OnText("txtLogin", "sa");
  dialog.OnText("txtPass", "secret");
  dialog.OnTables();
  EXPECT_THAT(run_.source.LogLines("SQLDriverConnect"),
              ElementsAre(HasSubstr("DSN=" + run_.source.name() + ";UID=sa;PWD=secret")));
  EXPECT_EQ(run_.shown().Combo1, "@SRC");
}

TEST_F(TaskDialogCatalogue, OpensNoPickerWithoutWhatItConnectsTo) {
  ImpTablePresenter& dialog = run_.OpenNew();
  dialog.OnOption("optBCP", 1);
  const auto refused = [&](Message message, const char* control) {
    EXPECT_THAT(run_.Boxes(),
                ElementsAre("Warn|Importation Table|" + run_.module().MessageText(message)));
    EXPECT_EQ(run_.view.focused.back(), control);
    EXPECT_EQ(run_.view.pickers_run, 0);
  };
  dialog.OnTables();
  refused(Message::kSelectDataSource, "Combo1");
  dialog.OnKeys();
  refused(Message::kSelectDataSource, "Combo1");
  dialog.OnColumns();
  refused(Message::kSelectDataSource, "Combo1");
  dialog.OnText("Combo1", run_.source.name());
  dialog.OnKeys();
  refused(Message::kChooseTable, "txtTable");
  dialog.OnTab(3);
  dialog.OnColumns();
  refused(Message::kChooseTable, "txtTable");
  EXPECT_EQ(run_.shown().tab, 0);
  EXPECT_THAT(run_.source.LogLines(), IsEmpty());
}

TEST_F(TaskDialogCatalogue, OpensNoKeyPickerWhileTheKeyIsLocked) {
  run_.OpenComplete().OnKeys();
  EXPECT_EQ(run_.view.pickers_run, 0);
  EXPECT_THAT(run_.Boxes(), IsEmpty());
}

TEST_F(TaskDialogCatalogue, ListsTheColumnsOfTheTableAndMarksItsKey) {
  run_.source.Script(
      "column CODE 4 INTEGER 10 0 0\n"
      "column NOM 12 VARCHAR 30 0 1\n"
      "index CODE 1 PK 3\n");
  ImpTablePresenter& dialog = run_.OpenComplete();
  dialog.OnColumns();
  ASSERT_THAT(run_.shown().columns.field_rows, SizeIs(2));
  EXPECT_EQ(run_.shown().columns.field_rows[0].name, "CODE");
  EXPECT_TRUE(run_.shown().columns.field_rows[0].is_key);
  EXPECT_EQ(run_.shown().columns.field_rows[1].name, "NOM");
  EXPECT_FALSE(run_.shown().columns.field_rows[1].is_key);
  EXPECT_THAT(run_.source.LogLines("SQLDisconnect"), SizeIs(1));
  EXPECT_EQ(run_.ports.pointer.shown, 1);
  EXPECT_EQ(run_.ports.pointer.reset, 1);
  EXPECT_THAT(run_.Boxes(), IsEmpty());
}

TEST_F(TaskDialogCatalogue, SaysThatATableHasNoColumns) {
  ImpTablePresenter& dialog = run_.OpenComplete();
  dialog.OnColumns();
  EXPECT_THAT(run_.Boxes(), ElementsAre("Warn|Importation Table|" +
                                        run_.module().MessageText(Message::kChooseTable)));
  EXPECT_THAT(run_.source.LogLines("SQLDisconnect"), SizeIs(1));
}

TEST_F(TaskDialogCatalogue, StaysUsableAfterAConnectionThatFailed) {
  run_.source.Script("on SQLDriverConnect return -1 diag 28000 18456 \"Login failed\"\n");
  ImpTablePresenter& dialog = run_.OpenComplete();
  dialog.OnColumns();
  EXPECT_THAT(run_.Boxes(), ElementsAre(HasSubstr("Login failed")));
  run_.source.Script("column CODE 4 INTEGER 10 0 0\n");
  dialog.OnColumns();
  EXPECT_THAT(run_.shown().columns.field_rows, SizeIs(1));
}

TEST_F(TaskDialogCatalogue, StartsNothingTwiceWhileItConnects) {
  run_.source.Script("column CODE 4 INTEGER 10 0 0\n");
  ImpTablePresenter& dialog = run_.OpenComplete();
  run_.ports.message_loop.AtYield(1, [&] {
    dialog.OnColumns();
    dialog.OnTables();
    dialog.OnAdministrator();
    dialog.OnCheck("chkNull", true);
    dialog.Confirm();
    dialog.Cancel();
  });
  dialog.OnColumns();
  EXPECT_EQ(run_.ports.message_loop.yields(), 3);
  EXPECT_THAT(run_.source.LogLines("SQLDriverConnect"), SizeIs(1));
  EXPECT_EQ(run_.view.pickers_run, 0);
  EXPECT_EQ(run_.administrator.runs, 0);
  EXPECT_FALSE(run_.shown().chkNull);
  EXPECT_EQ(run_.view.hidden, 0);
  EXPECT_THAT(run_.Changes(), IsEmpty());
  dialog.OnCheck("chkNull", true);
  EXPECT_TRUE(run_.shown().chkNull);
}

TEST_F(TaskDialogCatalogue, StartsNothingElseWhileThePickerIsOpen) {
  run_.source.Script("table A\n");
  ImpTablePresenter& dialog = run_.OpenComplete();
  run_.view.in_picker = [&](TablePickerPresenter& picker) {
    dialog.OnTables();
    dialog.Confirm();
    picker.Confirm(0);
  };
  dialog.OnTables();
  EXPECT_EQ(run_.view.pickers_run, 1);
  EXPECT_EQ(run_.view.hidden, 0);
  EXPECT_EQ(run_.shown().txtTable, "A");
}

}  // namespace
}  // namespace imptable
