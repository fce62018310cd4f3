#include "automation/LateBound.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "automation/testing/Apartment.h"
#include "automation/testing/RegisteredClass.h"
#include "automation/testing/ScriptedObject.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class LateBinding : public testing::Test {
 protected:
  LateBound Bound() { return {ComPointer<IDispatch>(object_.get()), "X"}; }

  /// The member "M" does this from now on.
  void Does(ScriptedObject::Member member) { object_->On(L"M") = std::move(member); }
  void Gives(const VARIANT& value) {
    Does([value](auto) {
      AutomationValue given;
      *given.Receive() = value;
      return given;
    });
  }
  void Fails(const ScriptedFailure& failure) {
    Does([failure](auto) -> AutomationValue { throw failure; });
  }
  std::string TextOfM() {
    const LateBound bound = Bound();
    const LateBoundMember member = bound.Find(L"M");
    return TextFrom(member, bound.Get(member));
  }
  std::int32_t NumberOfM() {
    const LateBound bound = Bound();
    const LateBoundMember member = bound.Find(L"M");
    return NumberFrom(member, bound.Get(member));
  }
  template <typename Body>
  static std::string FaultOf(Body body) {
    try {
      body();
    } catch (const RuntimeFault& fault) {
      EXPECT_EQ(fault.number(), FaultNumber::kNoHostObject);
      return fault.detail();
    }
    return "no fault";
  }
  std::string FaultOfCall() {
    return FaultOf([this] { Bound().Call(L"M"); });
  }

  Apartment apartment_;
  ObjectLog log_;
  ComPointer<ScriptedObject> object_ = ScriptedObject::Make("X", log_, {{L"M", {}}});
};

TEST_F(LateBinding, PassesArgumentsInTheMethodsOrderWithTheirTypes) {
  log_.names[object_.get()] = "X itself";
  Bound().Call(L"M", std::string("text"), std::int16_t{-7}, std::int32_t{70000},
               static_cast<IDispatch*>(object_.get()), static_cast<IDispatch*>(nullptr));
  Bound().Call(L"M");
  EXPECT_THAT(log_.calls, ElementsAre("X.M('text', i2 -7, i4 70000, X itself, Nothing)", "X.M()"));
}

TEST_F(LateBinding, PassesTextsOfTheSystemsCodePageBothWays) {
  std::wstring seen;
  Does([&](std::span<const VARIANT> arguments) {
    seen.assign(arguments[0].bstrVal, SysStringLen(arguments[0].bstrVal));
    return AutomationValue(
        std::string_view("fa\xE7"
                         "ade\0x",
                         8));
  });
  const std::string answer = TextFrom({}, Bound().Call(L"M", std::string_view("\xC9t\xE9\0 ", 5)));
  EXPECT_EQ(seen, std::wstring(L"\u00C9t\u00E9\0 ", 5));
  EXPECT_EQ(answer, std::string("fa\xE7"
                                "ade\0x",
                                8));
}

TEST_F(LateBinding, ReadsAPropertyAndPutsIt) {
  std::string stored = "before";
  Does([&](std::span<const VARIANT> arguments) {
    if (!arguments.empty()) stored = TextArgument(arguments[0]);
    return AutomationValue(stored);
  });
  EXPECT_EQ(TextOfM(), "before");
  Bound().Put(Bound().Find(L"M"), std::string("after"));
  EXPECT_EQ(stored, "after");
  EXPECT_THAT(log_.calls, ElementsAre("X.M", "X.M = 'after'"));
}

TEST_F(LateBinding, LooksAMemberUpOnceForManyCalls) {
  const LateBound bound = Bound();
  const LateBoundMember member = bound.Find(L"M");
  for (int call = 0; call < 3; ++call) bound.Call(member);
  EXPECT_THAT(log_.lookups, ElementsAre("X.M"));
  EXPECT_THAT(log_.calls, ElementsAre("X.M()", "X.M()", "X.M()"));
}

TEST_F(LateBinding, TellsAMissingMemberFromAFailedLookup) {
  EXPECT_EQ(FaultOf([this] { Bound().Find(L"N"); }), "X.N : 0x80020006");
  EXPECT_FALSE(Bound().FindIfThere(L"N"));
  EXPECT_TRUE(Bound().FindIfThere(L"M"));
  const LateBound nothing({}, "Y");
  EXPECT_EQ(FaultOf([&] { nothing.FindIfThere(L"M"); }), "Y.M : 0x80004003");
}

TEST_F(LateBinding, NamesTheMemberAndGivesTheDescriptionOfTheObject) {
  Fails({.description = L"le fichier est verrouill\u00E9"});
  EXPECT_EQ(FaultOfCall(), "X.M : le fichier est verrouill\xE9");
  Fails({.description = L"two\r\nlines\r\n"});
  EXPECT_EQ(FaultOfCall(), "X.M : two\r\nlines");
  Fails({.describes_itself_later = true});
  EXPECT_EQ(FaultOfCall(), "X.M : described later");
}

TEST_F(LateBinding, GivesTheCodeWhereTheObjectDescribesNothing) {
  Fails({.code = STG_E_MEDIUMFULL});
  EXPECT_EQ(FaultOfCall(), "X.M : 0x80030070");
  Fails({.result = E_FAIL});
  EXPECT_EQ(FaultOfCall(), "X.M : 0x80004005");
}

