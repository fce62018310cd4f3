#ifndef TESTS_ROBUSTNESS_FAULTS_ODBC_CALLS_H_
#define TESTS_ROBUSTNESS_FAULTS_ODBC_CALLS_H_

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "odbc/OdbcApi.h"
#include "tests/robustness/faults/ClientTable.h"
#include "tests/robustness/faults/FaultPlan.h"

namespace imptable {

/// While it lives, the component of this program finds these functions in place of the driver
/// manager's. A fault plan counts each call. A call that no fault hits reaches the driver manager,
/// and the scripted driver behind it. Executed statements take effect on a table. One at a time.
class OdbcCalls {
 public:
  /// Both are borrowed.
  OdbcCalls(FaultPlan& plan, ClientTable& table);
  OdbcCalls(const OdbcCalls&) = delete;
  OdbcCalls& operator=(const OdbcCalls&) = delete;
  ~OdbcCalls();

  static OdbcCalls* current();

  FaultPlan& plan() { return plan_; }

  struct Diagnostic {
    std::string state;
    SQLINTEGER native = 0;
    std::string text;
  };

  /// What SQLError gives next for this handle, in place of the driver manager's.
  void Diagnose(SQLHANDLE handle, Diagnostic diagnostic);
  void Forget(SQLHANDLE handle) { diagnostics_.erase(handle); }
  std::optional<Diagnostic> TakeDiagnostic(SQLHANDLE handle);

  void Prepared(SQLHSTMT statement, std::string text);
  void Bound(SQLHSTMT statement, SQLUSMALLINT number, SQLPOINTER value, const SQLLEN* indicator);

  /// Lets the table execute the prepared text, or this one.
  SQLRETURN Executed(SQLHSTMT statement, const std::optional<std::string>& text);
  SQLLEN RowCount(SQLHSTMT statement) const;

  enum class Kind : std::uint8_t { kEnvironment, kConnection, kStatement };

  void Allocated(Kind kind, SQLHANDLE handle) { handles_.emplace(handle, kind); }
  void Freed(SQLHANDLE handle);
  void Disconnected();

  /// Handles that the driver manager gave and that haven't been given back.
  std::size_t live_handles() const { return handles_.size(); }

  /// Statements that were still allocated when their connection went.
  int statements_left() const { return statements_left_; }

  int connections_made = 0;
  int disconnects_tried = 0;

 private:
  struct Parameter {
    const char* value = nullptr;
    const SQLLEN* indicator = nullptr;
  };
  struct StatementState {
    std::string text;
    std::vector<Parameter> parameters;
    SQLLEN rows = -1;
  };

  FaultPlan& plan_;
  ClientTable& table_;
  std::map<SQLHANDLE, Diagnostic> diagnostics_;
  std::map<SQLHANDLE, StatementState> statements_;
  std::map<SQLHANDLE, Kind> handles_;
  int statements_left_ = 0;
};

}  // namespace imptable

#endif  // TESTS_ROBUSTNESS_FAULTS_ODBC_CALLS_H_
