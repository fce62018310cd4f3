#ifndef HOST_TASKS_SHOWN_VALUE_H_
#define HOST_TASKS_SHOWN_VALUE_H_

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/registry/Registry.h"

namespace imptable {

/// The value for the reader's eye: a text as it is, a number in decimal, the texts of a list
/// joined by "|", anything else as bytes in hexadecimal.
std::string ShownValue(const RegistryValue& value);

}  // namespace imptable

#endif  // HOST_TASKS_SHOWN_VALUE_H_
