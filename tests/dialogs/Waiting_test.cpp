#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <thread>

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

  /// Waits until the driver has been asked to connect as often as that.
  void WaitForConnections(std::size_t count) const {
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (source_.LogLines("SQLDriverConnect").size() < count) {
      if (std::chrono::steady_clock::now() > end) throw std::runtime_error("nothing connects");
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
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

class SlowListing : public SlowDataSource, public testing::WithParamInterface<Listing> {};

TEST_P(SlowListing, IsWaitedForUnderAnHourglass) {
  const auto& [button, tab, lists] = GetParam();
  Configure([&, button = button, tab = tab, lists = lists](Person& person) {
    person.Click("optBCP(1)");
    person.ClickTab(tab);
    person.Aim(button);
    const PointerOnScreen pointer;
    const auto usual = pointer.Shape();
    person.Click(button);
    pointer.WaitForOtherThan(usual);
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

INSTANTIATE_TEST_SUITE_P(OfEachButton, SlowListing,
                         testing::Values(Listing{"Command1", 0, "SQLTables"},
                                         Listing{"cmdCle", 0, "SQLPrimaryKeys"},
                                         Listing{"cmdInfo", 3, "SQLColumns"}),
                         [](const auto& listing) { return std::string(listing.param.button); });

TEST_F(SlowDataSource, IsAskedOnceHoweverOftenTheButtonIsPressed) {
  Configure([this](Person& person) {
    person.Click("Command1");
    WaitForConnections(1);
    for (int again = 0; again < 3; ++again) person.ClickBlindly();
    person.WaitForDialog("FrmTable");
    EXPECT_EQ(person.Lines(), std::vector<std::string>{"|SALES"});
    person.Press("Down Return");
    person.WaitForDialog("FrmImpTable");
    person.Click("txtLogin");
    person.WaitForFocus("txtLogin");
    EXPECT_THAT(source_.LogLines("SQLDriverConnect"), SizeIs(1));
  });
}

}  // namespace
}  // namespace imptable
