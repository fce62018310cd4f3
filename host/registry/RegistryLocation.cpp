#include "host/registry/RegistryLocation.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

#include "host/HostError.h"

namespace imptable {
namespace {

std::optional<std::string> EnvironmentVariable(const char* name) {
  const char* const value = std::getenv(name);
  if (value == nullptr) return std::nullopt;
  return value;
}

std::string HomeOfUser() {
  const passwd* const user = getpwuid(getuid());
  return user == nullptr || user->pw_dir == nullptr ? std::string() : user->pw_dir;
}

}  // namespace

std::string RegistryFilePath(const RegistryLocationSources& sources) {
  const auto variable = [&](const char* name) {
    return sources.environment(name).value_or(std::string());
  };
  if (sources.option) return *sources.option;
  if (std::string path = variable("IMPTABLE_REGISTRY"); !path.empty()) return path;
  const std::string data = variable("XDG_DATA_HOME");
  if (data.starts_with('/')) return data + "/imptable/registry.db";  // a relative path is invalid
  std::string home = variable("HOME");
  if (home.empty()) home = sources.home_of_user();
  if (home.empty()) throw HostError(ExitCode::kFault, HostText::kNoHome);
  return home + "/.local/share/imptable/registry.db";
}

std::string RegistryFilePath(const std::optional<std::string>& option) {
  return RegistryFilePath({option, EnvironmentVariable, HomeOfUser});
}

Language LanguageOfLocale(
    const std::function<std::optional<std::string>(const char* name)>& environment) {
  for (const char* const name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const std::string locale = environment(name).value_or(std::string());
    if (!locale.empty()) return locale.starts_with("fr") ? Language::kFrench : Language::kEnglish;
  }
  return Language::kEnglish;
}

Language LanguageOfLocale() { return LanguageOfLocale(EnvironmentVariable); }

}  // namespace imptable
