#ifndef AUTOMATION_COMMON_CONTROLS_H_
#define AUTOMATION_COMMON_CONTROLS_H_

#include "automation/AutomationApi.h"

namespace imptable {

/// While it lives, the thread's new windows look as the module's manifest asks, whatever the host's
/// manifest asks. Where Windows can't do that, they look like the host's.
class CommonControls {
 public:
  explicit CommonControls(HMODULE module);
  CommonControls(const CommonControls&) = delete;
  CommonControls& operator=(const CommonControls&) = delete;
  ~CommonControls();

 private:
  HANDLE context_;
  ULONG_PTR cookie_ = 0;
  bool is_active_ = false;
};

}  // namespace imptable

#endif  // AUTOMATION_COMMON_CONTROLS_H_
