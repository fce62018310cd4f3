#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dialogs/testing/TaskDialogRun.h"
#include "platform/testing/PlainEncodings.h"

namespace imptable {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

class TaskDialogSave : public testing::Test {
 protected:
  std::optional<std::string> Text(std::string_view name) const {
    return run_.ports.registry.Text(TaskDialogRun::kTask, name);
  }
  std::optional<std::int32_t> Number(std::string_view name) const {
    return run_.ports.registry.Number(TaskDialogRun::kTask, name);
  }
  std::vector<std::string> Subkey(const std::string& name) const {
    const std::string path = std::string(TaskDialogRun::kTask) + '\\' + name;
    std::vector<std::string> values;
    for (const std::string& value : run_.ports.registry.ValueNames({kHkeyLocalMachine, path})) {
      values.push_back(value + '=' + run_.ports.registry.Text(path, value).value_or("<no text>"));
    }
    return values;
  }

  TaskDialogRun run_;
};

TEST_F(TaskDialogSave, WritesANewTaskValueByValueInItsOrder) {
  run_.source.Script("column CODE 4 INTEGER 10 0 0\n");
  ImpTablePresenter& dialog = run_.OpenComplete();
  dialog.OnText("txtPass", "secret");
  dialog.OnText("txtOwn", "dbo");
  dialog.OnText("txtRep", "/data");
  dialog.OnText("txtErr", "2627");
  dialog.OnText("txtComm", "note");
  dialog.OnText("txtErreur", "7");
  dialog.OnText("txtDelimiteurFile", ",");
  dialog.OnOption("optSup", 2);
  dialog.OnOption("OptCsv", 1);
  for (const char* box : {"chkSupp", "chkDec", "chkNull", "chkDou", "chkRecup"}) {
    dialog.OnCheck(box, true);
  }
  dialog.OnSpin(true);
  dialog.OnSpin(true);
  dialog.OnColumns();
  dialog.columns().ClickOrigin(0);
  dialog.columns().PickOrigin(1);
  dialog.OnCheck("chkParam", true);
  run_.Boxes();
  dialog.Apply();
  EXPECT_THAT(run_.Boxes(), IsEmpty());
  EXPECT_THAT(
      run_.Changes(),
      ElementsAre(
          "T1|Etat = #0", "T1|CréeLe = 15/11/06 08:30:00", "T1|Type = #50",
          "T1|Base Cible = " + run_.source.name(), "T1|Login = sa", "T1|Password = secret",
          "T1|Table = CLIENT", "T1|Owner = dbo", "T1|Alias = CLIENTS", "T1|Comment = note",
          "T1|Cle/Index = ", "T1|PrimKey = #0", "T1|Mode = #0", "T1|Suppression = #2",
          "T1|DupKey = #1", "T1|CodErr = 2627", "T1|Dir = /data", "T1|Erreurs = 7",
          "T1|RecErreurs = #1", "T1|FicErr = #1", "T1|DelimiteurFile = ,", "T1|FormatFile = #1",
          "T1|NombreColonnes = #2", "T1|SiVide = #1", "delete T1\\Colonnes", "delete T1\\Colonnes",
          "T1\\Colonnes|1 = 1", "T1\\Colonnes|2 = 1", "T1|SepDec = #1", "T1|Null = #1",
          "T1|Param = #1", "delete T1\\Champs", "delete T1\\Champs",
          AllOf(StartsWith("T1\\Champs|1 = CODE,"), EndsWith(",Null")), "T1|UseAlias = #1"));
}

TEST_F(TaskDialogSave, WritesTheOtherEndOfEachChoice) {
  ImpTablePresenter& dialog = run_.OpenComplete();
  dialog.OnOption("optBCP", 3);
  dialog.OnOption("optSup", 1);
  dialog.OnOption("optForm", 0);
  dialog.OnCheck("chkPrimKey", true);
  dialog.Apply();
  for (const char* name : {"DupKey", "RecErreurs", "FormatFile", "NombreColonnes", "SiVide",
                           "SepDec", "Null", "Param", "UseAlias", "Etat"}) {
    EXPECT_EQ(Number(name), 0) << name;
  }
  EXPECT_EQ(Number("Mode"), 3);
  EXPECT_EQ(Number("Suppression"), 1);
  EXPECT_EQ(Number("PrimKey"), 1);
  EXPECT_EQ(Number("FicErr"), 1);
}

TEST_F(TaskDialogSave, StoresEachModeAndDeletionByItsButton) {
  ImpTablePresenter& dialog = run_.OpenComplete();
  for (const int mode : {4, 3, 2, 1, 0}) {
    dialog.OnOption("optBCP", mode);
    dialog.OnText("txtCle", mode == 0 ? "" : "CODE,NOM");
    dialog.OnOption("optSup", mode % 3);
    dialog.Apply();
    EXPECT_EQ(Number("Mode"), mode);
    EXPECT_EQ(Number("Suppression"), mode % 3);
    EXPECT_EQ(Text("Cle/Index"), mode == 0 ? "" : "CODE,NOM");
  }
}

TEST_F(TaskDialogSave, DatesTheChangeOfATaskThatExists) {
  run_.Stored("Etat", 3);
  run_.Stored("CréeLe", "01/01/06 00:00:00");
  run_.Stored("Base Cible", "SOURCE");
  run_.Stored("Login", "sa");
  run_.Stored("Table", "CLIENT");
  run_.Stored("Alias", "CLIENTS");
  run_.OpenExisting().Apply();
  const std::vector<std::string> changes = run_.Changes();
  ASSERT_THAT(changes, Not(IsEmpty()));
  EXPECT_EQ(changes.front(), "T1|ModifiéLe = 15/11/06 08:30:00");
  EXPECT_THAT(changes, Not(Contains(StartsWith("T1|Etat"))));
  EXPECT_THAT(changes, Not(Contains(StartsWith("T1|CréeLe"))));
  EXPECT_EQ(Number("Etat"), 3);
}

TEST_F(TaskDialogSave, DatesTheChangeOfANewTaskFromItsSecondSaveOn) {
  ImpTablePresenter& dialog = run_.OpenComplete();
  EXPECT_FALSE(dialog.saved());
  dialog.Apply();
  EXPECT_TRUE(dialog.saved());
  EXPECT_EQ(dialog.task_name(), "T1");
  EXPECT_EQ(run_.view.hidden, 0);
  run_.Changes();
  dialog.Confirm();
  EXPECT_EQ(run_.view.hidden, 1);
  const std::vector<std::string> changes = run_.Changes();
  EXPECT_EQ(changes.front(), "T1|ModifiéLe = 15/11/06 08:30:00");
  EXPECT_THAT(changes, Not(Contains(StartsWith("T1|Etat"))));
}

TEST_F(TaskDialogSave, NamesItsDatesInTheCodePage) {
  TaskDialogRun run(std::make_unique<Latin1TextEncoding>());
  run.OpenComplete().Apply();
  EXPECT_THAT(run.Changes(), Contains("T1|Cr\xE9"
                                      "eLe = 15/11/06 08:30:00"));
  run.dialog().Apply();
  EXPECT_THAT(run.Changes(), Contains("T1|Modifi\xE9Le = 15/11/06 08:30:00"));
}

TEST_F(TaskDialogSave, FillsAnEmptyErrorLimitVisibly) {
  ImpTablePresenter& dialog = run_.OpenComplete();
  EXPECT_EQ(run_.shown().txtErreur, "");
  dialog.Apply();
  EXPECT_EQ(Text("Erreurs"), "100");
  EXPECT_EQ(run_.shown().txtErreur, "100");
}

TEST_F(TaskDialogSave, NeverWritesAnEmptySeparator) {
  ImpTablePresenter& dialog = run_.OpenComplete();
  dialog.OnText("txtDelimiteurFile", "");
  dialog.Apply();
  EXPECT_EQ(Text("DelimiteurFile"), ";");
  EXPECT_EQ(run_.shown().txtDelimiteurFile, ";");
}

TEST_F(TaskDialogSave, StoresReferencesAsTyped) {
  run_.ports.host.variables["X"] = "value";
  ImpTablePresenter& dialog = run_.OpenComplete();
  for (const char* field :
       {"Combo1", "txtLogin", "txtPass", "txtOwn", "txtTable", "txtAlias", "txtRep", "txtErr"}) {
    dialog.OnText(field, "@X");
  }
  dialog.Apply();
  for (const char* name :
       {"Base Cible", "Login", "Password", "Owner", "Table", "Alias", "Dir", "CodErr"}) {
    EXPECT_EQ(Text(name), "@X") << name;
  }
}

TEST_F(TaskDialogSave, RemovesTheColumnsAndOriginsThatAreNoLongerThere) {
  run_.Stored("Base Cible", "SOURCE");
  run_.Stored("Login", "sa");
  run_.Stored("Alias", "CLIENTS");
  run_.Stored("FormatFile", 1);
  run_.Stored("Param", 1);
  run_.Stored("NombreColonnes", 2);
  run_.StoredIn("Colonnes", {"1", "5,2", "3", "4"});
  run_.StoredIn("Champs", {"CODE,INTEGER,(Col)1"});
  ImpTablePresenter& dialog = run_.OpenExisting();
  dialog.OnText("txtTable", "CLIENT");
  dialog.Apply();
  EXPECT_THAT(Subkey("Colonnes"), ElementsAre("1=1", "2=5,2"));
  EXPECT_THAT(Subkey("Champs"), ElementsAre("1=CODE,INTEGER,(Col)1"));
  dialog.OnCheck("chkParam", false);
  dialog.OnSpin(false);
  dialog.Apply();
  EXPECT_THAT(Subkey("Colonnes"), ElementsAre("1=1"));
  EXPECT_THAT(Subkey("Champs"), IsEmpty());
  EXPECT_FALSE(run_.ports.registry.HasKey(std::string(run_.kTask) + "\\Champs"));
}

TEST_F(TaskDialogSave, StoresWhatItShowsAfterTheTaskWasChangedOrDeletedElsewhere) {
  ImpTablePresenter& dialog = run_.OpenComplete();
  dialog.Apply();
  run_.Stored("Login", "somebody else");
  dialog.Apply();
  EXPECT_EQ(Text("Login"), "sa");
  run_.ports.registry.DeleteKey({kHkeyLocalMachine, run_.kTask});
  run_.Changes();
  dialog.Confirm();
  EXPECT_EQ(run_.Changes().front(), "T1|ModifiéLe = 15/11/06 08:30:00");
  EXPECT_EQ(Text("Login"), "sa");
  EXPECT_THAT(run_.Boxes(), IsEmpty());
}

TEST_F(TaskDialogSave, GoesToTheTaskOfTheDialogWhateverTheModuleLooksAtMeanwhile) {
  ImpTablePresenter& dialog = run_.OpenComplete();
  run_.module().location = {kHkeyLocalMachine, "SOFTWARE\\Elsewhere"};
  dialog.Apply();
  EXPECT_EQ(Text("Login"), "sa");
  EXPECT_FALSE(run_.ports.registry.HasKey("SOFTWARE\\Elsewhere"));
}

TEST_F(TaskDialogSave, IsToldOnceWhenTheRegistryRefusesAndCountsAsNone) {
  run_.ports.registry.FailWrites(kRegistryAccessDenied);
  ImpTablePresenter& dialog = run_.OpenComplete();
  dialog.Confirm();
  EXPECT_THAT(run_.Boxes(), ElementsAre("Warn|Importation Table|Erreur d'enregistrement dans les "
                                        "registres : \"Etat\" (5)"));
  EXPECT_EQ(run_.view.hidden, 0);
  EXPECT_FALSE(dialog.saved());
  run_.ports.registry.FailWrites(kRegistryOk);
  dialog.Confirm();
  EXPECT_THAT(run_.Boxes(), IsEmpty());
  EXPECT_EQ(run_.view.hidden, 1);
  EXPECT_TRUE(dialog.saved());
}

TEST_F(TaskDialogSave, EndsAtTheFirstRefusedWriteAndKeepsTheEarlierOnes) {
  run_.Stored("Base Cible", "SOURCE");
  run_.Stored("Login", "sa");
  run_.Stored("Table", "CLIENT");
  run_.Stored("Alias", "CLIENTS");
  run_.Stored("NombreColonnes", 1);
  run_.StoredIn("Colonnes", {"1,,4"});
  ImpTablePresenter& dialog = run_.OpenExisting();
  dialog.OnText("txtLogin", "other");
  run_.journal.refused = "T1|Dir";
  dialog.Apply();
  EXPECT_THAT(run_.Boxes(), ElementsAre("Warn|Importation Table|Erreur d'enregistrement dans les "
                                        "registres : \"Dir\" (5)"));
  EXPECT_EQ(run_.Changes().back(), "T1|CodErr = ");
  EXPECT_EQ(Text("Login"), "other");
  EXPECT_THAT(Subkey("Colonnes"), ElementsAre("1=1,,4"));
}

TEST_F(TaskDialogSave, CreatesTheTaskAfterAFirstTryThatWroteAPartOfIt) {
  ImpTablePresenter& dialog = run_.OpenComplete();
  run_.journal.refused = "T1|Dir";
  dialog.Confirm();
  EXPECT_FALSE(dialog.saved());
  EXPECT_EQ(Text("Login"), "sa");
  run_.Boxes();
  run_.Changes();
  run_.journal.refused.clear();
  dialog.Confirm();
  EXPECT_THAT(run_.Boxes(), IsEmpty());
  EXPECT_TRUE(dialog.saved());
  EXPECT_THAT(run_.Changes(), Contains(StartsWith("T1|CréeLe")));
}

TEST_F(TaskDialogSave, IsToldWhenASubkeyCantBeWrittenAnew) {
  ImpTablePresenter& dialog = run_.OpenComplete();
  dialog.OnSpin(true);
  run_.journal.refused = "T1\\Colonnes|1";
  dialog.Confirm();
  EXPECT_THAT(run_.Boxes(), ElementsAre("Warn|Importation Table|Erreur d'enregistrement dans les "
                                        "registres : \"Colonnes\" (5)"));
  EXPECT_EQ(run_.view.hidden, 0);
  EXPECT_FALSE(dialog.saved());
  EXPECT_EQ(dialog.task_name(), "T1");
}

}  // namespace
}  // namespace imptable
