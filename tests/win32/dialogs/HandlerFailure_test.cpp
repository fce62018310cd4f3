// The dialogs' windows, within this process, when something that they call fails unexpectedly.

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <new>
#include <thread>

#include "dialogs/testing/RecordingBoxes.h"
#include "dialogs/widgets/HostedToolkit_win32.h"
#include "dialogs/widgets/OwnerWindow_win32.h"
#include "dialogs/widgets/WidgetTaskDialogs.h"
#include "tests/kit/TestComponent.h"
#include "tests/win32/dialogs/ScreenPerson.h"
#include "tests/win32/dialogs/Waiting.h"

namespace imptable {
namespace {

class FailingAdministrator : public OdbcAdministrator {
 public:
  void RunAndWait() override { throw std::bad_alloc(); }
};

class FailingHost : public TestHost {
 public:
  std::optional<std::string> Variable(const KeyPath&, const std::string&,
                                      const std::string&) override {
    throw std::bad_alloc();
  }
};

class FailingDialog : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    static const auto toolkit = StartHostedToolkit(GetModuleHandleW(nullptr));
    ASSERT_TRUE(toolkit);
  }

  FailingDialog()
      : window_(CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 300,
                                200, nullptr, nullptr, nullptr, nullptr)) {
    SetForegroundWindow(window_);
  }
  ~FailingDialog() override { DestroyWindow(window_); }

  /// Shows the dialog while somebody does something that fails.
  void ExpectFailure(const std::function<void(const ScreenPerson&)>& acts) {
    OwnerWindow owner(window_);
    WidgetTaskDialogs dialogs(services_, &owner);
    const std::unique_ptr<TaskDialog> dialog = dialogs.Create(0, "T1", "S1");
    std::thread person([&] {
      try {
        const ScreenPerson someone(GetCurrentProcessId(), window_);
        someone.WaitForTaskDialog();
        acts(someone);
      } catch (const std::exception& error) {
        // Nothing else could end the dialog.
        std::cerr << error.what() << std::endl;
        std::_Exit(1);
      }
    });
    EXPECT_THROW(dialog->ShowModal(), std::bad_alloc);
    EXPECT_TRUE(IsWindowEnabled(window_));
    person.join();
  }

 private:
  TestComponent ports_;
  FailingHost host_;
  FailingAdministrator administrator_;
  RecordingBoxes boxes_;
  ModuleState state_{Platform{ports_.registry, ports_.message_loop, ports_.clock, *ports_.encoding,
                              ports_.files, ports_.warnings, ports_.pointer, ports_.profile_file},
                     host_};
  DialogServices services_{state_.commun, boxes_, administrator_};
  HWND window_;
};

TEST_F(FailingDialog, EndsWithTheExceptionOfAButton) {
  ExpectFailure([](const ScreenPerson& person) { person.Click(L"Administration"); });
}

TEST_F(FailingDialog, EndsWithTheExceptionOfATypedCharacter) {
  // The data source's field has the focus, and an "@" there looks up a variable.
  ExpectFailure([](const ScreenPerson&) { ScreenPerson::Type(L"@V"); });
}

}  // namespace
}  // namespace imptable
