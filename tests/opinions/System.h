#ifndef TESTS_OPINIONS_SYSTEM_H_
#define TESTS_OPINIONS_SYSTEM_H_

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "platform/registry/Registry.h"

namespace imptable {

// Questions to both systems. On Linux the component's own code answers, in code page 1252.

std::string ReadProfileString(const std::string& path, std::string_view section,
                              std::string_view key, std::string_view fallback, std::size_t most);

/// Lends a registry that has HKEY_CURRENT_USER.
/// @param folder  for its file, if it needs one.
void WithOwnRegistry(const std::string& folder, const std::function<void(Registry&)>& use);

// Numbers in decimal, "mismatch" or "overflow".
std::string ReadInt16(const std::string& text);
std::string ReadInt32(const std::string& text);

/// @param separator  "." or ",", the user's.
std::optional<double> ReadDouble(const std::string& text, std::string_view separator);

/// @param digits  four characters, where a date has its year.
std::optional<int> ReadYear(const std::string& digits);

}  // namespace imptable

#endif  // TESTS_OPINIONS_SYSTEM_H_
