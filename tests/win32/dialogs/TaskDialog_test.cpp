// The component's dialog over a host's window.

#include <gtest/gtest.h>

#include <array>
#include <thread>

#include "platform/testing/TemporaryFolder.h"
#include "tests/win32/component/Client.h"
#include "tests/win32/dialogs/HostWindow.h"
#include "tests/win32/dialogs/ScreenPerson.h"
#include "tests/win32/dialogs/ShopDatabase.h"

namespace imptable {
namespace {

constexpr LONG kCurrentUser = static_cast<LONG>(0x80000001);
constexpr const wchar_t* kTasks = L"Software\\component_dialogs_test\\Taches";

class DialogOfTheComponent : public Client {
 protected:
  DialogOfTheComponent() {
    database_.Execute("DROP TABLE IF EXISTS CLIENT");
    database_.Execute(
        "CREATE TABLE CLIENT (ID INTEGER PRIMARY KEY, NAME VARCHAR(20), AMOUNT FLOAT)");
    folder_.Write("CLIENTS.CSV", "1;Anna;12.5\r\n2;Bob;3\r\n");
    Choose(10000);
  }
  ~DialogOfTheComponent() override {
    RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\component_dialogs_test");
  }

  void Choose(LONG language) {
    const AutomationString name(L"T1");
    const AutomationString path(kTasks);
    const AutomationString scenario(L"S1");
    const AutomationString report(Files() + L"\\report.txt");
    EXPECT_EQ(task_->put_Nom(name.get()), S_OK);
    EXPECT_EQ(task_->put_Regst(kCurrentUser), S_OK);
    EXPECT_EQ(task_->put_RegstCle(path.get()), S_OK);
    EXPECT_EQ(task_->put_Scen(scenario.get()), S_OK);
    EXPECT_EQ(task_->put_Rapport(report.get()), S_OK);
    EXPECT_EQ(task_->SetLanguage(&language), S_OK);
  }

  /// @return what ShowWrapper gives.
  LONG Show(const std::function<void(ScreenPerson&)>& acts) {
    LONG outcome = -1;
    host_.Serve([&] { EXPECT_EQ(task_->ShowWrapper(&outcome), S_OK); },
                [&](ScreenPerson& person) {
                  dialog_ = person.WaitForTaskDialog();
                  acts(person);
                });
    return outcome;
  }

  /// Without a separator at its end.
  std::wstring Files() const {
    const std::string path = folder_.path();
    return ToWide(path.substr(0, path.size() - 1));
  }

  std::wstring Stored(const wchar_t* value) const {
    std::array<wchar_t, 256> text{};
    DWORD size = sizeof text;
    const std::wstring key = std::wstring(kTasks) + L"\\T1";
    const LSTATUS status = RegGetValueW(HKEY_CURRENT_USER, key.c_str(), value, RRF_RT_REG_SZ,
                                        nullptr, text.data(), &size);
    return status == ERROR_SUCCESS ? text.data() : L"<none>";
  }

  /// Goes through the whole dialog for a new task.
  void Configure(ScreenPerson& person) const {
    person.Fill(L"Data source name", L"Shop");
    person.Fill(L"User", L"me");
    person.Click(L"List Tables");
    person.WaitForOther();
    ScreenPerson::Press(VK_DOWN);
    ScreenPerson::Press(VK_RETURN);
    person.WaitForTaskDialog();
    EXPECT_TRUE(person.SeesText(L"CLIENT"));
    person.Fill(L"Alias", L"CLIENTS");
    person.Fill(L"Directory", Files());
    person.ClickTab(3);
    EXPECT_TRUE(person.SeesText(L"1;Anna;12.5"));
    person.ClickTab(1);
    person.Click(L"Fixed");
    EXPECT_EQ(person.AnswerBox(), L"File contains 3 column(s)");
    person.Click(L"Delimited");
    EXPECT_EQ(person.AnswerBox(), L"File contains 3 column(s)");
    EXPECT_EQ(person.Sees(L"No. of columns"), L"3");
    person.Click(L"Decimal separator");
    person.ClickTab(3);
    person.Click(L"Column details");
    person.Click(L"Confirm");
  }

