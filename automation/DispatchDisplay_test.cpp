#include "automation/DispatchDisplay.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "automation/testing/Apartment.h"
#include "automation/testing/ScriptedObject.h"
#include "plugin/testing/HostedComponent.h"

namespace imptable {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;
using testing::UnorderedElementsAre;

/// A display whose object shows lines on a form, as a host's does.
class DisplayOfTheHost : public testing::Test, protected HostedComponent {
 protected:
  DisplayOfTheHost() {
    library.CreateReportWriter()->SetReportPath(folder.path() + "report.txt");
    display_.Set(button_.get());
  }
  ~DisplayOfTheHost() override {
    display_.Set(nullptr);
    button_->On(L"wForm") = {};
  }

  ComPointer<ScriptedObject> NewForm(const std::string& name) {
    return ScriptedObject::Make(name, log_,
                                {{L"Text",
                                  [this](std::span<const VARIANT> value) {
                                    if (!value.empty()) text_ = TextArgument(value[0]);
                                    return AutomationValue(text_);
                                  }},
                                 {L"Tag", [this](std::span<const VARIANT> value) {
                                    if (!value.empty()) tag_ = value[0].lVal;
                                    return AutomationValue(tag_);
                                  }}});
  }
  ScriptedObject::Member Giving(const ComPointer<ScriptedObject>& object) {
    return [object](auto) { return AutomationValue(static_cast<IDispatch*>(object.get())); };
  }

  /// The component's own report line. @return true when it reached the report.
  bool Line(const std::string& text) {
    return module().ReportLine(text, &display_, ReportKind::kInformation);
  }

