#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <sstream>

#include "tests/dialogs/ClientTask.h"
#include "tests/dialogs/DialogPlace.h"
#include "tests/dialogs/Languages.h"
#include "tests/drivers/ScriptedDataSource.h"

namespace imptable {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

class DialogOverBadInput : public testing::TestWithParam<Language> {
 protected:
  DialogOverBadInput() : place_(kClientTable, GetParam()) { SetUpClientTask(place_); }

  /// A box of this kind with the dialog's caption.
  std::string Box(const char* kind, const char* french, const char* english) const {
    return std::string(kind) + '|' + In(GetParam(), "Importation Table|", "Import Table|") +
           In(GetParam(), french, english);
  }

  std::string Settings() { return place_.Imptable({"get", "S1", "T1"}); }

  DialogPlace place_;
};

TEST_P(DialogOverBadInput, NamesADamagedColumnAndLoadsTheRest) {
  place_.folder.Write("bad.reg",
                      "REGEDIT4\n\n[HKLM\\SOFTWARE\\KALDO\\Scenarios\\S1\\Taches\\T1\\Colonnes]\n"
                      "\"1\"=\"9x\"\n");
  place_.Imptable({"reg", "import", place_.folder.path() + "bad.reg"});
  place_.Open([&](Person& person) {
    EXPECT_EQ(place_.boxes().Answer("Return"),
              Box("Warn", "Erreur d'enregistrement dans les registres\n\"Colonnes\\1\" = \"9x\"",
                  "Record error in registers\n\"Colonnes\\1\" = \"9x\""));
    person.WaitForDialog("FrmImpTable");
    person.ClickTab(3);
    EXPECT_EQ(person.SeesCell("Grid1", 0, 1), In(GetParam(), "Texte", "Text"));
    EXPECT_EQ(person.SeesCell("Grid1", 1, 1), In(GetParam(), "Texte", "Text"));
    EXPECT_EQ(person.SeesCell("Grid2", 1, 3), "Col N° 2");
    person.Press("Escape");
  });
  EXPECT_THAT(Settings(), HasSubstr("Colonnes\\1=9x"));
}

TEST_P(DialogOverBadInput, SaysThatTheSourceFileIsEmpty) {
  place_.folder.Write("in/CLIENTS.CSV", "");
  place_.Configure([&](Person& person) {
    person.ClickTab(1);
    person.Click("optForm(0)");
    EXPECT_EQ(place_.boxes().Answer("Return"),
              Box("Inform", "Le Fichier est vide ...", "File is empty..."));
    EXPECT_EQ(person.Sees("textNbCol"), "2");
    person.ClickTab(3);
    person.WaitForText("TextFichier",
                       In(GetParam(), "Le Fichier est vide ...", "File is empty..."));
    EXPECT_EQ(person.SeesCell("Grid1", 1, 0), "2");
    person.Press("Escape");
  });
}

TEST_P(DialogOverBadInput, KeepsItsColumnsOverAFileThatIsNoText) {
  place_.folder.Write("in/CLIENTS.CSV", std::string("\x7f"
                                                    "ELF\0;;;\n",
                                                    9));
  place_.Configure([&](Person& person) {
    person.ClickTab(1);
    person.Click("optForm(0)");
    EXPECT_THAT(place_.boxes().Answer("Return"),
                AllOf(StartsWith(Box("Warn", "", "")), HasSubstr("CLIENTS.CSV")));
    EXPECT_EQ(person.Sees("textNbCol"), "2");
    person.ClickTab(3);
    person.WaitForText("TextFichier", ".ELF.;;;");
    person.Press("Escape");
  });
}

TEST_P(DialogOverBadInput, ReadsOnlyTheStartOfAHugeFile) {
  place_.folder.Write("in/CLIENTS.CSV", "1;2;3\n");
  // The file's other bytes take no room on the disk.
  std::filesystem::resize_file(place_.Files() + "/CLIENTS.CSV", std::uintmax_t{1} << 40U);
  place_.Configure([&](Person& person) {
    person.ClickTab(1);
    person.Click("optForm(0)");
    EXPECT_EQ(place_.boxes().Answer("Return"),
              Box("Inform", "Le fichier contient 3 colonne(s)", "File contains 3 column(s)"));
    person.ClickTab(3);
    EXPECT_EQ(person.Sees("TextFichier"), "1;2;3");
    person.Press("Escape");
  });
}

TEST_P(DialogOverBadInput, SaysWhyTheSourceFileCanNotBeRead) {
  std::filesystem::remove(place_.Files() + "/CLIENTS.CSV");
  std::filesystem::create_directory(place_.Files() + "/CLIENTS.CSV");
  place_.Configure([&](Person& person) {
    person.ClickTab(1);
    person.Click("optForm(0)");
    EXPECT_THAT(place_.boxes().Answer("Return"),
                AllOf(StartsWith(Box("Warn", "", "")), HasSubstr("CLIENTS.CSV")));
    EXPECT_EQ(person.Sees("textNbCol"), "2");
    person.Press("Escape");
  });
}

TEST_P(DialogOverBadInput, AsksForATableThatHasColumns) {
  place_.Configure([&](Person& person) {
    person.Fill("txtTable", "NOWHERE");
    person.ClickTab(3);
    person.Click("cmdInfo");
    EXPECT_EQ(place_.boxes().Answer("Return"),
              Box("Warn", "Sélectionner une Table", "Select table"));
    EXPECT_EQ(person.SeesCell("Grid2", 0, 1), "ID");
    person.Press("Escape");
  });
}

TEST_P(DialogOverBadInput, ShowsEachErrorOfTheDataSourceInABox) {
  ScriptedDataSource source;
  source.Script("on SQLDriverConnect return -1 diag 28000 18456 \"Login failed\"\n");
  place_.Imptable({"set", "S1", "T1", "Base Cible=" + source.name()});
  const auto refusal =
      AllOf(StartsWith(Box("Warn", "", "")), HasSubstr("18456"), HasSubstr("Login failed"));
  place_.Open([&](Person& person) {
    // The dialog connects as it opens, to mark the key columns.
    EXPECT_THAT(place_.boxes().Answer("Return"), refusal);
    person.WaitForDialog("FrmImpTable");
    person.Click("Command1");
    EXPECT_THAT(place_.boxes().Answer("Return"), refusal);
    person.WaitForDialog("FrmTable");
    EXPECT_EQ(person.Lines(), std::vector<std::string>());
    person.Press("Escape");
    person.WaitForDialog("FrmImpTable");
    person.ClickTab(3);
    person.Click("cmdInfo");
    EXPECT_THAT(place_.boxes().Answer("Return"), refusal);
    EXPECT_EQ(person.SeesCell("Grid2", 0, 1), "ID");
    person.Press("Escape");
  });
}

TEST_P(DialogOverBadInput, SavesWhatItShowsOverATaskThatAnotherProcessChanged) {
  place_.Configure([&](Person& person) {
    person.Fill("txtLogin", "mine");
    place_.Imptable({"set", "S1", "T1", "Login=theirs", "Table=THEIRS", "NombreColonnes=3",
                     "Colonnes\\3=1", "Champs\\5=X,Y,Null"});
    person.Click("cmdValider");
  });
  EXPECT_THAT(
      Settings(),
      AllOf(HasSubstr("Login=mine\n"), HasSubstr("Table=CLIENT\n"), HasSubstr("NombreColonnes=2\n"),
            testing::Not(HasSubstr("Colonnes\\3")), testing::Not(HasSubstr("Champs\\5"))));
}

TEST_P(DialogOverBadInput, SavesTheWholeTaskThatAnotherProcessDeleted) {
  // Leaves out "Etat" and the dates, which are saved differently for a new and for an existing
  // task.
  const auto settings = [this] {
    std::set<std::string> kept;
    std::istringstream lines(Settings());
    for (std::string line; std::getline(lines, line);) {
      const bool is_stamp = line.starts_with("Etat=") || line.find("Le=") != std::string::npos;
      if (!is_stamp) kept.insert(line);
    }
    return kept;
  };
  place_.Configure([](Person& person) { person.Click("cmdValider"); });
  const std::set<std::string> before = settings();
  place_.Configure([&](Person& person) {
    place_.Imptable({"delete", "S1", "T1"});
    person.Click("cmdValider");
  });
  EXPECT_EQ(settings(), before);
}

TEST_P(DialogOverBadInput, LeavesNoTraceInTheRegistryWhenItIsCancelled) {
  const auto everything = [this] {
    place_.Imptable({"reg", "export", place_.folder.path() + "all.reg"});
    return place_.folder.Read("all.reg");
  };
  const std::string before = everything();
  for (const char* const key : {"Escape", "alt+F4", "alt+a"}) {
    place_.Configure([&](Person& person) {
      person.Fill("txtOwn", "me");
      person.Click("optBCP(2)");
      person.ClickTab(1);
      person.Click("chkParam");
      person.Fill("textNbCol", "7");
      person.ClickTab(3);
      person.Click("cmdInfo");
      person.WaitForCell("Grid2", 0, 3, "");
      person.Press(key);
    });
    EXPECT_EQ(everything(), before) << key;
  }
}

INSTANTIATE_TEST_SUITE_P(EachLanguage, DialogOverBadInput, kEachLanguage, LanguageName);

}  // namespace
}  // namespace imptable
