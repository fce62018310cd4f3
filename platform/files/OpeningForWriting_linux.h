#ifndef PLATFORM_FILES_OPENING_FOR_WRITING_LINUX_H_
#define PLATFORM_FILES_OPENING_FOR_WRITING_LINUX_H_

#include <string>
#include <system_error>

#include "platform/files/Descriptor_linux.h"

namespace imptable {

// Opening for writing in folders where others may write too. A file that is created gets the
// rights that the umask leaves. `error` is too_many_symbolic_link_levels for a link that isn't
// followed; the descriptor is closed when there is an error.

/// Opens a regular file and empties it. Never follows a link of this name.
Descriptor OpenToReplace(const std::string& path, std::error_code& error);

/// Opens a file, a pipe or a terminal to write at its end. Each link on the way is followed only
/// when this user, the administrator or the system (/proc) made it.
Descriptor OpenToAppend(const std::string& path, std::error_code& error);

}  // namespace imptable

#endif  // PLATFORM_FILES_OPENING_FOR_WRITING_LINUX_H_
