#include "dialogs/widgets/Toolkit.h"

#include <wx/app.h>
#include <wx/init.h>
#include <wx/log.h>

#include <exception>
#include <utility>

namespace imptable {
namespace {

/// The toolkit's application object. Only its message loop is used.
class DialogApplication : public wxApp {
 public:
  bool OnInit() override {
    // Closing the last window must not end anything: the dialogs belong to a host.
    SetExitOnFrameDelete(false);
    return true;
  }

  // An exception from a handler ends the dialog and leaves ShowModal. By default the toolkit would
  // ask the user what to do, or end the process.
  bool OnExceptionInMainLoop() override { throw; }
  bool StoreCurrentException() override {
    failure_ = std::current_exception();
    return true;
  }
  void RethrowStoredException() override {
    if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
  }

 private:
  std::exception_ptr failure_;
};

}  // namespace

std::unique_ptr<Toolkit> Toolkit::Start() {
  // Silence the toolkit: the caller reports a failure in its own words.
  const wxLogNull silence;
  wxApp::SetInstance(new DialogApplication);
  int no_arguments = 0;
  wxChar** const none = nullptr;
  if (!wxEntryStart(no_arguments, none)) return nullptr;
  std::unique_ptr<Toolkit> toolkit(new Toolkit);
  if (!wxTheApp->CallOnInit()) return nullptr;
  return toolkit;
}

Toolkit::~Toolkit() {
  wxTheApp->OnExit();
  wxEntryCleanup();
}

}  // namespace imptable
