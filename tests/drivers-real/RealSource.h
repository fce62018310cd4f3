#ifndef TESTS_DRIVERS_REAL_REAL_SOURCE_H_
#define TESTS_DRIVERS_REAL_REAL_SOURCE_H_

#include <memory>
#include <string>
#include <vector>

#include "odbc/Catalogue.h"
#include "platform/testing/TemporaryFolder.h"
#include "tests/kit/ScriptedSession.h"
#include "tests/scenarios/Database.h"

namespace imptable {

/// The component connected to a real database of its own by that database's driver.
class RealSource {
 public:
  /// @param options  more lines of the data source, as "Option=2".
  /// @throws std::runtime_error  when it can't be connected to.
  explicit RealSource(DatabaseKind kind, const std::string& options = {});

  Database& database() { return *database_; }
  OdbcSession& odbc() { return session_.odbc(); }

  /// The columns of a table as the import sees them: "name type typename precision scale", the
  /// last two being 0 where the driver gives none.
  std::vector<std::string> Columns(const std::string& table);

  /// The primary key of a table.
  std::vector<std::string> PrimaryKey(const std::string& table);

  /// The columns that the import takes for versioned by the database.
  std::vector<std::string> VersionedColumns(const std::string& table);

  /// Executes at once. @return "N row(s)", or SQLSTATE and native code of the failure.
  std::string Do(const std::string& sql);

  /// Prepares with text parameters, and executes. @return as Do, and before it "prepared: " when
  /// the statement is refused before it is executed.
  std::string DoPrepared(const std::string& sql, std::vector<std::string> values);

  /// Executes with the one parameter 2006-01-02 08:30:00, bound as the import binds a date column.
  std::string DoWithTime(const std::string& sql);

  /// Executes with the one parameter of this text, bound as the import binds a column of the SQL
  /// type.
  std::string DoWithText(const std::string& sql, std::int16_t sql_type, const std::string& text);

  /// Connects anew as somebody else. @return whether that was accepted.
  bool ConnectAs(const std::string& user, const std::string& password);

  /// Has the server end the connection, and waits until it has.
  void HangUp();

  /// Executes again what DoPrepared prepared.
  std::string Again();

 private:
  std::string Outcome(SQLRETURN code);
  Catalogue Of(const std::string& table);

  DatabaseKind kind_;
  TemporaryFolder folder_;
  std::unique_ptr<Database> database_;
  ScriptedSession session_;
  std::string source_;
  Statement statement_;
  std::vector<std::string> values_;
  std::vector<SQLLEN> lengths_;
};

}  // namespace imptable

#endif  // TESTS_DRIVERS_REAL_REAL_SOURCE_H_
