#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dialogs/ImpTableControls.h"
#include "dialogs/testing/TaskDialogRun.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class VariableButtons : public testing::Test {
 protected:
  VariableButtons() {
    run_.ports.host.variables = {{"SRC", "VENTES"}, {"PWD", "secret"}};
    run_.ports.host.constants = {{"AGENCE", "12"}};
  }

  TaskDialogRun run_;
};

TEST_F(VariableButtons, StandAtTheFocusedFieldThatTakesReferences) {
  ImpTablePresenter& dialog = run_.OpenNew();
  EXPECT_EQ(run_.shown().variable_field, "");
  for (const char* field :
       {"txtLogin", "txtPass", "txtOwn", "txtTable", "txtAlias", "txtRep", "txtErr"}) {
    dialog.OnFocus(field);
    EXPECT_EQ(run_.shown().variable_field, field);
  }
  for (const char* other : {"txtComm", "txtErreur", "textNbCol", "txtDelimiteurFile", "txtTache",
                            "Combo1", "cmdValider", "optBCP(1)", "Grid1"}) {
    dialog.OnFocus("txtLogin");
    dialog.OnFocus(other);
    EXPECT_EQ(run_.shown().variable_field, "") << other;
  }
}

TEST_F(VariableButtons, StayWhereTheyAreWhenTheyGetTheFocusThemselves) {
  ImpTablePresenter& dialog = run_.OpenNew();
  dialog.OnFocus("txtLogin");
  dialog.OnFocus("cmdSv");
  EXPECT_EQ(run_.shown().variable_field, "txtLogin");
  dialog.OnFocus("cmdSv1");
  EXPECT_EQ(run_.shown().variable_field, "txtLogin");
}

TEST_F(VariableButtons, StandAtNoFieldThatIsDisabled) {
  ImpTablePresenter& dialog = run_.OpenNew();
  dialog.OnFocus("txtCle");
  EXPECT_EQ(run_.shown().variable_field, "");
  dialog.OnOption("optBCP", 1);
  dialog.OnFocus("txtCle");
  EXPECT_EQ(run_.shown().variable_field, "txtCle");
}

TEST_F(VariableButtons, LeaveAFieldThatGetsDisabled) {
  ImpTablePresenter& dialog = run_.OpenNew();
  dialog.OnOption("optBCP", 1);
  dialog.OnFocus("txtCle");
  dialog.OnCheck("chkPrimKey", true);
  EXPECT_EQ(run_.shown().variable_field, "");
}

TEST_F(VariableButtons, WriteAReferenceInPlaceOfTheFieldsText) {
  ImpTablePresenter& dialog = run_.OpenNew();
  dialog.OnText("txtTable", "CLIENT");
  dialog.OnFocus("txtTable");
  run_.view.variable = "AGENCE";
  dialog.OnVariable();
  EXPECT_EQ(run_.shown().txtTable, "@AGENCE");
  EXPECT_EQ(run_.shown().cmdSv_tooltip, "@AGENCE val: 12");
  EXPECT_EQ(run_.view.focused.back(), "txtTable");
  ASSERT_THAT(run_.view.variable_lists, SizeIs(1));
  const VariableListState& list = run_.view.variable_lists.front();
  EXPECT_EQ(list.caption, "Sélectionner une variable/constante");
  EXPECT_EQ(list.cmdValider, "&Valider");
  EXPECT_EQ(list.cmdAnnuler, "&Annuler");
  EXPECT_THAT(list.groups, ElementsAre(VariableGroup{"Variables", {"PWD", "SRC"}},
                                       VariableGroup{"Constantes", {"AGENCE"}}));
}

TEST_F(VariableButtons, ChangeNothingWhenNoNameIsPicked) {
  ImpTablePresenter& dialog = run_.OpenNew();
  dialog.OnText("txtTable", "CLIENT");
  dialog.OnFocus("txtTable");
  dialog.OnVariable();
  EXPECT_EQ(run_.shown().txtTable, "CLIENT");
}

TEST_F(VariableButtons, OpenNoListWithoutAField) {
  run_.OpenNew().OnVariable();
  EXPECT_THAT(run_.view.variable_lists, IsEmpty());
}

TEST_F(VariableButtons, UnmaskAPasswordThatBecomesAReference) {
  ImpTablePresenter& dialog = run_.OpenNew();
  dialog.OnFocus("txtPass");
  run_.view.variable = "PWD";
  dialog.OnVariable();
  EXPECT_EQ(run_.shown().txtPass, "@PWD");
  EXPECT_FALSE(run_.shown().password_masked);
}

