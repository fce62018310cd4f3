#include "import/ledger/TaskFiles.h"

#include <utility>

#include "core/Blanks.h"
#include "platform/files/FileSystem.h"

namespace imptable {
namespace {

std::string PathOf(const OpenedTask& task, std::string_view name, std::string_view extension) {
  std::string path = task.directory;
  path += name;
  path += extension;
  return path;
}

}  // namespace

std::string FolderOf(std::string directory) {
  const char separator = SystemPathSeparator();
  if (!directory.ends_with('\\') && !directory.ends_with(separator)) directory += separator;
  return directory;
}

std::string DataFilePath(const OpenedTask& task) {
  return PathOf(task, WithoutTrailingBlanks(task.alias),
                task.full_file_name == Flag::kOn ? std::string_view() : kDataExtension);
}

std::string SideFilePath(const OpenedTask& task, std::string_view extension) {
  return PathOf(task, WithoutTrailingBlanks(task.alias), extension);
}

}  // namespace imptable
