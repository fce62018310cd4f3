#include "dialogs/columns/NumberPresenter.h"

#include <gmock/gmock.h>

#include "dialogs/testing/RecordingBoxes.h"
#include "tests/kit/TestComponent.h"

namespace imptable {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The number dialog as opened on a cell with this text.
class OpenFormNombre : private NumberView {
 public:
  explicit OpenFormNombre(std::string_view text, NumberKind kind = NumberKind::kLength,
                          std::int32_t language = kFrenchOffset)
      : dialog_(Speaking(language), boxes, *this, kind) {
    dialog_.Open(text);
  }

  NumberPresenter& operator()() { return dialog_; }

  TestComponent component;
  RecordingBoxes boxes;
  NumberState shown;

 private:
  const ModuleCommun& Speaking(std::int32_t language) {
    component.module().language_offset = language;
    return component.module();
  }
  void Show(const NumberState& state) override { shown = state; }

  NumberPresenter dialog_;
};

TEST(FormNombre, IsTitledByWhatItEdits) {
  EXPECT_EQ(OpenFormNombre("12", NumberKind::kLength).shown, (NumberState{"Longueur", "12"}));
  EXPECT_EQ(OpenFormNombre("0", NumberKind::kDecimals).shown, (NumberState{"Décimales", "0"}));
  EXPECT_EQ(OpenFormNombre("", NumberKind::kLength, kEnglishOffset).shown,
            (NumberState{"Length", ""}));
  EXPECT_EQ(OpenFormNombre("", NumberKind::kDecimals, kEnglishOffset).shown,
            (NumberState{"Decimals", ""}));
}

TEST(FormNombre, WritesTheNumberWithoutLeadingZerosAndBlanks) {
  OpenFormNombre form("");
  for (const auto& [typed, written] : std::vector<std::pair<std::string, std::string>>{
           {"007", "7"}, {"0", "0"}, {"000", "0"}, {" 12 ", "12"}, {"2147483647", "2147483647"}}) {
    form().Type(typed);
    EXPECT_EQ(form().Confirm(), written) << typed;
  }
  EXPECT_THAT(form.boxes.shown, IsEmpty());
}

TEST(FormNombre, RefusesWhatIsNoWholeNumberAndStaysOpen) {
  OpenFormNombre form("12", NumberKind::kDecimals);
  for (const char* typed : {"", " ", "abc", "1.5", "1,5", "12a", "-3", "- 3", "1 2", "@N", "1e3",
                            "0x10", "2147483648", "99999999999999999999"}) {
    form.boxes.shown.clear();
    form().Type(typed);
    EXPECT_EQ(form().Confirm(), std::nullopt) << typed;
    EXPECT_THAT(form.boxes.shown, ElementsAre("Warn|Décimales|Valeur incorrecte")) << typed;
    EXPECT_EQ(form.shown.text, typed);
  }
}

TEST(FormNombre, RefusesInTheLanguageOfTheUser) {
  OpenFormNombre form("x", NumberKind::kLength, kEnglishOffset);
  form().Confirm();
  EXPECT_THAT(form.boxes.shown, ElementsAre("Warn|Length|Incorrect value"));
}

TEST(FormNombre, StepsUpByOne) {
  OpenFormNombre form("9");
  form().StepUp();
  EXPECT_EQ(form.shown.text, "10");
  form().Type("0041");
  form().StepUp();
  EXPECT_EQ(form.shown.text, "42");
  form().Type("2147483647");
  form().StepUp();
  EXPECT_EQ(form.shown.text, "2147483647");
}

TEST(FormNombre, StepsDownByOneButNeverBelowOne) {
  OpenFormNombre form("3");
  form().StepDown();
  EXPECT_EQ(form.shown.text, "2");
  form().StepDown();
  EXPECT_EQ(form.shown.text, "1");
  form().StepDown();
  EXPECT_EQ(form.shown.text, "1");
  EXPECT_EQ(form().Confirm(), "1");
}

TEST(FormNombre, DoesNotTurnAZeroIntoAnotherNumberByAStepDown) {
  OpenFormNombre form("0", NumberKind::kDecimals);
  form().StepDown();
  EXPECT_EQ(form.shown.text, "0");
}

TEST(FormNombre, CountsUpFromNothing) {
  for (const char* text : {"", "abc"}) {
    OpenFormNombre form(text);
    form().StepDown();
    EXPECT_EQ(form.shown.text, text);
    form().StepUp();
    EXPECT_EQ(form.shown.text, "1") << text;
  }
}

}  // namespace
}  // namespace imptable
