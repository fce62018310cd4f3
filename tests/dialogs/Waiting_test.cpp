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
    source_.Script("slow SQLDriverConnect 1500 ms\ntable SALES\ncolumn CODE 4 INTEGER 10 0 0\n");
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

TEST_F(SlowDataSource, IsWaitedForUnderAnHourglass) {
  Configure([this](Person& person) {
    person.Aim("Command1");
    const PointerOnScreen pointer;
    const auto usual = pointer.Shape();
    person.Click("Command1");
    pointer.WaitForOtherThan(usual);
    EXPECT_THAT(source_.LogLines("SQLDriverConnect"), SizeIs(testing::Le(1)));
    EXPECT_THAT(source_.LogLines("SQLTables"), SizeIs(0));
    person.WaitForDialog("FrmTable");
    person.Press("Escape");
    person.WaitForDialog("FrmImpTable");
    person.Aim("Command1");
    pointer.WaitFor(usual);
  });
}

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
