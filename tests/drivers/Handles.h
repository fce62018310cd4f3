#ifndef TESTS_DRIVERS_HANDLES_H_
#define TESTS_DRIVERS_HANDLES_H_

#include <memory>
#include <string>
#include <vector>

#include "tests/drivers/CallLog.h"
#include "tests/drivers/Diagnostics.h"
#include "tests/drivers/DriverApi.h"
#include "tests/drivers/Playback.h"
#include "tests/drivers/ResultSet.h"

namespace imptable::scripted {

/// What every handle has: its own diagnostics, and the script and log that its calls go through.
struct Handle {
  DiagnosticQueue diagnostics;
  Playback* playback = nullptr;
  CallLog* log = nullptr;
};

struct Statement : Handle {
  explicit Statement(Handle& connection);

  std::string text;
  BoundParameters parameters;
  std::vector<BoundColumn> columns;
  ResultSet result;
  const RowCountRule* row_count = nullptr;
};

struct Connection : Handle {
  explicit Connection(const Handle& environment);

  /// Takes script and log of a data source; counting starts again.
  /// @throws ScriptFault
  void PlayDataSource(const std::string& data_source);

  Playback own_playback;
  CallLog own_log;
  std::vector<std::unique_ptr<Statement>> statements;
};

struct Environment : Handle {
  Environment();

  Playback own_playback;
  CallLog own_log;
  std::vector<std::unique_ptr<Connection>> connections;
};

/// Environments own their connections, and connections own their statements. So a handle whose
/// release was refused lasts as long as its parent.
Environment* NewEnvironment();
void Release(Environment* environment);
Connection* NewConnection(Environment& environment);
void Release(Connection* connection);
Statement* NewStatement(Connection& connection);
void Release(Statement* statement);

}  // namespace imptable::scripted

#endif  // TESTS_DRIVERS_HANDLES_H_
