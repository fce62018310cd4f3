#include "dialogs/TablePickerPresenter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dialogs/testing/TaskDialogRun.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class TablePicker : public testing::Test {
 protected:
  TablePickerPresenter& Open(PickerMode mode, ConnectionFields fields = {}) {
    if (fields.data_source.empty()) fields.data_source = run_.source.name();
    if (fields.table.empty()) fields.table = "CLIENT";
    picker_ = std::make_unique<TablePickerPresenter>(run_.services, mode, "S1", fields);
    picker_->Open(view_);
    return *picker_;
  }

  const TablePickerState& shown() const { return view_.states.back(); }

  TaskDialogRun run_;
  RecordingPickerView view_;
  std::unique_ptr<TablePickerPresenter> picker_;
};

TEST_F(TablePicker, ListsTablesAsOwnerTabName) {
  run_.source.Script(
      "table VENTES TABLE dbo\n"
      "table TOUT VIEW dbo\n"
      "table CLIENT\n");
  Open(PickerMode::kTables);
  EXPECT_THAT(shown().lines, ElementsAre("dbo\tVENTES", "\tCLIENT"));
  EXPECT_THAT(run_.source.LogLines("SQLTables"), ElementsAre(HasSubstr("types='TABLE'")));
  EXPECT_THAT(run_.source.LogLines("SQLDisconnect"), SizeIs(1));
  EXPECT_THAT(run_.Boxes(), IsEmpty());
}

TEST_F(TablePicker, HasItsCaptionsBeforeItListsAnything) {
  run_.source.Script("table CLIENT\n");
  Open(PickerMode::kTables);
  ASSERT_THAT(view_.states, SizeIs(2));
  EXPECT_EQ(view_.states[0],
            (TablePickerState{"Sélectionner une Table", "&Valider", "&Annuler", {}}));
  EXPECT_EQ(view_.states[1].caption, "Sélectionner une Table");
  Open(PickerMode::kKeys);
  EXPECT_EQ(shown().caption, "Sélectionner une Clé ou un Index");
  run_.module().language_offset = kEnglishOffset;
  Open(PickerMode::kTables);
  EXPECT_EQ(shown().caption, "Select table");
  EXPECT_EQ(shown().cmdValider, "&Confirm");
  EXPECT_EQ(shown().cmdAnnuler, "C&ancel");
  Open(PickerMode::kKeys);
  EXPECT_EQ(shown().caption, "Select key or index");
}

TEST_F(TablePicker, ListsThePrimaryKeyThenEachUniqueIndexAsARunTakesThem) {
  run_.source.Script(
      "key NUMERO 2 PK\n"
      "key AGENCE 1 PK\n"
      "index null null null 0\n"
      "index NOM 1 IX_NOM 3\n"
      "index VILLE 2 IX_LIEU 3\n"
      "index PAYS 1 IX_LIEU 3\n"
      "index RUE 1 IX_RUE 3 nonunique\n");
  Open(PickerMode::kKeys, {"", "", "", "dbo", ""});
  EXPECT_THAT(shown().lines, ElementsAre("AGENCE,NUMERO", "NOM", "PAYS,VILLE"));
  EXPECT_THAT(run_.source.LogLines("SQLPrimaryKeys"),
              ElementsAre("SQLPrimaryKeys schema=dbo table=CLIENT = 0"));
  EXPECT_THAT(run_.source.LogLines("SQLDisconnect"), SizeIs(1));
  EXPECT_THAT(run_.Boxes(), IsEmpty());
}

TEST_F(TablePicker, ListsColumnsOnceThatAreThePrimaryKeyAndItsIndex) {
  run_.source.Script("key CODE 1 PK\nindex CODE 1 PK 3\n");
  Open(PickerMode::kKeys);
  EXPECT_THAT(shown().lines, ElementsAre("CODE"));
}

TEST_F(TablePicker, LeavesOutIndexesOnExpressions) {
  run_.source.Script("index CODE 1 IX 3\nindex null 2 IX 3\nindex NOM 1 IY 3\n");
  Open(PickerMode::kKeys);
  EXPECT_THAT(shown().lines, ElementsAre("NOM"));
}

TEST_F(TablePicker, SaysThatATableHasNoKey) {
  run_.source.Script("column CODE 4 INTEGER 10 0 0\n");
  Open(PickerMode::kKeys);
  EXPECT_THAT(shown().lines, IsEmpty());
  EXPECT_THAT(run_.Boxes(), ElementsAre("Warn|Importation Table|" +
                                        run_.module().MessageText(Message::kTableWithoutKey)));
  EXPECT_EQ(run_.ports.pointer.shown, run_.ports.pointer.reset);
}

TEST_F(TablePicker, OffersTheIndexesOfADriverWithoutAPrimaryKeyQuery) {
  run_.source.Script("support 65 no\nindex NOM 1 IX_NOM 3\n");
  Open(PickerMode::kKeys);
  EXPECT_THAT(shown().lines, ElementsAre("NOM"));
  EXPECT_THAT(run_.Boxes(), IsEmpty());
}

