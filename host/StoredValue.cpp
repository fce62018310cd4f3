#include "host/StoredValue.h"

#include <charconv>
#include <cstddef>
#include <system_error>

namespace imptable {
namespace {

std::string Hexadecimal(std::string_view bytes) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string result;
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    if (!result.empty()) result += ',';
    result += kDigits[value >> 4U];
    result += kDigits[value & 0xFU];
  }
  return result;
}

std::string Joined(std::string_view list) {
  while (!list.empty() && list.back() == '\0') list.remove_suffix(1);
  std::string result(list);
  for (char& byte : result) {
    if (byte == '\0') byte = '|';
  }
  return result;
}

}  // namespace

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

std::string ShownValue(const RegistryValue& value) {
  switch (value.type) {
    case RegistryType::kText:
    case RegistryType::kExpandableText:
      return *TextOf(value);
    case RegistryType::kMultiText:
      return Joined(value.data);
    case RegistryType::kNumber: {
      std::uint32_t number = 0;
      if (value.data.size() != sizeof number) break;
      for (std::size_t i = sizeof number; i-- > 0;) {
        number = number << 8U | static_cast<unsigned char>(value.data[i]);
      }
      return std::to_string(static_cast<std::int32_t>(number));
    }
    case RegistryType::kNone:
    case RegistryType::kBinary:
      break;
  }
  return Hexadecimal(value.data);
}

std::optional<std::int32_t> NumberFromText(std::string_view text) {
  std::int32_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

}  // namespace imptable
