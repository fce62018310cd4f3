#ifndef TESTS_DIALOGS_DIALOG_PLACE_H_
#define TESTS_DIALOGS_DIALOG_PLACE_H_

#include <functional>
#include <string>

#include "dialogs/widgets/WidgetOdbcAdministrator.h"
#include "host/HostContext.h"
#include "platform/testing/ScopedVariable.h"
#include "platform/testing/TemporaryFolder.h"
#include "tests/dialogs/Person.h"
#include "tests/dialogs/WatchedBoxes.h"

namespace imptable {

/// A registry file, an SQLite database behind the data source "Shop", a folder with source files,
/// and somebody before the screen.
class DialogPlace {
 public:
  /// @param schema  SQL that makes the database's tables.
  DialogPlace(const std::string& schema, Language language);

  /// Shows the configuration dialog of task "T1" of scenario "S1". The person begins to act when
  /// the dialog is there. An exception from the person, or a complaint of the toolkit, fails the
  /// test.
  /// @return what the host gets back from ShowWrapper.
  std::int32_t Configure(const std::function<void(Person&)>& acts);

  /// The same for a dialog before which boxes come: the person begins at once.
  std::int32_t Open(const std::function<void(Person&)>& acts);

  /// Runs `imptable` on the same registry. @return its standard output; a failure of the test when
  /// it ends with another code than 0.
  std::string Imptable(const std::vector<std::string>& words);

  /// Rows of the database: values joined by "|", a row a line.
  std::string Rows(const std::string& query) const;

  const TemporaryFolder folder;
  /// The folder of the source files, without a separator at its end.
  std::string Files() const { return folder.path() + "in"; }

  WatchedBoxes& boxes() { return boxes_; }

 private:
  ScopedVariable sources_;
  ScopedVariable drivers_;
  std::unique_ptr<TextEncoding> encoding_ = SystemTextEncoding();
  WatchedBoxes boxes_;
  WidgetMousePointer pointer_;
  HostWindows windows_{boxes_, pointer_};
  HostContext context_;
  WidgetOdbcAdministrator administrator_;
  Language language_;
};

}  // namespace imptable

#endif  // TESTS_DIALOGS_DIALOG_PLACE_H_
