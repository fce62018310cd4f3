// What a person does in the component's dialog, and what becomes of it.

#include <array>

#include "platform/testing/TemporaryFolder.h"
#include "tests/win32/component/ComponentDll.h"
#include "tests/win32/dialogs/DialogTest.h"
#include "tests/win32/dialogs/ScreenWindows.h"

namespace imptable {
namespace {

class DialogOfTheComponent : public DialogTest {};

TEST_F(DialogOfTheComponent, MakesATaskFromNothingThatRuns) {
  Show();
  Configure();
  person_.Click(L"Column details");
  person_.ClickCell(1, 1, 3);
  person_.ClickEntry(L"Col N\u00b0 2");
  person_.Click(L"Confirm");
  EXPECT_EQ(host_.Answer(), "1");
  EXPECT_EQ(host_.Ask("mode"), "1");
  EXPECT_EQ(Stored(L"Base Cible"), L"Shop");
  EXPECT_EQ(Stored(L"3", L"Colonnes"), L"7,7,,/,");

  Show();
  EXPECT_EQ(person_.Sees(L"Data source name"), L"Shop");
  EXPECT_EQ(person_.Sees(L"User"), L"me");
  EXPECT_EQ(person_.Sees(L"Alias"), L"CLIENTS");
  EXPECT_EQ(person_.Sees(L"Directory"), Files());
  EXPECT_TRUE(person_.IsChecked(L"Use <Alias>.csv"));
  EXPECT_TRUE(person_.IsChecked(L"Using INSERT"));
  person_.ClickTab(1);
  EXPECT_EQ(person_.Sees(L"No. of columns"), L"4");
  EXPECT_TRUE(person_.IsChecked(L"Delimited"));
  person_.Click(L"Cancel");
  EXPECT_EQ(host_.Answer(), "1");

  EXPECT_EQ(host_.Ask("run"), "2");
  EXPECT_EQ(database_.Rows("SELECT * FROM CLIENT ORDER BY ID"),
            "1|Anna|2006-11-15|12.5\n2|Bob|1999-02-01|3.0\n");
}

TEST_F(DialogOfTheComponent, IsCancelledAndChangesNothing) {
  Show();
  Configure();
  person_.Click(L"Cancel");
  EXPECT_EQ(host_.Answer(), "0");
  EXPECT_EQ(host_.Ask("mode"), "0");
  EXPECT_EQ(Stored(L"Login"), L"<none>");
  EXPECT_EQ(Stored(L"1", L"Colonnes"), L"<none>");
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

TEST_F(DialogOfTheComponent, SaysWhatIsMissingAndStaysOpen) {
  const HWND dialog = Show();
  person_.Click(L"Confirm");
  EXPECT_EQ(person_.AnswerBox(), L"Select data source");
  EXPECT_EQ(person_.WaitForTaskDialog(), dialog);
  person_.Click(L"Cancel");
  EXPECT_EQ(host_.Answer(), "0");
}

TEST_F(DialogOfTheComponent, SpeaksTheHostsLanguage) {
  MakeTask(kFrench, true);
  EXPECT_EQ(TextOf(Show()), L"Importation Table");
  EXPECT_EQ(person_.Sees(L"Nom de la Source de Donn\u00e9es"), L"");
  person_.ClickTab(1);
  EXPECT_TRUE(person_.IsChecked(L"D\u00e9limit\u00e9"));
  person_.Click(L"Annuler");
  EXPECT_EQ(host_.Answer(), "0");

  MakeTask(kEnglish, true);
  EXPECT_EQ(TextOf(Show()), L"Import Table");
  EXPECT_EQ(person_.Sees(L"Data source name"), L"");
  person_.ClickTab(1);
  EXPECT_TRUE(person_.IsChecked(L"Delimited"));
  person_.Click(L"Cancel");
  EXPECT_EQ(host_.Answer(), "0");
}

/// The stand-in in the place of the system's ODBC administrator.
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
  ScreenPerson::WaitUntil([&] { return IsWindowEnabled(dialog) != FALSE; }, "the dialog's return");
  EXPECT_EQ(administrator(), nullptr);
  EXPECT_FALSE(IsWindowEnabled(host_.window()));
  SetForegroundWindow(dialog);
  person_.WaitForTaskDialog();
  ScreenPerson::WaitUntil([&] { return person_.OffersSource(L"Added"); }, "the new source");
  EXPECT_EQ(person_.Sees(L"Data source name"), L"mine");
  person_.Click(L"Cancel");
  EXPECT_EQ(host_.Answer(), "0");
}

}  // namespace
}  // namespace imptable
