// What registration writes, and that nothing of it stays.

#include "automation/Registration.h"

#include <gmock/gmock.h>

#include "tests/win32/component/ClassesSandbox.h"
#include "tests/win32/component/Client.h"

namespace imptable {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

const std::wstring kClassKey = L"CLSID\\{0869CA47-B2E8-40B3-9ED1-77DC977C7E3E}";

// Keys that all components share: the system keeps them when they are empty.
const std::vector<std::wstring> kSharedKeys{L"clsid", L"interface", L"typelib"};

/// The class's own keys, below the prefix of a place.
std::vector<std::wstring> ClassEntries(const std::wstring& prefix = L"") {
  std::vector<std::wstring> entries{
      kClassKey,
      kClassKey + L"|=Importation Table",
      kClassKey + L"\\InprocServer32",
      kClassKey + L"\\InprocServer32|=" + ComponentDll::Path(),
      kClassKey + L"\\InprocServer32|ThreadingModel=Apartment",
      kClassKey + L"\\ProgID",
      kClassKey + L"\\ProgID|=SQLTImpT.ImpTable",
      kClassKey + L"\\Programmable",
      kClassKey + L"\\Programmable|=",
      kClassKey + L"\\TypeLib",
      kClassKey + L"\\TypeLib|={9EC27E03-040E-4456-BAD6-67BCCCDD90CA}",
      kClassKey + L"\\Version",
      kClassKey + L"\\Version|=2.1",
      L"SQLTImpT.ImpTable",
      L"SQLTImpT.ImpTable|=Importation Table",
      L"SQLTImpT.ImpTable\\CLSID",
      L"SQLTImpT.ImpTable\\CLSID|={0869CA47-B2E8-40B3-9ED1-77DC977C7E3E}",
  };
  for (std::wstring& entry : entries) entry = LowerCase(prefix + entry);
  return entries;
}

class Registration : public testing::Test {
 protected:
  HRESULT Register() { return RegisterComponent(ComponentDll::Path(), roots_); }
  HRESULT Unregister() { return UnregisterComponent(roots_); }

