#ifndef HOST_REGISTRY_REGISTRY_LOCATION_H_
#define HOST_REGISTRY_REGISTRY_LOCATION_H_

#include <functional>
#include <optional>
#include <string>

#include "host/HostTexts.h"

namespace imptable {

/// What the place of the registry file depends on. A variable that is empty counts as unset.
struct RegistryLocationSources {
  std::optional<std::string> option;  // --registry
  std::function<std::optional<std::string>(const char* name)> environment;
  std::function<std::string()> home_of_user;  // asked when HOME says nothing; empty when unknown
};

/// The registry file: the option, else $IMPTABLE_REGISTRY, else imptable/registry.db in the user's
/// data folder.
/// @throws HostError  when the user has no home folder either.
std::string RegistryFilePath(const RegistryLocationSources& sources);

/// The same for this process.
std::string RegistryFilePath(const std::optional<std::string>& option);

/// The language of the environment's locale: French for "fr...", else English.
Language LanguageOfLocale(
    const std::function<std::optional<std::string>(const char* name)>& environment);

/// The same for this process.
Language LanguageOfLocale();

}  // namespace imptable

#endif  // HOST_REGISTRY_REGISTRY_LOCATION_H_
