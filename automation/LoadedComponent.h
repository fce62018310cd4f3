#ifndef AUTOMATION_LOADED_COMPONENT_H_
#define AUTOMATION_LOADED_COMPONENT_H_

#include <memory>

#include "automation/DialogPorts.h"
#include "automation/HostObjectLibrary.h"
#include "core/TaskDialog.h"
#include "plugin/ModuleState.h"
#include "plugin/StandaloneHostLibrary.h"

namespace imptable {

class AutomationModule;

/// The component on top of Windows: the system's ports, the host's object library, the state and
/// the dialogs that all objects share.
class LoadedComponent {
 public:
  /// @param module  borrowed.
  explicit LoadedComponent(AutomationModule& module);
  LoadedComponent(const LoadedComponent&) = delete;
  LoadedComponent& operator=(const LoadedComponent&) = delete;
  ~LoadedComponent();

  ModuleState& state() { return state_; }
  TaskDialogFactory& dialogs() { return *dialogs_; }

 private:
  std::unique_ptr<Registry> registry_;
  std::unique_ptr<MessageLoop> message_loop_;
  std::unique_ptr<Clock> clock_;
  std::unique_ptr<TextEncoding> encoding_;
  std::unique_ptr<FileSystem> files_;
  std::unique_ptr<ProfileFile> profile_file_;
  DialogPorts dialog_ports_;
  StandaloneHostLibrary standalone_;
  HostObjectLibrary library_{standalone_};
  ModuleState state_;
  std::unique_ptr<TaskDialogFactory> dialogs_;
};

}  // namespace imptable

#endif  // AUTOMATION_LOADED_COMPONENT_H_
