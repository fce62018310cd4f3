#ifndef HOST_STORED_VALUE_H_
#define HOST_STORED_VALUE_H_

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Registry.h"

namespace imptable {

/// The text as the registry stores it, with its terminating NUL.
RegistryValue TextValue(std::string_view text);

/// The number as the registry stores it, in four bytes.
RegistryValue NumberValue(std::int32_t number);

/// @return the text up to its terminator; nullopt for a value that is no single text.
std::optional<std::string> TextOf(const RegistryValue& value);

/// The value for the reader's eye: a text as it is, a number in decimal, the texts of a list
/// joined by "|", anything else as bytes in hexadecimal.
std::string ShownValue(const RegistryValue& value);

/// @return nullopt when the text is anything else than a decimal number of 32 bits.
std::optional<std::int32_t> NumberFromText(std::string_view text);

}  // namespace imptable

#endif  // HOST_STORED_VALUE_H_
