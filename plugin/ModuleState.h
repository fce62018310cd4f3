#ifndef PLUGIN_MODULE_STATE_H_
#define PLUGIN_MODULE_STATE_H_

#include <cstdint>

#include "core/ModuleCommun.h"
#include "odbc/FailureReport.h"
#include "odbc/OdbcSession.h"

namespace imptable {

/// Whether a dialog is open or a task runs.
enum class ExecutionMode : std::uint8_t { kDialog, kRun };

/// Everything that the objects of one loaded component share. One per process, owned by the
/// automation edge or the stand-alone host; a test makes its own.
struct ModuleState {
  /// @param platform, host  borrowed; must outlive the state.
  ModuleState(const Platform& platform, HostLibrary& host)
      : commun(platform, host), boxes(commun), report(commun), odbc(platform.message_loop, boxes) {}

  /// Says where the failures of the data source go.
  void SetExecutionMode(ExecutionMode mode) {
    odbc.listener =
        mode == ExecutionMode::kDialog ? static_cast<FailureListener*>(&boxes) : &report;
  }

  ModuleCommun commun;
  FailureBoxes boxes;
  FailureReport report;
  OdbcSession odbc;
};

}  // namespace imptable

#endif  // PLUGIN_MODULE_STATE_H_
