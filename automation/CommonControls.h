#ifndef AUTOMATION_COMMON_CONTROLS_H_
#define AUTOMATION_COMMON_CONTROLS_H_

#include "automation/AutomationApi.h"

namespace imptable {

/// While it lives, the thread's new windows have the looks that the module's manifest asks for,
/// whatever the host's own asks for. Where Windows can't, they have the host's.
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
