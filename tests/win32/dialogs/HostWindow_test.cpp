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

TEST_F(HostOfDialogs, GetsRidOfTheComponentThatHasShownNone) {
  EXPECT_EQ(host_.Ask("unload"), "may, is gone");
}

TEST_F(HostOfDialogs, IsToldThatTheComponentStaysAfterTheFirstOne) {
  EXPECT_EQ(ShowAndCancel(), "0");
  EXPECT_EQ(host_.Ask("unload"), "may not, is there");
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

TEST_F(HostOfDialogs, HandlesItsMessagesWhileOneIsOpen) {
  Show();
  EXPECT_EQ(host_.Ask("ping"), "pong");
  person_.Click(L"List Tables");
  EXPECT_EQ(person_.AnswerBox(), L"Select data source");
  person_.Click(L"Cancel");
  EXPECT_EQ(host_.Answer(), "0");
}

TEST_F(HostOfDialogs, GetsOneWithTheWrappersIcon) {
  Show();
  EXPECT_EQ(host_.Ask("icons"), "both");
  person_.Click(L"Cancel");
  EXPECT_EQ(host_.Answer(), "0");
}

TEST_F(HostOfDialogs, CanShowOneWithoutTitleAndIconOfItsOwn) {
  host_.Tell("show-plainly");
  EXPECT_EQ(TextOf(person_.WaitForTaskDialog()), L"Import Table");
  person_.Click(L"Cancel");
  EXPECT_EQ(host_.Answer(), "0");
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
