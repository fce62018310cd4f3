#ifndef CORE_STORED_VALUE_H_
#define CORE_STORED_VALUE_H_

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/registry/Registry.h"

namespace imptable {

/// The text as the registry stores it, with its terminating NUL.
RegistryValue TextValue(std::string_view text);

/// The number as the registry stores it, in four bytes.
RegistryValue NumberValue(std::int32_t number);

/// @return the text up to its terminator; nullopt for a value that is no single text.
std::optional<std::string> TextOf(const RegistryValue& value);

/// @return nullopt for a value that is no number of four bytes.
std::optional<std::int32_t> NumberOf(const RegistryValue& value);

}  // namespace imptable

#endif  // CORE_STORED_VALUE_H_
