#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/dialogs/ClientTask.h"
#include "tests/dialogs/DialogPlace.h"

namespace imptable {
namespace {

using testing::HasSubstr;
using testing::Not;

TEST(TaskDialog, ShowsWhatItSavedWhenItIsOpenedAgain) {
  DialogPlace place(kClientTable, Language::kFrench);
  place.folder.Write("in/CLIENTS.CSV", "1;Anna\n");
  place.Configure([&](Person& person) {
    person.Fill("Combo1", "Shop");
    person.Fill("txtLogin", "anna");
    person.Fill("txtPass", "secret");
    person.Fill("txtTable", "CLIENT");
    person.Fill("txtAlias", "CLIENTS");
    person.Fill("txtRep", place.Files());
    person.Click("optBCP(3)");
    person.Click("chkPrimKey");
    person.ClickTab(1);
    person.Click("optSup(1)");
    person.Click("chkNull");
    person.Fill("txtDelimiteurFile", ",");
    person.Press("Tab");
    EXPECT_EQ(place.boxes().Answer("Return"),
              "Inform|Importation Table|Le fichier contient 1 colonne(s)");
    person.ClickTab(2);
    person.Fill("txtErreur", "7");
    person.Click("cmdValider");
  });
  place.Configure([&](Person& person) {
    EXPECT_EQ(person.Sees("txtTache"), "T1");
    EXPECT_FALSE(person.IsEnabled("txtTache"));
    EXPECT_EQ(person.Sees("Combo1"), "Shop");
    EXPECT_EQ(person.Sees("txtLogin"), "anna");
    EXPECT_EQ(person.Sees("txtPass"), "secret");
    EXPECT_EQ(person.Sees("txtTable"), "CLIENT");
    EXPECT_EQ(person.Sees("txtAlias"), "CLIENTS");
    EXPECT_EQ(person.Sees("txtRep"), place.Files());
    EXPECT_EQ(person.Sees("optBCP(3)"), "1");
    EXPECT_EQ(person.Sees("chkPrimKey"), "1");
    EXPECT_FALSE(person.IsEnabled("txtCle"));
    EXPECT_EQ(person.Sees("optSup(1)"), "1");
    EXPECT_EQ(person.Sees("chkNull"), "1");
    EXPECT_EQ(person.Sees("txtDelimiteurFile"), ",");
    EXPECT_EQ(person.Sees("textNbCol"), "1");
    EXPECT_EQ(person.Sees("txtErreur"), "7");
    person.Click("cmdAnnuler");
  });
  EXPECT_EQ(place.boxes().unanswered(), std::vector<std::string>());
}

TEST(TaskDialog, LeavesTheTaskAloneWhenItIsCancelled) {
  DialogPlace place(kClientTable, Language::kEnglish);
  SetUpClientTask(place);
  const std::string before = place.Imptable({"get", "S1", "T1"});
  const std::int32_t status = place.Configure([](Person& person) {
    person.Fill("txtTable", "OTHER");
    person.Press("Escape");
  });
  EXPECT_EQ(status, 1);
  EXPECT_EQ(place.Imptable({"get", "S1", "T1"}), before);
}

TEST(TaskDialog, LeavesNothingOfANewTaskThatIsCancelled) {
  DialogPlace place(kClientTable, Language::kEnglish);
  EXPECT_EQ(place.Configure([](Person& person) {
    person.Fill("txtTable", "OTHER");
    person.Click("cmdAnnuler");
  }),
            0);
  EXPECT_FALSE(place.folder.Exists("registry.db"));
}

TEST(TaskDialog, GoesToTheFieldThatIsMissing) {
  DialogPlace place(kClientTable, Language::kEnglish);
  SetUpClientTask(place);
  place.Configure([&](Person& person) {
    person.Fill("txtAlias", "");
    person.ClickTab(1);
    person.Click("cmdApp");
    EXPECT_EQ(place.boxes().Answer("Return"), "Warn|Import Table|Enter alias");
    person.WaitUntil([&] { return person.Focused() == "txtAlias"; }, "the focus in txtAlias");
    EXPECT_EQ(person.FrontTab(), 0);
    person.Type("CLIENTS");
    person.ClickTab(2);
    person.Click("chkDou");
    person.ClickTab(0);
    person.Click("cmdApp");
    EXPECT_EQ(place.boxes().Answer("Return"), "Warn|Import Table|Enter error code");
    person.WaitUntil([&] { return person.Focused() == "txtErr"; }, "the focus in txtErr");
    EXPECT_EQ(person.FrontTab(), 2);
    person.Press("Escape");
  });
  EXPECT_THAT(place.Imptable({"get", "S1", "T1"}), Not(HasSubstr("Modifi")));
}

TEST(TaskDialog, IsLeftByApplyOpenAndByTheKeyboardAlone) {
  DialogPlace place(kClientTable, Language::kEnglish);
  SetUpClientTask(place);
  place.Configure([&](Person& person) {
    person.Click("txtLogin");
    person.Press("Return");
    person.WaitUntil([&] { return person.Focused() != "txtLogin"; }, "Enter to move on");
    person.Fill("txtLogin", "bob");
    person.Press("alt+p");
    person.WaitUntil(
        [&] {
          return place.Imptable({"get", "S1", "T1", "Login"}) == "bob\n";
        },
        "Apply to save");
    person.Press("alt+a");
  });
  EXPECT_EQ(place.boxes().unanswered(), std::vector<std::string>());
}

TEST(TaskDialog, MasksAPasswordButNoReference) {
  DialogPlace place(kClientTable, Language::kEnglish);
  place.Imptable({"variable", "S1", "PWD=x"});
  place.Configure([&](Person& person) {
    person.Fill("txtPass", "secret");
    EXPECT_TRUE(person.IsMasked("txtPass"));
    person.Fill("txtPass", "@PWD");
    EXPECT_FALSE(person.IsMasked("txtPass"));
    person.Press("Home");
    person.Press("Delete");
    person.WaitUntil([&] { return person.IsMasked("txtPass"); }, "the mask");
    EXPECT_EQ(person.Sees("txtPass"), "PWD");
    person.Type("X");
    EXPECT_EQ(person.Sees("txtPass"), "XPWD");
    person.Press("Escape");
  });
}

TEST(TaskDialog, PutsAVariableIntoTheFieldThatHasTheFocus) {
  DialogPlace place(kClientTable, Language::kEnglish);
  place.Imptable({"variable", "S1", "FOLDER=/data"});
  place.Configure([](Person& person) {
    person.Click("txtRep");
    person.Click("cmdSv");
    person.WaitForDialog("FrmVariables");
    person.Press("Down");
    person.Press("Down");
    person.Press("Return");
    person.WaitForDialog("FrmImpTable");
    EXPECT_EQ(person.Sees("txtRep"), "@FOLDER");
    person.Press("Escape");
  });
}

TEST(TaskDialog, AsksBeforeAnotherSourceEmptiesItsFields) {
  DialogPlace place(kClientTable, Language::kFrench);
  SetUpClientTask(place);
  place.folder.Write("odbc.ini", place.folder.Read("odbc.ini") + "[Other]\nDriver=x\n");
  const std::string question =
      "Ask|Importation Table|Voulez-vous initialiser les paramètres associés";
  place.Configure([&](Person& person) {
    person.OpenList("Combo1");
    person.Press("Down");
    person.Press("Return");
    EXPECT_EQ(place.boxes().Answer("Escape"), question);
    EXPECT_EQ(person.Sees("Combo1"), "Other");
    EXPECT_EQ(person.Sees("txtTable"), "CLIENT");
    person.OpenList("Combo1");
    person.Press("Up");
    person.Press("Return");
    EXPECT_EQ(place.boxes().Answer("alt+y"), question);
    EXPECT_EQ(person.Sees("txtTable"), "");
    EXPECT_EQ(person.Sees("txtAlias"), "");
    EXPECT_EQ(person.Sees("txtRep"), place.Files());
    person.Press("Escape");
  });
}

TEST(TaskDialog, WaitsForTheAdministratorAndListsTheSourcesAnew) {
  DialogPlace place(kClientTable, Language::kEnglish);
  const std::string program = place.folder.Write(
      "administrator", "#!/bin/sh\nprintf '\\n[New]\\nDriver=x\\n' >>\"$ODBCINI\"\n");
  std::filesystem::permissions(program, std::filesystem::perms::owner_all);
  const ScopedVariable administrator("IMPTABLE_ODBC_ADMIN", program);
  place.Configure([](Person& person) {
    person.Fill("Combo1", "typed");
    person.Click("cmdAdminODBC");
    person.WaitUntil([&] { return person.Entries("Combo1") == "Shop New"; }, "the new source");
    EXPECT_EQ(person.Sees("Combo1"), "typed");
    person.Press("Escape");
  });
}

TEST(TaskDialog, RunsWhatItsOriginsSay) {
  DialogPlace place(kClientTable, Language::kEnglish);
  SetUpClientTask(place);
  place.Configure([](Person& person) {
    person.ClickTab(3);
    EXPECT_EQ(person.SeesCell("Grid2", 1, 3), "Col N° 2");
    person.ClickCell("Grid2", 1, 3);
    person.ClickEntry("List1", 2);  // Variable
    person.WaitForFocus("Text1");
    person.Press("ctrl+a");
    person.Type("constant");
    person.Press("Return");
    person.WaitUntil([&] { return person.SeesCell("Grid2", 1, 3) == "constant"; }, "the constant");
    person.ClickCell("Grid2", 0, 3);
    person.Press("Escape");
    person.Click("cmdValider");
  });
  place.folder.Write("in/CLIENTS.CSV", "1;Anna\n");
  place.Imptable({"run", "S1", "T1"});
  EXPECT_EQ(place.Rows("SELECT ID, NAME FROM CLIENT"), "1|constant\n");
}

TEST(TaskDialog, SaysWhatIsWrongWithASourceThatDoesNotAnswer) {
  DialogPlace place(kClientTable, Language::kEnglish);
  SetUpClientTask(place);
  place.Configure([&](Person& person) {
    person.Fill("Combo1", "nowhere");
    person.Click("Command1");
    EXPECT_THAT(place.boxes().Answer("Return"), HasSubstr("Data source name not found"));
    person.WaitForDialog("FrmTable");
    person.Press("Escape");
    person.WaitForDialog("FrmImpTable");
    EXPECT_EQ(person.Sees("txtTable"), "CLIENT");
    person.Press("Escape");
  });
}

}  // namespace
}  // namespace imptable
