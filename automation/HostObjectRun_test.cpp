// Whole runs against the scripted driver beside a host whose object library is registered.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "automation/DispatchDisplay.h"
#include "automation/HostObjectLibrary.h"
#include "automation/testing/Apartment.h"
#include "automation/testing/StandInHost.h"
#include "tests/kit/ImportRun.h"

namespace imptable {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

class HostObjectRun : public testing::Test {
 protected:
  HostObjectRun() {
    host_.log.names[button_.get()] = "Bouton";
    display_.Set(button_.get());
    run_.Source({"1;a", "2;b", "3;c"});
  }

  void RefuseTheSecondLine() {
    run_.Driver("on SQLExecute 2 return -1 diag 23000 1 \"duplicate\"");
  }

  /// Runs the task in English. @return its "Etat".
  std::int32_t Go() {
    host_.log.calls.clear();
    run_.events.raised.clear();
    std::int32_t status = 0;
    run_.GoBy([&](ImpTable& /*with another host*/) {
      ImpTable task(state_, &run_.events);
      task.InitializeProperties("T1", "S1", kEnglishOffset);
      task.SetReportFilePath(run_.folder.path() + "report.txt");
      task.Bouton = &display_;
      task.Run(1);
      status = task.GetStatus();
    });
    return status;
  }

  /// Arguments of each line that the host was given to write.
  std::vector<std::string> Written() const {
    constexpr std::string_view kCall = "Rapport.WriteLine";
    std::vector<std::string> lines;
    for (const std::string& call : host_.log.calls) {
      if (call.starts_with(kCall)) lines.push_back(call.substr(kCall.size()));
    }
    return lines;
  }

  std::ptrdiff_t Raised(const std::string& event) const {
    return std::count(run_.events.raised.begin(), run_.events.raised.end(), event);
  }

  Apartment apartment_;
  StandInHost host_;
  ComPointer<ScriptedObject> button_ = ScriptedObject::Make("Bouton", host_.log);
  DispatchDisplay display_;
  ImportRun run_;
  HostObjectLibrary objects_{run_.component.host};
  ModuleState state_{run_.component.module().platform, objects_};
};

TEST_F(HostObjectRun, WritesEveryLineThroughTheHostInOrderWithItsKind) {
  RefuseTheSecondLine();
  EXPECT_EQ(Go(), 3);
  EXPECT_THAT(
      Written(),
      ElementsAre("(' --> Run process: T1', Bouton, i2 0)",
                  "(' ... Connect to data source: " + run_.source.name() + "', Bouton, i2 2)",
                  "(' ... Delete error logs', Bouton, i2 2)",
                  "(' --> PROCESS TABLE: CLIENT', Bouton, i2 2)",
                  "(' -->   INSERT mode', Bouton, i2 2)",
                  "(' ----->    3 record(s) read', Bouton, i2 2)",
                  "(' ----->    1 error(s) detected, refer to .ERR file', Bouton, i2 2)",
                  "(' ----->   2 Record(s) copied', Bouton, i2 2)",
                  "(' --------------- PROCEDURE TERMINATED ---------------', Bouton, i2 0)"));
  EXPECT_THAT(run_.component.host.lines, IsEmpty());
  EXPECT_FALSE(run_.folder.Exists("report.txt"));
  EXPECT_EQ(Raised("Complete"), 1);
}

TEST_F(HostObjectRun, EndsWithAFaultAtWhateverLineTheHostsWriterFails) {
  RefuseTheSecondLine();
  Go();
  const auto all = static_cast<int>(Written().size());
  ASSERT_GE(all, 8);
  int lines = 0;
  int failing = 0;
  host_.On("Rapport", L"WriteLine") = [&](auto) {
    if (++lines == failing) throw ScriptedFailure{.description = L"disk full"};
    return AutomationValue();
  };
  for (failing = 1; failing <= all; ++failing) {
    lines = 0;
    EXPECT_EQ(Go(), 1) << failing;
    EXPECT_EQ(Raised("Complete"), 1) << failing;
    EXPECT_EQ(run_.events.raised.back(), "Complete") << failing;
    EXPECT_FALSE(state_.odbc.connection) << failing;
    ASSERT_TRUE(state_.commun.run.fault) << failing;
    EXPECT_EQ(state_.commun.run.fault->number(), FaultNumber::kNoHostObject);
    EXPECT_EQ(state_.commun.run.fault->detail(), "KaldoObjets.Rapport.WriteLine : disk full");
    EXPECT_EQ(host_.log.calls.back(), "Rapport gone") << failing;
  }
}

/// The same with a form on the host's object. The component writes to that form itself.
class HostObjectUpdate : public HostObjectRun {
 protected:
  HostObjectUpdate() {
    run_.Driver("info 29 \" \"");
    run_.Set("Mode", 1);
    run_.Set("Cle/Index", "CODE");
    run_.Source({"1;a", "3;c"});
    button_->On(L"wForm") = [this](auto) {
      return AutomationValue(static_cast<IDispatch*>(form_.get()));
    };
  }

  std::string text_;
  std::int32_t tag_ = 0;
  ComPointer<ScriptedObject> form_ =
      ScriptedObject::Make("form", host_.log,
                           {{L"Text",
                             [this](std::span<const VARIANT> value) {
                               if (!value.empty()) text_ = TextArgument(value[0]);
                               return AutomationValue(text_);
                             }},
                            {L"Tag", [this](std::span<const VARIANT> value) {
                               if (!value.empty()) tag_ = value[0].lVal;
                               return AutomationValue(tag_);
                             }}});
};

TEST_F(HostObjectUpdate, WritesItsOwnLineToTheReportAndTheFormAndTheOthersThroughTheHost) {
  EXPECT_EQ(Go(), 2);
  EXPECT_THAT(run_.Lines("report.txt", "\r\n"), SizeIs(1));
  EXPECT_EQ(text_, run_.Lines("report.txt", "\r\n")[0] + '\n');
  EXPECT_EQ(tag_, 1);
  EXPECT_THAT(Written(), SizeIs(7));
  EXPECT_THAT(Written(), Not(Contains(HasSubstr("edited"))));
}

TEST_F(HostObjectUpdate, GoesOnInSilenceWhenTheFormFails) {
  form_->On(L"Tag") = [](auto) -> AutomationValue { throw ScriptedFailure{.result = E_FAIL}; };
  EXPECT_EQ(Go(), 2);
  EXPECT_THAT(run_.Lines("report.txt", "\r\n"), SizeIs(1));
  EXPECT_EQ(text_, "");
}

TEST_F(HostObjectUpdate, LetsTheHostExchangeItsObjectInTheMiddle) {
  const auto other = ScriptedObject::Make("other", host_.log);
  host_.log.names[other.get()] = "other";
  int lines = 0;
  host_.On("Rapport", L"WriteLine") = [&](auto) {
    if (++lines == 2) display_.Set(other.get());
    return AutomationValue();
  };
  button_ = {};
  EXPECT_EQ(Go(), 2);
  EXPECT_THAT(Written()[1], HasSubstr("Bouton"));
  EXPECT_THAT(Written()[2], HasSubstr("other"));
  EXPECT_THAT(host_.log.calls, Contains("Bouton gone"));
  display_.Set(nullptr);
  EXPECT_EQ(other->references(), 1U);
}

}  // namespace
}  // namespace imptable
