#include "import/TaskFiles.h"

#include "plugin/core/Blanks.h"

namespace imptable {
namespace {

std::string PathOf(const RunState& run, std::string_view name, std::string_view extension) {
  std::string path = run.directory;
  path += name;
  path += extension;
  return path;
}

}  // namespace

std::string DataFilePath(const RunState& run, bool complete_name) {
  return PathOf(run, WithoutTrailingBlanks(run.alias),
                complete_name ? std::string_view() : kDataExtension);
}

std::string SideFilePath(const RunState& run, std::string_view extension) {
  return PathOf(run, WithoutTrailingBlanks(run.alias), extension);
}

std::string StoredSideFilePath(const RunState& run, std::string_view extension) {
  return PathOf(run, run.alias, extension);
}

}  // namespace imptable
