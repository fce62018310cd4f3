#ifndef CORE_FILE_LOOK_H_
#define CORE_FILE_LOOK_H_

#include <optional>
#include <string>

#include "platform/files/FileSystem.h"

namespace imptable {

/// Looks at a file that a run's decision depends on: a file that can't be looked at must not pass
/// for a missing one.
/// @return nullopt when there is no such file.
/// @throws RuntimeFault  the file fault, when the file can't be looked at.
std::optional<FileInfo> LookAt(const FileSystem& files, const std::string& path);

/// @return why the file couldn't be deleted; no error when there is no such file, or when no file
/// can have this name.
std::error_code RemoveIfAny(FileSystem& files, const std::string& path);

}  // namespace imptable

#endif  // CORE_FILE_LOOK_H_
