#ifndef PLUGIN_AUTOMATION_LOADED_COMPONENT_H_
#define PLUGIN_AUTOMATION_LOADED_COMPONENT_H_

#include <memory>

#include "plugin/ModuleState.h"
#include "plugin/StandaloneHostLibrary.h"
#include "plugin/automation/HostObjectLibrary.h"

namespace imptable {

/// The component on top of Windows: the system's ports, the host's object library and the state
/// that all objects share.
class LoadedComponent {
 public:
  LoadedComponent();
  LoadedComponent(const LoadedComponent&) = delete;
  LoadedComponent& operator=(const LoadedComponent&) = delete;

  ModuleState& state() { return state_; }

 private:
  std::unique_ptr<Registry> registry_;
  std::unique_ptr<MessageLoop> message_loop_;
  std::unique_ptr<Clock> clock_;
  std::unique_ptr<TextEncoding> encoding_;
  std::unique_ptr<FileSystem> files_;
  std::unique_ptr<WarningBox> warning_box_;
  std::unique_ptr<MousePointer> mouse_pointer_;
  std::unique_ptr<ProfileFile> profile_file_;
  StandaloneHostLibrary standalone_;
  HostObjectLibrary library_{standalone_};
  ModuleState state_;
};

}  // namespace imptable

#endif  // PLUGIN_AUTOMATION_LOADED_COMPONENT_H_
