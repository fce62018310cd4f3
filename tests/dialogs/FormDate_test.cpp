#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/dialog.h>

#include "tests/dialogs/ClientTask.h"
#include "tests/dialogs/DialogPlace.h"
#include "tests/dialogs/Languages.h"

namespace imptable {
namespace {

using testing::ElementsAre;

/// The date format dialog of the second column of the file, worked by the keyboard.
class FormDateDialog : public testing::TestWithParam<Language> {
 protected:
  FormDateDialog() : place_(kClientTable, GetParam()) { SetUpClientTask(place_); }

  void Configure(const std::function<void(Person&)>& acts) {
    place_.Configure([&](Person& person) {
      person.ClickTab(3);
      person.GoTo("Grid1");
      person.Press("Down");
      acts(person);
      person.WaitForDialog("FrmImpTable");
      person.Press("Escape");
    });
  }

  static void Open(Person& person) {
    person.Press("F4");
    person.Choose("Date...");
    person.WaitForDialog("FormDate");
  }

  static std::vector<std::string> Captions(Person& person,
                                           const std::vector<std::string>& controls) {
    std::vector<std::string> captions;
    for (const std::string& control : controls) {
      captions.push_back(
          person.Ask(control, [](wxWindow& window) { return window.GetLabel().utf8_string(); }));
    }
    return captions;
  }

  DialogPlace place_;
};

TEST_P(FormDateDialog, ComposesAFormatByTheKeyboardAlone) {
  Configure([&](Person& person) {
    Open(person);
    person.WaitForFocus("OptD(0)");
    person.Press("Down Down");
    person.WaitForText("OptD(4)", "1");
    person.GoTo("Option5");
    person.Press("Down");
    person.WaitForText("Option6", "1");
    person.GoTo("TextSep");
    person.Type("-x");
    EXPECT_EQ(person.Sees("TextSep"), "-");
    person.GoTo("chkh1(0)");
    person.Press("space");
    person.WaitForText("chkh1(0)", "1");
    person.GoTo("chkh1(1)");
    person.Press("space");
    person.WaitForText("chkh1(1)", "1");
    EXPECT_EQ(person.Sees("chkh1(0)"), "0");
    person.Press("Return");
    person.WaitForDialog("FrmImpTable");
    person.WaitForCell("Grid1", 1, 2, In(GetParam(), "aaaa-jj-mm hh:mm:ss", "yyyy-dd-mm hh:mm:ss"));
    EXPECT_EQ(person.SeesCell("Grid1", 1, 1), "Date");
  });
}

TEST_P(FormDateDialog, OpensOnTheFormatOfTheRow) {
  place_.Imptable({"set", "S1", "T1", "Colonnes\\2=7,9,,.,0"});
  Configure([&](Person& person) {
    EXPECT_EQ(person.SeesCell("Grid1", 1, 2),
              In(GetParam(), "mm.jj.aaaa hh:mm", "mm.dd.yyyy hh:mm"));
    Open(person);
    person.WaitForFocus("OptD(3)");
    EXPECT_EQ(person.Sees("OptD(3)"), "1");
    EXPECT_EQ(person.Sees("Option6"), "1");
    EXPECT_EQ(person.Sees("TextSep"), ".");
    EXPECT_EQ(person.Sees("chkh1(0)"), "1");
    EXPECT_EQ(person.Sees("chkh1(1)"), "0");
    person.Press("Escape");
  });
}

TEST_P(FormDateDialog, LeavesTheRowAloneWhenItIsCancelled) {
  Configure([](Person& person) {
    for (const char* const key : {"Escape", "alt+a", "alt+F4"}) {
      Open(person);
      person.Press("Down");
      person.Press(key);
      person.WaitForDialog("FrmImpTable");
    }
    EXPECT_NE(person.SeesCell("Grid1", 1, 1), "Date");
    EXPECT_EQ(person.SeesCell("Grid1", 1, 2), "");
  });
}

TEST_P(FormDateDialog, HasItsCaptionsInTheLanguageOfTheUser) {
  Configure([&](Person& person) {
    Open(person);
    EXPECT_EQ(OnMainThread([] { return FrontDialog()->GetTitle().utf8_string(); }),
              In(GetParam(), "Format des Dates", "Date format"));
    EXPECT_THAT(
        Captions(person, {"Frame1", "Frame2", "Option5", "Option6", "Frame3"}),
        ElementsAre(In(GetParam(), "Style Date", "Date style"),
                    In(GetParam(), "Séparateur", "Separator"), In(GetParam(), "Sans", "Exclude"),
                    In(GetParam(), "Avec", "Include"), In(GetParam(), "Heure", "Time")));
    EXPECT_THAT(
        Captions(person, {"cmdValider", "cmdAnnuler"}),
        ElementsAre(In(GetParam(), "&Valider", "&Confirm"), In(GetParam(), "&Annuler", "C&ancel")));
    EXPECT_THAT(Captions(person, {"OptD(0)", "OptD(1)", "OptD(2)", "OptD(3)", "OptD(4)", "OptD(5)",
                                  "OptD(6)", "OptD(7)", "chkh1(0)", "chkh1(1)"}),
                ElementsAre("jj?mm?aa", "jj?mm?aaaa", "mm?jj?aa", "mm?jj?aaaa", "aaaa?jj?mm",
                            "aa?jj?mm", "aaaa?mm?jj", "aa?mm?jj", "HH:MM", "HH:MM:SS"));
    person.Press("Escape");
  });
}

INSTANTIATE_TEST_SUITE_P(EachLanguage, FormDateDialog, kEachLanguage, LanguageName);

}  // namespace
}  // namespace imptable
