#ifndef TESTS_WIN32_DIALOGS_DIALOG_TEST_H_
#define TESTS_WIN32_DIALOGS_DIALOG_TEST_H_

#include <gtest/gtest.h>

#include <string>

#include "platform/testing/TemporaryFolder.h"
#include "tests/win32/dialogs/DialogWords.h"
#include "tests/win32/dialogs/HostProcess.h"
#include "tests/win32/dialogs/ScreenPerson.h"
#include "tests/win32/dialogs/ShopDatabase.h"

namespace imptable {

/// A host with a task "T1" that isn't there yet, a table and a file for it, and somebody before the
/// screen, who reads one language.
class DialogTest : public testing::Test {
 protected:
  explicit DialogTest(const DialogWords& words = kEnglish);
  ~DialogTest() override;

  /// Has the host make its task's object.
  void MakeTask(bool is_new = true);

  /// Has the host call "show". @return the dialog's window.
  HWND Show();

  /// Opens the dialog, and cancels it. @return what the host got.
  std::string ShowAndCancel();

  /// Goes through the whole dialog for a new task, up to the confirmation.
  void Configure();

  /// Fills in what the first tab needs, so that the task can be saved.
  void FillFirstTab();

  /// Cancels the dialog, which must change nothing. @param outcome  what the host gets.
  void Cancel(const std::string& outcome = "0");

  /// Without a separator at its end.
  std::wstring Files() const;

  /// A text of the task's key, or of a subkey; "<none>" when there is none.
  static std::wstring Stored(const std::wstring& value, const std::wstring& subkey = {});

  /// Gives the scenario a variable.
  static void StoreVariable(const std::wstring& name, const std::wstring& value);

  /// The active window of the host's thread.
  HWND ActiveWindowOfHost() const;

  const DialogWords& words_;
  ShopDatabase database_;
  const TemporaryFolder folder_;
  HostProcess host_;
  ScreenPerson person_{host_.id(), host_.window()};
};

}  // namespace imptable

#endif  // TESTS_WIN32_DIALOGS_DIALOG_TEST_H_
