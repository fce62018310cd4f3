#ifndef PLATFORM_FILES_PROFILE_FILE_WIN32_H_
#define PLATFORM_FILES_PROFILE_FILE_WIN32_H_

#include <memory>

#include "platform/files/ProfileFile.h"

namespace imptable {

/// The profile-string reader of Windows. It gives at most 65,535 bytes of a value.
std::unique_ptr<ProfileFile> SystemProfileFile();

}  // namespace imptable

#endif  // PLATFORM_FILES_PROFILE_FILE_WIN32_H_
