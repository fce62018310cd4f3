// The DLL beside a host whose object library is registered.

#include <gmock/gmock.h>

#include <algorithm>

#include "automation/testing/StandInHost.h"
#include "tests/win32/component/TaskKeys.h"

namespace imptable {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

constexpr DISPID kComplete = 2;
constexpr HRESULT kNoHostObject = static_cast<HRESULT>(0x800A01AE);

class TaskOfAHost : public Client {
 protected:
  TaskOfAHost() {
    host_.log.names[button_.get()] = "Bouton";
    task_ = dll_.NewTask();
    EXPECT_TRUE(task_);
    const AutomationString scenario(L"S1");
    EXPECT_EQ(task_->put_Scen(scenario.get()), S_OK);
    EXPECT_EQ(task_->putref_Bouton(button_.get()), S_OK);
    keys_.MakeUnreachable(task_, L"T1");
  }

  /// Releases the task while the host's objects, which the task still holds, exist.
  ~TaskOfAHost() override { task_ = {}; }

  /// Calls of the report's object since it was made.
  std::vector<std::string> Written() const {
    std::vector<std::string> calls;
    for (const std::string& call : host_.log.calls) {
      if (call.starts_with("Rapport.WriteLine")) calls.push_back(call);
    }
    return calls;
  }

  /// The events of a run.
  std::vector<DISPID> Run() {
    const ComPointer<Sink> sink(new Sink);
    const ComPointer<IConnectionPoint> point = EventsOf(task_.get());
    DWORD cookie = 0;
    EXPECT_EQ(point->Advise(sink.get(), &cookie), S_OK);
    EXPECT_EQ(task_->ExecuteTache(), S_OK);
    EXPECT_EQ(point->Unadvise(cookie), S_OK);
    return sink->events;
  }

  StandInHost host_;
  ComPointer<ScriptedObject> button_ = ScriptedObject::Make("Bouton", host_.log);
  const TaskKeys keys_;
};

TEST_F(TaskOfAHost, HasItsReportWriterFromItsBirthToItsEnd) {
  EXPECT_THAT(host_.log.calls, ElementsAre("Rapport created"));
  task_ = {};
  EXPECT_THAT(host_.log.calls, ElementsAre("Rapport created", "Rapport gone"));
  EXPECT_EQ(button_->references(), 1U);
  EXPECT_TRUE(dll_.CanUnloadNow());
}

TEST_F(TaskOfAHost, WritesItsReportThroughTheHostWithTheObjectThatItWasGiven) {
  Run();
  ASSERT_GE(host_.log.calls.size(), 3U);
  EXPECT_EQ(host_.log.calls[1], "Rapport.SetScenario('S1')");
  EXPECT_THAT(host_.log.calls[2],
              AllOf(StartsWith("Rapport.SetReportFilePath('"), HasSubstr("T1.txt')")));
  const std::vector<std::string> written = Written();
  ASSERT_GE(written.size(), 4U);
  EXPECT_EQ(written[0],
            "Rapport.WriteLine(' --> Ex\xE9"
            "cution du Traitement : T1', Bouton, i2 0)");
  EXPECT_EQ(written[1],
            "Rapport.WriteLine(' ... Connexion \xE0 la Source de Donn\xE9"
            "es : "
            "there is no such source', Bouton, i2 2)");
  EXPECT_EQ(written.back(),
            "Rapport.WriteLine(' ARRET DE LA PROCEDURE : CONNEXION A LA SOURCE IMPOSSIBLE', "
            "Bouton, i2 1)");
  EXPECT_EQ(keys_.Status(L"T1"), 3);
  EXPECT_EQ(button_->references(), 2U);
}

TEST_F(TaskOfAHost, WritesToNothingOnceItsObjectIsTakenAway) {
  EXPECT_EQ(task_->putref_Bouton(nullptr), S_OK);
  Run();
  EXPECT_THAT(Written(), Contains(HasSubstr("Nothing")));
  EXPECT_THAT(Written(), Not(Contains(HasSubstr("Bouton"))));
}

TEST_F(TaskOfAHost, EndsWithAFaultWhenTheReportFailsAtAnyLine) {
  int lines = 0;
  int failing = 0;
  host_.On("Rapport", L"WriteLine") = [&](auto) {
    if (++lines == failing) throw ScriptedFailure{.description = L"disque plein"};
    return AutomationValue();
  };
  task_ = dll_.NewTask();
  keys_.MakeUnreachable(task_, L"T1");
  Run();
  const int all = lines;
  ASSERT_GE(all, 4);
  EXPECT_EQ(keys_.Status(L"T1"), 3);
  for (failing = 1; failing <= all; ++failing) {
    lines = 0;
    const std::vector<DISPID> events = Run();
    EXPECT_EQ(lines, failing) << "nothing is written after it";
    EXPECT_EQ(keys_.Status(L"T1"), 1) << failing;
    EXPECT_EQ(std::count(events.begin(), events.end(), kComplete), 1) << failing;
    EXPECT_EQ(events.back(), kComplete) << failing;
  }
}

TEST_F(TaskOfAHost, ResolvesReferencesThroughTheHost) {
  host_.Answer("Variables", L"GetValue", "no such source either");
  const std::wstring source = L"@SRC";
  const AutomationString path(GetText(task_, &_ImpTable::get_RegstCle));
  ASSERT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, (std::wstring(path.view()) + L"\\T1").c_str(),
                            L"Base Cible", REG_SZ, source.c_str(),
                            static_cast<DWORD>((source.size() + 1) * sizeof(wchar_t))),
            ERROR_SUCCESS);
  Run();
  EXPECT_THAT(host_.log.calls, Contains("Variables.GetValue(i4 -2147483647, '" +
                                        FromWide(path.view()) + "', 'S1', 'SRC')"));
  EXPECT_THAT(Written(), Contains(HasSubstr("no such source either', Bouton, i2 2)")));
}