TEST_F(LateBinding, FailsAlikeWhetherItCallsReadsOrPuts) {
  Fails({.description = L"no"});
  const LateBound bound = Bound();
  const LateBoundMember member = bound.Find(L"M");
  EXPECT_EQ(FaultOf([&] { bound.Call(member, std::int16_t{1}); }), "X.M : no");
  EXPECT_EQ(FaultOf([&] { bound.Get(member); }), "X.M : no");
  EXPECT_EQ(FaultOf([&] { bound.Put(member, std::int32_t{1}); }), "X.M : no");
}

TEST_F(LateBinding, TakesNothingAndNullForTheEmptyText) {
  Gives({});
  EXPECT_EQ(TextOfM(), "");
  VARIANT null{};
  null.vt = VT_NULL;
  Gives(null);
  EXPECT_EQ(TextOfM(), "");
}

TEST_F(LateBinding, ChangesANumberToATextAndATextToANumber) {
  VARIANT number{};
  number.vt = VT_UI1;
  number.bVal = 200;
  Gives(number);
  EXPECT_EQ(TextOfM(), "200");
  EXPECT_EQ(NumberOfM(), 200);
  Does([](auto) { return AutomationValue(std::string("-12")); });
  EXPECT_EQ(NumberOfM(), -12);
}

TEST_F(LateBinding, ReadsAValueThatIsReferredTo) {
  SHORT stored = 6;
  VARIANT reference{};
  reference.vt = VT_I2 | VT_BYREF;
  reference.piVal = &stored;
  Gives(reference);
  EXPECT_EQ(NumberOfM(), 6);
}

TEST_F(LateBinding, RefusesAnAnswerOfAnotherKind) {
  Does([](auto) { return AutomationValue(std::string("many")); });
  EXPECT_EQ(FaultOf([this] { NumberOfM(); }), "X.M : 0x80020005");
  Does([this](auto) { return AutomationValue(static_cast<IDispatch*>(object_.get())); });
  EXPECT_THAT(FaultOf([this] { TextOfM(); }), HasSubstr("X.M : 0x8002"));
  VARIANT null{};
  null.vt = VT_NULL;
  Gives(null);
  EXPECT_EQ(FaultOf([this] { NumberOfM(); }), "X.M : 0x80020005");
}

TEST_F(LateBinding, KeepsItsObjectForTheLengthOfACallThatExchangesIt) {
  LateBound bound = Bound();
  Does([&](auto) {
    bound = LateBound({}, "another");
    EXPECT_THAT(log_.calls, ElementsAre("X.M()"));
    return AutomationValue();
  });
  const LateBoundMember member = bound.Find(L"M");
  object_ = {};
  bound.Call(member);
  EXPECT_THAT(log_.calls, ElementsAre("X.M()", "X gone"));
}

TEST_F(LateBinding, GivesBackEveryReferenceItTook) {
  {
    const LateBound bound = Bound();
    Does([this](auto) { return AutomationValue(static_cast<IDispatch*>(object_.get())); });
    const LateBoundMember member = bound.Find(L"M");
    bound.Call(member, static_cast<IDispatch*>(object_.get()));
    EXPECT_EQ(bound.Get(member).Object().get(), object_.get());
    bound.Put(member, static_cast<IDispatch*>(object_.get()));
    Fails({.description = L"no"});
    FaultOf([&] { bound.Call(member, static_cast<IDispatch*>(object_.get())); });
  }
  EXPECT_EQ(object_->references(), 1U);
  Does({});
}

class LateBoundCreation : public LateBinding {
 protected:
  static constexpr const wchar_t* kProgId = L"KaldoObjets.Essai";
};

TEST_F(LateBoundCreation, MakesNothingOfANameThatIsNotRegistered) {
  EXPECT_FALSE(CreateLateBound(kProgId));
}

TEST_F(LateBoundCreation, MakesANewObjectAtEachCallAndGivesItBack) {
  int made = 0;
  const RegisteredClass own(kProgId, [&] {
    return ComPointer<IDispatch>(
        ScriptedObject::Make("object " + std::to_string(++made), log_, {{L"M", {}}}).get());
  });
  for (int call = 0; call < 2; ++call) CreateLateBound(kProgId)->Call(L"M");
  EXPECT_THAT(log_.calls,
              ElementsAre("object 1.M()", "object 1 gone", "object 2.M()", "object 2 gone"));
}

TEST_F(LateBoundCreation, FailsWithTheClassNameWhenTheClassMakesNoObject) {
  const RegisteredClass own(kProgId, []() -> ComPointer<IDispatch> { throw E_ACCESSDENIED; });
  EXPECT_EQ(FaultOf([] { CreateLateBound(kProgId); }), "KaldoObjets.Essai : 0x80070005");
}

TEST_F(LateBoundCreation, FailsWhenARegisteredClassIsNotThere) {
  RegisteredClass own(kProgId, [this] { return ComPointer<IDispatch>(object_.get()); });
  own.Revoke();
  EXPECT_EQ(FaultOf([] { CreateLateBound(kProgId); }), "KaldoObjets.Essai : 0x80040154");
}

TEST_F(LateBoundCreation, FailsWhenARegisteredNameStandsForNoClass) {
  const RegisteredProgId empty(kProgId, std::nullopt);
  EXPECT_EQ(FaultOf([] { CreateLateBound(kProgId); }), "KaldoObjets.Essai : 0x800401F3");
  EXPECT_THAT(log_.calls, IsEmpty());
}

}  // namespace
}  // namespace imptable
