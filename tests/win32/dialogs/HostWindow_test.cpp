// What the component's dialogs are to the host that they open over.

#include "tests/win32/dialogs/DialogTest.h"
#include "tests/win32/dialogs/ScreenWindows.h"

namespace imptable {
namespace {

class HostOfDialogs : public DialogTest {};

TEST_F(HostOfDialogs, GetsNothingOfTheToolkitBeforeTheFirstDialog) {
  EXPECT_NE(host_.Ask("describe"), "0");
  EXPECT_EQ(host_.Ask("classes"), "0");
  EXPECT_EQ(ShowAndCancel(), "0");
  EXPECT_NE(host_.Ask("classes"), "0");
}

TEST_F(HostOfDialogs, GetsRidOfTheComponentThatHasShownNoneEachTime) {
  for (int time = 0; time < 3; ++time) {
    EXPECT_EQ(host_.Ask("unload"), "may, is gone");
    EXPECT_EQ(host_.Ask("load"), "is there");
    MakeTask();
  }
  EXPECT_EQ(ShowAndCancel(), "0");
}

TEST_F(HostOfDialogs, IsToldThatTheComponentStaysWhileADialogIsOpen) {
  Show();
  EXPECT_EQ(host_.Ask("may-unload"), "may not");
  Cancel();
}

TEST_F(HostOfDialogs, IsToldThatTheComponentStaysAfterTheFirstOneAndCanGoOnUsingIt) {
  for (int time = 0; time < 2; ++time) {
    EXPECT_EQ(ShowAndCancel(), "0");
    EXPECT_EQ(host_.Ask("unload"), "may not, is there");
    EXPECT_EQ(host_.Ask("load"), "is there");
    MakeTask();
  }
  EXPECT_EQ(ShowAndCancel(), "0");
  host_.Tell("quit\t0");
  EXPECT_EQ(host_.WaitForEnd(), 0U);
}

TEST_F(HostOfDialogs, HasADisabledWindowWhileOneIsOpenAndItsFocusAfter) {
  ASSERT_EQ(ActiveWindowOfHost(), host_.window());
  for (int time = 0; time < 2; ++time) {
    const HWND dialog = Show();
    EXPECT_FALSE(IsWindowEnabled(host_.window()));
    EXPECT_EQ(GetWindow(dialog, GW_OWNER), host_.window());
    EXPECT_EQ(TextOf(dialog), L"Import Table");
    person_.Click(L"Cancel");
    EXPECT_EQ(host_.Answer(), "0");
    EXPECT_TRUE(IsWindowEnabled(host_.window()));
    EXPECT_FALSE(IsWindow(dialog));
    EXPECT_EQ(ActiveWindowOfHost(), host_.window());
  }
}

TEST_F(HostOfDialogs, HandlesItsMessagesAndTimersWhileOneIsOpen) {
  const auto expect_ticks = [&] {
    const int before = std::stoi(host_.Ask("ticks"));
    ScreenPerson::WaitUntil([&] { return std::stoi(host_.Ask("ticks")) > before + 2; }, "ticks");
  };
  Show();
  expect_ticks();
  person_.Click(L"List Tables");
  EXPECT_EQ(person_.WaitForOther(), L"Import Table");
  expect_ticks();
  EXPECT_EQ(person_.AnswerBox(), L"Select data source");
  FillFirstTab();
  person_.Click(L"List Tables");
  EXPECT_EQ(person_.WaitForOther(), L"Select table");
  expect_ticks();
  ScreenPerson::Press(VK_ESCAPE);
  person_.WaitForTaskDialog();
  Cancel();
}

TEST_F(HostOfDialogs, GetsOneWithTheWrappersIcon) {
  Show();
  EXPECT_EQ(host_.Ask("icons"), "both");
  Cancel();
}

TEST_F(HostOfDialogs, GetsOneWithItsOwnTitleOrPlainly) {
  EXPECT_EQ(host_.Ask("library\ttitle\tOur imports"), "is there");
  EXPECT_EQ(TextOf(Show()), L"Our imports");
  Cancel();
  host_.Tell("show-plainly");
  EXPECT_EQ(TextOf(person_.WaitForTaskDialog()), L"Import Table");
  Cancel();
}

TEST_F(HostOfDialogs, IsToldOfASavedTaskByItsModeAloneWhenItShowsOnePlainly) {
  host_.Tell("show-plainly");
  person_.WaitForTaskDialog();
  FillFirstTab();
  person_.Click(L"Confirm");
  EXPECT_EQ(host_.Answer(), "0");
  EXPECT_EQ(host_.Ask("mode"), "1");
}

TEST_F(HostOfDialogs, GetsTheFaultOfItsOwnLibraryAndCanShowOneLater) {
  EXPECT_EQ(host_.Ask("library\tno-title\tNobody knows."), "is there");
  EXPECT_EQ(host_.Ask("show"), "failed 800a01ae");
  EXPECT_TRUE(IsWindowEnabled(host_.window()));
  EXPECT_EQ(host_.Ask("library\ttitle\tOur imports"), "is there");
  EXPECT_EQ(ShowAndCancel(), "0");
}

TEST_F(HostOfDialogs, IsToldWhenTheMemoryDoesNotSufficeAndCanShowOneLater) {
  Show();
  FillFirstTab();
  person_.ClickTab(1);
  EXPECT_EQ(host_.Ask("scarce-memory\t60000"), "refuses");
  person_.Click(L"Fixed");
  EXPECT_EQ(host_.Answer(), "failed 800a0007");
  EXPECT_TRUE(IsWindowEnabled(host_.window()));
  EXPECT_EQ(ActiveWindowOfHost(), host_.window());
  EXPECT_EQ(host_.Ask("scarce-memory\t2000000000"), "refuses");
  Show();
  FillFirstTab();
  person_.ClickTab(1);
  person_.Click(L"Fixed");
  EXPECT_EQ(person_.AnswerBox(), L"File contains 4 column(s)");
  Cancel();
}

TEST_F(HostOfDialogs, QuitsWithItsOwnCodeWhileOneIsOpen) {
  Show();
  host_.Tell("quit\t7");
  EXPECT_EQ(host_.Answer(), "0") << "ShowWrapper comes back";
  EXPECT_EQ(host_.WaitForEnd(), 7U);
}

TEST_F(HostOfDialogs, QuitsWhileADialogIsOpenOverAnother) {
  Show();
  person_.Fill(L"Data source name", L"Shop");
  person_.Fill(L"User", L"me");
  person_.Click(L"List Tables");
  person_.WaitForOther();
  host_.Tell("quit\t7");
  EXPECT_EQ(host_.Answer(), "0");
  EXPECT_EQ(host_.WaitForEnd(), 7U);
}

TEST_F(HostOfDialogs, QuitsWhileAMessageBoxIsOpen) {
  Show();
  person_.Click(L"Confirm");
  person_.WaitForOther();
  host_.Tell("quit\t7");
  EXPECT_EQ(host_.Answer(), "0");
  EXPECT_EQ(host_.WaitForEnd(), 7U);
}

TEST_F(HostOfDialogs, IsRefusedOneOnAnotherThreadThanThatOfTheFirst) {
  EXPECT_EQ(ShowAndCancel(), "0");
  EXPECT_EQ(host_.Ask("show-elsewhere"), "failed 800a01ae");
}

}  // namespace
}  // namespace imptable
