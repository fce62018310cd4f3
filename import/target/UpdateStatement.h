#ifndef IMPORT_TARGET_UPDATE_STATEMENT_H_
#define IMPORT_TARGET_UPDATE_STATEMENT_H_

#include <string>
#include <vector>

#include "import/target/KeyColumns.h"
#include "odbc/Statement.h"

namespace imptable {

/// The prepared UPDATE of the modes that change rows.
class UpdateStatement {
 public:
  /// @param session, table  borrowed; must outlive the statement.
  UpdateStatement(OdbcSession& session, TargetTable& table) : session_(session), table_(table) {}

  /// Allocates and prepares the statement and binds the columns of its SET list, then its keys.
  /// @return false after a diagnostic has been reported.
  /// @throws RuntimeFault  index out of range when no column has a key's name.
  bool Prepare(const std::vector<std::string>& keys);

  /// "UPDATE " table " SET " columns " WHERE " keys. The SET list leaves out the columns that are
  /// ignored and those that the database fills with a counter.
  std::string Text(const std::vector<std::string>& keys) const;

  SQLHSTMT raw() const { return statement_.raw(); }

 private:
  OdbcSession& session_;
  TargetTable& table_;
  Statement statement_;
};

}  // namespace imptable

#endif  // IMPORT_TARGET_UPDATE_STATEMENT_H_
