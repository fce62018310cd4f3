#include <gtest/gtest.h>
#include <wx/dialog.h>

#include "tests/dialogs/ClientTask.h"
#include "tests/dialogs/DialogPlace.h"
#include "tests/dialogs/Languages.h"

namespace imptable {
namespace {

/// The number dialog of a Single in a file of fixed width, worked by the keyboard.
class FormNombreDialog : public testing::TestWithParam<Language> {
 protected:
  FormNombreDialog() : place_(kClientTable, GetParam()) {
    SetUpClientTask(place_);
    place_.Imptable({"set", "S1", "T1", "FormatFile=0", "Colonnes\\1=5,2,10", "Colonnes\\2=1,,12"});
  }

  void Configure(const std::function<void(Person&)>& acts) {
    place_.Configure([&](Person& person) {
      person.ClickTab(3);
      person.GoTo("Grid1");
      acts(person);
      person.WaitForDialog("FrmImpTable");
      person.Press("Escape");
    });
  }

  static void Open(Person& person, const std::string& entry) {
    person.Press("F4");
    person.Choose(entry);
    person.WaitForDialog("FormNombre");
    person.WaitForFocus("TextNombre");
  }

  static std::string Title() {
    return OnMainThread([] { return FrontDialog()->GetTitle().utf8_string(); });
  }

  DialogPlace place_;
};

TEST_P(FormNombreDialog, WritesALengthWithoutLeadingZeros) {
  Configure([&](Person& person) {
    Open(person, "Longueur");
    EXPECT_EQ(Title(), In(GetParam(), "Longueur", "Length"));
    EXPECT_EQ(person.Sees("TextNombre"), "10");
    person.Type("007");
    person.Press("Return");
    person.WaitForDialog("FrmImpTable");
    person.WaitForCell("Grid1", 0, 3, "7");
  });
}

TEST_P(FormNombreDialog, WritesTheDecimals) {
  Configure([&](Person& person) {
    Open(person, "Nombre de décimal");
    EXPECT_EQ(Title(), In(GetParam(), "Décimales", "Decimals"));
    EXPECT_EQ(person.Sees("TextNombre"), "2");
    person.Press("Up Up");
    person.WaitForText("TextNombre", "4");
    person.Press("Return");
    person.WaitForDialog("FrmImpTable");
    person.WaitForCell("Grid1", 0, 2, "4");
    EXPECT_EQ(person.SeesCell("Grid1", 0, 3), "10");
  });
}

TEST_P(FormNombreDialog, StepsByItsSpinnerAndNeverBelowOne) {
  Configure([](Person& person) {
    Open(person, "Nombre de décimal");
    person.ClickHalf("UpDown1", false);
    person.WaitForText("TextNombre", "1");
    person.ClickHalf("UpDown1", false);
    person.ClickHalf("UpDown1", true);
    person.WaitForText("TextNombre", "2");
    person.Press("Escape");
  });
}

TEST_P(FormNombreDialog, RefusesWhatIsNoWholeNumberAndStaysOpen) {
  Configure([&](Person& person) {
    Open(person, "Longueur");
    person.Type("1.5");
    person.Press("Return");
    EXPECT_EQ(place_.boxes().Answer("Return"),
              "Warn|" + In(GetParam(), "Longueur|Valeur incorrecte", "Length|Incorrect value"));
    person.WaitForDialog("FormNombre");
    person.WaitForFocus("TextNombre");
    person.Type("8");
    person.Press("Return");
    person.WaitForDialog("FrmImpTable");
    person.WaitForCell("Grid1", 0, 3, "8");
  });
}

TEST_P(FormNombreDialog, LeavesTheRowAloneWhenItIsCancelled) {
  Configure([](Person& person) {
    for (const char* const key : {"Escape", "alt+a", "alt+F4"}) {
      Open(person, "Longueur");
      person.Type("99");
      person.Press(key);
      person.WaitForDialog("FrmImpTable");
      EXPECT_EQ(person.SeesCell("Grid1", 0, 3), "10") << key;
    }
  });
}

INSTANTIATE_TEST_SUITE_P(EachLanguage, FormNombreDialog, kEachLanguage, LanguageName);

}  // namespace
}  // namespace imptable
