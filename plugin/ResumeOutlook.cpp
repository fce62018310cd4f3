#include "plugin/ResumeOutlook.h"

#include "import/LineReader.h"
#include "import/ResumeChain.h"
#include "import/TaskFiles.h"
#include "plugin/ResumeRule.h"
#include "plugin/TaskLoading.h"

namespace imptable {
namespace {

std::int64_t CountLines(FileSystem& files, const std::string& path) {
  std::error_code error;
  auto file = files.OpenForReading(path, error);
  if (error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory)
    return 0;
  if (!file) throw FileFault(error, path);
  LineReader lines(std::move(file), path, false);
  std::int64_t count = 0;
  for (std::string_view line; lines.Next(line);) ++count;
  return count;
}

}  // namespace

ResumeOutlook LookAtResume(ModuleState& state, const KeyPath& tasks, const std::string& scenario,
                           const std::string& task) {
  ModuleCommun& module = state.commun;
  module.location = tasks;
  module.run.scenario = scenario;
  module.run.task = task;
  LoadTaskIntoRun(module);
  FileSystem& files = module.platform.files;
  ResumeOutlook outlook;
  outlook.resumes = CanResume(files, module.run);
  outlook.trace_path = files.Locate(SideFilePath(module.run, kTraceExtension));
  outlook.traced_lines = CountLines(files, outlook.trace_path);
  const ResumeChain chain(files, SideFilePath(module.run, kChainExtension));
  if (const std::int64_t reached = chain.Reached(); reached > outlook.traced_lines) {
    outlook.trace_path = chain.path();
    outlook.traced_lines = reached;
  }
  return outlook;
}

}  // namespace imptable
