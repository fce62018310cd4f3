#include "import/ledger/TaskFiles.h"

#include "core/Blanks.h"

namespace imptable {
namespace {

std::string PathOf(const OpenedTask& task, std::string_view name, std::string_view extension) {
  std::string path = task.directory;
  path += name;
  path += extension;
  return path;
}

}  // namespace

std::string DataFilePath(const OpenedTask& task, bool complete_name) {
  return PathOf(task, WithoutTrailingBlanks(task.alias),
                complete_name ? std::string_view() : kDataExtension);
}

std::string SideFilePath(const OpenedTask& task, std::string_view extension) {
  return PathOf(task, WithoutTrailingBlanks(task.alias), extension);
}

}  // namespace imptable
