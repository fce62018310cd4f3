#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/window.h>

#include "tests/dialogs/ClientTask.h"
#include "tests/dialogs/DialogPlace.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// What one choice in the task's dialog does to its other controls.
class RulesOfTheTaskDialog : public testing::Test {
 protected:
  RulesOfTheTaskDialog() { SetUpClientTask(place_); }

  void Configure(const std::function<void(Person&)>& acts) {
    place_.Configure([&](Person& person) {
      acts(person);
      person.Press("Escape");
    });
    EXPECT_THAT(place_.boxes().unanswered(), IsEmpty());
  }

  /// Which of the controls can't be used.
  static std::vector<std::string> Disabled(Person& person, std::vector<std::string> controls) {
    std::erase_if(controls, [&](const std::string& name) { return person.IsEnabled(name); });
    return controls;
  }

  static void WaitUntilEnabled(Person& person, const std::string& control, bool enabled) {
    person.WaitUntil([&] { return Control(control).IsEnabled() == enabled; },
                     control + (enabled ? " to be usable" : " to be locked"));
  }

  DialogPlace place_{kClientTable, Language::kEnglish};
};

TEST_F(RulesOfTheTaskDialog, GiveDuplicatesToInsertAndAKeyToEveryOtherMode) {
  const std::vector<std::string> controls{"txtCle",     "Label5", "cmdCle",
                                          "chkPrimKey", "chkDou", "txtErr"};
  Configure([&](Person& person) {
    EXPECT_THAT(Disabled(person, controls),
                ElementsAre("txtCle", "Label5", "cmdCle", "chkPrimKey"));
    person.ClickTab(2);
    person.Click("chkDou");
    person.Fill("txtErr", "19");
    person.ClickTab(0);
    for (int mode = 1; mode < 5; ++mode) {
      person.Click("optBCP(" + std::to_string(mode) + ')');
      WaitUntilEnabled(person, "txtCle", true);
      EXPECT_THAT(Disabled(person, controls), ElementsAre("chkDou", "txtErr")) << mode;
    }
    EXPECT_EQ(person.Sees("chkDou"), "0");
    EXPECT_EQ(person.Sees("txtErr"), "");
    person.Fill("txtCle", "ID");
    person.Click("optBCP(0)");
    WaitUntilEnabled(person, "txtCle", false);
    EXPECT_EQ(person.Sees("txtCle"), "");
    EXPECT_THAT(Disabled(person, controls),
                ElementsAre("txtCle", "Label5", "cmdCle", "chkPrimKey"));
  });
}

TEST_F(RulesOfTheTaskDialog, LockTheKeyWhileThePrimaryKeyIsUsed) {
  Configure([&](Person& person) {
    person.Click("optBCP(2)");
    person.Click("chkPrimKey");
    WaitUntilEnabled(person, "txtCle", false);
    EXPECT_THAT(Disabled(person, {"txtCle", "Label5", "cmdCle", "chkPrimKey"}),
                ElementsAre("txtCle", "Label5", "cmdCle"));
    person.Click("chkPrimKey");
    WaitUntilEnabled(person, "txtCle", true);
    EXPECT_THAT(Disabled(person, {"txtCle", "Label5", "cmdCle"}), IsEmpty());
  });
}

TEST_F(RulesOfTheTaskDialog, LockTheSeparatorInAFileOfFixedWidth) {
  Configure([&](Person& person) {
    person.ClickTab(1);
    person.Click("optForm(0)");
    place_.boxes().Answer("Return");
    EXPECT_THAT(Disabled(person, {"txtDelimiteurFile", "Label7"}),
                ElementsAre("txtDelimiteurFile", "Label7"));
    person.Click("optForm(1)");
    place_.boxes().Answer("Return");
    EXPECT_THAT(Disabled(person, {"txtDelimiteurFile", "Label7"}), IsEmpty());
  });
}

TEST_F(RulesOfTheTaskDialog, PutBackASeparatorThatIsLeftEmpty) {
  Configure([](Person& person) {
    person.ClickTab(1);
    person.Fill("txtDelimiteurFile", "");
    person.Press("Tab");
    person.WaitForText("txtDelimiteurFile", ";");
  });
}

TEST_F(RulesOfTheTaskDialog, FillAnEmptyErrorLimitWhenTheTaskIsSaved) {
  Configure([&](Person& person) {
    person.ClickTab(2);
    person.Fill("txtErreur", "");
    person.Click("cmdApp");
    person.WaitForText("txtErreur", "100");
  });
  EXPECT_EQ(place_.Imptable({"get", "S1", "T1", "Erreurs"}), "100\n");
}

TEST_F(RulesOfTheTaskDialog, ReadTheFileAnewAtEachChangeOfTab) {
  Configure([&](Person& person) {
    person.ClickTab(3);
    person.WaitForText("TextFichier", "1;Anna");
    place_.folder.Write("in/CLIENTS.CSV", "7;Eve;x\n");
    person.ClickTab(0);
    person.ClickTab(3);
    person.WaitForText("TextFichier", "7;Eve;x");
    EXPECT_EQ(person.Sees("textNbCol"), "2");
  });
}

TEST_F(RulesOfTheTaskDialog, PutTheVariableButtonAtTheRightEdgeOfTheFieldThatHasTheFocus) {
  place_.Imptable({"variable", "S1", "SOURCE=CLIENTS"});
  place_.Imptable({"set", "S1", "T1", "Mode=1", "Cle/Index=ID", "Alias=@SOURCE"});
  const auto place = [](wxWindow& window) { return window.GetScreenRect(); };
  Configure([&](Person& person) {
    for (const char* const field :
         {"txtLogin", "txtPass", "txtOwn", "txtTable", "txtAlias", "txtRep", "txtCle"}) {
      person.Click(field);
      const wxRect edges = person.Ask(field, place);
      person.WaitUntil(
          [&] {
            const wxWindow& button = Control("cmdSv");
            const wxRect at = button.GetScreenRect();
            return button.IsShown() && at.x == edges.x + edges.width && at.y == edges.y &&
                   at.height == edges.height;
          },
          std::string("the button at ") + field);
    }
    person.Click("txtAlias");
    person.WaitUntil([] { return Control("cmdSv").GetToolTipText() == "@SOURCE val: CLIENTS"; },
                     "the value");
  });
}

TEST_F(RulesOfTheTaskDialog, CreateATaskOnceAndDateItsChangesFromThenOn) {
  place_.Imptable({"delete", "S1", "T1"});
  place_.Configure([&](Person& person) {
    person.Fill("Combo1", "Shop");
    person.Fill("txtLogin", "me");
    person.Fill("txtTable", "CLIENT");
    person.Fill("txtAlias", "CLIENTS");
    person.Click("cmdApp");
    person.WaitUntil([&] { return place_.Imptable({"list", "S1"}) == "T1\n"; }, "Apply to save");
    EXPECT_THAT(place_.Imptable({"get", "S1", "T1"}),
                testing::AllOf(HasSubstr("CréeLe="), testing::Not(HasSubstr("ModifiéLe="))));
    person.Click("cmdValider");
  });
  EXPECT_THAT(place_.Imptable({"get", "S1", "T1"}), HasSubstr("ModifiéLe="));
}

}  // namespace
}  // namespace imptable
