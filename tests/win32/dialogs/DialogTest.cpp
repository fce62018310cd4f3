#include "tests/win32/dialogs/DialogTest.h"

#include <array>

#include "plugin/automation/AutomationText.h"

namespace imptable {
namespace {

constexpr const wchar_t* kScenario = L"SOFTWARE\\KALDO\\Scenarios\\S1";

}  // namespace

DialogTest::DialogTest() {
  database_.Execute("DROP TABLE IF EXISTS CLIENT");
  database_.Execute(
      "CREATE TABLE CLIENT (ID INTEGER PRIMARY KEY, NAME VARCHAR(20), BORN DATE, AMOUNT FLOAT)");
  folder_.Write("CLIENTS.CSV", "1;Anna;15/11/2006;12.5\r\n2;Bob;01/02/1999;3\r\n");
  MakeTask(kEnglish, true);
}

DialogTest::~DialogTest() { RegDeleteTreeW(HKEY_LOCAL_MACHINE, kScenario); }

void DialogTest::MakeTask(int language, bool is_new) {
  const std::string report = folder_.path() + "report.txt";
  EXPECT_EQ(
      host_.Ask("task\tT1\t" + std::to_string(language) + '\t' + report + (is_new ? "\tnew" : "")),
      "");
}

HWND DialogTest::Show() {
  host_.Tell("show");
  return person_.WaitForTaskDialog();
}

std::string DialogTest::ShowAndCancel() {
  Show();
  ScreenPerson::Press(VK_ESCAPE);
  return host_.Answer();
}

void DialogTest::Configure() {
  person_.Fill(L"Data source name", L"Shop");
  person_.Fill(L"User", L"me");
  person_.Click(L"List Tables");
  EXPECT_EQ(person_.WaitForOther(), L"Select table");
  ScreenPerson::Press(VK_DOWN);
  ScreenPerson::Press(VK_RETURN);
  person_.WaitForTaskDialog();
  EXPECT_TRUE(person_.SeesText(L"CLIENT"));
  person_.Fill(L"Alias", L"CLIENTS");
  person_.Fill(L"Directory", Files());
  person_.ClickTab(3);
  EXPECT_TRUE(person_.SeesText(L"1;Anna;15/11/2006;12.5"));
  person_.ClickTab(1);
  person_.Click(L"Fixed");
  EXPECT_EQ(person_.AnswerBox(), L"File contains 4 column(s)");
  person_.Click(L"Delimited");
  EXPECT_EQ(person_.AnswerBox(), L"File contains 4 column(s)");
  EXPECT_EQ(person_.Sees(L"No. of columns"), L"4");
  person_.Click(L"Decimal separator");
  person_.ClickTab(3);
  constexpr int kDate = 3;
  person_.ChooseType(2, kDate);
  EXPECT_EQ(person_.WaitForOther(), L"Date format");
  person_.Click(L"jj?mm?aaaa");
  person_.Click(L"Include");
  person_.Fill(L"Include", L"/");
  ScreenPerson::Press(VK_RETURN);
  person_.WaitForTaskDialog();
}

std::wstring DialogTest::Files() const {
  const std::string path = folder_.path();
  return ToWide(path.substr(0, path.size() - 1));
}

std::wstring DialogTest::Stored(const std::wstring& value, const std::wstring& subkey) {
  std::array<wchar_t, 256> text{};
  DWORD size = sizeof text;
  const std::wstring key = std::wstring(kScenario) + L"\\Taches\\T1\\" + subkey;
  const LSTATUS status = RegGetValueW(HKEY_LOCAL_MACHINE, key.c_str(), value.c_str(), RRF_RT_REG_SZ,
                                      nullptr, text.data(), &size);
  return status == ERROR_SUCCESS ? text.data() : L"<none>";
}

HWND DialogTest::ActiveWindowOfHost() const {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  GetGUIThreadInfo(GetWindowThreadProcessId(host_.window(), nullptr), &info);
  return info.hwndActive;
}

}  // namespace imptable