  Apartment apartment_;
  ObjectLog log_;
  std::string text_;
  std::int32_t tag_ = 0;
  ComPointer<ScriptedObject> form_ = NewForm("form");
  ComPointer<ScriptedObject> button_ =
      ScriptedObject::Make("Bouton", log_, {{L"wForm", Giving(form_)}});
  DispatchDisplay display_;
};

TEST_F(DisplayOfTheHost, ShowsTheNewestLineFirst) {
  EXPECT_TRUE(Line("one"));
  EXPECT_TRUE(Line("two"));
  EXPECT_EQ(text_, "04/03/2026 05:06:07 two\n04/03/2026 05:06:07 one\n");
  EXPECT_EQ(tag_, 2);
}

TEST_F(DisplayOfTheHost, ShowsTheSeventhLineAlone) {
  for (const char* line : {"1", "2", "3", "4", "5", "6", "7"}) EXPECT_TRUE(Line(line));
  EXPECT_EQ(text_, "04/03/2026 05:06:07 7");
  EXPECT_EQ(tag_, 1);
}

TEST_F(DisplayOfTheHost, LooksEachNameUpOnceAndAsksForTheFormAtEachLine) {
  for (int line = 0; line < 3; ++line) Line("x");
  EXPECT_THAT(log_.lookups, UnorderedElementsAre("Bouton.wForm", "form.Text", "form.Tag"));
  EXPECT_EQ(std::count(log_.calls.begin(), log_.calls.end(), "Bouton.wForm"), 3);
}

TEST_F(DisplayOfTheHost, ShowsLinesOnTheFormOfTheMoment) {
  Line("one");
  button_->On(L"wForm") = Giving(NewForm("other form"));
  form_ = {};
  log_.calls.clear();
  Line("two");
  EXPECT_THAT(log_.calls, ElementsAre("Bouton.wForm", "form gone", "other form.Tag",
                                      "other form.Text", StartsWith("other form.Text = "),
                                      "other form.Tag", "other form.Tag = i4 2"));
}

TEST_F(DisplayOfTheHost, HasNoFormWithoutAnObject) {
  display_.Set(nullptr);
  EXPECT_EQ(display_.object(), nullptr);
  EXPECT_EQ(display_.wForm(), nullptr);
  EXPECT_TRUE(Line("x"));
}

TEST_F(DisplayOfTheHost, HasNoFormWhenItsObjectHasNone) {
  const auto plain = ScriptedObject::Make("plain", log_, {{L"Text", {}}});
  display_.Set(plain.get());
  for (int line = 0; line < 2; ++line) {
    EXPECT_EQ(display_.wForm(), nullptr);
    EXPECT_TRUE(Line("x"));
  }
  EXPECT_THAT(log_.lookups, ElementsAre("plain.wForm"));
  EXPECT_THAT(log_.calls, IsEmpty());
  EXPECT_EQ(folder.Read("report.txt"), "04/03/2026 05:06:07 x\r\n04/03/2026 05:06:07 x\r\n");
}

TEST_F(DisplayOfTheHost, HasNoFormWhenItsObjectGivesNothingOrNoObject) {
  button_->On(L"wForm") = [](auto) { return AutomationValue(static_cast<IDispatch*>(nullptr)); };
  EXPECT_EQ(display_.wForm(), nullptr);
  button_->On(L"wForm") = [](auto) { return AutomationValue(std::string("a form")); };
  EXPECT_EQ(display_.wForm(), nullptr);
}

TEST_F(DisplayOfTheHost, WritesTheLineInSilenceWhenTheFormCantBeHad) {
  button_->On(L"wForm") = [](auto) -> AutomationValue {
    throw ScriptedFailure{.description = L"unloaded"};
  };
  EXPECT_THROW(display_.wForm(), RuntimeFault);
  EXPECT_TRUE(Line("x"));
  EXPECT_EQ(folder.Read("report.txt"), "04/03/2026 05:06:07 x\r\n");
}

TEST_F(DisplayOfTheHost, WritesTheLineInSilenceWhenTheFormFails) {
  for (const wchar_t* member : {L"Text", L"Tag"}) {
    const auto broken = NewForm("broken");
    broken->On(member) = [](auto) -> AutomationValue { throw ScriptedFailure{.result = E_FAIL}; };
    button_->On(L"wForm") = Giving(broken);
    EXPECT_TRUE(Line("x"));
  }
  button_->On(L"wForm") = Giving(ScriptedObject::Make("half a form", log_, {{L"Text", {}}}));
  EXPECT_TRUE(Line("x"));
  EXPECT_EQ(text_, "");
}

TEST_F(DisplayOfTheHost, CallsNothingWhenItsObjectIsSetAndGivesBackTheFormerOne) {
  EXPECT_EQ(display_.object(), button_.get());
  EXPECT_EQ(button_->references(), 2U);
  const auto other = ScriptedObject::Make("other", log_);
  display_.Set(other.get());
  EXPECT_EQ(button_->references(), 1U);
  EXPECT_EQ(other->references(), 2U);
  display_.Set(other.get());
  EXPECT_EQ(other->references(), 2U);
  display_.Set(nullptr);
  EXPECT_EQ(other->references(), 1U);
  EXPECT_THAT(log_.lookups, IsEmpty());
  EXPECT_THAT(log_.calls, IsEmpty());
}

TEST_F(DisplayOfTheHost, KeepsAnObjectThatTheHostLetsGoOf) {
  {
    const auto passing = ScriptedObject::Make("passing", log_, {{L"wForm", Giving(form_)}});
    display_.Set(passing.get());
  }
  EXPECT_TRUE(Line("x"));
  EXPECT_THAT(log_.calls, Not(testing::Contains("passing gone")));
  display_.Set(nullptr);
  EXPECT_THAT(log_.calls, testing::Contains("passing gone"));
}

TEST_F(DisplayOfTheHost, LetsGoOfTheFormWithItsObject) {
  Line("x");
  form_ = {};
  button_->On(L"wForm") = {};
  EXPECT_THAT(log_.calls, Each(Not(StartsWith("form gone"))));
  display_.Set(nullptr);
  EXPECT_EQ(log_.calls.back(), "form gone");
}

TEST_F(DisplayOfTheHost, SurvivesAHostThatTakesItsObjectAwayWithinALine) {
  form_->On(L"Tag") = [this](auto) {
    display_.Set(nullptr);
    return AutomationValue(std::int32_t{0});
  };
  EXPECT_TRUE(Line("one"));
  EXPECT_EQ(text_, "");
  EXPECT_TRUE(Line("two"));

  display_.Set(button_.get());
  button_->On(L"wForm") = [this](auto) {
    display_.Set(nullptr);
    return AutomationValue(static_cast<IDispatch*>(form_.get()));
  };
  EXPECT_EQ(display_.wForm(), nullptr);
  EXPECT_TRUE(Line("three"));
}

}  // namespace
}  // namespace imptable
