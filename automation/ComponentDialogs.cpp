#include "automation/ComponentDialogs.h"

#include <optional>

#include "automation/CommonControls.h"
#include "core/RuntimeFault.h"
#include "dialogs/widgets/HostedToolkit_win32.h"
#include "dialogs/widgets/OwnerWindow_win32.h"
#include "dialogs/widgets/QuitRequest_win32.h"

namespace imptable {
namespace {

/// A dialog, and everything that has to live as long as the dialog.
class OwnedTaskDialog : public TaskDialog {
 public:
  OwnedTaskDialog(HMODULE module, DialogPorts& ports, const DialogServices& services,
                  std::int16_t working_mode, const std::string& task, const std::string& scenario)
      : controls_(module), opening_(ports) {
    if (const HWND window = OwnerWindow::OfThread(); window != nullptr) owner_.emplace(window);
    WidgetTaskDialogs dialogs(services, owner_ ? &*owner_ : nullptr);
    dialog_ = dialogs.Create(working_mode, task, scenario);
  }

  void SetCaption(const std::string& caption) override { dialog_->SetCaption(caption); }
  void SetIcon(std::string_view resource) override { dialog_->SetIcon(resource); }
  void ShowModal() override {
    const QuitRequest request;
    dialog_->ShowModal();
  }
  std::int16_t Outcome() const override { return dialog_->Outcome(); }
  std::string TaskName() const override { return dialog_->TaskName(); }

 private:
  CommonControls controls_;
  DialogPorts::Opening opening_;
  std::optional<OwnerWindow> owner_;
  std::unique_ptr<TaskDialog> dialog_;
};

}  // namespace

ComponentDialogs::ComponentDialogs(AutomationModule& module, ModuleCommun& commun,
                                   DialogPorts& ports)
    : module_(module), ports_(ports), services_{commun, ports.boxes(), administrator_} {}

void ComponentDialogs::Start() {
  if (thread_ != 0) return;
  thread_ = GetCurrentThreadId();
  // Keep the code loaded for ever: the toolkit's window classes and hooks stay, and use it.
  module_.Hold();
  HMODULE pinned = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                     reinterpret_cast<LPCWSTR>(module_.handle()), &pinned);
  const CommonControls controls(module_.handle());
  toolkit_ = StartHostedToolkit(module_.handle());
}

std::unique_ptr<TaskDialog> ComponentDialogs::Create(std::int16_t working_mode,
                                                     const std::string& task,
                                                     const std::string& scenario) {
  Start();
  if (!toolkit_ || GetCurrentThreadId() != thread_) {
    throw RuntimeFault(FaultNumber::kNoHostObject, "FrmImpTable");
  }
  return std::make_unique<OwnedTaskDialog>(module_.handle(), ports_, services_, working_mode, task,
                                           scenario);
}

}  // namespace imptable
