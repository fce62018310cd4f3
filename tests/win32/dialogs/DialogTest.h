#ifndef TESTS_WIN32_DIALOGS_DIALOG_TEST_H_
#define TESTS_WIN32_DIALOGS_DIALOG_TEST_H_

#include <gtest/gtest.h>

#include <string>

#include "platform/testing/TemporaryFolder.h"
#include "tests/win32/dialogs/HostProcess.h"
#include "tests/win32/dialogs/ScreenPerson.h"
#include "tests/win32/dialogs/ShopDatabase.h"

namespace imptable {

inline constexpr int kFrench = 0;
inline constexpr int kEnglish = 10000;

/// A host with a task "T1" that isn't there yet, a table and a file for it, and somebody before the
/// screen.
class DialogTest : public testing::Test {
 protected:
  DialogTest();
  ~DialogTest() override;

  /// Has the host make its task's object.
  void MakeTask(int language, bool is_new);

  /// Has the host call "show". @return the dialog's window.
  HWND Show();

  /// Opens the dialog, and cancels it. @return what the host got.
  std::string ShowAndCancel();

  /// Goes through the whole dialog for a new task, up to the confirmation.
  void Configure();

  /// Without a separator at its end.
  std::wstring Files() const;

  /// A text of the task's key, or of a subkey; "<none>" when there is none.
  static std::wstring Stored(const std::wstring& value, const std::wstring& subkey = {});

  /// What that program's thread has as its active window.
  HWND ActiveWindowOfHost() const;

  ShopDatabase database_;
  const TemporaryFolder folder_;
  HostProcess host_;
  ScreenPerson person_{host_.id(), host_.window()};
};

}  // namespace imptable

#endif  // TESTS_WIN32_DIALOGS_DIALOG_TEST_H_
