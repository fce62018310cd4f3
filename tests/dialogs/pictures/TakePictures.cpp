// Takes the pictures of the documentation: each tab and dialog, in both languages.
//
//   dialog_pictures FOLDER

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iostream>

#include "dialogs/widgets/Toolkit.h"
#include "tests/dialogs/DialogPlace.h"

namespace imptable {
namespace {

constexpr const char* kSchema =
    "CREATE TABLE CLIENT (ID INTEGER PRIMARY KEY, NAME VARCHAR(20), BORN DATE, AMOUNT FLOAT);"
    "CREATE TABLE ORDERS (ID INTEGER PRIMARY KEY, CLIENT INTEGER, DAY DATE);"
    "CREATE UNIQUE INDEX CLIENT_NAME ON CLIENT (NAME);";

constexpr int kTabCount = 4;

/// The folder that the pictures show, so it isn't named like a test's. scripts/pictures makes it.
constexpr const char* kSources = "/srv/imports";

class Photographer {
 public:
  Photographer(Person& person, WatchedBoxes& boxes, std::string folder)
      : person_(person), boxes_(boxes), folder_(std::move(folder)) {}

  void Work() {
    for (int tab = 0; tab < kTabCount; ++tab) {
      person_.ClickTab(tab);
      Take("tab" + std::to_string(tab));
    }
    TakeColumns();
    TakePickers();
    person_.Click("cmdAnnuler");
  }

 private:
  void Take(const std::string& name) { person_.TakePicture(folder_ + '/' + name + ".png"); }

  void ChooseType(int row, const std::string& entry) {
    person_.ClickCell("Grid1", row, 1);
    person_.Choose(entry);
  }

  void TakeColumns() {
    ChooseType(2, "Date...");
    person_.WaitForDialog("FormDate");
    Take("date");
    person_.Press("Escape");
    person_.WaitForDialog("FrmImpTable");
    person_.ClickCell("Grid2", 1, 3);
    Take("origin");
    person_.Press("Escape");
    person_.ClickTab(1);
    person_.Click("optForm(0)");
    boxes_.Answer("Return");
    person_.ClickTab(3);
    ChooseType(1, "Longueur");
    person_.WaitForDialog("FormNombre");
    Take("number");
    person_.Press("Escape");
    person_.WaitForDialog("FrmImpTable");
  }

  void TakePickers() {
    person_.ClickTab(0);
    person_.Click("Command1");
    person_.WaitForDialog("FrmTable");
    person_.Press("Down");
    Take("tables");
    person_.Press("Escape");
    person_.WaitForDialog("FrmImpTable");
    person_.Click("optBCP(1)");
    person_.Click("cmdCle");
    person_.WaitForDialog("FrmTable");
    person_.Press("Down");
    Take("keys");
    person_.Press("Escape");
    person_.WaitForDialog("FrmImpTable");
    person_.Click("cmdSv1");
    person_.WaitForDialog("FrmVariables");
    Take("variables");
    person_.Press("Escape");
    person_.WaitForDialog("FrmImpTable");
  }

  Person& person_;
  WatchedBoxes& boxes_;
  std::string folder_;
};

void TakePicturesIn(Language language, const std::string& folder) {
  std::filesystem::create_directories(folder);
  DialogPlace place(kSchema, language);
  place.Imptable({"set", "S1", "T1", "Base Cible=Shop", "Login=anna", "Table=CLIENT",
                  "Alias=CLIENTS", std::string("Dir=") + kSources, "FormatFile=1",
                  "NombreColonnes=4", "Colonnes\\1=4", "Colonnes\\2=1", "Colonnes\\3=7,7,,/,",
                  "Colonnes\\4=5,2", "Param=1", "Champs\\1=ID,INTEGER,(Col)1",
                  "Champs\\2=NAME,VARCHAR(20),(Col)2", "Champs\\3=BORN,DATE,(Col)3",
                  "Champs\\4=AMOUNT,FLOAT,(Col)4"});
  place.Imptable({"variable", "S1", std::string("FOLDER=") + kSources});
  place.Imptable({"variable", "S1", "SOURCE=Shop"});
  place.Configure([&](Person& person) { Photographer(person, place.boxes(), folder).Work(); });
}

}  // namespace
}  // namespace imptable

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const auto toolkit = imptable::Toolkit::Start();
  if (argc != 2 || !toolkit) {
    std::cerr << "usage: tests/dialogs/with-screen dialog_pictures FOLDER\n";
    return 2;
  }
  std::ofstream source(std::string(imptable::kSources) + "/CLIENTS.csv");
  source << "1;Anna;15/11/2006;12.5\n2;Bob;01/02/1999;3\n" << std::flush;
  if (!source) {
    std::cerr << imptable::kSources << " can't be written to: scripts/pictures makes it\n";
    return 1;
  }
  const std::string folder = argv[1];
  imptable::TakePicturesIn(imptable::Language::kFrench, folder + "/fr");
  imptable::TakePicturesIn(imptable::Language::kEnglish, folder + "/en");
  // A failure outside of any test is recorded, too.
  return testing::UnitTest::GetInstance()->Failed() ? 1 : 0;
}
