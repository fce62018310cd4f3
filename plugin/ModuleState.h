#ifndef PLUGIN_MODULE_STATE_H_
#define PLUGIN_MODULE_STATE_H_

#include "core/ModuleCommun.h"
#include "odbc/OdbcSession.h"

namespace imptable {

/// Everything that the objects of one loaded component share. One per process, owned by the
/// automation edge or the stand-alone host; a test makes its own.
struct ModuleState {
  /// @param platform, host  borrowed; must outlive the state.
  ModuleState(const Platform& platform, HostLibrary& host) : commun(platform, host), odbc(commun) {}

  ModuleCommun commun;
  OdbcSession odbc;
};

}  // namespace imptable

#endif  // PLUGIN_MODULE_STATE_H_
