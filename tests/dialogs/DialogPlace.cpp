#include "tests/dialogs/DialogPlace.h"

#include <gtest/gtest.h>
#include <wx/app.h>

#include <filesystem>
#include <thread>

#include "dialogs/widgets/WidgetTaskDialogs.h"
#include "plugin/ImpTable.h"
#include "plugin/ScenarioKeys.h"
#include "tests/scenarios/ChildProcess.h"

namespace imptable {

DialogPlace::DialogPlace(const std::string& schema, Language language)
    : sources_("ODBCINI", folder.path() + "odbc.ini"),
      drivers_("ODBCSYSINI", folder.path()),
      boxes_(*encoding_),
      context_(folder.path() + "registry.db", language, std::cerr, &windows_),
      language_(language) {
  folder.Write("odbcinst.ini", "");
  folder.Write("odbc.ini", "[Shop]\nDriver=" SQLITE_ODBC_DRIVER "\nDatabase=" + Database() + '\n');
  std::filesystem::create_directory(Files());
  OutputOf({.words = {"sqlite3", "-bail", Database()}, .input = schema});
}

std::int32_t DialogPlace::Configure(const std::function<void(Person&)>& acts) {
  const DialogServices services{context_.state.commun, boxes_, administrator_};
  WidgetTaskDialogs dialogs(services);
  ImpTable task(context_.state, nullptr, &dialogs);
  task.InitializeProperties("T1", "S1", OffsetOf(language_));
  task.SetWorkingMode(context_.store.KeyExists(TaskKey("S1", "T1")) ? 1 : 0);
  std::string failure;
  std::thread person([&] {
    Person someone;
    try {
      someone.WaitForDialog("FrmImpTable");
      acts(someone);
      someone.WaitUntilGone("FrmImpTable");
    } catch (const std::exception& error) {
      failure = error.what();
      someone.GiveUp();
    }
  });
  // The thread's last question is answered after the dialog is gone.
  const std::int32_t status = task.ShowWrapper();
  std::atomic<bool> done = false;
  std::thread waiter([&] {
    person.join();
    done = true;
  });
  while (!done) {
    wxTheApp->Yield(true);
    wxMilliSleep(5);
  }
  waiter.join();
  EXPECT_EQ(failure, "") << testing::PrintToString(boxes_.unanswered());
  return status;
}

std::string DialogPlace::Imptable(const std::vector<std::string>& words) {
  Invocation invocation{.words = {IMPTABLE_COMMAND_PATH},
                        .environment = {{"IMPTABLE_REGISTRY", folder.path() + "registry.db"},
                                        {"ODBCINI", folder.path() + "odbc.ini"},
                                        {"ODBCSYSINI", folder.path()},
                                        {"LC_ALL", "C.UTF-8"}},
                        .folder = folder.path()};
  invocation.words.insert(invocation.words.end(), words.begin(), words.end());
  const Ending ending = Finish(invocation);
  EXPECT_EQ(ending.code, 0) << ending.err;
  return ending.out;
}

std::string DialogPlace::Rows(const std::string& query) const {
  return OutputOf({.words = {"sqlite3", "-batch", "-nullvalue", "<null>", Database(), query}});
}

}  // namespace imptable
