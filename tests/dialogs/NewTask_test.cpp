#include <gtest/gtest.h>

#include "tests/dialogs/DialogPlace.h"

namespace imptable {
namespace {

constexpr const char* kClients =
    "CREATE TABLE CLIENT (ID INTEGER PRIMARY KEY, NAME VARCHAR(20), BORN DATE, AMOUNT FLOAT);";

TEST(NewTask, IsMadeWithTheDialogAloneAndRuns) {
  DialogPlace place(kClients, Language::kEnglish);
  place.folder.Write("in/CLIENTS.CSV", "1;Anna;15/11/2006;12.5\n2;Bob;01/02/1999;3\n");
  const std::int32_t status = place.Configure([&](Person& person) {
    person.Click("Combo1");
    person.Type("Shop");
    person.Fill("txtLogin", "me");
    person.Click("Command1");
    person.WaitForDialog("FrmTable");
    person.Press("Down");
    person.Press("Return");
    person.WaitForDialog("FrmImpTable");
    EXPECT_EQ(person.Sees("txtTable"), "CLIENT");
    person.Fill("txtAlias", "CLIENTS");
    person.Fill("txtRep", place.Files());
    person.ClickTab(3);
    EXPECT_EQ(person.Sees("TextFichier"), "1;Anna;15/11/2006;12.5");
    person.ClickTab(1);
    person.Click("optForm(0)");
    EXPECT_EQ(place.boxes().Answer("Return"), "Inform|Import Table|File contains 4 column(s)");
    person.Click("optForm(1)");
    EXPECT_EQ(place.boxes().Answer("Return"), "Inform|Import Table|File contains 4 column(s)");
    EXPECT_EQ(person.Sees("textNbCol"), "4");
    person.Click("chkDec");
    person.ClickTab(3);
    person.ClickCell("Grid1", 2, 1);
    person.Press("Down");
    person.Press("Down");
    person.Press("Down");
    person.Press("Return");
    person.WaitForDialog("FormDate");
    person.Click("OptD(1)");
    person.Click("Option6");
    person.Fill("TextSep", "/");
    person.Press("Return");
    person.WaitForDialog("FrmImpTable");
    EXPECT_EQ(person.SeesCell("Grid1", 2, 2), "dd/mm/yyyy");
    person.Click("cmdInfo");
    person.WaitUntil([&] { return person.SeesCell("Grid2", 3, 1) == "AMOUNT"; }, "AMOUNT");
    person.ClickCell("Grid2", 0, 3);
    person.Press("Escape");
    person.Click("cmdValider");
  });
  EXPECT_EQ(status, 1);
  EXPECT_EQ(place.boxes().unanswered(), std::vector<std::string>());
  place.Imptable({"run", "S1", "T1"});
  EXPECT_EQ(place.Rows("SELECT * FROM CLIENT ORDER BY ID"),
            "1|Anna|2006-11-15|12.5\n2|Bob|1999-02-01|3.0\n");
}

}  // namespace
}  // namespace imptable
