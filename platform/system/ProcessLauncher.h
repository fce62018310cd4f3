#ifndef PLATFORM_SYSTEM_PROCESS_LAUNCHER_H_
#define PLATFORM_SYSTEM_PROCESS_LAUNCHER_H_

#include <memory>
#include <string>
#include <system_error>

#include "platform/system/MessageLoop.h"

namespace imptable {

/// Starts other programs.
class ProcessLauncher {
 public:
  virtual ~ProcessLauncher() = default;

  /// Starts a program without arguments, in a normal window where it has one, and returns when it
  /// has ended. `loop` is served meanwhile. An exception from a tick ends the waiting.
  /// @param program  its whole path, in the system's code page.
  /// @return why the program couldn't be started, a value of std::generic_category(). How the
  /// program ended isn't told.
  virtual std::error_code RunAndWait(const std::string& program, MessageLoop& loop) = 0;
};

std::unique_ptr<ProcessLauncher> SystemProcessLauncher();

}  // namespace imptable

#endif  // PLATFORM_SYSTEM_PROCESS_LAUNCHER_H_
