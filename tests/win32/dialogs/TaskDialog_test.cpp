// What a person does in the component's dialog, and what becomes of it.

#include <array>

#include "platform/testing/TemporaryFolder.h"
#include "tests/win32/component/ComponentDll.h"
#include "tests/win32/dialogs/DialogTest.h"
#include "tests/win32/dialogs/ScreenWindows.h"

namespace imptable {
namespace {

class DialogOfTheComponent : public DialogTest {};

TEST_F(DialogOfTheComponent, IsCancelledAndChangesNothing) {
  Show();
  Configure();
  person_.Click(L"Cancel");
  EXPECT_EQ(host_.Answer(), "0");
  EXPECT_EQ(host_.Ask("mode"), "0");
  EXPECT_EQ(Stored(L"Login"), L"<none>");
  EXPECT_EQ(Stored(L"1", L"Colonnes"), L"<none>");
  EXPECT_EQ(Stored(L"1", L"Champs"), L"<none>");
}

TEST_F(DialogOfTheComponent, TakesAccessKeysWhereverTheFocusIs) {
  Show();
  person_.GoTo(L"User");
  ScreenPerson::PressWith(VK_MENU, 'C');
  EXPECT_EQ(person_.AnswerBox(), L"Select data source");
  FillFirstTab();
  person_.ClickTab(1);
  person_.Click(L"Fixed");
  person_.AnswerBox();
  person_.ClickTab(3);
  person_.ChooseType(0, TypeMenuLine::kDate);
  person_.WaitForOther();
  person_.GoTo(L"jj?mm?aa");
  ScreenPerson::PressWith(VK_MENU, 'A');
  person_.WaitForTaskDialog();
  person_.GoToGrid(0);
  ScreenPerson::PressWith(VK_MENU, 'A');
  EXPECT_EQ(host_.Answer(), "0") << "cancelled";
}

TEST_F(DialogOfTheComponent, IsCancelledOverASavedTaskAndLeavesItAsItWas) {
  Show();
  Configure();
  person_.Click(L"Apply");
  ScreenPerson::WaitUntil([] { return Stored(L"Login") == L"me"; }, "the saved task");
  person_.ClickTab(0);
  person_.Fill(L"User", L"you");
  person_.Click(L"Using UPDATE");
  person_.Click(L"Cancel");
  EXPECT_EQ(host_.Answer(), "1") << "it was saved before";
  EXPECT_EQ(Stored(L"Login"), L"me");
}

/// Puts the stand-in in the place of the system's ODBC administrator.
class Administrator {
 public:
  Administrator() {
    std::array<wchar_t, MAX_PATH> folder{};
    GetSystemDirectoryW(folder.data(), static_cast<UINT>(folder.size()));
    place_ = std::wstring(folder.data()) + L"\\odbcad32.exe";
    const std::wstring program = ComponentDll::Folder() + L"StandInAdministrator.exe";
    if (CopyFileW(program.c_str(), place_.c_str(), FALSE) == 0) {
      throw std::runtime_error("The administrator can't be put into the system folder.");
    }
  }
  Administrator(const Administrator&) = delete;
  Administrator& operator=(const Administrator&) = delete;
  ~Administrator() { DeleteFileW(place_.c_str()); }

 private:
  std::wstring place_;
};

TEST_F(DialogOfTheComponent, WaitsForTheAdministratorAndListsItsNewSource) {
  const Administrator installed;
  const HWND dialog = Show();
  EXPECT_TRUE(person_.OffersSource(L"Shop"));
  EXPECT_FALSE(person_.OffersSource(L"Added"));
  person_.Fill(L"Data source name", L"mine");
  person_.Click(L"Administration");
  const auto administrator = [] { return FindWindowW(nullptr, L"Administrator"); };
  ScreenPerson::WaitUntil([&] { return administrator() != nullptr; }, "the administrator");
  EXPECT_FALSE(IsWindowEnabled(dialog));
  EXPECT_FALSE(IsWindowEnabled(host_.window()));
  PostMessageW(administrator(), WM_CLOSE, 0, 0);
  ScreenPerson::WaitUntil([&] { return IsWindowEnabled(dialog) != FALSE; }, "the dialog's return");
  EXPECT_EQ(administrator(), nullptr);
  EXPECT_FALSE(IsWindowEnabled(host_.window()));
  SetForegroundWindow(dialog);
  person_.WaitForTaskDialog();
  ScreenPerson::WaitUntil([&] { return person_.OffersSource(L"Added"); }, "the new source");
  person_.WaitToSee(L"Data source name", L"mine");
  Cancel();
}

}  // namespace
}  // namespace imptable
