#include "plugin/ImpTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "tests/kit/ImportRun.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::string_view kConfiguration = "SOFTWARE\\KALDO\\Configuration";

FaultNumber FaultOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const RuntimeFault& fault) {
    return fault.number();
  }
  return {};
}

class ContractOfTheHost : public testing::Test {
 protected:
  ContractOfTheHost() {
    component_.registry.SetText(ImportRun::kTaskPath, "Base Cible", "there is no such source");
  }

  ImpTable NewTask() { return ImpTable(component_.state, &events_); }

  TestComponent component_;
  RecordingEvents events_;
};

TEST_F(ContractOfTheHost, IsEmptyWhenMade) {
  const ImpTable task = NewTask();
  EXPECT_EQ(task.Nom, "");
  EXPECT_EQ(task.Regst, 0);
  EXPECT_EQ(task.RegstCle, "");
  EXPECT_EQ(task.Etat, 0);
  EXPECT_EQ(task.Rapport, "");
  EXPECT_EQ(task.Scen, "");
  EXPECT_EQ(task.Bouton, nullptr);
  EXPECT_THAT(component_.message_loop.armed(), IsEmpty());
  EXPECT_THAT(events_.raised, IsEmpty());
}

TEST_F(ContractOfTheHost, TakesItsLanguageFromTheConfigurationWhenMade) {
  component_.registry.SetNumber(kConfiguration, "Lang", 10000);
  component_.module().location = {kHkeyCurrentUser, "before"};
  const ImpTable task = NewTask();
  EXPECT_EQ(component_.module().language_offset, 10000);
  EXPECT_THAT(component_.registry.reads(), ElementsAre("SOFTWARE\\KALDO\\Configuration|Lang"));
  EXPECT_EQ(component_.module().location.root, kHkeyCurrentUser);
  EXPECT_EQ(component_.module().location.path, "before");
}

TEST_F(ContractOfTheHost, TakesTheLanguageAsTextTooAndFrenchWhenThereIsNone) {
  component_.registry.SetText(kConfiguration, "Lang", "10000");
  const ImpTable english = NewTask();
  EXPECT_EQ(component_.module().language_offset, 10000);
  component_.registry.SetText(kConfiguration, "Lang", "");
  const ImpTable french = NewTask();
  EXPECT_EQ(component_.module().language_offset, 0);
  component_.module().language_offset = 10000;
  component_.registry.DeleteKey({kHkeyLocalMachine, std::string(kConfiguration)});
  const ImpTable without = NewTask();
  EXPECT_EQ(component_.module().language_offset, 0);
}

TEST_F(ContractOfTheHost, PutsTheLocationBackWhenItsLanguageCannotBeRead) {
  component_.module().location = {kHkeyCurrentUser, "before"};
  component_.registry.FailReadsFrom(1);
  EXPECT_EQ(FaultOf([this] { NewTask(); }), FaultNumber::kDeviceError);
  EXPECT_EQ(component_.module().location.root, kHkeyCurrentUser);
  EXPECT_EQ(component_.module().location.path, "before");
  EXPECT_EQ(component_.host.writers_made, 0);
}

TEST_F(ContractOfTheHost, MakesItsReportWriterWithItselfAndReleasesItToo) {
  {
    ImpTable task = NewTask();
    EXPECT_EQ(component_.host.writers_made, 1);
    task.InitializeProperties("T1", "S1", 0);
    task.ExecuteTache();
    EXPECT_EQ(component_.host.writers_made, 1) << "not once a run";
    EXPECT_NE(component_.module().report_writer, nullptr);
  }
  EXPECT_EQ(component_.module().report_writer, nullptr);
}

TEST_F(ContractOfTheHost, LeavesNothingOfItsDisplayBehind) {
  class Display : public HostDisplay {
   public:
    HostForm* wForm() override { return nullptr; }
  };
  Display display;
  Display other;
  {
    ImpTable task = NewTask();
    task.InitializeProperties("T1", "S1", 0);
    task.Bouton = &display;
    task.ExecuteTache();
    {
      ImpTable bystander = NewTask();
      bystander.Bouton = &other;
    }
    EXPECT_EQ(component_.module().run.display, &display);
  }
  EXPECT_EQ(component_.module().run.display, nullptr);
}

TEST_F(ContractOfTheHost, KeepsWhatItsSettersAreGiven) {
  ImpTable task = NewTask();
  task.SetName("T2");
  task.SetRegistryRoot(kHkeyCurrentUser);
  task.SetRegistrySubKey("Some\\Path");
  task.SetReportFilePath("/reports/r.htm");
  task.SetScenario("S2");
  task.SetWorkingMode(-7);
  EXPECT_EQ(task.Nom, "T2");
  EXPECT_EQ(task.GetName(), "T2");
  EXPECT_EQ(task.Regst, kHkeyCurrentUser);
  EXPECT_EQ(task.RegstCle, "Some\\Path");
  EXPECT_EQ(task.Rapport, "/reports/r.htm");
  EXPECT_EQ(task.Scen, "S2");
  EXPECT_EQ(task.Etat, -7);
  EXPECT_EQ(task.GetWorkingMode(), -7);
}

