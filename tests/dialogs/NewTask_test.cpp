#include <gtest/gtest.h>

#include "tests/dialogs/DialogPlace.h"
#include "tests/dialogs/Languages.h"

namespace imptable {
namespace {

constexpr const char* kClients =
    "CREATE TABLE CLIENT (ID INTEGER PRIMARY KEY, NAME VARCHAR(20), BORN DATE, AMOUNT FLOAT);";

/// From an empty registry file to a finished import, in both languages.
class NewTask : public testing::TestWithParam<Language> {
 protected:
  NewTask() : place_(kClients, GetParam()) {
    place_.folder.Write("in/CLIENTS.CSV", "1;Anna;15/11/2006;12.5\n2;Bob;01/02/1999;3\n");
  }

  void ExpectImport() {
    EXPECT_EQ(place_.boxes().unanswered(), std::vector<std::string>());
    place_.Imptable({"run", "S1", "T1"});
    EXPECT_EQ(place_.Rows("SELECT * FROM CLIENT ORDER BY ID"),
              "1|Anna|2006-11-15|12.5\n2|Bob|1999-02-01|3.0\n");
  }

  /// Gives the row of Grid2 where the cursor is the file's column of the same number, and goes on.
  static void PickOrigin(Person& person, int row) {
    person.Press("F4");
    person.WaitForFocus("List1");
    for (int entry = 0; entry < 3 + row; ++entry) person.Press("Down");
    person.Press("Return");
    person.WaitForCell("Grid2", row, 3, "Col N° " + std::to_string(row + 1));
    person.WaitForFocus("Grid2");
    person.Press("Down");
  }

  /// What each choice of a file format says.
  std::string Counted() const {
    return "Inform|" + In(GetParam(), "Importation Table|Le fichier contient 4 colonne(s)",
                          "Import Table|File contains 4 column(s)");
  }

  std::string DateFormat() const { return In(GetParam(), "jj/mm/aaaa", "dd/mm/yyyy"); }

  DialogPlace place_;
};

TEST_P(NewTask, IsMadeWithTheDialogAloneAndRuns) {
  const std::int32_t status = place_.Configure([&](Person& person) {
    person.Click("Combo1");
    person.Type("Shop");
    person.Fill("txtLogin", "me");
    person.Click("Command1");
    person.WaitForDialog("FrmTable");
    person.Press("Down Return");
    person.WaitForDialog("FrmImpTable");
    EXPECT_EQ(person.Sees("txtTable"), "CLIENT");
    person.Fill("txtAlias", "CLIENTS");
    person.Fill("txtRep", place_.Files());
    person.ClickTab(3);
    EXPECT_EQ(person.Sees("TextFichier"), "1;Anna;15/11/2006;12.5");
    person.ClickTab(1);
    person.Click("optForm(0)");
    EXPECT_EQ(place_.boxes().Answer("Return"), Counted());
    person.Click("optForm(1)");
    EXPECT_EQ(place_.boxes().Answer("Return"), Counted());
    EXPECT_EQ(person.Sees("textNbCol"), "4");
    person.Click("chkDec");
    person.ClickTab(3);
    person.ClickCell("Grid1", 2, 1);
    person.Choose("Date...");
    person.WaitForDialog("FormDate");
    person.Click("OptD(1)");
    person.Click("Option6");
    person.Fill("TextSep", "/");
    person.Press("Return");
    person.WaitForDialog("FrmImpTable");
    EXPECT_EQ(person.SeesCell("Grid1", 2, 2), DateFormat());
    person.Click("cmdInfo");
    person.WaitForCell("Grid2", 3, 1, "AMOUNT");
    person.Click("cmdValider");
  });
  EXPECT_EQ(status, 1);
  ExpectImport();
}

TEST_P(NewTask, IsMadeByTheKeyboardAlone) {
  place_.Configure([&](Person& person) {
    person.WaitForFocus("Combo1");
    person.Type("Shop");
    person.Press("Tab Tab");
    person.WaitForFocus("txtLogin");
    person.Type("me");
    person.GoTo("Command1");
    person.Press("space");
    person.WaitForDialog("FrmTable");
    person.Press("Down Return");
    person.WaitForDialog("FrmImpTable");
    person.WaitForText("txtTable", "CLIENT");
    person.GoTo("txtAlias");
    person.Type("CLIENTS");
    person.GoTo("txtRep");
    person.Type(place_.Files());
    person.Press("ctrl+Next");
    person.WaitUntil([&] { return person.FrontTab() == 1; }, "the second tab");
    person.GoTo("optForm(1)");
    person.Press("Up");
    EXPECT_EQ(place_.boxes().Answer("Return"), Counted());
    person.WaitForFocus("optForm(0)");
    person.Press("Down");
    EXPECT_EQ(place_.boxes().Answer("Return"), Counted());
    person.GoTo("chkDec");
    person.Press("space");
    person.GoTo("chkParam");
    person.Press("space");
    person.Press("ctrl+Next");
    person.Press("ctrl+Next");
    person.WaitUntil([&] { return person.FrontTab() == 3; }, "the fourth tab");
    person.GoTo("Grid1");
    person.Press("Down Down F4");
    person.Choose("Date...");
    person.WaitForDialog("FormDate");
    person.GoTo("OptD(0)");
    person.Press("Right");
    person.WaitForText("OptD(1)", "1");
    person.GoTo("Option5");
    person.Press("Down");
    person.GoTo("TextSep");
    person.Type("/");
    person.Press("Return");
    person.WaitForDialog("FrmImpTable");
    person.WaitForCell("Grid1", 2, 2, DateFormat());
    person.GoTo("cmdInfo");
    person.Press("space");
    person.WaitForCell("Grid2", 3, 1, "AMOUNT");
    person.GoTo("Grid2");
    person.Press("Right Right Right");
    for (int row = 0; row < 4; ++row) PickOrigin(person, row);
    person.Press(In(GetParam(), "alt+v", "alt+c"));
  });
  EXPECT_NE(place_.Imptable({"get", "S1", "T1"}).find("Champs\\4=AMOUNT,FLOAT,(Col)4"),
            std::string::npos);
  ExpectImport();
}

INSTANTIATE_TEST_SUITE_P(EachLanguage, NewTask, kEachLanguage, LanguageName);

}  // namespace
}  // namespace imptable
