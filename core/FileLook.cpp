#include "core/FileLook.h"

#include "core/RuntimeFault.h"

namespace imptable {

std::optional<FileInfo> LookAt(const FileSystem& files, const std::string& path) {
  std::error_code error;
  const auto info = files.Query(path, error);
  if (error) throw FileFault(error, path);
  return info;
}

std::error_code RemoveIfAny(FileSystem& files, const std::string& path) {
  const std::error_code error = files.Remove(path);
  if (!error || error == std::errc::no_such_file_or_directory) return {};
  std::error_code unseen;
  const bool exists = files.Query(path, unseen) || unseen;
  return exists ? error : std::error_code();
}

}  // namespace imptable
