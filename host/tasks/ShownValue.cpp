#include "host/tasks/ShownValue.h"

#include "core/StoredValue.h"

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

std::string ShownValue(const RegistryValue& value) {
  switch (value.type) {
    case RegistryType::kText:
    case RegistryType::kExpandableText:
      return *TextOf(value);
    case RegistryType::kMultiText:
      return Joined(value.data);
    case RegistryType::kNumber:
      if (const std::optional<std::int32_t> number = NumberOf(value)) {
        return std::to_string(*number);
      }
      break;
    case RegistryType::kNone:
    case RegistryType::kBinary:
      break;
  }
  return Hexadecimal(value.data);
}

}  // namespace imptable
