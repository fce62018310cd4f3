// From a task that isn't there yet to a finished import, in both languages.

#include "tests/win32/dialogs/DialogTest.h"
#include "tests/win32/dialogs/ScreenWindows.h"

namespace imptable {
namespace {

class NewTaskOfTheComponent : public DialogTest,
                              public testing::WithParamInterface<const DialogWords*> {
 protected:
  NewTaskOfTheComponent() : DialogTest(*GetParam()) {}

  void ExpectStored() {
    EXPECT_EQ(host_.Ask("mode"), "1");
    EXPECT_EQ(Stored(L"Base Cible"), L"Shop");
    EXPECT_EQ(Stored(L"Login"), L"me");
    EXPECT_EQ(Stored(L"Table"), L"CLIENT");
    EXPECT_EQ(Stored(L"2", L"Colonnes"), L"1");
    EXPECT_EQ(Stored(L"3", L"Colonnes"), L"7,7,,/,");
    EXPECT_EQ(Stored(L"1", L"Champs"), L"ID,INTEGER,(Col)1");
    EXPECT_EQ(Stored(L"4", L"Champs"), L"AMOUNT,FLOAT,(Col)4");
    EXPECT_NE(Stored(L"Cr\u00e9eLe"), L"<none>");
  }

  void ExpectImport() {
    EXPECT_EQ(host_.Ask("run"), "2");
    EXPECT_EQ(database_.Rows("SELECT * FROM CLIENT ORDER BY ID"),
              "1|Anna|2006-11-15|12.5\n2|Bob|1999-02-01|3.0\n");
  }

  /// Goes to another option and selects it. Windows does so when it comes there, Wine doesn't.
  void Select(int arrow, const std::wstring& option) const {
    ScreenPerson::Press(arrow);
    person_.WaitForFocus(option);
    ScreenPerson::Press(VK_SPACE);
  }

  /// Gives the field where the cursor is the file's column of the same number, and goes down.
  void PickOrigin(int row) const {
    ScreenPerson::Press(VK_F4);
    const HWND list = person_.WaitForList();
    constexpr int kOthers = 3;  // before the first column
    ScreenPerson::Press(VK_DOWN, kOthers + row);
    ScreenPerson::Press(VK_RETURN);
    person_.WaitUntilGone(list);
    ScreenPerson::Press(VK_DOWN);
  }
};

TEST_P(NewTaskOfTheComponent, IsMadeWithItsDialogAloneOpensAgainAndRuns) {
  EXPECT_EQ(TextOf(Show()), words_.title);
  Configure();
  person_.Click(words_.confirm);
  EXPECT_EQ(host_.Answer(), "1");
  ExpectStored();

  Show();
  person_.WaitToSee(words_.source, L"Shop");
  person_.WaitToSee(words_.user, L"me");
  person_.WaitToSee(L"Alias", L"CLIENTS");
  person_.WaitToSee(words_.directory, Files());
  EXPECT_TRUE(person_.IsChecked(words_.alias_file));
  EXPECT_TRUE(person_.IsChecked(words_.by_insert));
  person_.ClickTab(1);
  person_.WaitToSee(words_.column_count, L"4");
  EXPECT_TRUE(person_.IsChecked(words_.delimited));
  EXPECT_TRUE(person_.IsChecked(words_.destination_fields));
  person_.ClickTab(3);
  person_.ChooseType(2, TypeMenuLine::kDate);
  EXPECT_EQ(person_.WaitForOther(), words_.date_format);
  EXPECT_TRUE(person_.IsChecked(L"jj?mm?aaaa"));
  person_.WaitToSee(words_.with_separator, L"/");
  ScreenPerson::Press(VK_ESCAPE);
  person_.WaitForTaskDialog();
  Cancel("1");
  ExpectImport();
}

TEST_P(NewTaskOfTheComponent, IsMadeByTheKeyboardAlone) {
  Show();
  person_.WaitForFocus(words_.source);
  ScreenPerson::Type(L"Shop");
  person_.GoTo(words_.user);
  ScreenPerson::Type(L"me");
  person_.GoTo(words_.tables);
  ScreenPerson::Press(VK_SPACE);
  EXPECT_EQ(person_.WaitForOther(), words_.pick_table);
  ScreenPerson::Press(VK_DOWN);
  ScreenPerson::Press(VK_RETURN);
  person_.WaitForTaskDialog();
  person_.GoTo(L"Alias");
  ScreenPerson::Type(L"CLIENTS");
  person_.GoTo(words_.directory);
  ScreenPerson::Type(Files());
  person_.GoToTab(1);
  person_.GoTo(words_.delimited);
  Select(VK_UP, words_.fixed);
  EXPECT_EQ(person_.AnswerBox(), words_.counted);
  Select(VK_DOWN, words_.delimited);
  EXPECT_EQ(person_.AnswerBox(), words_.counted);
  person_.GoTo(words_.decimal_separator);
  ScreenPerson::Press(VK_SPACE);
  person_.GoTo(words_.destination_fields);
  ScreenPerson::Press(VK_SPACE);
  person_.GoToTab(3);
  person_.GoToGrid(0);
  ScreenPerson::Press(VK_DOWN, 2);
  ScreenPerson::Press(VK_F4);
  person_.ChooseInMenu(TypeMenuLine::kDate);
  EXPECT_EQ(person_.WaitForOther(), words_.date_format);
  person_.GoTo(L"jj?mm?aa");
  Select(VK_RIGHT, L"jj?mm?aaaa");
  person_.GoTo(words_.without_separator);
  Select(VK_DOWN, words_.with_separator);
  ScreenPerson::Press(VK_TAB);
  ScreenPerson::Type(L"/");
  ScreenPerson::Press(VK_RETURN);
  person_.WaitForTaskDialog();
  person_.GoTo(words_.column_details);
  ScreenPerson::Press(VK_SPACE);
  person_.GoToGrid(1);
  ScreenPerson::Press(VK_RIGHT, 3);
  for (int row = 0; row < 4; ++row) PickOrigin(row);
  ScreenPerson::PressWith(VK_MENU, words_.confirm_key);
  EXPECT_EQ(host_.Answer(), "1");
  ExpectStored();
  ExpectImport();
}

INSTANTIATE_TEST_SUITE_P(EachLanguage, NewTaskOfTheComponent, testing::Values(&kFrench, &kEnglish),
                         [](const auto& words) { return words.param->name; });

}  // namespace
}  // namespace imptable
