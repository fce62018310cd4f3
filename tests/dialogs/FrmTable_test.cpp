#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/dialog.h>
#include <wx/grid.h>

#include "tests/dialogs/ClientTask.h"
#include "tests/dialogs/DialogPlace.h"
#include "tests/dialogs/Languages.h"
#include "tests/drivers/ScriptedDataSource.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kTables =
    "CREATE TABLE CLIENT (ID INTEGER PRIMARY KEY, NAME VARCHAR(20), TOWN VARCHAR(20));"
    "CREATE UNIQUE INDEX CLIENT_NAME ON CLIENT (NAME, TOWN);"
    "CREATE TABLE LOG (TEXT VARCHAR(80));";

std::string Title() {
  return OnMainThread([] { return FrontDialog()->GetTitle().utf8_string(); });
}

class TablePickerWindow : public testing::TestWithParam<Language> {
 protected:
  TablePickerWindow() : place_(kTables, GetParam()) { SetUpClientTask(place_); }

  static void Open(Person& person, const std::string& button) {
    person.Click(button);
    person.WaitForDialog("FrmTable");
  }

  static void Leave(Person& person) {
    person.WaitForDialog("FrmImpTable");
    person.Press("Escape");
  }

  DialogPlace place_;
};

TEST_P(TablePickerWindow, ListsTheTablesAndPicksOneByEachWayToConfirm) {
  place_.Configure([&](Person& person) {
    Open(person, "Command1");
    EXPECT_EQ(Title(), In(GetParam(), "Sélectionner une Table", "Select table"));
    EXPECT_THAT(person.Lines(), ElementsAre("|CLIENT", "|LOG"));
    person.Press("Down Down Return");
    person.WaitForDialog("FrmImpTable");
    person.WaitForText("txtTable", "LOG");
    Open(person, "Command1");
    person.Press("Down");
    EXPECT_THAT(person.Lines(), ElementsAre(">|CLIENT", "|LOG"));
    person.Press(In(GetParam(), "alt+v", "alt+c"));
    person.WaitForDialog("FrmImpTable");
    person.WaitForText("txtTable", "CLIENT");
    Open(person, "Command1");
    person.ClickLine(1, 2);
    person.WaitForDialog("FrmImpTable");
    person.WaitForText("txtTable", "LOG");
    Open(person, "Command1");
    person.ClickLine(0, 1);
    person.Click("cmdValider");
    person.WaitForDialog("FrmImpTable");
    person.WaitForText("txtTable", "CLIENT");
    Leave(person);
  });
}

TEST_P(TablePickerWindow, ChangesNothingWhenItIsLeftByEachOtherWay) {
  place_.Configure([&](Person& person) {
    person.Fill("txtOwn", "me");
    for (const auto& leave : std::vector<std::function<void()>>{
             [&] { person.Press("Escape"); }, [&] { person.Click("cmdAnnuler"); },
             [&] { person.Press("alt+F4"); },
             [&] { person.Press(In(GetParam(), "alt+a", "alt+a")); }}) {
      Open(person, "Command1");
      person.Press("Down Down");
      leave();
      person.WaitForDialog("FrmImpTable");
    }
    Open(person, "Command1");
    person.Click("cmdValider");  // with nothing selected
    person.WaitForDialog("FrmImpTable");
    EXPECT_EQ(person.Sees("txtOwn"), "me");
    EXPECT_EQ(person.Sees("txtTable"), "CLIENT");
    Leave(person);
  });
}

TEST_P(TablePickerWindow, ListsTheKeysAsARunTakesThem) {
  place_.Configure([&](Person& person) {
    person.Click("optBCP(1)");
    Open(person, "cmdCle");
    EXPECT_EQ(Title(), In(GetParam(), "Sélectionner une Clé ou un Index", "Select key or index"));
    EXPECT_THAT(person.Lines(), ElementsAre("ID|", "NAME,TOWN|"));
    person.Press("End Return");
    person.WaitForDialog("FrmImpTable");
    person.WaitForText("txtCle", "NAME,TOWN");
    Open(person, "cmdCle");
    person.Press("Down Escape");
    person.WaitForDialog("FrmImpTable");
    EXPECT_EQ(person.Sees("txtCle"), "NAME,TOWN");
    Leave(person);
  });
}

TEST_P(TablePickerWindow, SaysThatATableHasNoKey) {
  place_.Configure([&](Person& person) {
    person.Fill("txtTable", "LOG");
    person.Click("optBCP(4)");
    person.Click("cmdCle");
    EXPECT_EQ(place_.boxes().Answer("Return"),
              "Warn|" + In(GetParam(),
                           "Importation Table|Cette table ne comporte pas de Clé Primaire ou "
                           "d'index unique",
                           "Import Table|This table contains no primary key or unique index"));
    person.WaitForDialog("FrmTable");
    EXPECT_THAT(person.Lines(), IsEmpty());
    person.Press("Escape");
    Leave(person);
  });
}

INSTANTIATE_TEST_SUITE_P(EachLanguage, TablePickerWindow, kEachLanguage, LanguageName);

TEST(TablePickerOfOwners, FillsOwnerAndTable) {
  DialogPlace place("", Language::kEnglish);
  ScriptedDataSource source;
  source.Script("table SALES TABLE dbo\ntable LOG\n");
  place.Configure([&](Person& person) {
    person.Fill("Combo1", source.name());
    person.Click("Command1");
    person.WaitForDialog("FrmTable");
    EXPECT_THAT(person.Lines(), ElementsAre("dbo|SALES", "|LOG"));
    person.Press("Down Return");
    person.WaitForDialog("FrmImpTable");
    person.WaitForText("txtTable", "SALES");
    EXPECT_EQ(person.Sees("txtOwn"), "dbo");
    person.Click("Command1");
    person.WaitForDialog("FrmTable");
    person.Press("Down Down Return");
    person.WaitForDialog("FrmImpTable");
    person.WaitForText("txtTable", "LOG");
    EXPECT_EQ(person.Sees("txtOwn"), "");
    person.Press("Escape");
  });
}

/// The rows of Grid2 whose names are on the ground of key columns.
std::vector<std::string> MarkedNames(Person& person) {
  return person.Ask("Grid2", [](wxWindow& window) {
    const auto& grid = dynamic_cast<wxGrid&>(window);
    std::vector<std::string> marked;
    for (int row = 0; row < grid.GetNumberRows(); ++row) {
      for (int column = 0; column < grid.GetNumberCols(); ++column) {
        if (grid.GetCellBackgroundColour(row, column) != wxColour(255, 255, 192)) continue;
        marked.push_back(grid.GetCellValue(row, column).utf8_string());
      }
    }
    return marked;
  });
}

TEST(KeyColumns, AreMarkedInAnExistingTaskAndAfterTheListingOfATable) {
  DialogPlace place(kTables, Language::kEnglish);
  SetUpClientTask(place);
  place.Configure([&](Person& person) {
    person.ClickTab(3);
    EXPECT_THAT(MarkedNames(person), ElementsAre("ID", "NAME"));
    person.Click("cmdInfo");
    person.WaitForCell("Grid2", 2, 1, "TOWN");
    EXPECT_THAT(MarkedNames(person), ElementsAre("ID", "NAME", "TOWN"));
    person.ClickTab(0);
    person.Fill("txtTable", "LOG");
    person.ClickTab(3);
    person.Click("cmdInfo");
    person.WaitForCell("Grid2", 0, 1, "TEXT");
    EXPECT_THAT(MarkedNames(person), IsEmpty());
    person.Press("Escape");
  });
}

}  // namespace
}  // namespace imptable
