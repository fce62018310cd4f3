#ifndef HOST_REGISTRY_KEY_NAME_H_
#define HOST_REGISTRY_KEY_NAME_H_

#include <cstddef>
#include <string>

#include "platform/registry/Registry.h"
#include "platform/text/TextEncoding.h"

namespace imptable {

// Limits of the registry of Windows. A longer name or a deeper key could never be imported there.
inline constexpr std::size_t kLongestKeyName = 255;      // characters of UTF-16
inline constexpr std::size_t kLongestValueName = 16383;  // the same
inline constexpr std::size_t kDeepestKey = 512;          // levels of keys below the root

/// @throws HostError  wrong usage, when no registry key can have this name.
void RequireName(const TextEncoding& encoding, const std::string& name);

}  // namespace imptable

#endif  // HOST_REGISTRY_KEY_NAME_H_
