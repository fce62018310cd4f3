#ifndef DIALOGS_ODBC_ADMINISTRATOR_H_
#define DIALOGS_ODBC_ADMINISTRATOR_H_

namespace imptable {

/// The system's program that makes and changes ODBC data sources.
class OdbcAdministrator {
 public:
  virtual ~OdbcAdministrator() = default;

  /// Starts the program and waits until it ends. Does nothing when the system has none.
  virtual void RunAndWait() = 0;
};

}  // namespace imptable

#endif  // DIALOGS_ODBC_ADMINISTRATOR_H_
