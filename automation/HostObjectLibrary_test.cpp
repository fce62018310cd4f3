#include "automation/HostObjectLibrary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <deque>

#include "automation/DispatchDisplay.h"
#include "automation/testing/Apartment.h"
#include "automation/testing/StandInHost.h"
#include "plugin/testing/HostedComponent.h"

namespace imptable {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;

const KeyPath kTasks{kHkeyLocalMachine, "SOFTWARE\\KALDO\\Scenarios\\S1\\Taches"};

/// Gives the values in turn, at last Nothing.
template <typename Value>
ScriptedObject::Member InTurn(std::deque<Value> values) {
  return [left = std::make_shared<std::deque<Value>>(std::move(values))](auto) {
    if (left->empty()) return AutomationValue();
    AutomationValue next(left->front());
    left->pop_front();
    return next;
  };
}

ScriptedObject::Member Failing(const std::wstring& description) {
  return
      [description](auto) -> AutomationValue { throw ScriptedFailure{.description = description}; };
}

class LibraryOfTheHost : public testing::Test, protected HostedComponent {
 protected:
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
  std::optional<std::string> Variable(const std::string& name) {
    return objects_.Variable(kTasks, "S1", name);
  }

  Apartment apartment_;
  HostObjectLibrary objects_{library};
};

class WithHostObjects : public LibraryOfTheHost {
 protected:
  StandInHost host_;
};

TEST_F(WithHostObjects, TitleAndSummaryAreTheHostsUnchangedFromANewObjectEach) {
  host_.Answer("Wrappers", L"GetTitle", " Table \xE0 importer <b>\r\n");
  host_.Answer("Wrappers", L"GetSummary", "");
  EXPECT_EQ(objects_.TitleOfWrapperType(50), " Table \xE0 importer <b>\r\n");
  EXPECT_EQ(objects_.SummaryOfWrapperType(50), "");
  EXPECT_THAT(host_.log.calls,
              ElementsAre("Wrappers created", "Wrappers.GetTitle(i2 50)", "Wrappers gone",
                          "Wrappers created", "Wrappers.GetSummary(i2 50)", "Wrappers gone"));
}

TEST_F(WithHostObjects, AVariableIsLookedUpByRootPathScenarioAndName) {
  host_.Answer("Variables", L"GetValue",
               "D:\\donn\xE9"
               "es");
  EXPECT_EQ(Variable("REP"),
            "D:\\donn\xE9"
            "es");
  EXPECT_THAT(host_.log.calls, ElementsAre("Variables created",
                                           "Variables.GetValue(i4 -2147483646, "
                                           "'SOFTWARE\\KALDO\\Scenarios\\S1\\Taches', 'S1', 'REP')",
                                           "Variables gone"));
}

TEST_F(WithHostObjects, AVariableThatTheHostDoesNotKnowIsNone) {
  registry.SetText("SOFTWARE\\KALDO\\Scenarios\\S1\\Variables", "REP", "ours");
  EXPECT_EQ(Variable("REP"), std::nullopt);
}

TEST_F(WithHostObjects, NamesAreListedInTheHostsOrder) {
  host_.On("Variables", L"NextName") = InTurn<std::string>({"Zone",
                                                            "Ann\xE9"
                                                            "e"});
  EXPECT_THAT(objects_.ReferenceNames(kTasks, "S1", ReferenceKind::kVariable), ElementsAre("Zone",
                                                                                           "Ann\xE9"
                                                                                           "e"));
  host_.On("Variables", L"NextName") = {};
  EXPECT_THAT(objects_.ReferenceNames({kHkeyCurrentUser, "P"}, "S2", ReferenceKind::kConstant),
              IsEmpty());
  EXPECT_THAT(host_.log.calls,
              ElementsAre("Variables created",
                          "Variables.OpenNames(i4 -2147483646, "
                          "'SOFTWARE\\KALDO\\Scenarios\\S1\\Taches', 'S1', i2 0)",
                          "Variables.NextName()", "Variables.NextName()", "Variables.NextName()",
                          "Variables gone", "Variables created",
                          "Variables.OpenNames(i4 -2147483647, 'P', 'S2', i2 1)",
                          "Variables.NextName()", "Variables gone"));
}

TEST_F(WithHostObjects, ActionsAreWalkedToTheEndMarkInTheHostsOrder) {
  host_.On("Registre", L"NextAction") = InTurn<std::int16_t>({3, 0, 3, 2, -1});
  host_.On("Registre", L"Variable") = InTurn<std::string>({"", "ETAT"});
  host_.On("Registre", L"Valeur") = InTurn<std::string>({"", "1"});
  const auto entry = [](ActionType type, const char* variable, const char* value) {
    return AllOf(Field(&ActionEntry::type, type), Field(&ActionEntry::variable, variable),
                 Field(&ActionEntry::value, value));
  };
  EXPECT_THAT(
      objects_.ActionEntries(kTasks, "T1"),
      ElementsAre(entry(ActionType::kJump, "", ""), entry(ActionType::kOnError, "ETAT", "1"),
                  entry(ActionType::kJump, "", ""), entry(ActionType::kConditional, "", "")));
  ASSERT_EQ(host_.log.calls.size(), 18U);
  EXPECT_THAT(std::vector(host_.log.calls.begin(), host_.log.calls.begin() + 7),
              ElementsAre("Registre created", "Registre.SetRegistryRoot(i4 -2147483646)",
                          "Registre.SetRegistrySubKey('SOFTWARE\\KALDO\\Scenarios\\S1\\Taches')",
                          "Registre.OpenActions('T1')", "Registre.NextAction()",
                          "Registre.Variable", "Registre.Valeur"));
  EXPECT_EQ(host_.log.calls[16], "Registre.NextAction()");
  EXPECT_EQ(host_.log.calls[17], "Registre gone");
}

TEST_F(WithHostObjects, AnActionOfATypeThatDoesNotFit16BitsIsAFault) {
  host_.On("Registre", L"NextAction") = [](auto) { return AutomationValue(std::int32_t{32768}); };
  try {
    objects_.ActionEntries(kTasks, "T1");
    ADD_FAILURE() << "no fault";
  } catch (const RuntimeFault& fault) {
    EXPECT_EQ(fault.number(), FaultNumber::kOverflow);
    EXPECT_EQ(fault.detail(), "KaldoObjets.Registre.NextAction");
  }
}

TEST_F(WithHostObjects, ReportLinesComeInOrderWithTheirKindsAndTheVeryObject) {
  const auto button = ScriptedObject::Make("Bouton", host_.log, {{L"wForm", {}}});
  host_.log.names[button.get()] = "Bouton";
  DispatchDisplay display;
  display.Set(button.get());
  {
    const auto writer = objects_.CreateReportWriter();
    writer->SetScenario("S1");
    writer->SetReportPath("C:\\r\\log.htm");
    writer->WriteLine(" --> T\xEAte", &display, ReportKind::kHeading);
    writer->WriteLine("", &display, ReportKind::kError);
    display.Set(nullptr);
    writer->WriteLine("c", &display, ReportKind::kInformation);
    writer->WriteLine("d", nullptr, ReportKind::kSuccess);
  }
  EXPECT_THAT(
      host_.log.calls,
      ElementsAre("Rapport created", "Rapport.SetScenario('S1')",
                  "Rapport.SetReportFilePath('C:\\r\\log.htm')",
                  "Rapport.WriteLine(' --> T\xEAte', Bouton, i2 0)",
                  "Rapport.WriteLine('', Bouton, i2 1)", "Rapport.WriteLine('c', Nothing, i2 2)",
                  "Rapport.WriteLine('d', Nothing, i2 4)", "Rapport gone"));
  EXPECT_EQ(button->references(), 1U);
}

TEST_F(WithHostObjects, AReportWriterLooksItsMembersUpOnce) {
  const auto writer = objects_.CreateReportWriter();
  for (int line = 0; line < 3; ++line) writer->WriteLine("x", nullptr, ReportKind::kInformation);
  EXPECT_THAT(host_.log.lookups,
              testing::UnorderedElementsAre("Rapport.SetScenario", "Rapport.SetReportFilePath",
                                            "Rapport.WriteLine"));
}

TEST_F(WithHostObjects, AWriterThatFailsOnceServesTheNextLine) {
  int lines = 0;
  host_.On("Rapport", L"WriteLine") = [&](auto) {
    if (++lines == 2) throw ScriptedFailure{.description = L"disque plein"};
    return AutomationValue();
  };
  const auto writer = objects_.CreateReportWriter();
  const auto write = [&] { writer->WriteLine("x", nullptr, ReportKind::kInformation); };
  EXPECT_EQ(FaultOf(write), "no fault");
  EXPECT_EQ(FaultOf(write), "KaldoObjets.Rapport.WriteLine : disque plein");
  EXPECT_EQ(FaultOf(write), "no fault");
}

TEST_F(WithHostObjects, AServiceThatFailsIsAFaultThatNamesTheMember) {
  host_.On("Wrappers", L"GetTitle") = Failing(L"a");
  host_.On("Wrappers", L"GetSummary") = Failing(L"b");
  host_.On("Variables", L"GetValue") = Failing(L"c");
  host_.On("Variables", L"NextName") = Failing(L"d");
  host_.On("Registre", L"Valeur") = Failing(L"e");
  host_.On("Registre", L"NextAction") = InTurn<std::int16_t>({0});
  host_.On("Rapport", L"SetReportFilePath") = Failing(L"f");
  EXPECT_EQ(FaultOf([&] { objects_.TitleOfWrapperType(50); }), "KaldoObjets.Wrappers.GetTitle : a");
  EXPECT_EQ(FaultOf([&] { objects_.SummaryOfWrapperType(50); }),
            "KaldoObjets.Wrappers.GetSummary : b");
  EXPECT_EQ(FaultOf([&] { Variable("A"); }), "KaldoObjets.Variables.GetValue : c");
  EXPECT_EQ(FaultOf([&] { objects_.ReferenceNames(kTasks, "S1", ReferenceKind::kVariable); }),
            "KaldoObjets.Variables.NextName : d");
  EXPECT_EQ(FaultOf([&] { objects_.ActionEntries(kTasks, "T1"); }),
            "KaldoObjets.Registre.Valeur : e");
  EXPECT_EQ(FaultOf([&] { objects_.CreateReportWriter()->SetReportPath("x"); }),
            "KaldoObjets.Rapport.SetReportFilePath : f");
  int created = 0;
  int gone = 0;
  for (const std::string& call : host_.log.calls) {
    created += call.ends_with(" created") ? 1 : 0;
    gone += call.ends_with(" gone") ? 1 : 0;
  }
  EXPECT_EQ(created, 6);
  EXPECT_EQ(gone, 6);
}

TEST_F(WithHostObjects, AServiceThatIsRegisteredButNotThereIsAFault) {
  registry.SetText("SOFTWARE\\KALDO\\Scenarios\\S1\\Variables", "A", "ours");
  host_.Refuse("Rapport", E_OUTOFMEMORY);
  host_.Revoke("Variables");
  host_.Revoke("Registre");
  host_.Refuse("Wrappers", E_NOINTERFACE);
  EXPECT_EQ(FaultOf([&] { objects_.CreateReportWriter(); }), "KaldoObjets.Rapport : 0x8007000E");
  EXPECT_EQ(FaultOf([&] { Variable("A"); }), "KaldoObjets.Variables : 0x80040154");
  EXPECT_EQ(FaultOf([&] { objects_.ReferenceNames(kTasks, "S1", ReferenceKind::kVariable); }),
            "KaldoObjets.Variables : 0x80040154");
  EXPECT_EQ(FaultOf([&] { objects_.ActionEntries(kTasks, "T1"); }),
            "KaldoObjets.Registre : 0x80040154");
  EXPECT_EQ(FaultOf([&] { objects_.TitleOfWrapperType(50); }), "KaldoObjets.Wrappers : 0x80004002");
  EXPECT_EQ(FaultOf([&] { objects_.SummaryOfWrapperType(50); }),
            "KaldoObjets.Wrappers : 0x80004002");
}

TEST_F(WithHostObjects, OnlyTheClassThatIsNotRegisteredIsServedByTheComponent) {
  registry.SetText("SOFTWARE\\KALDO\\Scenarios\\S1\\Variables", "A", "ours");
  host_.Answer("Wrappers", L"GetTitle", "theirs");
  host_.Unregister("Variables");
  EXPECT_EQ(Variable("A"), "ours");
  EXPECT_EQ(objects_.TitleOfWrapperType(50), "theirs");
}

TEST_F(LibraryOfTheHost, WithoutTheLibraryTheComponentServesItself) {
  registry.SetText("SOFTWARE\\KALDO\\Scenarios\\S1\\Variables", "A", "ours");
  registry.SetText("SOFTWARE\\KALDO\\Scenarios\\S1\\Taches\\T1\\Action\\Goto", "Dest", "T9");
  EXPECT_EQ(Variable("A"), "ours");
  EXPECT_THAT(objects_.ReferenceNames(kTasks, "S1", ReferenceKind::kVariable), ElementsAre("A"));
  EXPECT_THAT(objects_.ActionEntries(kTasks, "T1"),
              ElementsAre(Field(&ActionEntry::type, ActionType::kJump)));
  EXPECT_EQ(objects_.TitleOfWrapperType(50), "Importation Table");
  EXPECT_EQ(objects_.SummaryOfWrapperType(50),
            "Importe un fichier texte dans une table d'une source de données ODBC.");
  const auto writer = objects_.CreateReportWriter();
  writer->SetReportPath(folder.path() + "report.txt");
  writer->WriteLine("x", nullptr, ReportKind::kHeading);
  EXPECT_EQ(folder.Read("report.txt"), "04/03/2026 05:06:07 x\r\n");
}

TEST_F(LibraryOfTheHost, ALibraryThatIsRegisteredLaterServesTheNextCall) {
  registry.SetText("SOFTWARE\\KALDO\\Scenarios\\S1\\Variables", "A", "ours");
  EXPECT_EQ(Variable("A"), "ours");
  {
    StandInHost host;
    host.Answer("Variables", L"GetValue", "theirs");
    EXPECT_EQ(Variable("A"), "theirs");
  }
  EXPECT_EQ(Variable("A"), "ours");
}

}  // namespace
}  // namespace imptable
