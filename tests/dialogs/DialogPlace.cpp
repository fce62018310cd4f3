#include "tests/dialogs/DialogPlace.h"

#include <gtest/gtest.h>
#include <wx/app.h>

#include <atomic>
#include <filesystem>
#include <iostream>
#include <thread>

#include "dialogs/widgets/WidgetTaskDialogs.h"
#include "plugin/ImpTable.h"
#include "plugin/ScenarioKeys.h"
#include "tests/dialogs/ToolkitComplaints.h"
#include "tests/scenarios/ChildProcess.h"

namespace imptable {
namespace {

/// Ends what a person left open in front.
void Dismiss() {
  try {
    OnMainThread(DismissFront);
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
  }
}

/// The database's path, the same for every place: the driver manager remembers for a while where a
/// data source's database is, whatever odbc.ini says meanwhile. Each place makes the database anew.
const std::string& Database() {
  static const TemporaryFolder folder;
  static const std::string path = folder.path() + "shop.db";
  return path;
}

}  // namespace

DialogPlace::DialogPlace(const std::string& schema, Language language)
    : sources_("ODBCINI", folder.path() + "odbc.ini"),
      drivers_("ODBCSYSINI", folder.path()),
      boxes_(*encoding_),
      context_(folder.path() + "registry.db", language, std::cerr, &windows_),
      language_(language) {
  folder.Write("odbcinst.ini", "");
  folder.Write("odbc.ini", "[Shop]\nDriver=" SQLITE_ODBC_DRIVER "\nDatabase=" + Database() + '\n');
  std::filesystem::create_directory(Files());
  std::filesystem::remove(Database());
  OutputOf({.words = {"sqlite3", "-bail", Database()}, .input = schema});
}

std::int32_t DialogPlace::Configure(const std::function<void(Person&)>& acts) {
  return Open([&](Person& person) {
    person.WaitForDialog("FrmImpTable");
    acts(person);
  });
}

std::int32_t DialogPlace::Open(const std::function<void(Person&)>& acts) {
  const DialogServices services{context_.state.commun, boxes_, administrator_};
  WidgetTaskDialogs dialogs(services);
  ImpTable task(context_.state, nullptr, &dialogs);
  task.InitializeProperties("T1", "S1", OffsetOf(language_));
  task.SetWorkingMode(context_.store.KeyExists(TaskKey("S1", "T1")) ? 1 : 0);
  std::string failure;
  std::atomic<bool> shown = true;
  std::atomic<bool> done = false;
  std::thread person([&] {
    try {
      Person someone;
      acts(someone);
      someone.WaitUntilGone("FrmImpTable");
    } catch (const std::exception& error) {
      failure = error.what();
    }
    while (!failure.empty() && shown) Dismiss();
    done = true;
  });
  const std::int32_t status = task.ShowWrapper();
  shown = false;
  // The person's thread may still ask this thread something when the dialog is gone.
  while (!done) {
    wxTheApp->Yield(true);
    wxMilliSleep(5);
  }
  person.join();
  EXPECT_EQ(failure, "") << testing::PrintToString(boxes_.unanswered());
  EXPECT_EQ(TakeToolkitComplaints(), std::vector<std::string>());
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
