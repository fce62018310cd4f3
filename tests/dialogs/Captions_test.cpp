#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/dialog.h>

#include <cstdlib>
#include <tuple>

#include "tests/dialogs/ClientTask.h"
#include "tests/dialogs/CutControls.h"
#include "tests/dialogs/DialogPlace.h"
#include "tests/dialogs/Languages.h"

namespace imptable {
namespace {

using testing::IsEmpty;

/// Every dialog in each language and with the letters of each size.
class Captions : public testing::TestWithParam<std::tuple<Language, const char*>> {
 protected:
  Captions() : font_(std::get<1>(GetParam())), place_(kClientTable, std::get<0>(GetParam())) {
    SetUpClientTask(place_);
    place_.Imptable({"variable", "S1", "FOLDER=/data"});
  }

  DesktopFont font_;
  DialogPlace place_;
};

std::string CaptionsName(const testing::TestParamInfo<std::tuple<Language, const char*>>& info) {
  std::string name = std::get<0>(info.param) == Language::kFrench ? "French" : "English";
  for (const char letter : std::string(std::get<1>(info.param))) {
    if (letter != ' ') name += letter;
  }
  return name;
}

/// Opens each dialog and hands it to `look`, with its name and, for the main dialog, the tab.
void LookAtEach(Person& person, WatchedBoxes& boxes,
                const std::function<void(const std::string& dialog)>& look) {
  for (int tab = 0; tab < 4; ++tab) {
    person.ClickTab(tab);
    look("tab " + std::to_string(tab));
  }
  const auto look_and_leave = [&](const std::string& dialog) {
    person.WaitForDialog(dialog);
    look(dialog);
    person.Press("Escape");
    person.WaitForDialog("FrmImpTable");
  };
  person.ClickTab(1);
  person.Click("optForm(0)");
  boxes.Answer("Return");
  person.ClickTab(3);
  person.ClickCell("Grid1", 1, 1);
  person.Choose("Date...");
  look_and_leave("FormDate");
  person.ClickCell("Grid1", 1, 1);
  person.Choose("Longueur");
  look_and_leave("FormNombre");
  person.ClickTab(0);
  person.Click("Command1");
  look_and_leave("FrmTable");
  person.Click("cmdSv1");
  look_and_leave("FrmVariables");
}

TEST_P(Captions, AreNowhereCut) {
  place_.Configure([&](Person& person) {
    LookAtEach(person, place_.boxes(), [](const std::string& dialog) {
      EXPECT_THAT(OnMainThread(CutControls), IsEmpty()) << dialog;
    });
    person.Press("Escape");
  });
}

INSTANTIATE_TEST_SUITE_P(EachLanguageAndSize, Captions,
                         testing::Combine(kEachLanguage, testing::Values("Sans 10", "Sans 15")),
                         CaptionsName);

TEST(Letters, AreDrawnWithAllPixelsOfTheScreen) {
  const char* const scale = std::getenv("GDK_SCALE");
  DialogPlace place(kClientTable, Language::kEnglish);
  place.Configure([&](Person& person) {
    EXPECT_EQ(OnMainThread([] { return FrontDialog()->GetContentScaleFactor(); }),
              scale == nullptr ? 1.0 : std::stod(scale));
    person.Press("Escape");
  });
}

TEST(Icons, AreThoseOfEveryDialog) {
  DialogPlace place(kClientTable, Language::kEnglish);
  SetUpClientTask(place);
  place.Configure([&](Person& person) {
    LookAtEach(person, place.boxes(), [](const std::string& dialog) {
      EXPECT_FALSE(OnMainThread([] { return FrontDialog()->GetIcons().IsEmpty(); })) << dialog;
    });
    person.Press("Escape");
  });
}

TEST(Letters, MakeTheDialogsGrowWithThem) {
  DialogPlace place(kClientTable, Language::kFrench);
  SetUpClientTask(place);
  const auto size_of = [&](const char* letters) {
    const DesktopFont font(letters);
    wxSize size;
    place.Configure([&](Person& person) {
      size = OnMainThread([] { return FrontDialog()->GetSize(); });
      person.Press("Escape");
    });
    return size;
  };
  const wxSize small = size_of("Sans 8");
  const wxSize large = size_of("Sans 14");
  EXPECT_GT(large.x, small.x);
  EXPECT_GT(large.y, small.y);
}

/// Whether the whole control can be seen: no window around it cuts it off.
bool IsInSight(wxWindow& control) {
  wxRect sight = control.GetScreenRect();
  for (wxWindow* around = control.GetParent(); around != nullptr; around = around->GetParent()) {
    sight.Intersect(wxRect(around->ClientToScreen(wxPoint()), around->GetClientSize()));
    if (around->IsTopLevel()) break;
  }
  return sight == control.GetScreenRect();
}

TEST(Letters, ThatLeaveNoRoomOnTheScreenLeaveEverythingInReach) {
  const DesktopFont font("Sans 26");
  DialogPlace place(kClientTable, Language::kFrench);
  SetUpClientTask(place);
  place.Configure([&](Person& person) {
    const wxRect dialog = OnMainThread([] { return FrontDialog()->GetScreenRect(); });
    EXPECT_LE(dialog.width, 1280);
    EXPECT_LE(dialog.height, 1024);
    EXPECT_TRUE(person.Ask("cmdAnnuler", IsInSight));
    person.Press("Escape");
  });
  place.Imptable({"set", "S1", "T1", "Mode=1", "Cle/Index=ID"});
  place.Configure([&](Person& person) {
    EXPECT_FALSE(person.Ask("chkPrimKey", IsInSight));
    person.GoTo("chkPrimKey");
    person.WaitUntil([] { return IsInSight(Control("chkPrimKey")); }, "the box to come into sight");
    person.GoTo("Combo1");
    person.WaitUntil([] { return IsInSight(Control("Combo1")); }, "the field to come into sight");
    person.Press("Escape");
  });
}

}  // namespace
}  // namespace imptable
