// What keeps the DLL loaded, and what it makes.

#include <gmock/gmock.h>

#include "tests/win32/component/TaskKeys.h"

namespace imptable {
namespace {

class Loading : public Client {
 protected:
  Loading() { task_ = {}; }
};

TEST_F(Loading, MayEndWhenNothingOfItIsHeld) { EXPECT_TRUE(dll_.CanUnloadNow()); }

TEST_F(Loading, LastsAsLongAsATask) {
  task_ = dll_.NewTask();
  EXPECT_FALSE(dll_.CanUnloadNow());
  const ComPointer<_ImpTable> other = dll_.NewTask();
  task_ = {};
  EXPECT_FALSE(dll_.CanUnloadNow());
}

TEST_F(Loading, LastsAsLongAsAFactoryOrItsLock) {
  ComPointer<IClassFactory> factory = dll_.Factory();
  ASSERT_TRUE(factory);
  EXPECT_FALSE(dll_.CanUnloadNow());
  EXPECT_EQ(factory->LockServer(TRUE), S_OK);
  EXPECT_EQ(factory->LockServer(TRUE), S_OK);
  factory = {};
  EXPECT_FALSE(dll_.CanUnloadNow());
  factory = dll_.Factory();
  EXPECT_EQ(factory->LockServer(FALSE), S_OK);
  factory = {};
  EXPECT_FALSE(dll_.CanUnloadNow());
  factory = dll_.Factory();
  EXPECT_EQ(factory->LockServer(FALSE), S_OK);
  factory = {};
  EXPECT_TRUE(dll_.CanUnloadNow());
}

TEST_F(Loading, LastsAsLongAsAnythingThatATaskGave) {
  const auto only = [&](IUnknown* kept) {
    const ComPointer<IUnknown> keep = ComPointer<IUnknown>::Adopt(kept);
    ASSERT_TRUE(keep);
    task_ = {};
    EXPECT_FALSE(dll_.CanUnloadNow());
  };
  task_ = dll_.NewTask();
  only(Query<IConnectionPointContainer>(task_.get()).Release());
  EXPECT_TRUE(dll_.CanUnloadNow());

  task_ = dll_.NewTask();
  only(Query<IProvideClassInfo2>(task_.get()).Release());
  EXPECT_TRUE(dll_.CanUnloadNow());

  task_ = dll_.NewTask();
  only(EventsOf(task_.get()).Release());
  EXPECT_TRUE(dll_.CanUnloadNow());

  task_ = dll_.NewTask();
  ComPointer<IEnumConnections> connections;
  ASSERT_EQ(EventsOf(task_.get())->EnumConnections(connections.Receive()), S_OK);
  only(connections.Release());
  EXPECT_TRUE(dll_.CanUnloadNow());

  task_ = dll_.NewTask();
  ComPointer<IEnumConnectionPoints> points;
  ASSERT_EQ(Query<IConnectionPointContainer>(task_.get())->EnumConnectionPoints(points.Receive()),
            S_OK);
  only(points.Release());
  EXPECT_TRUE(dll_.CanUnloadNow());
}

TEST_F(Loading, MayBeRepeated) {
  for (int i = 0; i < 20; ++i) {
    const ComponentDll dll;
    const ComPointer<_ImpTable> task = dll.NewTask();
    ASSERT_TRUE(task);
    EXPECT_EQ(GetText(task, &_ImpTable::GetTitle), L"Importation Table");
  }
}

TEST_F(Loading, HasOneLanguageForAllTasksWhichEachNewOneReadsAgain) {
  task_ = dll_.NewTask();
  LONG language = 10000;
  EXPECT_EQ(task_->SetLanguage(&language), S_OK);
  EXPECT_EQ(GetText(task_, &_ImpTable::GetTitle), L"Import Table");
  const ComPointer<_ImpTable> other = dll_.NewTask();
  EXPECT_EQ(GetText(other, &_ImpTable::GetTitle), L"Importation Table");
  EXPECT_EQ(GetText(task_, &_ImpTable::GetTitle), L"Importation Table");
}

TEST_F(Loading, RemembersTheCurrentTasksKeyWhileNoTaskIsThere) {
  const TaskKeys keys;
  task_ = dll_.NewTask();
  keys.MakeUnreachable(task_, L"T1");
  EXPECT_EQ(task_->ExecuteTache(), S_OK);
  task_ = {};
  ASSERT_TRUE(dll_.CanUnloadNow());
  task_ = dll_.NewTask();
  const AutomationString name(L"T1");
  EXPECT_EQ(task_->put_Nom(name.get()), S_OK);
  EXPECT_EQ(Get(task_, &_ImpTable::GetStatus), 3);
}

TEST_F(Loading, GivesNoOtherClassAndNoOtherInterface) {
  void* object = this;
  EXPECT_EQ(dll_.GetClassObject(IID__ImpTable, IID_IClassFactory, &object),
            CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(object, nullptr);
  object = this;
  EXPECT_EQ(dll_.GetClassObject(CLSID_ImpTable, IID_IDispatch, &object), E_NOINTERFACE);
  EXPECT_EQ(object, nullptr);
  EXPECT_EQ(dll_.GetClassObject(CLSID_ImpTable, IID_IClassFactory, nullptr), E_POINTER);
  EXPECT_TRUE(dll_.CanUnloadNow());
}

TEST_F(Loading, MakesNoPartsOfAggregatesAndNoUnknownInterfaces) {
  const ComPointer<IClassFactory> factory = dll_.Factory();
  void* object = this;
  EXPECT_EQ(factory->CreateInstance(factory.get(), IID_IUnknown, &object), CLASS_E_NOAGGREGATION);
  EXPECT_EQ(object, nullptr);
  object = this;
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IPersist, &object), E_NOINTERFACE);
  EXPECT_EQ(object, nullptr);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
  EXPECT_EQ(factory->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
  ComPointer<IUnknown> identity;
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, identity.ReceiveVoid()), S_OK);
  EXPECT_TRUE(Query<_ImpTable>(identity.get()));
}

}  // namespace
}  // namespace imptable