  SandboxKey machine_{L"machine"};
  SandboxKey user_{L"user"};
  ClassesRoot classes_{machine_.get()};  // where the system registers type libraries
  RegistrationRoots roots_{machine_.get(), user_.get()};
};

TEST_F(Registration, WritesTheClassItsNameAndItsTypeLibrary) {
  ASSERT_EQ(Register(), S_OK);
  const std::vector<std::wstring> found = machine_.Contents();
  EXPECT_THAT(found, testing::IsSupersetOf(ClassEntries()));
  const std::wstring library = L"typelib\\{9ec27e03-040e-4456-bad6-67bcccdd90ca}\\2.1";
  EXPECT_THAT(found, Contains(library + L"|=kaldo 6.0 ( impt )"));
  EXPECT_THAT(found, Contains(library + L"\\409\\win32|=" + LowerCase(ComponentDll::Path())));
  const std::wstring methods = L"interface\\{10c5a522-33c3-4da0-89c7-87ebe8fd57d0}";
  const std::wstring events = L"interface\\{3e2dc9a8-2aee-45e3-a21d-a59eae77e12a}";
  EXPECT_THAT(found, Contains(methods + L"|=_imptable"));
  EXPECT_THAT(found, Contains(events + L"|=__imptable"));
  EXPECT_THAT(user_.Contents(), IsEmpty());
}

TEST_F(Registration, ChangesNothingWhenItIsDoneAgain) {
  ASSERT_EQ(Register(), S_OK);
  const std::vector<std::wstring> once = machine_.Contents();
  EXPECT_EQ(Register(), S_OK);
  EXPECT_EQ(machine_.Contents(), once);
}

TEST_F(Registration, LeavesNothingWhenItIsTakenBack) {
  ASSERT_EQ(Register(), S_OK);
  EXPECT_EQ(Unregister(), S_OK);
  EXPECT_THAT(machine_.Contents(), testing::IsSubsetOf(kSharedKeys));
  EXPECT_THAT(user_.Contents(), IsEmpty());
  EXPECT_EQ(Unregister(), S_OK) << "again";
}

TEST_F(Registration, LeavesOtherComponentsAlone) {
  machine_.Write(L"CLSID\\{11111111-2222-3333-4444-555555555555}\\InprocServer32", L"", L"a.dll");
  machine_.Write(L"SQLTImpT.Other\\CLSID", L"", L"{11111111-2222-3333-4444-555555555555}");
  machine_.Write(L"TypeLib\\{11111111-2222-3333-4444-555555555555}\\1.0", L"", L"Other");
  machine_.Write(L"Interface\\{11111111-2222-3333-4444-555555555555}", L"", L"IOther");
  const std::vector<std::wstring> before = machine_.Contents();
  ASSERT_EQ(Register(), S_OK);
  EXPECT_THAT(machine_.Contents(), testing::IsSupersetOf(before));
  EXPECT_EQ(Unregister(), S_OK);
  EXPECT_EQ(machine_.Contents(), before);
}

TEST_F(Registration, LeavesItsNameToAnotherClassThatHasTakenIt) {
  ASSERT_EQ(Register(), S_OK);
  machine_.Write(L"SQLTImpT.ImpTable\\CLSID", L"", L"{11111111-2222-3333-4444-555555555555}");
  EXPECT_EQ(Unregister(), S_OK);
  EXPECT_THAT(machine_.Contents(),
              Contains(L"sqltimpt.imptable\\clsid|={11111111-2222-3333-4444-555555555555}"));
  EXPECT_THAT(machine_.Contents(), Not(Contains(LowerCase(kClassKey))));
}

TEST_F(Registration, IsForTheUserAloneWhereTheMachinesClassesCannotBeWritten) {
  const SandboxKey sealed(L"sealed");
  sealed.Seal();
  roots_.machine = sealed.get();
  ASSERT_EQ(Register(), S_OK);
  EXPECT_THAT(user_.Contents(), testing::IsSupersetOf(ClassEntries(L"Software\\Classes\\")));
  EXPECT_EQ(Unregister(), S_OK);
  EXPECT_THAT(user_.Contents(), Not(Contains(StartsWith(L"software\\classes\\sqltimpt"))));
  EXPECT_THAT(user_.Contents(), Not(Contains(StartsWith(L"software\\classes\\clsid\\"))));
  EXPECT_THAT(machine_.Contents(), testing::IsSubsetOf(kSharedKeys));
}

TEST_F(Registration, WritesNothingWhereNothingCanBeWritten) {
  const SandboxKey sealed(L"sealed");
  sealed.Seal();
  roots_ = {sealed.get(), sealed.get()};
  EXPECT_TRUE(FAILED(Register()));
  EXPECT_THAT(machine_.Contents(), IsEmpty());
  EXPECT_EQ(Unregister(), S_OK) << "nothing is there";
}

TEST_F(Registration, TakesBackWhatItWroteWhenTheTypeLibraryCannotBeRegistered) {
  machine_.Write(L"SQLTImpT.ImpTable", L"", L"an older one");
  machine_.Write(kClassKey + L"\\InprocServer32", L"", L"C:\\older.dll");
  const std::vector<std::wstring> before = machine_.Contents();
  const SandboxKey sealed(L"sealed");
  sealed.Seal();
  const ClassesRoot unwritable(sealed.get());
  EXPECT_TRUE(FAILED(Register()));
  EXPECT_EQ(machine_.Contents(), before);
  EXPECT_THAT(user_.Contents(), IsEmpty());
}

TEST_F(Registration, NeedsAFileWithATypeLibrary) {
  EXPECT_TRUE(FAILED(RegisterComponent(L"C:\\there is no such.dll", roots_)));
  EXPECT_THAT(machine_.Contents(), IsEmpty());
}

TEST_F(Registration, IsDoneByTheDllForItself) {
  const ComponentDll dll;
  ASSERT_EQ(dll.RegisterServer(), S_OK);
  EXPECT_THAT(machine_.Contents(), testing::IsSupersetOf(ClassEntries()));
  EXPECT_EQ(dll.RegisterServer(), S_OK);
  EXPECT_EQ(dll.UnregisterServer(), S_OK);
  EXPECT_THAT(machine_.Contents(), testing::IsSubsetOf(kSharedKeys));
}

TEST_F(Client, CanCreateTheRegisteredClassByItsNameInAnyContext) {
  // Stays registered: other tests of this Windows use the same class from the same file.
  ASSERT_EQ(dll_.RegisterServer(), S_OK);
  CLSID class_id{};
  ASSERT_EQ(CLSIDFromProgID(L"SQLTImpT.ImpTable", &class_id), S_OK);
  EXPECT_EQ(class_id, CLSID_ImpTable);
  ComPointer<_ImpTable> task;
  ASSERT_EQ(CoCreateInstance(class_id, nullptr, CLSCTX_ALL, IID__ImpTable, task.ReceiveVoid()),
            S_OK);
  EXPECT_EQ(Get(task, &_ImpTable::GetWrapperType), 50);
  ComPointer<IDispatch> late_bound;
  ASSERT_EQ(CoCreateInstance(class_id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                             late_bound.ReceiveVoid()),
            S_OK);
  EXPECT_EQ(Call(late_bound.get(), L"GetWrapperType").text, L"50");
  task_ = {};
  task = {};
  EXPECT_FALSE(dll_.CanUnloadNow());
  late_bound = {};
  EXPECT_TRUE(dll_.CanUnloadNow());
}

}  // namespace
}  // namespace imptable
