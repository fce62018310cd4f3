#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/dialogs/DialogPlace.h"
#include "tests/dialogs/PointerOnScreen.h"
#include "tests/drivers/ScriptedDataSource.h"

namespace imptable {
namespace {

using testing::SizeIs;

/// The dialog over a data source that takes its time to connect.
class SlowDataSource : public testing::Test {
 protected:
  SlowDataSource() {
    source_.Script(
        "slow SQLDriverConnect 1500 ms\ntable SALES\ncolumn CODE 4 INTEGER 10 0 0\n"
        "index CODE 1 SALES_CODE 3 unique\n");
  }

  void Configure(const std::function<void(Person&)>& acts) {
    place_.Configure([&](Person& person) {
      person.Fill("Combo1", source_.name());
      person.Fill("txtTable", "SALES");
      acts(person);
      person.Press("Escape");
    });
  }

  DialogPlace place_{"", Language::kEnglish};
  ScriptedDataSource source_;
};

/// A button that connects and lists, the tab it is on, and the driver's function that then lists.
struct Listing {
  const char* button;
  int tab;
  const char* lists;
};

class SlowListing : public SlowDataSource, public testing::WithParamInterface<Listing> {
 protected:
  /// Presses the button and waits until the dialog waits for the data source.
  /// @return the pointer as it usually is.
  static PointerOnScreen::Image Begin(Person& person, const PointerOnScreen& pointer) {
    person.Click("optBCP(1)");
    person.ClickTab(GetParam().tab);
    person.Aim(GetParam().button);
    PointerOnScreen::Image usual = pointer.Shape();
    person.Click(GetParam().button);
    pointer.WaitForOtherThan(usual);
    return usual;
  }
};

TEST_P(SlowListing, IsWaitedForUnderAnHourglass) {
  const auto& [button, tab, lists] = GetParam();
  Configure([&, button = button, tab = tab, lists = lists](Person& person) {
    const PointerOnScreen pointer;
    const auto usual = Begin(person, pointer);
    EXPECT_THAT(source_.LogLines(lists), SizeIs(0));
    if (tab == 0) {
      person.WaitForDialog("FrmTable");
      person.Press("Escape");
    }
    person.WaitForDialog("FrmImpTable");
    person.Aim(button);
    pointer.WaitFor(usual);
    EXPECT_THAT(source_.LogLines(lists), SizeIs(1));
  });
}

TEST_P(SlowListing, IsStartedOnceHoweverOftenItsButtonIsPressed) {
  const auto& [button, tab, lists] = GetParam();
  Configure([&, tab = tab, lists = lists](Person& person) {
    Begin(person, PointerOnScreen());
    for (int again = 0; again < 3; ++again) person.ClickBlindly();
    if (tab == 0) {
      person.WaitForDialog("FrmTable");
      EXPECT_THAT(person.Lines(), SizeIs(1));
      person.Press("Down Return");
    } else {
      person.WaitForCell("Grid2", 0, 1, "CODE");
    }
    person.WaitForDialog("FrmImpTable");
    person.ClickTab(1);
    EXPECT_THAT(source_.LogLines(lists), SizeIs(1));
  });
}

INSTANTIATE_TEST_SUITE_P(OfEachButton, SlowListing,
                         testing::Values(Listing{"Command1", 0, "SQLTables"},
                                         Listing{"cmdCle", 0, "SQLPrimaryKeys"},
                                         Listing{"cmdInfo", 3, "SQLColumns"}),
                         [](const auto& listing) { return std::string(listing.param.button); });

}  // namespace
}  // namespace imptable
