#include "core/TaskDialog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/kit/ImportRun.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Makes dialogs that write down what is done with them.
class ScriptedDialogs : public TaskDialogFactory {
 public:
  explicit ScriptedDialogs(const KeyPath& shared_location) : location(shared_location) {}

  std::unique_ptr<TaskDialog> Create(std::int16_t working_mode, const std::string& task,
                                     const std::string& scenario) override {
    log.push_back("create " + std::to_string(working_mode) + ' ' + task + ' ' + scenario + " at " +
                  location.path);
    return std::make_unique<Dialog>(*this);
  }

  const KeyPath& location;
  std::int16_t outcome = 1;
  std::string saved_as = "T1";
  bool broken = false;
  std::vector<std::string> log;

 private:
  class Dialog : public TaskDialog {
   public:
    explicit Dialog(ScriptedDialogs& owner) : owner_(owner) {}
    ~Dialog() override { owner_.log.emplace_back("release"); }
    void SetCaption(const std::string& caption) override {
      owner_.log.push_back("caption " + caption);
    }
    void SetIcon(std::string_view resource) override {
      owner_.log.push_back("icon " + std::string(resource));
    }
    void ShowModal() override {
      owner_.log.emplace_back("show");
      if (owner_.broken) throw RuntimeFault(FaultNumber::kOutOfMemory);
    }
    std::int16_t Outcome() const override { return owner_.outcome; }
    std::string TaskName() const override { return owner_.saved_as; }

   private:
    ScriptedDialogs& owner_;
  };
};

class ConfigurationDialog : public testing::Test {
 protected:
  ConfigurationDialog() { task_.InitializeProperties("T1", "S1", 0); }

  TestComponent component_;
  ScriptedDialogs dialogs_{component_.module().location};
  RecordingEvents events_;
  ImpTable task_{component_.state, &events_, &dialogs_};
};

TEST_F(ConfigurationDialog, IsGivenModeTaskAndScenarioAtTheTasksLocation) {
  EXPECT_EQ(task_.Affiche(), 0);
  EXPECT_THAT(dialogs_.log, ElementsAre("create 1 T1 S1 at SOFTWARE\\KALDO\\Scenarios\\S1\\Taches",
                                        "show", "release"));
  EXPECT_EQ(component_.module().location.root, kHkeyLocalMachine);
  EXPECT_THAT(component_.host.asked_types, IsEmpty());
  EXPECT_THAT(events_.raised, IsEmpty());
}

TEST_F(ConfigurationDialog, HasTheHostsTitleAndTheWrappersIconWhenTheWrapperIsShown) {
  task_.Etat = 0;
  dialogs_.saved_as = "Renamed";
  EXPECT_EQ(task_.ShowWrapper(), 1);
  EXPECT_THAT(dialogs_.log, ElementsAre("create 0 T1 S1 at SOFTWARE\\KALDO\\Scenarios\\S1\\Taches",
                                        "caption Title", "icon WRAPPER_ICON", "show", "release"));
  EXPECT_THAT(component_.host.asked_types, ElementsAre(50));
  EXPECT_EQ(task_.Nom, "Renamed");
}

TEST_F(ConfigurationDialog, GivesANewNameOnlyWhenTheWrapperIsShown) {
  dialogs_.saved_as = "Renamed";
  task_.Affiche();
  EXPECT_EQ(task_.Nom, "T1");
}

TEST_F(ConfigurationDialog, SetsTheWorkingModeByItsOutcome) {
  for (const std::int16_t before : std::vector<std::int16_t>{0, 1, 7}) {
    for (const std::int16_t outcome : std::vector<std::int16_t>{0, 1, 2, -1, 32767}) {
      const std::int16_t after = outcome == 0 || outcome == 1 ? outcome : before;
      dialogs_.outcome = outcome;
      task_.Etat = before;
      EXPECT_EQ(task_.Affiche(), 0);
      EXPECT_EQ(task_.Etat, after) << before << ' ' << outcome;
      task_.Etat = before;
      EXPECT_EQ(task_.ShowWrapper(), after) << before << ' ' << outcome;
      EXPECT_EQ(task_.Etat, after) << before << ' ' << outcome;
    }
  }
}

TEST_F(ConfigurationDialog, ShowsDatabaseErrorsInBoxesEvenAfterARun) {
  component_.state.SetExecutionMode(ExecutionMode::kRun);
  task_.Affiche();
  EXPECT_FALSE(component_.session().CheckOdbcReturn(SQL_ERROR, Message::kQuit));
  EXPECT_THAT(component_.warnings.warnings(),
              ElementsAre(RecordingWarningBox::Warning{"&Quitter", "Importation Table"}));
  EXPECT_THAT(component_.host.lines, IsEmpty());
}

TEST_F(ConfigurationDialog, LetsTheStatusBeReadAtTheTasksLocation) {
  component_.registry.SetNumber(ImportRun::kTaskPath, "Etat", 2);
  EXPECT_EQ(task_.GetStatus(), 0);
  task_.Affiche();
  EXPECT_EQ(task_.GetStatus(), 2);
}

TEST_F(ConfigurationDialog, ThatFailsIsReleasedAndLeavesTheTaskUsable) {
  dialogs_.broken = true;
  dialogs_.saved_as = "Renamed";
  dialogs_.outcome = 0;
  EXPECT_THROW(task_.ShowWrapper(), RuntimeFault);
  EXPECT_EQ(dialogs_.log.back(), "release");
  EXPECT_EQ(task_.Etat, 1);
  EXPECT_EQ(task_.Nom, "T1");
  dialogs_.broken = false;
  EXPECT_EQ(task_.ShowWrapper(), 0);
}

TEST_F(ConfigurationDialog, IsNoHostObjectInABuildWithoutWindows) {
  ImpTable task(component_.state, &events_);
  task.InitializeProperties("T1", "S1", 0);
  for (const auto& show :
       std::vector<std::function<void()>>{[&] { task.Affiche(); }, [&] { task.ShowWrapper(); }}) {
    try {
      show();
      ADD_FAILURE() << "a dialog out of nothing";
    } catch (const RuntimeFault& fault) {
      EXPECT_EQ(fault.number(), FaultNumber::kNoHostObject);
    }
  }
  EXPECT_EQ(task.Etat, 1);
}

}  // namespace
}  // namespace imptable