TEST_F(VariableButtons, ChangeTheDataSourceAsAChoiceDoes) {
  ImpTablePresenter& dialog = run_.OpenNew();
  dialog.OnText("txtLogin", "sa");
  dialog.OnText("txtTable", "CLIENT");
  run_.view.variable = "SRC";
  dialog.OnSourceVariable();
  EXPECT_EQ(run_.shown().Combo1, "@SRC");
  EXPECT_EQ(run_.shown().cmdSv1_tooltip, "@SRC val: VENTES");
  EXPECT_THAT(run_.Boxes(), ElementsAre("Ask|Importation Table|Voulez-vous initialiser les "
                                        "paramètres associés"));
  EXPECT_EQ(run_.shown().txtLogin, "");
  EXPECT_EQ(run_.shown().txtTable, "");
  dialog.OnSourceVariable();
  EXPECT_THAT(run_.Boxes(), IsEmpty());  // the same data source as before
}

TEST_F(VariableButtons, TellTheReferenceOfTheirFieldAndItsValue) {
  run_.Stored("Base Cible", "@SRC");
  run_.Stored("Login", "@NOBODY");
  ImpTablePresenter& dialog = run_.OpenExisting();
  EXPECT_EQ(run_.shown().cmdSv1_tooltip, "@SRC val: VENTES");
  EXPECT_EQ(run_.shown().cmdSv_tooltip, "");
  dialog.OnFocus("txtLogin");
  EXPECT_EQ(run_.shown().cmdSv_tooltip, "@NOBODY val: ");
  dialog.OnText("txtLogin", "@PWD");
  EXPECT_EQ(run_.shown().cmdSv_tooltip, "@PWD val: secret");
  dialog.OnText("txtLogin", "sa");
  EXPECT_EQ(run_.shown().cmdSv_tooltip, "");
  dialog.OnText("Combo1", "VENTES");
  EXPECT_EQ(run_.shown().cmdSv1_tooltip, "");
  for (const std::string& lookup : run_.ports.host.looked_up) {
    EXPECT_EQ(lookup.substr(0, lookup.rfind('|')), std::string("S1|") + TaskDialogRun::kTasks);
  }
}

/// A host that can serve nothing.
class SilentHost : public TestHost {
 public:
  std::optional<std::string> Variable(const KeyPath&, const std::string&,
                                      const std::string&) override {
    throw RuntimeFault(FaultNumber::kNoHostObject, "variables");
  }
  std::vector<std::string> ReferenceNames(const KeyPath&, const std::string&,
                                          ReferenceKind) override {
    throw RuntimeFault(FaultNumber::kNoHostObject, "names");
  }
};

TEST_F(VariableButtons, SayThatTheHostListsNothing) {
  SilentHost host;
  ModuleCommun module(run_.module().platform, host);
  module.location = run_.module().location;
  const DialogServices services{module, run_.boxes, run_.administrator};
  ImpTablePresenter dialog(services, run_.view, run_, 0, "T1", "S1");
  dialog.Load();
  dialog.OnFocus("txtLogin");
  dialog.OnText("txtLogin", "@X");
  EXPECT_EQ(run_.shown().cmdSv_tooltip, "@X val: ");
  EXPECT_THAT(run_.Boxes(), IsEmpty());
  dialog.OnVariable();
  EXPECT_THAT(run_.Boxes(), ElementsAre(testing::HasSubstr("names")));
  EXPECT_EQ(dialog.state().txtLogin, "@X");
}

TEST_F(VariableButtons, ListOneKindWhereAFieldTakesNoOther) {
  const auto titles = [&](VariableKinds kinds) {
    std::vector<std::string> texts;
    for (const VariableGroup& group : ListVariables(run_.module(), "S1", kinds).groups) {
      texts.push_back(group.title);
    }
    return texts;
  };
  EXPECT_THAT(titles(VariableKinds::kVar), ElementsAre("Variables"));
  EXPECT_THAT(titles(VariableKinds::kCon), ElementsAre("Constantes"));
  EXPECT_THAT(titles(VariableKinds::kAll), ElementsAre("Variables", "Constantes"));
  EXPECT_THAT(titles(VariableKinds::kNone), IsEmpty());
}

TEST_F(VariableButtons, SpeakTheLanguageOfTheDialog) {
  run_.module().language_offset = kEnglishOffset;
  const VariableListState list = ListVariables(run_.module(), "S1", VariableKinds::kAll);
  EXPECT_EQ(list.caption, "Select variable/constant");
  EXPECT_EQ(list.cmdValider, "&Confirm");
  EXPECT_EQ(list.groups[0].title, "Variables");
  EXPECT_EQ(list.groups[1].title, "Constants");
}

}  // namespace
}  // namespace imptable
