#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dialogs/testing/TaskDialogRun.h"

namespace imptable {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class DataSourceField : public testing::Test {
 protected:
  /// The fields that belong to the data source, in the order of the dialog.
  std::vector<std::string> SourceFields() const {
    const ImpTableState& state = run_.shown();
    return {state.txtLogin, state.txtPass,  state.txtOwn,
            state.txtTable, state.txtAlias, state.txtCle};
  }

  ImpTablePresenter& OpenFilled() {
    ImpTablePresenter& dialog = run_.OpenNew();
    dialog.OnOption("optBCP", 1);
    for (const char* field : {"txtLogin", "txtPass", "txtOwn", "txtTable", "txtAlias", "txtCle"}) {
      dialog.OnText(field, field);
    }
    dialog.OnText("txtRep", "/data");
    dialog.OnText("txtComm", "note");
    return dialog;
  }

  const std::vector<std::string> kFilled{"txtLogin", "txtPass",  "txtOwn",
                                         "txtTable", "txtAlias", "txtCle"};
  const std::vector<std::string> kEmptied = std::vector<std::string>(6);
  const std::string kQuestion =
      "Ask|Importation Table|Voulez-vous initialiser les paramètres associés";

  TaskDialogRun run_;
};

TEST_F(DataSourceField, EmptiesWhatBelongsToTheFormerSourceOnYes) {
  ImpTablePresenter& dialog = OpenFilled();
  run_.boxes.answer = true;
  dialog.OnSource("VENTES");
  EXPECT_THAT(run_.Boxes(), ElementsAre(kQuestion));
  EXPECT_EQ(run_.shown().Combo1, "VENTES");
  EXPECT_EQ(SourceFields(), kEmptied);
  EXPECT_EQ(run_.shown().txtRep, "/data");
  EXPECT_EQ(run_.shown().txtComm, "note");
}

TEST_F(DataSourceField, KeepsEverythingOnNo) {
  ImpTablePresenter& dialog = OpenFilled();
  run_.boxes.answer = false;
  dialog.OnSource("VENTES");
  EXPECT_THAT(run_.Boxes(), ElementsAre(kQuestion));
  EXPECT_EQ(run_.shown().Combo1, "VENTES");
  EXPECT_EQ(SourceFields(), kFilled);
}

TEST_F(DataSourceField, AsksNothingWhenTheSameSourceIsChosenAgain) {
  run_.Stored("Base Cible", "VENTES");
  run_.OpenExisting().OnSource("VENTES");
  EXPECT_THAT(run_.Boxes(), IsEmpty());
}

TEST_F(DataSourceField, AsksNothingWhileANameIsTyped) {
  ImpTablePresenter& dialog = OpenFilled();
  dialog.OnText("Combo1", "VENTES");
  dialog.OnLeave("Combo1");
  EXPECT_THAT(run_.Boxes(), IsEmpty());
  dialog.OnSource("VENTES");
  EXPECT_THAT(run_.Boxes(), IsEmpty());
}

TEST_F(DataSourceField, AsksForAChoiceThatItsControlTellsAsTypingFirst) {
  ImpTablePresenter& dialog = OpenFilled();
  dialog.OnText("Combo1", "VENTES");
  dialog.OnSource("VENTES");
  EXPECT_THAT(run_.Boxes(), ElementsAre(kQuestion));
}

TEST_F(DataSourceField, AsksNothingWhenATaskIsLoaded) {
  run_.Stored("Base Cible", "VENTES");
  run_.OpenExisting();
  EXPECT_THAT(run_.Boxes(), IsEmpty());
}

TEST_F(DataSourceField, KeepsItsTextThroughTheAdministrator) {
  ImpTablePresenter& dialog = run_.OpenNew();
  dialog.OnText("Combo1", "UNKNOWN");
  EXPECT_THAT(run_.shown().sources, Not(Contains("UNKNOWN")));
  const int yields = run_.ports.message_loop.yields();
  dialog.OnAdministrator();
  EXPECT_EQ(run_.administrator.runs, 1);
  EXPECT_GT(run_.ports.message_loop.yields(), yields);
  EXPECT_EQ(run_.shown().Combo1, "UNKNOWN");
  EXPECT_THAT(run_.Boxes(), IsEmpty());
}

TEST_F(DataSourceField, ListsTheSourcesAnewAfterTheAdministrator) {
  ImpTablePresenter& dialog = run_.OpenNew();
  const std::vector<std::string> before = run_.shown().sources;
  dialog.OnAdministrator();
  EXPECT_EQ(run_.shown().sources, before);  // neither doubled nor lost
}

TEST_F(DataSourceField, ListsASourceThatWasMadeInTheAdministrator) {
  ImpTablePresenter& dialog = run_.OpenNew();
  std::string made;
  run_.administrator.meanwhile = [&] {
    made = run_.source.Add("Made", {{"Driver", ScriptedDataSource::DriverPath()}});
  };
  dialog.OnAdministrator();
  EXPECT_THAT(run_.shown().sources, Contains(made));
}

TEST_F(DataSourceField, LetsTheAdministratorBeStartedOnceAtATime) {
  ImpTablePresenter& dialog = run_.OpenNew();
  run_.administrator.meanwhile = [&] {
    dialog.OnAdministrator();
    dialog.Confirm();
    dialog.Cancel();
  };
  dialog.OnAdministrator();
  EXPECT_EQ(run_.administrator.runs, 1);
  EXPECT_EQ(run_.view.hidden, 0);
  EXPECT_THAT(run_.Boxes(), IsEmpty());
}

TEST_F(DataSourceField, ListsTheSourcesAnewAfterAnAdministratorThatFailed) {
  ImpTablePresenter& dialog = run_.OpenNew();
  std::string made;
  run_.administrator.meanwhile = [&] {
    made = run_.source.Add("Made", {{"Driver", ScriptedDataSource::DriverPath()}});
    throw RuntimeFault(FaultNumber::kPermissionDenied, "/usr/bin/administrator");
  };
  dialog.OnAdministrator();
  EXPECT_THAT(run_.Boxes(), ElementsAre(testing::HasSubstr("/usr/bin/administrator")));
  EXPECT_THAT(run_.shown().sources, Contains(made));
  dialog.OnText("Combo1", "SOURCE");
  EXPECT_EQ(dialog.state().Combo1, "SOURCE");
}

TEST_F(DataSourceField, MasksAPasswordUnlessItIsAReference) {
  ImpTablePresenter& dialog = run_.OpenNew();
  EXPECT_TRUE(run_.shown().password_masked);
  dialog.OnText("txtPass", "@");
  EXPECT_FALSE(run_.shown().password_masked);
  dialog.OnText("txtPass", "@PWD");
  EXPECT_FALSE(run_.shown().password_masked);
  dialog.OnText("txtPass", "PWD");
  EXPECT_TRUE(run_.shown().password_masked);
  dialog.OnText("txtPass", "a@b");
  EXPECT_TRUE(run_.shown().password_masked);
  dialog.OnText("txtPass", "");
  EXPECT_TRUE(run_.shown().password_masked);
}

TEST_F(DataSourceField, MasksThePasswordAgainWhenItIsEmptiedWithItsSource) {
  ImpTablePresenter& dialog = OpenFilled();
  dialog.OnText("txtPass", "@PWD");
  dialog.OnSource("VENTES");
  EXPECT_TRUE(run_.shown().password_masked);
}

}  // namespace
}  // namespace imptable