TEST_F(ContractOfTheHost, DoesNotMoveTheSharedLocationWithItsSetters) {
  ImpTable task = NewTask();
  task.InitializeProperties("T1", "S1", 0);
  task.SetRegistryRoot(kHkeyCurrentUser);
  task.SetRegistrySubKey("Some\\Path");
  EXPECT_EQ(component_.module().location.root, 0);
  EXPECT_EQ(component_.module().location.path, "");
}

TEST_F(ContractOfTheHost, FindsItsTaskByScenarioOnceInitialized) {
  ImpTable task = NewTask();
  task.InitializeProperties("T1", "S1", 10000);
  EXPECT_EQ(task.Regst, static_cast<std::int32_t>(0x80000002));
  EXPECT_EQ(task.RegstCle, "SOFTWARE\\KALDO\\Scenarios\\S1\\Taches");
  EXPECT_EQ(task.Nom, "T1");
  EXPECT_EQ(task.Scen, "S1");
  EXPECT_EQ(task.Etat, 1);
  EXPECT_EQ(component_.module().MessageText(Message::kAdministration), "Administration");
  EXPECT_EQ(component_.module().MessageText(Message::kSelection), "Selection");
}

TEST_F(ContractOfTheHost, SharesTheLanguageWithEveryOtherTask) {
  ImpTable one = NewTask();
  ImpTable two = NewTask();
  one.SetLanguage(10000);
  EXPECT_EQ(component_.module().language_offset, 10000);
  two.SetLanguage(0);
  EXPECT_EQ(component_.module().language_offset, 0);
  two.SetLanguage(1036);
  EXPECT_EQ(component_.module().language_offset, 1036) << "stored unchanged";
}

TEST_F(ContractOfTheHost, RefusesAWorkingModeThatDoesNotFit16Bits) {
  ImpTable task = NewTask();
  for (const std::int32_t mode : {32767, -32768}) {
    task.SetWorkingMode(mode);
    EXPECT_EQ(task.Etat, mode);
  }
  task.SetWorkingMode(5);
  for (const std::int32_t mode : {32768, -32769, std::numeric_limits<std::int32_t>::max(),
                                  std::numeric_limits<std::int32_t>::min()}) {
    EXPECT_EQ(FaultOf([&] { task.SetWorkingMode(mode); }), FaultNumber::kOverflow);
    EXPECT_EQ(task.Etat, 5);
  }
}

TEST_F(ContractOfTheHost, IsAWrapperOfType50ThatTriggersNothing) {
  const ImpTable task = NewTask();
  for (int call = 0; call < 2; ++call) {
    EXPECT_EQ(task.GetWrapperType(), 50);
    EXPECT_FALSE(task.IsTrigger());
  }
}

TEST_F(ContractOfTheHost, SupportsEveryActionButTheTriggers) {
  const ImpTable task = NewTask();
  EXPECT_FALSE(task.IsActionSupported(1));
  for (const std::int32_t type : {2, 3, 0, -1, 4, 100, std::numeric_limits<std::int32_t>::min()}) {
    EXPECT_TRUE(task.IsActionSupported(type)) << type;
  }
}

TEST_F(ContractOfTheHost, GivesTheHostsTitleAndSummaryOfItsType) {
  const ImpTable task = NewTask();
  EXPECT_EQ(task.GetTitle(), "Title");
  EXPECT_EQ(task.GetSummary(), "Summary");
  EXPECT_THAT(component_.host.asked_types, ElementsAre(50, 50));
}

TEST_F(ContractOfTheHost, HandsTheHostsFailureOnAndStaysUsable) {
  class Host : public TestHost {
   public:
    std::string TitleOfWrapperType(std::int16_t type) override {
      if (broken) throw RuntimeFault(FaultNumber::kNoHostObject);
      return TestHost::TitleOfWrapperType(type);
    }
    bool broken = true;
  };
  Host host;
  ModuleState state(component_.module().platform, host);
  const ImpTable task(state, &events_);
  EXPECT_EQ(FaultOf([&] { task.GetTitle(); }), FaultNumber::kNoHostObject);
  host.broken = false;
  EXPECT_EQ(task.GetTitle(), "Title");
}

TEST_F(ContractOfTheHost, NamesItsPicture) { EXPECT_EQ(NewTask().GetPicture(), "WRAPPER_PICTURE"); }

TEST_F(ContractOfTheHost, HasNoStatusBeforeTheLocationIsSet) {
  component_.registry.SetNumber(ImportRun::kTaskPath, "Etat", 2);
  ImpTable task = NewTask();
  task.InitializeProperties("T1", "S1", 0);
  EXPECT_EQ(task.GetStatus(), 0);
}

