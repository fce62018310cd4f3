#include <gtest/gtest.h>

#include "plugin/ImpTable.h"
#include "tests/kit/TestComponent.h"

namespace imptable {
namespace {

class Actions : public testing::Test {
 protected:
  std::string In(std::int32_t language) {
    ImpTable task(component.state, nullptr);
    task.InitializeProperties("T1", "S1", language);
    component.state.commun.location = kTasks;
    return task.GetActions();
  }
  void Set(const std::string& key, std::string_view name, std::string_view text) {
    component.registry.SetText("SOFTWARE\\KALDO\\Scenarios\\S1\\Taches\\T1\\Action\\" + key, name,
                               text);
  }
  const KeyPath kTasks{kHkeyLocalMachine, "SOFTWARE\\KALDO\\Scenarios\\S1\\Taches"};
  TestComponent component;
};

TEST_F(Actions, AreAnEmptyTextForATaskWithoutActions) { EXPECT_EQ(In(kFrenchOffset), ""); }

TEST_F(Actions, SayWhatIsDoneOnError) {
  component.host.actions = {{ActionType::kOnError, "", ""}};
  Set("OnErr", "Go", "1");
  EXPECT_EQ(In(kFrenchOffset), "[OnErr]#Continuez le scénario : Vrai\r\n    Auto-Relance : Faux#");
  EXPECT_EQ(In(kEnglishOffset), "[OnErr]#Run scenario : True\r\n    Auto-Run : False#");
}

TEST_F(Actions, TakeOnlyOneForTrue) {
  component.host.actions = {{ActionType::kOnDecision, "", ""}};
  Set("OnDec", "Go", "2");
  component.registry.SetNumber("SOFTWARE\\KALDO\\Scenarios\\S1\\Taches\\T1\\Action\\OnDec", "Loop",
                               1);
  EXPECT_EQ(In(kEnglishOffset), "[OnDec]#Run scenario : False\r\n    Auto-Run : True#");
}

TEST_F(Actions, SayWhereAJumpGoesAndWhen) {
  component.host.actions = {{ActionType::kJump, "", ""}};
  Set("Goto", "Dest", "T9");
  Set("Goto", "GVar", "COUNT");
  Set("Goto", "Check", "1");
  Set("Goto", "Value", "10");
  const std::vector<std::string> operators{"<", "<=", ">", ">=", "=", "<>"};
  for (std::size_t index = 0; index < operators.size(); ++index) {
    Set("Goto", "Ope", std::to_string(index));
    EXPECT_EQ(In(kEnglishOffset),
              "[Goto]#Goto T9\r\n    Check after execution : True\r\n    If @COUNT " +
                  operators[index] + " 10#");
  }
  Set("Goto", "Ope", "");
  EXPECT_EQ(In(kFrenchOffset),
            "[Goto]#Goto T9\r\n    Effectuer le test après exécution : Vrai\r\n    Si @COUNT  10#");
}

TEST_F(Actions, AppendAnAssignmentThatHasBothItsParts) {
  component.host.actions = {{ActionType::kOnError, "V", "7"},
                            {ActionType::kConditional, "W", "8"},
                            {ActionType::kConditional, "W", ""},
                            {ActionType::kConditional, "", "8"}};
  EXPECT_EQ(In(kEnglishOffset),
            "[OnErr]#Run scenario : False\r\n    Auto-Run : False\r\n    @V = 7#"
            "[ExeIf]#@W = 8#[ExeIf]##[ExeIf]##");
}

TEST_F(Actions, AreReadAtTheCurrentLocationWhichStaysAsItIs) {
  component.host.actions = {{ActionType::kOnError, "", ""}};
  Set("OnErr", "Go", "1");
  ImpTable task(component.state, nullptr);
  task.InitializeProperties("T1", "S1", kEnglishOffset);
  const KeyPath elsewhere{kHkeyLocalMachine, "SOFTWARE\\Elsewhere"};
  component.state.commun.location = elsewhere;
  EXPECT_EQ(task.GetActions(), "[OnErr]#Run scenario : False\r\n    Auto-Run : False#");
  EXPECT_EQ(component.state.commun.location.path, elsewhere.path);
  task.GetTaskDescription();
  EXPECT_EQ(task.GetActions(), "[OnErr]#Run scenario : True\r\n    Auto-Run : False#");
  EXPECT_EQ(component.state.commun.location.path, kTasks.path);
}

TEST_F(Actions, FollowTheLanguageOffsetAndNotTheCatalogue) {
  component.host.actions = {{ActionType::kOnError, "", ""}};
  EXPECT_EQ(In(1), "[OnErr]#Run scenario : False\r\n    Auto-Run : False#");
}

}  // namespace
}  // namespace imptable
