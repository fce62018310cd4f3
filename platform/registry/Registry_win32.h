#ifndef PLATFORM_REGISTRY_REGISTRY_WIN32_H_
#define PLATFORM_REGISTRY_REGISTRY_WIN32_H_

#include <memory>

#include "platform/registry/Registry.h"

namespace imptable {

/// The registry of Windows, as a 32-bit process sees it. It has all predefined roots; below any
/// other number nothing is found and a write gives 6 (ERROR_INVALID_HANDLE).
std::unique_ptr<Registry> SystemRegistry();

}  // namespace imptable

#endif  // PLATFORM_REGISTRY_REGISTRY_WIN32_H_
