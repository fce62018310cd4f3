#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "host/Commands.h"
#include "host/HostError.h"
#include "host/registry/KeyName.h"

namespace imptable {
namespace {

constexpr const char* kProgram = "imptable-config";

/// The program beside this one, else the one that the search path finds.
std::string ProgramPath() {
  std::error_code error;
  const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", error);
  const std::filesystem::path beside = self.parent_path() / kProgram;
  return !error && access(beside.c_str(), X_OK) == 0 ? beside.string() : kProgram;
}

}  // namespace

ExitCode StartConfiguration(HostContext& context, const CommandRequest& request,
                            const HostConsole& console) {
  RequireName(*context.encoding, request.scenario);
  RequireName(*context.encoding, request.task);
  const bool english = context.texts.language() == Language::kEnglish;
  std::vector<std::string> words{kProgram,    "--registry",          context.registry_path,
                                 "--lang",    english ? "en" : "fr", request.scenario,
                                 request.task};
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  console.out.flush();
  execvp(ProgramPath().c_str(), arguments.data());
  const std::string reason = std::generic_category().message(errno);
  throw HostError(ExitCode::kFault, HostText::kNoConfigurationProgram, {kProgram, reason});
}

}  // namespace imptable
