#include "core/StoredValue.h"

#include <cstddef>

namespace imptable {

RegistryValue TextValue(std::string_view text) {
  return {RegistryType::kText, std::string(text) + '\0'};
}

RegistryValue NumberValue(std::int32_t number) {
  RegistryValue value{RegistryType::kNumber, {}};
  auto rest = static_cast<std::uint32_t>(number);
  for (std::size_t i = 0; i < sizeof rest; ++i, rest >>= 8U) {
    value.data += static_cast<char>(rest & 0xFFU);
  }
  return value;
}

std::optional<std::string> TextOf(const RegistryValue& value) {
  if (value.type != RegistryType::kText && value.type != RegistryType::kExpandableText) {
    return std::nullopt;
  }
  return value.data.substr(0, value.data.find('\0'));
}

std::optional<std::int32_t> NumberOf(const RegistryValue& value) {
  std::uint32_t number = 0;
  if (value.type != RegistryType::kNumber || value.data.size() != sizeof number) {
    return std::nullopt;
  }
  for (std::size_t i = sizeof number; i-- > 0;) {
    number = number << 8U | static_cast<unsigned char>(value.data[i]);
  }
  return static_cast<std::int32_t>(number);
}

}  // namespace imptable
