#ifndef DIALOGS_WIDGETS_HOSTED_TOOLKIT_WIN32_H_
#define DIALOGS_WIDGETS_HOSTED_TOOLKIT_WIN32_H_

#include <memory>

#include "dialogs/widgets/Toolkit.h"

struct HINSTANCE__;

namespace imptable {

/// Starts the toolkit on the thread of a host that knows nothing of it. The process's locale stays
/// as it is.
/// @param module  has the dialogs' code and resources, and owns their windows' classes.
/// @return null when the toolkit can't be started.
std::unique_ptr<Toolkit> StartHostedToolkit(HINSTANCE__* module);

}  // namespace imptable

#endif  // DIALOGS_WIDGETS_HOSTED_TOOLKIT_WIN32_H_
