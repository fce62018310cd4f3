#ifndef PLATFORM_FILES_OPENING_FOR_WRITING_LINUX_H_
#define PLATFORM_FILES_OPENING_FOR_WRITING_LINUX_H_

#include <string>
#include <system_error>

#include "platform/files/Descriptor_linux.h"

namespace imptable {

// Opening for writing in folders where others may write too. A file that is created gets the
// rights that the umask leaves. `error` is too_many_symbolic_link_levels for a link that isn't
// followed; the descriptor is closed when there is an error.

/// Opens a regular file, itself and never what a link of this name points to, and empties it.
Descriptor OpenToReplace(const std::string& path, std::error_code& error);

/// Opens a file, a pipe or a terminal to write at its end. A link is followed when this user or the
/// administrator made it, and so is every link that it leads to.
Descriptor OpenToAppend(const std::string& path, std::error_code& error);

}  // namespace imptable

#endif  // PLATFORM_FILES_OPENING_FOR_WRITING_LINUX_H_
