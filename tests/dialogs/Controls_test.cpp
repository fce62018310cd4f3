#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/dialog.h>

#include <map>

#include "tests/dialogs/ClientTask.h"
#include "tests/dialogs/DialogPlace.h"
#include "tests/dialogs/Languages.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> Missing(const std::vector<std::string>& names) {
  return OnMainThread([&] {
    std::vector<std::string> missing;
    for (const std::string& name : names) {
      if (FrontDialog()->FindWindow(wxString::FromUTF8(name)) == nullptr) missing.push_back(name);
    }
    return missing;
  });
}

TEST(Controls, HaveTheirOwnNames) {
  DialogPlace place(kClientTable, Language::kFrench);
  place.Configure([](Person& person) {
    EXPECT_THAT(
        Missing({"SSTab1",       "txtTache",   "Label8",     "Combo1",     "SSFrame3",
                 "Label11",      "txtLogin",   "Label10",    "txtPass",    "Label9",
                 "cmdAdminODBC", "txtOwn",     "SSFrame1",   "txtTable",   "Command1",
                 "OptCsv(0)",    "OptCsv(1)",  "txtAlias",   "Label2",     "txtRep",
                 "Label4",       "optBCP(0)",  "optBCP(1)",  "optBCP(2)",  "optBCP(3)",
                 "optBCP(4)",    "Frame3D4",   "txtCle",     "Label5",     "cmdCle",
                 "chkPrimKey",   "optSup(0)",  "optSup(1)",  "optSup(2)",  "SSFrame2",
                 "chkSupp",      "optForm(0)", "optForm(1)", "SSFrame4",   "txtDelimiteurFile",
                 "Label7",       "textNbCol",  "UpDown1",    "Label6",     "chkDec",
                 "chkNull",      "chkParam",   "cmdInfo",    "txtErreur",  "Label3",
                 "chkDou",       "txtErr",     "Label12",    "chkRecup",   "Frame3D7",
                 "txtComm",      "Grid1",      "Grid2",      "List1",      "Command3",
                 "TextFichier",  "Text1",      "grdAc",      "cmdAcA",     "cmdAcM",
                 "cmdAcS",       "cmdValider", "cmdApp",     "cmdAnnuler", "cmdHelp",
                 "cmdSv",        "cmdSv1"}),
        IsEmpty());
    person.Press("Escape");
  });
}

/// The controls that the key moves the focus to, one after the other, from the focused one until
/// that has it again.
std::vector<std::string> Stops(Person& person, const std::string& key) {
  std::vector<std::string> stops{person.Focused()};
  while (stops.size() < 60) {
    person.Press(key);
    const std::string before = stops.back();
    person.WaitUntil([&] { return person.Focused() != before; }, key + " to leave " + before);
    if (person.Focused() == stops.front()) return stops;
    stops.push_back(person.Focused());
  }
  return {"no end"};
}

/// With a task whose mode has a key, so that every control of the first tab can be used.
class TabOrder : public testing::TestWithParam<const char*> {
 protected:
  TabOrder() {
    SetUpClientTask(place_);
    place_.Imptable({"set", "S1", "T1", "Mode=1", "Cle/Index=ID"});
  }

  DialogPlace place_{kClientTable, Language::kEnglish};
};

TEST_P(TabOrder, GoesFromTopToBottomAndRound) {
  const std::string key = GetParam();
  place_.Configure([&](Person& person) {
    person.WaitForFocus("Combo1");
    EXPECT_THAT(
        Stops(person, key),
        ElementsAre("Combo1", "cmdSv1", "txtLogin", "cmdSv", "txtPass", "cmdSv", "cmdAdminODBC",
                    "txtOwn", "cmdSv", "txtTable", "cmdSv", "Command1", "OptCsv(0)", "txtAlias",
                    "cmdSv", "txtRep", "cmdSv", "optBCP(1)", "txtCle", "cmdSv", "cmdCle",
                    "chkPrimKey", "cmdValider", "cmdApp", "cmdAnnuler", "SSTab1"));
    person.ClickTab(1);
    person.Click("chkSupp");
    EXPECT_THAT(Stops(person, key),
                ElementsAre("chkSupp", "optForm(1)", "txtDelimiteurFile", "textNbCol", "UpDown1",
                            "chkDec", "chkNull", "chkParam", "cmdValider", "cmdApp", "cmdAnnuler",
                            "SSTab1", "optSup(0)"));
    person.ClickTab(2);
    person.Click("chkRecup");
    EXPECT_THAT(Stops(person, key), ElementsAre("chkRecup", "cmdValider", "cmdApp", "cmdAnnuler",
                                                "SSTab1", "txtErreur"));
    person.ClickTab(3);
    person.Click("TextFichier");
    EXPECT_THAT(Stops(person, key), ElementsAre("TextFichier", "Grid1", "Grid2", "cmdInfo",
                                                "cmdValider", "cmdApp", "cmdAnnuler", "SSTab1"));
    person.Press("Escape");
  });
}