TEST_F(TaskOfAHost, GivesTheHostsTitleAndSummaryUnchanged) {
  host_.Answer("Wrappers", L"GetTitle", " Importer \xE9<> ");
  host_.Answer("Wrappers", L"GetSummary", "");
  EXPECT_EQ(GetText(task_, &_ImpTable::GetTitle), L" Importer \u00E9<> ");
  EXPECT_EQ(GetText(task_, &_ImpTable::GetSummary), L"");
}

TEST_F(TaskOfAHost, TellsWhatTheHostSaidWhenAServiceFails) {
  host_.On("Wrappers", L"GetTitle") = [](auto) -> AutomationValue {
    throw ScriptedFailure{.description = L"plus de titres"};
  };
  AutomationString title;
  EXPECT_EQ(task_->GetTitle(title.Receive()), kNoHostObject);
  EXPECT_EQ(
      TakeErrorInformation().description,
      L"Objet de l'h\u00F4te non disponible : KaldoObjets.Wrappers.GetTitle : plus de titres");
  host_.Revoke("Registre");
  EXPECT_EQ(task_->GetActions(title.Receive()), kNoHostObject);
  EXPECT_EQ(GetText(task_, &_ImpTable::get_Nom), L"T1") << "the object stays usable";
}

TEST_F(TaskOfAHost, ListsTheHostsActionsInItsOrder) {
  int calls = 0;
  host_.On("Registre", L"NextAction") = [&](auto) {
    constexpr std::int16_t kTypes[] = {2, 0, -1};
    return AutomationValue(kTypes[calls++]);
  };
  host_.Answer("Registre", L"Variable", "ETAT");
  host_.Answer("Registre", L"Valeur", "1");
  EXPECT_EQ(GetText(task_, &_ImpTable::GetActions),
            L"[ExeIf]#@ETAT = 1#[OnErr]#Continuez le sc\u00E9nario : Faux\r\n    Auto-Relance : "
            L"Faux\r\n    @ETAT = 1#");
}

TEST_F(TaskOfAHost, IsNotBornWithoutTheReportWriterOfItsHost) {
  host_.Refuse("Rapport", E_ACCESSDENIED);
  EXPECT_FALSE(dll_.NewTask());
  host_.Unregister("Rapport");
  EXPECT_TRUE(dll_.NewTask());
}

TEST_F(TaskOfAHost, EndsItsRunWhenTheHostLetsGoOfEverythingWithinALine) {
  host_.On("Rapport", L"WriteLine") = [this](auto) {
    if (task_) {
      EXPECT_EQ(task_->putref_Bouton(nullptr), S_OK);
      button_ = {};
      task_ = {};
    }
    return AutomationValue();
  };
  task_ = dll_.NewTask();
  keys_.MakeUnreachable(task_, L"T1");
  EXPECT_EQ(task_->putref_Bouton(button_.get()), S_OK);
  _ImpTable* const raw = task_.get();
  EXPECT_EQ(raw->ExecuteTache(), S_OK);
  EXPECT_EQ(keys_.Status(L"T1"), 3);
  EXPECT_THAT(Written().front(), HasSubstr(", Bouton, i2 0)"));
  EXPECT_THAT(Written().back(), HasSubstr(", Nothing, i2 1)"));
  EXPECT_EQ(host_.log.calls.back(), "Rapport gone");
  EXPECT_TRUE(dll_.CanUnloadNow());
}

}  // namespace
}  // namespace imptable
