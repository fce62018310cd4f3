#include "import/TaskFiles.h"

namespace imptable {
namespace {

std::string_view TrimmedAlias(const RunState& run) {
  std::string_view alias = run.alias;
  while (!alias.empty() && alias.back() == ' ') alias.remove_suffix(1);
  return alias;
}

std::string PathOf(const RunState& run, std::string_view name, std::string_view extension) {
  std::string path = run.directory;
  path += name;
  path += extension;
  return path;
}

}  // namespace

std::string DataFilePath(const RunState& run, bool complete_name) {
  return PathOf(run, TrimmedAlias(run), complete_name ? std::string_view() : kDataExtension);
}

std::string SideFilePath(const RunState& run, std::string_view extension) {
  return PathOf(run, TrimmedAlias(run), extension);
}

std::string StoredSideFilePath(const RunState& run, std::string_view extension) {
  return PathOf(run, run.alias, extension);
}

}  // namespace imptable
