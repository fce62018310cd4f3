// The component's dialog over a host's window.

#include <gtest/gtest.h>

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
        "CREATE TABLE CLIENT (ID INTEGER PRIMARY KEY, NAME VARCHAR(20), BORN DATE, AMOUNT FLOAT)");
    folder_.Write("CLIENTS.CSV", "1;Anna;15/11/2006;12.5\r\n2;Bob;01/02/1999;3\r\n");
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
    EXPECT_TRUE(person.SeesText(L"1;Anna;15/11/2006;12.5"));
    person.ClickTab(1);
    person.Click(L"Fixed");
    EXPECT_EQ(person.AnswerBox(), L"File contains 4 column(s)");
    person.Click(L"Delimited");
    EXPECT_EQ(person.AnswerBox(), L"File contains 4 column(s)");
    EXPECT_EQ(person.Sees(L"No. of columns"), L"4");
    person.Click(L"Decimal separator");
    person.ClickTab(3);
    ChooseDate(person);
    person.Click(L"List Columns");
    person.Click(L"Confirm");
  }

  /// Makes the third column of the file a date.
  static void ChooseDate(ScreenPerson& person) {
    person.ClickGrid(0);
    ScreenPerson::Press(VK_ESCAPE);
    for (const int key : {VK_DOWN, VK_DOWN, VK_SPACE, VK_DOWN, VK_DOWN, VK_DOWN, VK_RETURN}) {
      ScreenPerson::Press(key);
    }
    EXPECT_EQ(person.WaitForOther(), L"Date format");
    person.Click(L"jj?mm?aaaa");
    person.Click(L"Include");
    ScreenPerson::Press(VK_RETURN);
    person.WaitForTaskDialog();
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
  EXPECT_EQ(database_.Rows("SELECT * FROM CLIENT ORDER BY ID"),
            "1|Anna|2006-11-15|12.5\n2|Bob|1999-02-01|3.0\n");
}

}  // namespace
}  // namespace imptable
