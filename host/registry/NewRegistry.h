#ifndef HOST_REGISTRY_NEW_REGISTRY_H_
#define HOST_REGISTRY_NEW_REGISTRY_H_

#include <vector>

#include "host/HostTexts.h"
#include "platform/registry/RegistryStore.h"

namespace imptable {

/// What a new registry file begins with: the decimal separator that the drivers of this platform
/// expect in texts, and the language.
std::vector<RegistryEdit> FirstRegistryEdits(Language language);

}  // namespace imptable

#endif  // HOST_REGISTRY_NEW_REGISTRY_H_
