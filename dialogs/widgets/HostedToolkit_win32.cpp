#include "dialogs/widgets/HostedToolkit_win32.h"

#include <wx/log.h>
#include <wx/msw/private.h>

#include <clocale>
#include <string>

namespace imptable {

std::unique_ptr<Toolkit> StartHostedToolkit(HINSTANCE__* module) {
  const std::string locale = std::setlocale(LC_ALL, nullptr);
  wxSetInstance(module);
  std::unique_ptr<Toolkit> toolkit = Toolkit::Start();
  std::setlocale(LC_ALL, locale.c_str());
  // The toolkit's log messages mean nothing to the users of the host.
  wxLog::EnableLogging(false);
  return toolkit;
}

}  // namespace imptable
