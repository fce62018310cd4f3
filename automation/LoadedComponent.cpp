#include "automation/LoadedComponent.h"

#include "automation/ComponentDialogs.h"
#include "platform/files/ProfileFile_win32.h"
#include "platform/registry/Registry_win32.h"

namespace imptable {

LoadedComponent::LoadedComponent(AutomationModule& module)
    : registry_(SystemRegistry()),
      message_loop_(SystemMessageLoop()),
      clock_(SystemClock()),
      encoding_(SystemTextEncoding()),
      files_(SystemFileSystem()),
      profile_file_(SystemProfileFile()),
      dialog_ports_(*encoding_),
      state_(Platform{*registry_, *message_loop_, *clock_, *encoding_, *files_, dialog_ports_,
                      dialog_ports_, *profile_file_},
             library_),
      dialogs_(std::make_unique<ComponentDialogs>(module, state_.commun, dialog_ports_)) {
  standalone_.Attach(state_.commun);
}

LoadedComponent::~LoadedComponent() = default;

}  // namespace imptable
