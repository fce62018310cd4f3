#include "tests/win32/host/ResumeForecast.h"

#include <filesystem>

#include "plugin/ScenarioKeys.h"
#include "tests/win32/host/OwnRegistry.h"
#include "tests/win32/host/WideText.h"

namespace imptable {
namespace {

/// A setting's text, or the value of the scenario's variable that it names.
std::string Resolved(const std::string& scenario, const std::string& task,
                     const std::string& setting) {
  std::string text = ReadShown(TaskKey(scenario, task), setting);
  return text.starts_with('@') ? ReadShown(VariablesKey(scenario), text.substr(1)) : text;
}

bool HoldsSomething(const std::string& path) {
  std::error_code error;
  const auto size = std::filesystem::file_size(Wide(path), error);
  return !error && size > 0;
}

}  // namespace

std::optional<std::string> TraceThatAResumeWouldLose(const std::string& scenario,
                                                     const std::string& task) {
  std::string files = Resolved(scenario, task, "Dir");
  if (!files.ends_with('\\') && !files.ends_with('/')) files += '\\';
  files += Resolved(scenario, task, "Alias");
  const KeyPath key = TaskKey(scenario, task);
  const bool resumes = ReadShown(key, "RecErreurs") != "0" &&
                       (ReadShown(key, "RecTrace") == "1" || HoldsSomething(files + ".LER"));
  if (resumes || !HoldsSomething(files + ".TRC")) return std::nullopt;
  return files + ".TRC";
}

}  // namespace imptable