TEST_F(ContractOfTheHost, ReadsItsStatusAtTheSharedLocation) {
  ImpTable task = NewTask();
  task.InitializeProperties("T1", "S1", 0);
  component_.module().location = {kHkeyLocalMachine, "Tasks"};
  EXPECT_EQ(task.GetStatus(), 0) << "no key";
  component_.registry.SetText("Tasks\\T1", "Etat", "");
  EXPECT_EQ(task.GetStatus(), 0) << "an empty value";
  component_.registry.SetNumber("Tasks\\T1", "Etat", 3);
  EXPECT_EQ(task.GetStatus(), 3);
  component_.registry.SetNumber("Tasks\\T1", "Etat", 70000);
  EXPECT_EQ(task.GetStatus(), 70000);
  component_.registry.SetText("Tasks\\T1", "Etat", "2");
  EXPECT_EQ(task.GetStatus(), 2);
}

TEST_F(ContractOfTheHost, OnlyRaisesCompleteForARunOf0) {
  component_.module().location = {kHkeyCurrentUser, "before"};
  ImpTable task = NewTask();
  task.InitializeProperties("T1", "S1", 0);
  component_.registry.ForgetReads();
  task.Run(0);
  EXPECT_THAT(events_.raised, ElementsAre("Complete"));
  EXPECT_THAT(component_.registry.reads(), IsEmpty());
  EXPECT_THAT(component_.registry.writes(), IsEmpty());
  EXPECT_THAT(component_.host.lines, IsEmpty());
  EXPECT_EQ(component_.host.scenario, "");
  EXPECT_EQ(component_.message_loop.yields(), 0);
  EXPECT_EQ(component_.module().location.path, "before");
}

TEST_F(ContractOfTheHost, RunsWithoutAnybodyListening) {
  ImpTable task(component_.state, nullptr);
  task.InitializeProperties("T1", "S1", 0);
  task.Run(0);
  task.Run(1);
  EXPECT_EQ(task.GetStatus(), 3);
}

// Whether a run resumes tells which request it was given.
class RunRequests : public testing::Test {
 protected:
  RunRequests() {
    run_.Source({"1;a", "2;b"});
    run_.Set("RecErreurs", 1);
    run_.folder.Write("CLIENTS.TRC", "00000001000000000\n");
    run_.folder.Write("CLIENTS.LER", "x\n");
  }

  bool Resumes(const std::function<void(ImpTable&)>& start) {
    run_.GoBy(start);
    return run_.component.module().run.resume;
  }

  ImportRun run_;
};

TEST_F(RunRequests, ResumeWith2) {
  EXPECT_TRUE(Resumes([](ImpTable& task) { task.Run(2); }));
}

TEST_F(RunRequests, StartAfreshWithAnythingElse) {
  for (const int request : {1, 3, -1}) {
    run_.folder.Write("CLIENTS.TRC", "00000001000000000\n");
    run_.folder.Write("CLIENTS.LER", "x\n");
    EXPECT_FALSE(Resumes([request](ImpTable& task) {
      task.Run(static_cast<std::int16_t>(request));
    })) << request;
  }
}

TEST_F(RunRequests, StartAfreshWithADeferredOne) {
  EXPECT_FALSE(Resumes([](ImpTable& task) { task.RunT(2); }));
  EXPECT_THAT(run_.events.raised, ElementsAre("Progress", "Progress", "Progress", "Complete"));
}

TEST_F(RunRequests, KeepTheLastOneForADirectCall) {
  EXPECT_TRUE(Resumes([this](ImpTable& task) {
    task.Run(2);
    run_.folder.Write("CLIENTS.TRC", "00000001000000000\n");
    run_.folder.Write("CLIENTS.LER", "x\n");
    task.ExecuteTache();
  }));
}

TEST_F(RunRequests, TakeTheDeferredOneWhenTheSecondTimerTicks) {
  EXPECT_TRUE(Resumes([this](ImpTable& task) {
    task.RunT(2);
    run_.folder.Write("CLIENTS.TRC", "00000001000000000\n");
    run_.folder.Write("CLIENTS.LER", "x\n");
    run_.events.raised.clear();
    task.mwTimer1_Tick();
  }));
  EXPECT_THAT(run_.events.raised, ElementsAre("Progress", "Progress", "Progress", "Complete"));
}

TEST_F(RunRequests, OnlyRaiseCompleteWhenTheSecondTimerTicksWithoutADeferredOne) {
  run_.GoBy([this](ImpTable& task) {
    task.Run(1);
    run_.events.raised.clear();
    run_.component.host.lines.clear();
    task.mwTimer1_Tick();
  });
  EXPECT_THAT(run_.events.raised, ElementsAre("Complete"));
  EXPECT_THAT(run_.component.host.lines, IsEmpty());
}

}  // namespace
}  // namespace imptable
