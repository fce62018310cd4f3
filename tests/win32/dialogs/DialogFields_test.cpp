// The rules of the component's dialog, as somebody before the screen meets them.

#include "tests/win32/dialogs/DialogTest.h"
#include "tests/win32/dialogs/ScreenWindows.h"

namespace imptable {
namespace {

class FieldsOfTheDialog : public DialogTest {
 protected:
  void ExpectRefusal(const std::wstring& text) const {
    person_.Click(L"Confirm");
    EXPECT_EQ(person_.AnswerBox(), text);
    person_.WaitForTaskDialog();
  }

  /// Types a number into the dialog that asks for one.
  void GiveNumber(const std::wstring& caption, const std::wstring& number) const {
    EXPECT_EQ(person_.WaitForOther(), caption);
    ScreenPerson::Type(number);
    ScreenPerson::Press(VK_RETURN);
    person_.WaitForTaskDialog();
  }

  void GiveLength(std::size_t row, const std::wstring& length) const {
    person_.ChooseType(row, TypeMenuLine::kLength);
    GiveNumber(L"Length", length);
  }

  /// Types another source, then chooses the first one of the list.
  void ChooseFirstSource() const {
    person_.Fill(L"Data source name", L"mine");
    person_.GoTo(L"User");
    ScreenPerson::PressWith(VK_SHIFT, VK_TAB);
    ScreenPerson::PressWith(VK_SHIFT, VK_TAB);
    person_.WaitForFocus(L"Data source name");
    ScreenPerson::Press(VK_DOWN);
  }
};

TEST_F(FieldsOfTheDialog, AreAskedForInTurnAndNothingIsSavedBefore) {
  Show();
  ExpectRefusal(L"Select data source");
  person_.WaitForFocus(L"Data source name");
  ScreenPerson::Type(L"Shop");
  ExpectRefusal(L"Enter user name");
  person_.WaitForFocus(L"User");
  ScreenPerson::Type(L"me");
  ExpectRefusal(L"Select table");
  FillFirstTab();
  person_.Fill(L"Alias", L" CLIENTS");
  ExpectRefusal(L"Enter alias");
  person_.WaitForFocus(L"Alias");
  person_.Fill(L"Alias", L"CLIENTS");
  person_.ClickTab(2);
  person_.Click(L"Ignore Duplicate Key");
  person_.ClickTab(0);
  ExpectRefusal(L"Enter error code");
  person_.WaitForFocus(L"Error code");
  ScreenPerson::Type(L"12a");
  ExpectRefusal(L"Enter error code");
  person_.ClickTab(0);
  EXPECT_FALSE(IsWindowEnabled(FieldOf(person_.Front(), L"Key used")));
  person_.Click(L"Using UPDATE");
  ExpectRefusal(L"Enter key or index used");
  person_.WaitForFocus(L"Key used");
  person_.Click(L"Use primary key");
  person_.ClickTab(1);
  person_.Click(L"Fixed");
  EXPECT_EQ(person_.AnswerBox(), L"File contains 4 column(s)");
  ExpectRefusal(L"Enter text field character length for column 1");
  person_.WaitForText(L"1;Anna;15/11/2006;12.5");
  EXPECT_EQ(Stored(L"Login"), L"<none>");
  Cancel();
}

TEST_F(FieldsOfTheDialog, AreEmptiedForAnotherSourceOnlyAfterAQuestion) {
  Show();
  FillFirstTab();
  ChooseFirstSource();
  EXPECT_EQ(person_.AnswerBox('N'), L"Initialize associated parameters");
  person_.WaitForTaskDialog();
  person_.WaitToSee(L"User", L"me");
  person_.WaitForText(L"CLIENT");
  ChooseFirstSource();
  EXPECT_EQ(person_.AnswerBox('Y'), L"Initialize associated parameters");
  person_.WaitForTaskDialog();
  person_.WaitToSee(L"Data source name", L"Shop");
  person_.WaitToSee(L"User", L"");
  person_.WaitToSee(L"Alias", L"");
  EXPECT_FALSE(person_.SeesText(L"CLIENT"));
  Cancel();
}

TEST_F(FieldsOfTheDialog, TakeTheScenariosVariables) {
  StoreVariable(L"PERSON", L"me");
  StoreVariable(L"SOURCE", L"Shop");
  Show();
  person_.ClickVariableButton(L"Data source name");
  EXPECT_EQ(person_.WaitForOther(), L"Select variable/constant");
  ScreenPerson::Press(VK_DOWN, 2);
  ScreenPerson::Press(VK_RETURN);
  EXPECT_EQ(person_.AnswerBox('N'), L"Initialize associated parameters");
  person_.WaitForTaskDialog();
  person_.WaitToSee(L"Data source name", L"@SOURCE");
  person_.GoTo(L"User");
  person_.ClickVariableButton(L"User");
  EXPECT_EQ(person_.WaitForOther(), L"Select variable/constant");
  ScreenPerson::Press(VK_DOWN);
  ScreenPerson::Press(VK_RETURN);
  person_.WaitForTaskDialog();
  person_.WaitToSee(L"User", L"@PERSON");
  person_.Click(L"List Tables");
  EXPECT_EQ(person_.WaitForOther(), L"Select table");
  person_.DoubleClickFirstLine();
  person_.WaitForTaskDialog();
  person_.Fill(L"Alias", L"CLIENTS");
  person_.Click(L"Confirm");
  EXPECT_EQ(host_.Answer(), "1");
  EXPECT_EQ(Stored(L"Base Cible"), L"@SOURCE");
  EXPECT_EQ(Stored(L"Login"), L"@PERSON");
  EXPECT_EQ(Stored(L"Table"), L"CLIENT");
}

TEST_F(FieldsOfTheDialog, SayWhatTheHostsLibraryFailsWith) {
  EXPECT_EQ(host_.Ask("library\tno-variables\tNobody knows."), "is there");
  const HWND dialog = Show();
  person_.ClickVariableButton(L"Data source name");
  EXPECT_NE(person_.AnswerBox().find(L"Nobody knows."), std::wstring::npos);
  EXPECT_EQ(person_.WaitForTaskDialog(), dialog);
  Cancel();
}

TEST_F(FieldsOfTheDialog, HideThePasswordButNotTheNameOfAVariable) {
  Show();
  person_.GoTo(L"Password");
  ScreenPerson::Type(L"me");
  person_.WaitToSee(L"Password", L"me");
  EXPECT_TRUE(person_.IsMasked(L"Password"));
  ScreenPerson::Press(VK_HOME);
  ScreenPerson::Type(L"@");
  person_.WaitToSee(L"Password", L"@me");
  ScreenPerson::WaitUntil([&] { return !person_.IsMasked(L"Password"); }, "readable letters");
  ScreenPerson::Press(VK_HOME);
  ScreenPerson::Press(VK_DELETE);
  ScreenPerson::WaitUntil([&] { return person_.IsMasked(L"Password"); }, "hidden letters");
  FillFirstTab();
  person_.Click(L"Confirm");
  EXPECT_EQ(host_.Answer(), "1");
  EXPECT_EQ(Stored(L"Password"), L"me");
}

TEST_F(FieldsOfTheDialog, GiveTheColumnsOfAFixedFileTheirLengths) {
  Show();
  FillFirstTab();
  person_.ClickTab(1);
  person_.Click(L"Fixed");
  person_.AnswerBox();
  person_.ClickTab(3);
  person_.ChooseType(0, TypeMenuLine::kLength);
  EXPECT_EQ(person_.WaitForOther(), L"Length");
  ScreenPerson::Type(L"2x");
  ScreenPerson::Press(VK_RETURN);
  EXPECT_EQ(person_.AnswerBox(), L"Incorrect value");
  EXPECT_EQ(person_.WaitForOther(), L"Length");
  ScreenPerson::Type(L"002");
  person_.ClickSpinner(false);
  person_.ClickSpinner(false);
  person_.ClickSpinner(true);
  person_.ClickSpinner(true);
  GiveNumber(L"Length", L"");
  GiveLength(1, L"020");
  GiveLength(2, L"10");
  person_.ChooseNumber(3, NumberLine::kDouble);
  person_.ChooseType(3, TypeMenuLine::kDecimals);
  GiveNumber(L"Decimals", L"2");
  GiveLength(3, L"2");
  person_.Click(L"Confirm");
  EXPECT_NE(person_.AnswerBox().find(L"4"), std::wstring::npos);
  person_.WaitForTaskDialog();
  GiveLength(3, L"3");
  person_.Click(L"Confirm");
  EXPECT_EQ(host_.Answer(), "1");
  EXPECT_EQ(Stored(L"1", L"Colonnes"), L"1,,3");
  EXPECT_EQ(Stored(L"2", L"Colonnes"), L"1,,20");
  EXPECT_EQ(Stored(L"4", L"Colonnes"), L"6,2,3");
}

TEST_F(FieldsOfTheDialog, AreLeftByEnter) {
  Show();
  person_.GoTo(L"Password", VK_RETURN);
  person_.GoTo(L"Administration", VK_RETURN);
  person_.GoTo(L"Alias", VK_RETURN);
  person_.GoTo(L"Cancel", VK_RETURN);
  ScreenPerson::Press(VK_SPACE);
  EXPECT_EQ(host_.Answer(), "0");
}

TEST_F(FieldsOfTheDialog, TakeAKeyFromTheListOfThoseThatTheTableHas) {
  Show();
  FillFirstTab();
  person_.Click(L"Using UPDATE");
  person_.Click(L"Key/index list");
  EXPECT_EQ(person_.WaitForOther(), L"Select key or index");
  ScreenPerson::Press(VK_DOWN);
  ScreenPerson::Press(VK_ESCAPE);
  person_.WaitForTaskDialog();
  person_.WaitToSee(L"Key used", L"");
  person_.Click(L"Key/index list");
  person_.WaitForOther();
  ScreenPerson::Press(VK_DOWN);
  ScreenPerson::Press(VK_RETURN);
  person_.WaitForTaskDialog();
  person_.WaitToSee(L"Key used", L"ID");
  database_.Execute("DROP TABLE CLIENT");
  database_.Execute("CREATE TABLE CLIENT (NAME VARCHAR(20))");
  person_.Click(L"Key/index list");
  EXPECT_EQ(person_.AnswerBox(), L"This table contains no primary key or unique index");
  EXPECT_EQ(person_.WaitForOther(), L"Select key or index");
  ScreenPerson::Press(VK_ESCAPE);
  person_.WaitForTaskDialog();
  Cancel();
}

TEST_F(FieldsOfTheDialog, SayWhyASourceCanNotBeReached) {
  Show();
  person_.Fill(L"Data source name", L"mine");
  person_.Fill(L"User", L"me");
  person_.Click(L"List Tables");
  EXPECT_NE(person_.AnswerBox(), L"");
  EXPECT_EQ(person_.WaitForOther(), L"Select table");
  ScreenPerson::Press(VK_ESCAPE);
  person_.WaitForTaskDialog();
  Cancel();
}

TEST_F(FieldsOfTheDialog, AreSavedAsANewTaskOnceAndThenAsAChangedOne) {
  Show();
  FillFirstTab();
  person_.Click(L"Apply");
  ScreenPerson::WaitUntil([] { return Stored(L"Dir") != L"<none>"; }, "the saved task");
  const std::wstring made = Stored(L"Cr\u00e9eLe");
  EXPECT_NE(made, L"<none>");
  EXPECT_EQ(Stored(L"Modifi\u00e9Le"), L"<none>");
  person_.Click(L"Confirm");
  EXPECT_EQ(host_.Answer(), "1");
  EXPECT_EQ(Stored(L"Cr\u00e9eLe"), made);
  EXPECT_NE(Stored(L"Modifi\u00e9Le"), L"<none>");
}

}  // namespace
}  // namespace imptable
