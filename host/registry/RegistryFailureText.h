#ifndef HOST_REGISTRY_REGISTRY_FAILURE_TEXT_H_
#define HOST_REGISTRY_REGISTRY_FAILURE_TEXT_H_

#include <string>

#include "host/HostTexts.h"
#include "platform/registry/RegistryFileError.h"

namespace imptable {

/// What is wrong with the registry file and what to do, in one line. It gives the system's reason
/// in the system's words.
std::string RegistryFailureText(const RegistryFileError& error, const HostTexts& texts);

}  // namespace imptable

#endif  // HOST_REGISTRY_REGISTRY_FAILURE_TEXT_H_
