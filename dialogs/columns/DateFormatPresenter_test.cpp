#include "dialogs/columns/DateFormatPresenter.h"

#include <gmock/gmock.h>

#include "tests/kit/TestComponent.h"

namespace imptable {
namespace {

/// The date format dialog as opened on a row with this format.
class OpenFormDate : private DateFormatView {
 public:
  explicit OpenFormDate(std::string_view format, std::unique_ptr<TextEncoding> code_page =
                                                     std::make_unique<Utf8TextEncoding>())
      : component(std::move(code_page)), dialog(component.module(), *this) {
    dialog.Open(format);
  }

  TestComponent component;
  DateFormatState shown;
  int times_shown = 0;
  DateFormatPresenter dialog;

 private:
  void Show(const DateFormatState& state) override {
    shown = state;
    ++times_shown;
  }
};

TEST(FormDate, OpensOnTheFirstStyleWithoutSeparatorAndTimeForARowWithoutFormat) {
  for (const char* format : {"", "2", "Texte", "jj/mm"}) {
    OpenFormDate form(format);
    EXPECT_EQ(form.shown, (DateFormatState{0, false, "", TimeCode::kNone})) << format;
    EXPECT_EQ(form.times_shown, 1);
    EXPECT_EQ(form.dialog.Confirm(), "jjmmaa") << format;
  }
}

TEST(FormDate, OpensOnWhatProducesTheFormatOfTheRow) {
  EXPECT_EQ(OpenFormDate("jj/mm/aaaa hh:mm:ss").shown,
            (DateFormatState{1, true, "/", TimeCode::kSeconds}));
  EXPECT_EQ(OpenFormDate("aaaammjj").shown, (DateFormatState{6, false, "", TimeCode::kNone}));
  EXPECT_EQ(OpenFormDate("aa mm jj hh:mm").shown,
            (DateFormatState{7, true, " ", TimeCode::kMinutes}));
}

TEST(FormDate, GivesBackUntouchedTheFormatItWasOpenedOn) {
  TestComponent component;
  for (const std::int32_t language : {kFrenchOffset, kEnglishOffset}) {
    for (std::uint8_t style = 1; style <= kDateStyles.size(); ++style) {
      for (const char* separator : {"/", "-", ".", " ", "m", "é"}) {
        for (const TimeCode time : {TimeCode::kNone, TimeCode::kMinutes, TimeCode::kSeconds}) {
          component.module().language_offset = language;
          const std::string text =
              DateFormatText(component.module(), *DatePatternOf(style, separator, time));
          OpenFormDate form("");
          form.component.module().language_offset = language;
          form.dialog.Open(text);
          EXPECT_EQ(form.dialog.Confirm(), text);
        }
      }
    }
  }
}

TEST(FormDate, JoinsThePartsOfTheChosenStyleWithTheSeparatorOrWithNothing) {
  OpenFormDate form("");
  form.dialog.ChooseStyle(1);
  form.dialog.ChooseSeparator(true);
  form.dialog.TypeSeparator("/");
  EXPECT_EQ(form.dialog.Confirm(), "jj/mm/aaaa");
  form.dialog.ChooseStyle(6);
  form.dialog.ChooseSeparator(false);
  EXPECT_EQ(form.dialog.Confirm(), "aaaammjj");
  EXPECT_EQ(form.shown, (DateFormatState{6, false, "/", TimeCode::kNone}));
}

TEST(FormDate, AppendsTheCheckedTimeInTheLanguageOfTheUser) {
  OpenFormDate form("");
  form.dialog.ChooseStyle(4);
  form.dialog.ChooseSeparator(true);
  form.dialog.TypeSeparator("-");
  form.dialog.ToggleTime(1, true);
  EXPECT_EQ(form.dialog.Confirm(), "aaaa-jj-mm hh:mm:ss");
  form.component.module().language_offset = kEnglishOffset;
  EXPECT_EQ(form.dialog.Confirm(), "yyyy-dd-mm hh:mm:ss");
  form.dialog.ToggleTime(0, true);
  EXPECT_EQ(form.dialog.Confirm(), "yyyy-dd-mm hh:mm");
}

TEST(FormDate, LeavesOnlyOneTimeBoxChecked) {
  OpenFormDate form("");
  form.dialog.ToggleTime(0, true);
  EXPECT_EQ(form.shown.time, TimeCode::kMinutes);
  form.dialog.ToggleTime(1, true);
  EXPECT_EQ(form.shown.time, TimeCode::kSeconds);
  form.dialog.ToggleTime(0, true);
  EXPECT_EQ(form.shown.time, TimeCode::kMinutes);
}

TEST(FormDate, MayHaveBothTimeBoxesClear) {
  OpenFormDate form("jjmmaa hh:mm:ss");
  form.dialog.ToggleTime(0, false);
  EXPECT_EQ(form.shown.time, TimeCode::kSeconds);
  form.dialog.ToggleTime(1, false);
  EXPECT_EQ(form.shown.time, TimeCode::kNone);
  EXPECT_EQ(form.dialog.Confirm(), "jjmmaa");
}

TEST(FormDate, KeepsOnlyTheFirstCharacterOfTheSeparator) {
  OpenFormDate form("");
  form.dialog.TypeSeparator("/-");
  EXPECT_EQ(form.shown.separator, "/");
  form.dialog.TypeSeparator("éa");
  EXPECT_EQ(form.shown.separator, "é");
  form.dialog.TypeSeparator("");
  EXPECT_EQ(form.shown.separator, "");
}

TEST(FormDate, TakesAByteForACharacterInASingleByteCodePage) {
  OpenFormDate form("", std::make_unique<Latin1TextEncoding>());
  form.dialog.TypeSeparator("\xC3\xA9");
  EXPECT_EQ(form.shown.separator, "\xC3");
}

TEST(FormDate, HasNoSeparatorWhenNoneIsTyped) {
  OpenFormDate form("");
  form.dialog.ChooseSeparator(true);
  EXPECT_TRUE(form.shown.has_separator);
  EXPECT_EQ(form.dialog.Confirm(), "jjmmaa");
}

TEST(FormDate, ShowsTheStateAfterEveryEvent) {
  OpenFormDate form("");
  form.dialog.ChooseStyle(7);
  EXPECT_EQ(form.shown.style, 7U);
  form.dialog.ChooseStyle(kDateOptionCount);
  EXPECT_EQ(form.shown.style, 7U);
  form.dialog.ChooseSeparator(true);
  form.dialog.TypeSeparator(".");
  form.dialog.ToggleTime(0, true);
  EXPECT_EQ(form.times_shown, 6);
  EXPECT_EQ(form.shown, (DateFormatState{7, true, ".", TimeCode::kMinutes}));
}

}  // namespace
}  // namespace imptable
