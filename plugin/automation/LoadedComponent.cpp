#include "plugin/automation/LoadedComponent.h"

#include "platform/MousePointer_win32.h"
#include "platform/ProfileFile_win32.h"
#include "platform/Registry_win32.h"
#include "platform/WarningBox_win32.h"

namespace imptable {

LoadedComponent::LoadedComponent()
    : registry_(SystemRegistry()),
      message_loop_(SystemMessageLoop()),
      clock_(SystemClock()),
      encoding_(SystemTextEncoding()),
      files_(SystemFileSystem()),
      warning_box_(SystemWarningBox()),
      mouse_pointer_(SystemMousePointer()),
      profile_file_(SystemProfileFile()),
      state_(Platform{*registry_, *message_loop_, *clock_, *encoding_, *files_, *warning_box_,
                      *mouse_pointer_, *profile_file_},
             library_) {
  standalone_.Attach(state_.commun);
}

}  // namespace imptable