INSTANTIATE_TEST_SUITE_P(ByTabAndByEnter, TabOrder, testing::Values("Tab", "Return", "KP_Enter"),
                         [](const auto& key) { return std::string(key.param); });

class AccessKeys : public testing::TestWithParam<Language> {};

TEST_P(AccessKeys, PressTheButtonsOfTheDialog) {
  DialogPlace place(kClientTable, GetParam());
  SetUpClientTask(place);
  const auto login = [&] { return place.Imptable({"get", "S1", "T1", "Login"}); };
  place.Configure([&](Person& person) {
    person.Fill("txtLogin", "bob");
    person.Press("alt+p");
    person.WaitUntil([&] { return login() == "bob\n"; }, "Apply to save");
    person.Fill("txtLogin", "eve");
    person.Press("alt+a");
  });
  EXPECT_EQ(login(), "bob\n");
  place.Configure([&](Person& person) {
    person.Fill("txtLogin", "eve");
    person.Press(In(GetParam(), "alt+v", "alt+c"));
  });
  EXPECT_EQ(login(), "eve\n");
}

INSTANTIATE_TEST_SUITE_P(EachLanguage, AccessKeys, kEachLanguage, LanguageName);

using Names = std::map<std::string, std::string>;

/// What a screen reader calls the controls that have no caption of their own.
Names NamesOf(Person& person, const std::vector<std::string>& controls) {
  Names names;
  for (const std::string& control : controls) names[control] = person.AccessibleName(control);
  return names;
}

TEST(AccessibleNames, SayWhatTheControlsAreFor) {
  DialogPlace place(kClientTable, Language::kEnglish);
  SetUpClientTask(place);
  place.Configure([&](Person& person) {
    const Names expected{{"txtTache", "Process name"},
                         {"Combo1", "Data source name"},
                         {"txtLogin", "User"},
                         {"txtOwn", "Table"},
                         {"txtTable", "Table"},
                         {"txtAlias", "Alias"},
                         {"txtRep", "Directory"},
                         {"txtCle", "Key used"},
                         {"txtDelimiteurFile", "Separator"},
                         {"textNbCol", "No. of columns"},
                         {"UpDown1", "No. of columns"},
                         {"txtErreur", "No. of authorized errors"},
                         {"txtErr", "Error code"},
                         {"cmdSv", "Select variable/constant"},
                         {"cmdSv1", "Select variable/constant"},
                         {"TextFichier", "File"},
                         {"Grid1", "Column format"},
                         {"Grid2", "Destination fields"},
                         {"List1", "Origin"},
                         {"Command3", "Origin"},
                         {"Text1", "Origin"}};
    std::vector<std::string> controls;
    for (const auto& [control, name] : expected) controls.push_back(control);
    EXPECT_EQ(NamesOf(person, controls), expected);
    person.Click("OptCsv(1)");
    person.WaitForText("Label2", "File");
    EXPECT_EQ(person.AccessibleName("txtAlias"), "File");
    person.Click("Command1");
    person.WaitForDialog("FrmTable");
    EXPECT_EQ(person.AccessibleName("List1"), "Select table");
    person.Press("Escape");
    person.WaitForDialog("FrmImpTable");
    person.Click("cmdSv1");
    person.WaitForDialog("FrmVariables");
    EXPECT_EQ(person.AccessibleName("lstVariables"), "Select variable/constant");
    person.Press("Escape");
    person.WaitForDialog("FrmImpTable");
    person.ClickTab(3);
    person.ClickCell("Grid1", 0, 1);
    person.Choose("Date...");
    person.WaitForDialog("FormDate");
    EXPECT_EQ(person.AccessibleName("TextSep"), "Separator");
    person.Press("Escape");
    person.WaitForDialog("FrmImpTable");
    person.Press("Escape");
  });
}

TEST(AccessibleNames, AreInTheLanguageOfTheDialog) {
  DialogPlace place(kClientTable, Language::kFrench);
  place.Configure([&](Person& person) {
    EXPECT_EQ(person.AccessibleName("Combo1"), "Nom de la Source de Données");
    EXPECT_EQ(person.AccessibleName("cmdSv1"), "Sélectionner une variable/constante");
    EXPECT_EQ(person.AccessibleName("Grid2"), "Affectation des colonnes ");
    person.Press("Escape");
  });
}

TEST(AccessibleNames, BelongToTheFieldOfADropDownListToo) {
  DialogPlace place(kClientTable, Language::kEnglish);
  place.Configure([&](Person& person) {
    EXPECT_EQ(person.AccessibleNameOfFocus(), "Data source name");
    person.Click("txtPass");
    person.WaitForFocus("txtPass");
    EXPECT_EQ(person.AccessibleNameOfFocus(), "Password");
    person.Press("Escape");
  });
}

}  // namespace
}  // namespace imptable
