#include "dialogs/widgets/WidgetOdbcAdministrator.h"

#include <wx/app.h>
#include <wx/utils.h>
#include <wx/weakref.h>
#include <wx/window.h>

#include <utility>

#include "dialogs/AdministratorPath.h"
#include "platform/system/ProcessLauncher.h"

namespace imptable {
namespace {

/// Served during the wait: the system's timers, and the toolkit's loop, so that its windows are
/// painted.
class PaintingLoop : public MessageLoop {
 public:
  void Yield() override {
    timers_->Yield();
    constexpr bool kOnlyIfNeeded = true;
    wxTheApp->Yield(kOnlyIfNeeded);
  }

  std::unique_ptr<Timer> StartTimer(std::chrono::milliseconds interval,
                                    std::function<void()> tick) override {
    return timers_->StartTimer(interval, std::move(tick));
  }

 private:
  std::unique_ptr<MessageLoop> timers_ = SystemMessageLoop();
};

}  // namespace

void WidgetOdbcAdministrator::RunAndWait() {
  const std::string program = AdministratorPath();
  if (program.empty()) return;
  const wxWeakRef<wxWindow> focus = wxWindow::FindFocus();
  {
    const wxWindowDisabler frozen;
    PaintingLoop loop;
    // A program that can't be started counts as no program.
    static_cast<void>(SystemProcessLauncher()->RunAndWait(program, loop));
  }
  // Disabling the windows took the focus away, and the keyboard with it.
  if (focus) focus->SetFocus();
}

}  // namespace imptable