TEST_F(TablePicker, SaysNothingOfMissingKeysAfterAQueryThatFailed) {
  run_.source.Script("on SQLPrimaryKeys return -1 diag S1000 7 \"broken\"\n");
  Open(PickerMode::kKeys);
  EXPECT_THAT(run_.Boxes(), ElementsAre("Database|( 7) broken"));
  EXPECT_THAT(run_.source.LogLines("SQLStatistics"), SizeIs(1));
  run_.source.Script("on SQLStatistics return -1 diag S1000 8 \"broken\"\n");
  Open(PickerMode::kKeys);
  EXPECT_THAT(run_.Boxes(), ElementsAre("Database|( 8) broken"));
  EXPECT_THAT(run_.source.LogLines("SQLDisconnect"), SizeIs(2));
}

TEST_F(TablePicker, ShowsWhyItCouldNotConnectAndAnEmptyList) {
  run_.source.Script("on SQLDriverConnect return -1 diag 28000 18456 \"Login failed\"\n");
  for (const PickerMode mode : {PickerMode::kTables, PickerMode::kKeys}) {
    Open(mode);
    EXPECT_THAT(shown().lines, IsEmpty());
    EXPECT_THAT(run_.Boxes(), ElementsAre(HasSubstr("Login failed")));
  }
  EXPECT_THAT(run_.source.LogLines("SQLDisconnect"), IsEmpty());
  EXPECT_EQ(run_.ports.pointer.shown, 2);
  EXPECT_EQ(run_.ports.pointer.reset, 2);
}

TEST_F(TablePicker, WaitsForASilentServerNoLongerThanAUserDoes) {
  for (const char* script : {"", "on SQLSetConnectOption return -1 diag S1C00 0 \"no\"\n"}) {
    run_.source.ClearLog();
    run_.source.Script(script);
    Open(PickerMode::kTables);
    EXPECT_THAT(run_.source.LogLines("SQLSetConnectOption"),
                testing::Contains(HasSubstr("SQLSetConnectOption 103=15")));
    EXPECT_THAT(run_.source.LogLines("SQLTables"), SizeIs(1));
    EXPECT_THAT(run_.Boxes(), IsEmpty());
  }
}

TEST_F(TablePicker, ResolvesEachReferenceBeforeItConnects) {
  run_.ports.host.variables = {{"SOURCE", run_.source.name()},
                               {"USER", "sa"},
                               {"PWD", "secret"},
                               {"OWNER", "dbo"},
                               {"TABLE", "CLIENT"}};
  Open(PickerMode::kKeys, {"@SOURCE", "@USER", "@PWD", "@OWNER", "@TABLE"});
  const std::string expected = "DSN=" + run_.source.name() + ";UID=sa;PWD=secret";
  EXPECT_THAT(run_.source.LogLines("SQLDriverConnect"), ElementsAre(HasSubstr(expected)));
  EXPECT_THAT(run_.source.LogLines("SQLStatistics"),
              ElementsAre(HasSubstr("schema=dbo table=CLIENT")));
}

TEST_F(TablePicker, LeavesTheTableOfTheRunAsItWas) {
  run_.module().run.owner = "run";
  run_.module().run.table = "RUN";
  Open(PickerMode::kKeys, {"", "", "", "dbo", ""});
  EXPECT_EQ(run_.module().run.owner, "run");
  EXPECT_EQ(run_.module().run.table, "RUN");
}

TEST_F(TablePicker, PicksTheSelectedLineAndCloses) {
  run_.source.Script("table A\ntable B\n");
  TablePickerPresenter& picker = Open(PickerMode::kTables);
  picker.Confirm(1);
  EXPECT_EQ(picker.picked(), "\tB");
  EXPECT_EQ(view_.closed, 1);
}

TEST_F(TablePicker, PicksNothingWithoutASelectionOrOnCancel) {
  run_.source.Script("table A\n");
  for (const std::optional<std::size_t> line :
       std::vector<std::optional<std::size_t>>{std::nullopt, 1}) {
    TablePickerPresenter& picker = Open(PickerMode::kTables);
    picker.Confirm(line);
    EXPECT_EQ(picker.picked(), std::nullopt);
  }
  TablePickerPresenter& picker = Open(PickerMode::kTables);
  picker.Cancel();
  EXPECT_EQ(picker.picked(), std::nullopt);
  EXPECT_EQ(view_.closed, 3);
}

TEST_F(TablePicker, CanNeitherBeConfirmedNorClosedWhileItLists) {
  run_.source.Script("table A\n");
  picker_ =
      std::make_unique<TablePickerPresenter>(run_.services, PickerMode::kTables, "S1",
                                             ConnectionFields{run_.source.name(), "", "", "", ""});
  run_.ports.message_loop.AtYield(1, [&] {
    picker_->Confirm(0);
    picker_->Cancel();
  });
  picker_->Open(view_);
  EXPECT_EQ(run_.ports.message_loop.yields(), 3);  // one per step of the disconnection
  EXPECT_EQ(view_.closed, 0);
  EXPECT_EQ(picker_->picked(), std::nullopt);
}

}  // namespace
}  // namespace imptable
