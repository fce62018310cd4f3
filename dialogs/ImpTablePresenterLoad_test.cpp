#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dialogs/ImpTableControls.h"
#include "dialogs/testing/TaskDialogRun.h"

namespace imptable {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

std::vector<std::string> Disabled(const ImpTableState& state) {
  return {state.disabled.begin(), state.disabled.end()};
}

TEST(NewTaskDialog, OpensInItsInitialState) {
  TaskDialogRun run;
  run.Stored("Login", "of another time");
  run.OpenNew();
  const ImpTableState& shown = run.shown();
  EXPECT_EQ(shown.txtTache, "T1");
  for (const TextControl& control : kTextControls) {
    if (control.name == "txtTache" || control.name == "txtDelimiteurFile") continue;
    EXPECT_EQ(shown.*control.text, control.name == "textNbCol" ? "0" : "") << control.name;
  }
  EXPECT_EQ(shown.txtDelimiteurFile, ";");
  for (const CheckControl& control : kCheckControls) {
    EXPECT_FALSE(shown.*control.checked) << control.name;
  }
  EXPECT_EQ(shown.optBCP, 0);
  EXPECT_EQ(shown.optSup, 0);
  EXPECT_EQ(shown.optForm, 1);
  EXPECT_EQ(shown.OptCsv, 0);
  EXPECT_THAT(Disabled(shown),
              ElementsAre("Label5", "chkPrimKey", "cmdCle", "cmdHelp", "txtCle", "txtTache"));
  EXPECT_TRUE(shown.password_masked);
  EXPECT_THAT(shown.columns.file_rows, IsEmpty());
  EXPECT_THAT(run.Boxes(), IsEmpty());
}

TEST(NewTaskDialog, ReadsNothingOfTheTask) {
  TaskDialogRun run;
  run.OpenNew();
  EXPECT_THAT(run.ports.registry.reads(), IsEmpty());
  EXPECT_THAT(run.Changes(), IsEmpty());
  EXPECT_THAT(run.source.LogLines(), IsEmpty());
  EXPECT_FALSE(run.dialog().saved());
  EXPECT_EQ(run.dialog().task_name(), "T1");
}

TEST(TaskDialogWindow, ShowsItsFirstTabAndSwitchesTheLastTwoOff) {
  TaskDialogRun run;
  for (const std::int16_t mode : std::vector<std::int16_t>{0, 1}) {
    run.Open(mode);
    EXPECT_EQ(run.shown().tab, 0);
    EXPECT_EQ(run.shown().usable_tabs, 4);
  }
}

TEST(TaskDialogWindow, IsShownOnceWhenItIsLoaded) {
  TaskDialogRun run;
  run.Stored("NombreColonnes", 2);
  run.OpenExisting();
  EXPECT_EQ(run.view.times_shown, 1);
}

TEST(TaskDialogWindow, HasItsOwnCaptionAndIconUnlessTheHostGivesOthers) {
  TaskDialogRun run;
  run.OpenNew();
  EXPECT_EQ(run.shown().caption, "Importation Table");
  EXPECT_EQ(run.shown().icon, "ICO1");
  ImpTablePresenter titled(run.services, run.view, run, 0, "T1", "S1");
  titled.SetCaption("Title of the host");
  titled.SetIcon("WRAPPER_ICON");
  titled.Load();
  EXPECT_EQ(run.shown().caption, "Title of the host");
  EXPECT_EQ(run.shown().icon, "WRAPPER_ICON");
  titled.Apply();
  EXPECT_THAT(run.Boxes(), ElementsAre("Warn|Title of the host|" +
                                       run.module().MessageText(Message::kSelectDataSource)));
}

TEST(TaskDialogWindow, HasEveryCaptionInBothLanguages) {
  struct Captions {
    std::int32_t offset;
    const char* form;
    const char* mode;
    const char* column_tab;
    std::vector<std::string> actions;
  };
  for (const Captions& expected : {Captions{0,
                                            "Importation Table",
                                            "Par INSERT/UPDATE",
                                            "Formatage colonnes",
                                            {"Continuer le scénario", "Variable", "Valeur"}},
                                   Captions{10000,
                                            "Import Table",
                                            "Using INSERT/UPDATE",
                                            "Column format",
                                            {"Run scenario", "Variable", "Value"}}}) {
    TaskDialogRun run;
    run.module().language_offset = expected.offset;
    run.OpenExisting();
    EXPECT_EQ(run.shown().caption, expected.form);
    EXPECT_EQ(run.view.Caption("optBCP(2)"), expected.mode);
    EXPECT_EQ(run.view.Caption("SSTab1(3)"), expected.column_tab);
    EXPECT_EQ(run.shown().actions_header, expected.actions);
    for (const CaptionControl& control : kCaptionControls) {
      EXPECT_EQ(run.view.Caption(control.name), run.module().MessageText(control.message))
          << control.name;
    }
  }
}

TEST(TaskDialogWindow, HasACaptionForEachControlThatNeedsOne) {
  TaskDialogRun run;
  run.OpenNew();
  std::vector<std::string> needed{"Command1", "cmdAdminODBC", "cmdCle",    "cmdInfo",  "cmdValider",
                                  "cmdApp",   "cmdAnnuler",   "SSTab1(0)", "SSTab1(5)"};
  for (const CheckControl& control : kCheckControls) needed.emplace_back(control.name);
  for (const OptionControl& control : kOptionControls) {
    for (int n = 0; n < control.count; ++n) {
      needed.push_back(std::string(control.name) + '(' + std::to_string(n) + ')');
    }
  }
  for (int n = 2; n <= 12; ++n) {
    if (n != 1) needed.push_back("Label" + std::to_string(n));
  }
  for (const std::string& control : needed) {
    EXPECT_NE(run.view.Caption(control), "<none>") << control;
    EXPECT_NE(run.view.Caption(control), "") << control;
  }
}

TEST(TaskDialogWindow, ListsTheDataSourcesInTheDriverManagersOrder) {
  TaskDialogRun run;
  std::vector<std::string> names;
  ListDataSources([&](const std::string& name) { names.push_back(name); });
  ASSERT_THAT(names, Contains(run.source.name()));
  run.OpenNew();
  EXPECT_EQ(run.shown().sources, names);
  EXPECT_EQ(run.shown().Combo1, "");
}

TEST(ExistingTaskDialog, ShowsEachSettingInItsControl) {
  TaskDialogRun run;
  run.Stored("Base Cible", run.source.name());
  run.Stored("Login", "sa");
  run.Stored("Password", "secret");
  run.Stored("Table", "CLIENT");
  run.Stored("Owner", "dbo");
  run.Stored("Alias", "CLIENTS.TXT");
  run.Stored("UseAlias", 1);
  run.Stored("Dir", "/data");
  run.Stored("Mode", 4);
  run.Stored("Cle/Index", "CODE,NOM");
  run.Stored("Suppression", 2);
  run.Stored("SiVide", 1);
  run.Stored("Erreurs", "7");
  run.Stored("RecErreurs", 0);
  run.Stored("Comment", "note");
  run.Stored("SepDec", 1);
  run.Stored("Null", 1);
  run.Stored("Param", 1);
  run.Stored("DelimiteurFile", ",");
  run.Stored("FormatFile", 1);
  run.Stored("NombreColonnes", 2);
  run.StoredIn("Colonnes", {"1", "5,2"});
  run.OpenExisting();
  const ImpTableState& shown = run.shown();
  EXPECT_EQ(shown.txtTache, "T1");
  EXPECT_EQ(shown.Combo1, run.source.name());
  EXPECT_EQ(shown.txtLogin, "sa");
  EXPECT_EQ(shown.txtPass, "secret");
  EXPECT_TRUE(shown.password_masked);
  EXPECT_EQ(shown.txtTable, "CLIENT");
  EXPECT_EQ(shown.txtOwn, "dbo");
  EXPECT_EQ(shown.txtAlias, "CLIENTS.TXT");
  EXPECT_EQ(shown.OptCsv, 1);
  EXPECT_EQ(run.view.Caption("Label2"), "Fichier");
  EXPECT_EQ(shown.txtRep, "/data");
  EXPECT_EQ(shown.optBCP, 4);
  EXPECT_EQ(shown.txtCle, "CODE,NOM");
  EXPECT_EQ(shown.optSup, 2);
  EXPECT_TRUE(shown.chkSupp);
  EXPECT_EQ(shown.txtErreur, "7");
  EXPECT_FALSE(shown.chkRecup);
  EXPECT_EQ(shown.txtComm, "note");
  EXPECT_TRUE(shown.chkDec);
  EXPECT_TRUE(shown.chkNull);
  EXPECT_TRUE(shown.chkParam);
  EXPECT_EQ(shown.txtDelimiteurFile, ",");
  EXPECT_EQ(shown.optForm, 1);
  EXPECT_EQ(shown.textNbCol, "2");
  ASSERT_THAT(shown.columns.file_rows, SizeIs(2));
  EXPECT_EQ(shown.columns.file_rows[1].type, "Single");
  EXPECT_THAT(Disabled(shown), ElementsAre("chkDou", "cmdHelp", "txtErr", "txtTache"));
  EXPECT_THAT(run.Boxes(), IsEmpty());
  EXPECT_THAT(run.Changes(), IsEmpty());
  EXPECT_TRUE(run.dialog().saved());
}

TEST(ExistingTaskDialog, ShowsTheSettingsOfAnInsert) {
  TaskDialogRun run;
  run.Stored("DupKey", 1);
  run.Stored("CodErr", "@CODE");
  run.Stored("FormatFile", 1);
  run.OpenExisting();
  EXPECT_TRUE(run.shown().chkDou);
  EXPECT_EQ(run.shown().txtErr, "@CODE");
  EXPECT_THAT(Disabled(run.shown()),
              ElementsAre("Label5", "chkPrimKey", "cmdCle", "cmdHelp", "txtCle", "txtTache"));
}

TEST(ExistingTaskDialog, ShowsTheDefaultsOfWhatIsNotStored) {
  TaskDialogRun run;
  run.OpenExisting();
  EXPECT_EQ(run.shown().optForm, 0);  // fixed width, where a new task is delimited
  EXPECT_FALSE(run.view.IsEnabled("txtDelimiteurFile"));
  EXPECT_FALSE(run.view.IsEnabled("Label7"));
  EXPECT_THAT(run.shown().columns.file_header, SizeIs(4));
  EXPECT_EQ(run.shown().txtErreur, "100");
  EXPECT_TRUE(run.shown().chkRecup);
  EXPECT_EQ(run.shown().txtDelimiteurFile, ";");
  EXPECT_EQ(run.shown().textNbCol, "0");
  EXPECT_EQ(run.shown().optBCP, 0);
  EXPECT_EQ(run.shown().OptCsv, 0);
  EXPECT_EQ(run.view.Caption("Label2"), "Alias");
  EXPECT_THAT(run.Boxes(), IsEmpty());
}

TEST(ExistingTaskDialog, DisablesTheKeyFieldWhereThePrimaryKeyIsUsed) {
  TaskDialogRun run;
  run.Stored("Mode", 1);
  run.Stored("PrimKey", 1);
  run.Stored("Cle/Index", "CODE");
  run.OpenExisting();
  EXPECT_TRUE(run.shown().chkPrimKey);
  EXPECT_TRUE(run.view.IsEnabled("chkPrimKey"));
  EXPECT_EQ(run.shown().txtCle, "CODE");
  for (const char* control : {"txtCle", "cmdCle", "Label5"}) {
    EXPECT_FALSE(run.view.IsEnabled(control)) << control;
  }
}

TEST(ExistingTaskDialog, ShowsReferencesAsTheyAreStored) {
  TaskDialogRun run;
  run.ports.host.variables["PWD"] = "secret";
  run.Stored("Password", "@PWD");
  run.OpenExisting();
  EXPECT_EQ(run.shown().txtPass, "@PWD");
  EXPECT_FALSE(run.shown().password_masked);
}

TEST(ExistingTaskDialog, SelectsTheFirstButtonForANumberThatSelectsNone) {
  TaskDialogRun run;
  run.Stored("Mode", 5);
  run.Stored("Suppression", -1);
  run.OpenExisting();
  EXPECT_EQ(run.shown().optBCP, 0);
  EXPECT_EQ(run.shown().optSup, 0);
}

TEST(ExistingTaskDialog, NamesNumbersThatCantBeReadInOneBoxAndShowsTheirDefaults) {
  TaskDialogRun run;
  run.Stored("Login", "sa");
  run.Stored("Mode", "often");
  run.Stored("NombreColonnes", 70000);
  run.OpenExisting();
  EXPECT_THAT(run.Boxes(),
              ElementsAre(AllOf(HasSubstr(run.module().MessageText(Message::kRegistryFailure)),
                                HasSubstr("\"Mode\" = \"often\""),
                                HasSubstr("\"NombreColonnes\" = \"70000\""))));
  EXPECT_EQ(run.shown().txtLogin, "sa");
  EXPECT_EQ(run.shown().optBCP, 0);
  EXPECT_EQ(run.shown().textNbCol, "0");
}

TEST(ExistingTaskDialog, LeavesARegistryThatCantBeReadToItsCaller) {
  TaskDialogRun run;
  run.ports.registry.FailReadsFrom(1);
  try {
    run.OpenExisting();
    ADD_FAILURE() << "a task out of nothing";
  } catch (const RuntimeFault& fault) {
    EXPECT_EQ(fault.number(), FaultNumber::kDeviceError);
  }
}

TEST(ExistingTaskDialog, DoesNotCountTheColumnsOfTheFileWhenItOpens) {
  TaskDialogRun run;
  run.folder.Write("CLIENTS.csv", "a;b;c\n");
  run.Stored("Dir", run.folder.path());
  run.Stored("Alias", "CLIENTS");
  run.Stored("NombreColonnes", 2);
  run.StoredIn("Colonnes", {"1,,4", "1,,5"});
  run.OpenExisting();
  EXPECT_EQ(run.shown().textNbCol, "2");
  EXPECT_THAT(run.Boxes(), IsEmpty());
}

TEST(ExistingTaskDialog, MarksTheKeyColumnsOfTheTable) {
  TaskDialogRun run;
  run.source.Script("index NOM 1 IX_NOM 3\n");
  run.Stored("Base Cible", run.source.name());
  run.Stored("Table", "CLIENT");
  run.Stored("FormatFile", 1);
  run.StoredIn("Champs", {"CODE,INTEGER,(Col)1", "NOM,VARCHAR,(Col)2"});
  run.OpenExisting();
  ASSERT_THAT(run.shown().columns.field_rows, SizeIs(2));
  EXPECT_FALSE(run.shown().columns.field_rows[0].is_key);
  EXPECT_TRUE(run.shown().columns.field_rows[1].is_key);
  EXPECT_THAT(run.source.LogLines("SQLDisconnect"), SizeIs(1));
  EXPECT_EQ(run.ports.pointer.shown, 1);
  EXPECT_EQ(run.ports.pointer.reset, 1);
}

TEST(ExistingTaskDialog, OpensAllTheSameWhenItsDataSourceRefusesToConnect) {
  TaskDialogRun run;
  run.source.Script("on SQLDriverConnect return -1 diag 28000 18456 \"Login failed\"\n");
  run.Stored("Base Cible", run.source.name());
  run.Stored("Table", "CLIENT");
  run.StoredIn("Champs", {"CODE,INTEGER,(Col)1"});
  run.OpenExisting();
  EXPECT_THAT(run.Boxes(), ElementsAre(HasSubstr("Login failed")));
  EXPECT_THAT(run.shown().columns.field_rows, SizeIs(1));
  EXPECT_EQ(run.shown().txtTable, "CLIENT");
  EXPECT_EQ(run.ports.pointer.reset, run.ports.pointer.shown);
}

TEST(ExistingTaskDialog, IsWhatEveryWorkingModeButNoneOpens) {
  TaskDialogRun run;
  run.Stored("Login", "sa");
  for (const std::int16_t mode : std::vector<std::int16_t>{1, 2, -1}) {
    EXPECT_TRUE(run.Open(mode).saved()) << mode;
    EXPECT_EQ(run.shown().txtLogin, "sa") << mode;
  }
}

}  // namespace
}  // namespace imptable
