#include "tests/win32/dialogs/DialogTest.h"

#include <array>

#include "automation/AutomationText.h"

namespace imptable {
namespace {

constexpr const wchar_t* kScenario = L"SOFTWARE\\KALDO\\Scenarios\\S1";

}  // namespace

DialogTest::DialogTest(const DialogWords& words) : words_(words) {
  database_.Execute("DROP TABLE IF EXISTS CLIENT");
  database_.Execute(
      "CREATE TABLE CLIENT (ID INTEGER PRIMARY KEY, NAME VARCHAR(20), BORN DATE, AMOUNT FLOAT)");
  folder_.Write("CLIENTS.CSV", "1;Anna;15/11/2006;12.5\r\n2;Bob;01/02/1999;3\r\n");
  MakeTask();
}

DialogTest::~DialogTest() { RegDeleteTreeW(HKEY_LOCAL_MACHINE, kScenario); }

void DialogTest::MakeTask(bool is_new) {
  const std::string report = folder_.path() + "report.txt";
  EXPECT_EQ(host_.Ask("task\tT1\t" + std::to_string(words_.language) + '\t' + report +
                      (is_new ? "\tnew" : "")),
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

void DialogTest::Cancel(const std::string& outcome) {
  person_.Click(words_.cancel);
  EXPECT_EQ(host_.Answer(), outcome);
}

void DialogTest::FillFirstTab() {
  person_.Fill(words_.source, L"Shop");
  person_.Fill(words_.user, L"me");
  person_.Click(words_.tables);
  EXPECT_EQ(person_.WaitForOther(), words_.pick_table);
  ScreenPerson::Press(VK_DOWN);
  ScreenPerson::Press(VK_RETURN);
  person_.WaitForTaskDialog();
  person_.WaitForText(L"CLIENT");
  person_.Fill(L"Alias", L"CLIENTS");
  person_.Fill(words_.directory, Files());
}

void DialogTest::Configure() {
  FillFirstTab();
  person_.ClickTab(3);
  person_.WaitForText(L"1;Anna;15/11/2006;12.5");
  person_.ClickTab(1);
  person_.Click(words_.fixed);
  EXPECT_EQ(person_.AnswerBox(), words_.counted);
  person_.Click(words_.delimited);
  EXPECT_EQ(person_.AnswerBox(), words_.counted);
  person_.WaitToSee(words_.column_count, L"4");
  person_.Click(words_.decimal_separator);
  person_.Click(words_.destination_fields);
  person_.ClickTab(3);
  person_.ChooseType(2, TypeMenuLine::kDate);
  EXPECT_EQ(person_.WaitForOther(), words_.date_format);
  person_.Click(L"jj?mm?aaaa");
  person_.Click(words_.with_separator);
  person_.Fill(words_.with_separator, L"/");
  ScreenPerson::Press(VK_RETURN);
  person_.WaitForTaskDialog();
  person_.Click(words_.column_details);
  for (std::size_t row = 0; row < 4; ++row) {
    person_.ClickCell(1, row, 3);
    person_.ClickEntry(L"Col N\u00b0 " + std::to_wstring(row + 1));
  }
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

void DialogTest::StoreVariable(const std::wstring& name, const std::wstring& value) {
  const std::wstring key = std::wstring(kScenario) + L"\\Variables";
  RegSetKeyValueW(HKEY_LOCAL_MACHINE, key.c_str(), name.c_str(), REG_SZ, value.c_str(),
                  static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
}

HWND DialogTest::ActiveWindowOfHost() const {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  GetGUIThreadInfo(GetWindowThreadProcessId(host_.window(), nullptr), &info);
  return info.hwndActive;
}

}  // namespace imptable
