#ifndef HOST_COMMANDS_H_
#define HOST_COMMANDS_H_

#include "host/CommandRequest.h"
#include "host/ExitCode.h"
#include "host/HostConsole.h"
#include "host/HostContext.h"

namespace imptable {

// The commands. Each does what its help says.
// @throws HostError  when it can't; a failing registry file or component throws its own.

ExitCode RunTask(HostContext& context, const CommandRequest& request, const HostConsole& console);
/// Replaces this process by imptable-config. Throws when that can't be started; else never returns.
ExitCode StartConfiguration(HostContext& context, const CommandRequest& request,
                            const HostConsole& console);

ExitCode PrintDescription(HostContext& context, const CommandRequest& request,
                          const HostConsole& console);
ExitCode PrintActions(HostContext& context, const CommandRequest& request,
                      const HostConsole& console);
ExitCode ShowStatus(HostContext& context, const CommandRequest& request,
                    const HostConsole& console);
ExitCode ListNames(HostContext& context, const CommandRequest& request, const HostConsole& console);
ExitCode GetSettings(HostContext& context, const CommandRequest& request,
                     const HostConsole& console);
ExitCode SetSettings(HostContext& context, const CommandRequest& request,
                     const HostConsole& console);
ExitCode UnsetSettings(HostContext& context, const CommandRequest& request,
                       const HostConsole& console);
ExitCode CopyTask(HostContext& context, const CommandRequest& request, const HostConsole& console);
ExitCode RenameTask(HostContext& context, const CommandRequest& request,
                    const HostConsole& console);
ExitCode DeleteKeys(HostContext& context, const CommandRequest& request,
                    const HostConsole& console);
ExitCode HandleVariables(HostContext& context, const CommandRequest& request,
                         const HostConsole& console);
/// Needs no registry.
ExitCode ListSources(const HostTexts& texts, const HostConsole& console);
ExitCode ImportRegistry(HostContext& context, const CommandRequest& request,
                        const HostConsole& console);
ExitCode ExportRegistry(HostContext& context, const CommandRequest& request,
                        const HostConsole& console);

}  // namespace imptable

#endif  // HOST_COMMANDS_H_
