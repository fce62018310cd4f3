// Sinks of a task's events, as clients connect and lose them.

#include <gmock/gmock.h>

#include <array>

#include "tests/win32/component/TaskKeys.h"

namespace imptable {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr DISPID kProgress = 1;
constexpr DISPID kComplete = 2;

class EventSinks : public Client {
 protected:
  EventSinks() : point_(EventsOf(task_.get())) {}

  DWORD Connect(Sink* sink) {
    DWORD cookie = 0;
    EXPECT_EQ(point_->Advise(sink, &cookie), S_OK);
    EXPECT_NE(cookie, 0U);
    return cookie;
  }

  void RaiseComplete() { EXPECT_EQ(task_->put_Run(0), S_OK); }

  ComPointer<IConnectionPoint> point_;
  ComPointer<Sink> first_{new Sink};
  ComPointer<Sink> second_{new Sink};
  ComPointer<Sink> third_{new Sink};
};

TEST_F(EventSinks, HearCompleteAloneWhenRunIsSetTo0) {
  Connect(first_.get());
  RaiseComplete();
  EXPECT_THAT(first_->events, ElementsAre(kComplete));
  EXPECT_TRUE(first_->arguments_were_empty);
}

TEST_F(EventSinks, AllHearEachEventUntilTheyLeave) {
  const DWORD cookie = Connect(first_.get());
  EXPECT_NE(Connect(second_.get()), cookie);
  RaiseComplete();
  EXPECT_EQ(point_->Unadvise(cookie), S_OK);
  EXPECT_EQ(first_->references(), 1U);
  RaiseComplete();
  EXPECT_EQ(first_->events.size(), 1U);
  EXPECT_EQ(second_->events.size(), 2U);
}

TEST_F(EventSinks, HearAnEventOncePerConnection) {
  const DWORD cookie = Connect(first_.get());
  EXPECT_NE(Connect(first_.get()), cookie);
  RaiseComplete();
  EXPECT_EQ(first_->events.size(), 2U);
}

TEST_F(EventSinks, HearTheRestWhenOneOfThemFails) {
  for (const HRESULT answer : {E_FAIL, DISP_E_EXCEPTION, DISP_E_MEMBERNOTFOUND}) {
    first_->on_event = [answer](DISPID) { return answer; };
    const DWORD cookie = Connect(first_.get());
    const DWORD other = Connect(second_.get());
    second_->events.clear();
    RaiseComplete();
    EXPECT_THAT(second_->events, ElementsAre(kComplete));
    EXPECT_EQ(point_->Unadvise(cookie), S_OK);
    EXPECT_EQ(point_->Unadvise(other), S_OK);
  }
}

TEST_F(EventSinks, MayLeaveDuringAnEvent) {
  DWORD cookie = Connect(first_.get());
  first_->on_event = [&](DISPID) { return point_->Unadvise(cookie); };
  Connect(second_.get());
  RaiseComplete();
  RaiseComplete();
  EXPECT_EQ(first_->events.size(), 1U);
  EXPECT_EQ(second_->events.size(), 2U);
}

TEST_F(EventSinks, MayAllBeTakenAwayDuringAnEventAndThenHearNothing) {
  std::vector<DWORD> cookies;
  for (const auto* sink : {&first_, &second_, &third_}) cookies.push_back(Connect(sink->get()));
  first_->on_event = [&](DISPID) {
    for (const DWORD cookie : cookies) EXPECT_EQ(point_->Unadvise(cookie), S_OK);
    return S_OK;
  };
  RaiseComplete();
  RaiseComplete();
  EXPECT_EQ(first_->events.size(), 1U);
  EXPECT_THAT(second_->events, IsEmpty());
  EXPECT_THAT(third_->events, IsEmpty());
  for (const auto* sink : {&first_, &second_, &third_}) EXPECT_EQ((*sink)->references(), 1U);
}

TEST_F(EventSinks, ThatComeDuringAnEventHearTheNextOne) {
  Connect(first_.get());
  first_->on_event = [&](DISPID) {
    if (first_->events.size() == 1) Connect(second_.get());
    return S_OK;
  };
  RaiseComplete();
  EXPECT_THAT(second_->events, IsEmpty());
  RaiseComplete();
  EXPECT_THAT(second_->events, ElementsAre(kComplete));
}

TEST_F(EventSinks, HearProgressAndThenCompleteOnceFromARunThatCannotConnect) {
  const TaskKeys keys;
  keys.MakeUnreachable(task_, L"T1");
  Connect(first_.get());
  const std::array<std::function<HRESULT()>, 3> ways{[&] { return task_->ExecuteTache(); },
                                                     [&] { return task_->put_Run(1); },
                                                     [&] { return task_->RunT(2); }};
  for (const auto& run : ways) {
    first_->events.clear();
    EXPECT_EQ(run(), S_OK);
    ASSERT_GE(first_->events.size(), 2U);
    EXPECT_EQ(first_->events.back(), kComplete);
    first_->events.pop_back();
    EXPECT_THAT(first_->events, Each(kProgress)) << "one, and one for each half second";
  }
  EXPECT_EQ(keys.Status(L"T1"), 3);
  EXPECT_EQ(Get(task_, &_ImpTable::GetStatus), 3);
  EXPECT_THAT(keys.Report(L"T1"), HasSubstr("ARRET DE LA PROCEDURE"));
  EXPECT_THAT(keys.Report(L"T1"), HasSubstr("there is no such source"));
}

TEST_F(EventSinks, MayReleaseTheTaskDuringItsRunWhichThenEnds) {
  const TaskKeys keys;
  keys.MakeUnreachable(task_, L"T1");
  _ImpTable* const raw = task_.get();
  Connect(first_.get());
  point_ = {};
  first_->on_event = [&](DISPID) {
    task_ = {};
    return S_OK;
  };
  EXPECT_EQ(raw->ExecuteTache(), S_OK);
  EXPECT_EQ(first_->events.back(), kComplete);
  EXPECT_EQ(keys.Status(L"T1"), 3);
  EXPECT_EQ(first_->references(), 1U) << "the task has gone";
  EXPECT_TRUE(dll_.CanUnloadNow());
}

TEST_F(EventSinks, MayReleaseTheTaskDuringALateBoundCall) {
  _ImpTable* const raw = task_.get();
  Connect(first_.get());
  point_ = {};
  first_->on_event = [&](DISPID) {
    EXPECT_FALSE(dll_.CanUnloadNow());
    task_ = {};
    EXPECT_FALSE(dll_.CanUnloadNow()) << "the task is still at it";
    return S_OK;
  };
  EXPECT_EQ(Call(raw, L"Run", Arguments().Short(0), DISPATCH_PROPERTYPUT).result, S_OK);
  EXPECT_THAT(first_->events, ElementsAre(kComplete));
  EXPECT_TRUE(dll_.CanUnloadNow());
}

TEST_F(EventSinks, MayRunAnotherTaskFromWithinAnEventAndLetItGo) {
  const TaskKeys keys;
  keys.MakeUnreachable(task_, L"T1");
  Connect(first_.get());
  bool has_run = false;
  first_->on_event = [&](DISPID) {
    if (has_run) return S_OK;
    has_run = true;
    const ComPointer<_ImpTable> other = dll_.NewTask();
    keys.MakeUnreachable(other, L"T2");
    EXPECT_EQ(other->putref_Bouton(second_.get()), S_OK);
    return other->ExecuteTache();
  };
  EXPECT_EQ(task_->ExecuteTache(), S_OK);
  EXPECT_EQ(first_->events.back(), kComplete);
  EXPECT_EQ(keys.Status(L"T2"), 3);
  EXPECT_THAT(keys.Report(L"T2"), Not(IsEmpty()));
  EXPECT_EQ(second_->references(), 1U);
}

TEST_F(EventSinks, OfTwoTasksHearTheirOwnAlone) {
  const TaskKeys keys;
  const ComPointer<_ImpTable> other = dll_.NewTask();
  keys.MakeUnreachable(task_, L"T1");
  keys.MakeUnreachable(other, L"T2");
  Connect(first_.get());
  DWORD cookie = 0;
  ASSERT_EQ(EventsOf(other.get())->Advise(second_.get(), &cookie), S_OK);
  EXPECT_EQ(task_->put_Run(1), S_OK);
  EXPECT_THAT(second_->events, IsEmpty());
  EXPECT_EQ(other->put_Run(1), S_OK);
  const std::size_t heard = first_->events.size();
  EXPECT_EQ(other->put_Run(0), S_OK);
  EXPECT_EQ(first_->events.size(), heard);
  EXPECT_EQ(second_->events.back(), kComplete);
  EXPECT_EQ(keys.Status(L"T1"), 3);
  EXPECT_EQ(keys.Status(L"T2"), 3);
}

TEST_F(EventSinks, MayChangeTheTaskDuringAnEvent) {
  const TaskKeys keys;
  keys.MakeUnreachable(task_, L"T1");
  Connect(first_.get());
  first_->on_event = [&](DISPID) {
    EXPECT_EQ(task_->putref_Bouton(nullptr), S_OK);
    const AutomationString name(L"other");
    EXPECT_EQ(task_->put_Nom(name.get()), S_OK);
    return S_OK;
  };
  EXPECT_EQ(task_->putref_Bouton(second_.get()), S_OK);
  EXPECT_EQ(task_->ExecuteTache(), S_OK);
  EXPECT_EQ(keys.Status(L"T1"), 3);
  EXPECT_EQ(second_->references(), 1U);
}

TEST_F(EventSinks, NeedOnlyBeAbleToBeCalledByNumber) {
  first_->knows_event_interface = false;
  Connect(first_.get());
  RaiseComplete();
  EXPECT_THAT(first_->events, ElementsAre(kComplete));
}

TEST_F(EventSinks, AreRefusedWhenTheyAreNone) {
  DWORD cookie = 5;
  EXPECT_EQ(point_->Advise(nullptr, &cookie), E_POINTER);
  EXPECT_EQ(cookie, 0U);
  EXPECT_EQ(point_->Advise(first_.get(), nullptr), E_POINTER);
  const ComPointer<IClassFactory> no_sink = dll_.Factory();
  cookie = 5;
  EXPECT_EQ(point_->Advise(no_sink.get(), &cookie), CONNECT_E_CANNOTCONNECT);
  EXPECT_EQ(cookie, 0U);
  EXPECT_EQ(first_->references(), 1U);
}

TEST_F(EventSinks, CannotLeaveTwice) {
  const DWORD cookie = Connect(first_.get());
  EXPECT_EQ(point_->Unadvise(cookie + 1), CONNECT_E_NOCONNECTION);
  EXPECT_EQ(point_->Unadvise(0), CONNECT_E_NOCONNECTION);
  EXPECT_EQ(point_->Unadvise(cookie), S_OK);
  EXPECT_EQ(point_->Unadvise(cookie), CONNECT_E_NOCONNECTION);
}

TEST_F(EventSinks, CanBeListed) {
  const DWORD cookie = Connect(first_.get());
  const DWORD other = Connect(second_.get());
  ComPointer<IEnumConnections> connections;
  ASSERT_EQ(point_->EnumConnections(connections.Receive()), S_OK);
  EXPECT_EQ(point_->Unadvise(other), S_OK);

  std::array<CONNECTDATA, 3> found{};
  ULONG count = 0;
  EXPECT_EQ(connections->Next(3, found.data(), &count), S_FALSE);
  ASSERT_EQ(count, 2U) << "what was there when it was asked for";
  EXPECT_EQ(found[0].dwCookie, cookie);
  EXPECT_EQ(found[0].pUnk, first_.get());
  EXPECT_EQ(found[1].dwCookie, other);
  EXPECT_EQ(found[1].pUnk, second_.get());
  found[0].pUnk->Release();
  found[1].pUnk->Release();

  EXPECT_EQ(connections->Reset(), S_OK);
  EXPECT_EQ(connections->Skip(1), S_OK);
  ComPointer<IEnumConnections> clone;
  ASSERT_EQ(connections->Clone(clone.Receive()), S_OK);
  EXPECT_EQ(clone->Next(1, found.data(), nullptr), S_OK);
  EXPECT_EQ(found[0].dwCookie, other);
  found[0].pUnk->Release();
  EXPECT_EQ(clone->Next(1, found.data(), nullptr), S_FALSE);
  EXPECT_EQ(connections->Skip(2), S_FALSE);
  EXPECT_EQ(connections->Next(1, nullptr, nullptr), E_POINTER);
  EXPECT_EQ(connections->Next(2, found.data(), nullptr), E_POINTER);
  EXPECT_EQ(connections->Clone(nullptr), E_POINTER);

  connections = {};
  clone = {};
  EXPECT_EQ(second_->references(), 1U);
}

TEST_F(EventSinks, FindTheOnePointOfTheirInterface) {
  const auto container = Query<IConnectionPointContainer>(task_.get());
  ComPointer<IConnectionPoint> found;
  EXPECT_EQ(container->FindConnectionPoint(DIID___ImpTable, found.Receive()), S_OK);
  EXPECT_EQ(found.get(), point_.get());
  EXPECT_EQ(container->FindConnectionPoint(IID__ImpTable, found.Receive()), CONNECT_E_NOCONNECTION);
  EXPECT_FALSE(found);
  EXPECT_EQ(container->FindConnectionPoint(DIID___ImpTable, nullptr), E_POINTER);

  ComPointer<IEnumConnectionPoints> points;
  ASSERT_EQ(container->EnumConnectionPoints(points.Receive()), S_OK);
  std::array<IConnectionPoint*, 2> all{};
  ULONG count = 0;
  EXPECT_EQ(points->Next(2, all.data(), &count), S_FALSE);
  ASSERT_EQ(count, 1U);
  EXPECT_EQ(ComPointer<IConnectionPoint>::Adopt(all[0]).get(), point_.get());
  EXPECT_EQ(container->EnumConnectionPoints(nullptr), E_POINTER);
}

TEST_F(EventSinks, LearnFromThePointWhatItIsAPointOf) {
  IID iid{};
  EXPECT_EQ(point_->GetConnectionInterface(&iid), S_OK);
  EXPECT_EQ(iid, DIID___ImpTable);
  EXPECT_EQ(point_->GetConnectionInterface(nullptr), E_POINTER);
  ComPointer<IConnectionPointContainer> container;
  EXPECT_EQ(point_->GetConnectionPointContainer(container.Receive()), S_OK);
  EXPECT_EQ(Query<IUnknown>(container.get()).get(), Query<IUnknown>(task_.get()).get());
  EXPECT_EQ(point_->GetConnectionPointContainer(nullptr), E_POINTER);
  EXPECT_FALSE(Query<IConnectionPointContainer>(point_.get())) << "the point is no container";
}

TEST_F(EventSinks, FindThePointAliveAfterTheTaskWasReleased) {
  task_ = {};
  const DWORD cookie = Connect(first_.get());
  EXPECT_EQ(point_->Unadvise(cookie), S_OK);
  EXPECT_FALSE(dll_.CanUnloadNow());
  point_ = {};
  EXPECT_TRUE(dll_.CanUnloadNow());
}

}  // namespace
}  // namespace imptable
