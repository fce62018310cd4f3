#ifndef CORE_FILE_LOOK_H_
#define CORE_FILE_LOOK_H_

#include <optional>
#include <string>

#include "platform/files/FileSystem.h"

namespace imptable {

/// What a run decides by must not be taken for absent because it couldn't be looked at.
/// @return nullopt when there is no such file.
/// @throws RuntimeFault  the file fault, when it can't be looked at.
std::optional<FileInfo> LookAt(const FileSystem& files, const std::string& path);

/// @return why the file couldn't be deleted; no error when there is none, or can be none of this
/// name.
std::error_code RemoveIfAny(FileSystem& files, const std::string& path);

}  // namespace imptable

#endif  // CORE_FILE_LOOK_H_