  ShopDatabase database_;
  const TemporaryFolder folder_;
  HostWindow host_;
  HWND dialog_ = nullptr;
};

TEST_F(DialogOfTheComponent, IsCancelledAndChangesNothing) {
  EXPECT_EQ(Show([](ScreenPerson& person) {
              person.Fill(L"User", L"me");
              person.Click(L"Cancel");
            }),
            0);
  EXPECT_EQ(Stored(L"Login"), L"<none>");
}

TEST_F(DialogOfTheComponent, MakesATaskFromNothingThatRuns) {
  EXPECT_EQ(Show([&](ScreenPerson& person) { Configure(person); }), 1);
  EXPECT_EQ(Stored(L"Base Cible"), L"Shop");
  EXPECT_EQ(Get(task_, &_ImpTable::GetWorkingMode), 1);
  EXPECT_EQ(task_->ExecuteTache(), S_OK);
  EXPECT_EQ(Get(task_, &_ImpTable::GetStatus), 2);
  EXPECT_EQ(database_.Rows("SELECT * FROM CLIENT ORDER BY ID"), "1|Anna|12.5\n2|Bob|3.0\n");
}

TEST_F(DialogOfTheComponent, IsOpenedAgainAndShowsWhatWasSaved) {
  EXPECT_EQ(Show([&](ScreenPerson& person) { Configure(person); }), 1);
  EXPECT_EQ(Show([&](ScreenPerson& person) {
              EXPECT_EQ(person.Sees(L"Data source name"), L"Shop");
              EXPECT_EQ(person.Sees(L"User"), L"me");
              EXPECT_EQ(person.Sees(L"Alias"), L"CLIENTS");
              EXPECT_EQ(person.Sees(L"Directory"), Files());
              EXPECT_TRUE(person.IsChecked(L"Use <Alias>.csv"));
              EXPECT_TRUE(person.IsChecked(L"Using INSERT"));
              person.ClickTab(1);
              EXPECT_EQ(person.Sees(L"No. of columns"), L"3");
              EXPECT_TRUE(person.IsChecked(L"Delimited"));
              person.Click(L"Cancel");
            }),
            1);
}

TEST_F(DialogOfTheComponent, DisablesTheHostsWindowWhileItIsOpen) {
  ASSERT_EQ(GetActiveWindow(), host_.handle());
  for (int time = 0; time < 2; ++time) {
    Show([&](ScreenPerson& person) {
      EXPECT_FALSE(IsWindowEnabled(host_.handle()));
      EXPECT_EQ(GetWindow(dialog_, GW_OWNER), host_.handle());
      EXPECT_EQ(TextOf(dialog_), L"Import Table");
      person.Click(L"Cancel");
    });
    EXPECT_TRUE(IsWindowEnabled(host_.handle()));
    EXPECT_FALSE(IsWindow(dialog_));
    EXPECT_EQ(GetActiveWindow(), host_.handle());
  }
}

TEST_F(DialogOfTheComponent, HasTheWrappersIcon) {
  Show([&](ScreenPerson& person) {
    for (const WPARAM size : {ICON_SMALL, ICON_BIG}) {
      EXPECT_NE(SendMessageW(dialog_, WM_GETICON, size, 0), 0);
    }
    person.Click(L"Cancel");
  });
}

TEST_F(DialogOfTheComponent, SpeaksFrench) {
  Choose(0);
  Show([&](ScreenPerson& person) {
    EXPECT_EQ(TextOf(dialog_), L"Importation Table");
    EXPECT_EQ(person.Sees(L"Nom de la Source de Donn\u00e9es"), L"");
    person.Click(L"Annuler");
  });
}

TEST_F(DialogOfTheComponent, WaitsForTheAdministratorAndListsItsNewSource) {
  const std::wstring dll = ComponentDll::Path();
  const std::wstring program = dll.substr(0, dll.rfind(L'\\') + 1) + L"StandInAdministrator.exe";
  std::array<wchar_t, MAX_PATH> folder{};
  GetSystemDirectoryW(folder.data(), static_cast<UINT>(folder.size()));
  const std::wstring place = std::wstring(folder.data()) + L"\\odbcad32.exe";
  ASSERT_NE(CopyFileW(program.c_str(), place.c_str(), FALSE), 0);
  Show([&](ScreenPerson& person) {
    EXPECT_TRUE(person.OffersSource(L"Shop"));
    EXPECT_FALSE(person.OffersSource(L"Added"));
    person.Fill(L"Data source name", L"mine");
    person.Click(L"Administration");
    person.WaitUntil([&] { return FindWindowW(nullptr, L"Administrator") != nullptr; },
                     "the administrator");
    EXPECT_FALSE(IsWindowEnabled(dialog_));
    EXPECT_FALSE(IsWindowEnabled(host_.handle()));
    person.WaitUntil([&] { return IsWindowEnabled(dialog_) != FALSE; }, "the dialog's return");
    EXPECT_EQ(FindWindowW(nullptr, L"Administrator"), nullptr);
    EXPECT_FALSE(IsWindowEnabled(host_.handle()));
    SetForegroundWindow(dialog_);
    person.WaitForTaskDialog();
    person.WaitUntil([&] { return person.OffersSource(L"Added"); }, "the new source");
    EXPECT_EQ(person.Sees(L"Data source name"), L"mine");
    person.Click(L"Cancel");
  });
  DeleteFileW(place.c_str());
}

TEST_F(DialogOfTheComponent, KeepsTheComponentLoadedForGood) {
  Show([](ScreenPerson& person) { person.Click(L"Cancel"); });
  task_ = {};
  EXPECT_FALSE(dll_.CanUnloadNow());
  FreeLibrary(dll_.handle());
  EXPECT_NE(GetModuleHandleW(L"SQLTImpT.dll"), nullptr);
  ASSERT_NE(LoadLibraryW(ComponentDll::Path().c_str()), nullptr);
}

TEST_F(DialogOfTheComponent, IsRefusedToAnotherThreadThanThatOfTheFirstOne) {
  Show([](ScreenPerson& person) { person.Click(L"Cancel"); });
  HRESULT result = S_OK;
  std::thread([&] {
    CoInitialize(nullptr);
    {
      const ComPointer<_ImpTable> other = dll_.NewTask();
      short outcome = 0;
      result = other->Affiche(&outcome);
    }
    CoUninitialize();
  }).join();
  EXPECT_EQ(result, static_cast<HRESULT>(0x800A0000 | 430));
}

}  // namespace
}  // namespace imptable
