#ifndef AUTOMATION_COMPONENT_DIALOGS_H_
#define AUTOMATION_COMPONENT_DIALOGS_H_

#include <memory>

#include "automation/AutomationModule.h"
#include "automation/DialogPorts.h"
#include "dialogs/widgets/Toolkit.h"
#include "dialogs/widgets/WidgetOdbcAdministrator.h"
#include "dialogs/widgets/WidgetTaskDialogs.h"

namespace imptable {

/// The configuration dialogs over the host's active window. The first dialog starts the toolkit,
/// which then runs until the process ends. The toolkit can't be unloaded, and serves only the
/// thread of the first dialog.
/// Errors: RuntimeFault "no such host object" from Create on another thread, or when the toolkit
/// can't be started.
class ComponentDialogs : public TaskDialogFactory {
 public:
  /// @param module  has the component's code and resources; held for ever by the first dialog.
  /// @param module, commun, ports  borrowed.
  ComponentDialogs(AutomationModule& module, ModuleCommun& commun, DialogPorts& ports);

  std::unique_ptr<TaskDialog> Create(std::int16_t working_mode, const std::string& task,
                                     const std::string& scenario) override;

 private:
  void Start();

  AutomationModule& module_;
  DialogPorts& ports_;
  WidgetOdbcAdministrator administrator_;
  DialogServices services_;
  std::unique_ptr<Toolkit> toolkit_;
  DWORD thread_ = 0;  // of the first dialog
};

}  // namespace imptable

#endif  // AUTOMATION_COMPONENT_DIALOGS_H_
