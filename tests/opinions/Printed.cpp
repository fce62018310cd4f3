#include "tests/opinions/Printed.h"

#include <cstddef>
#include <cstdint>

namespace imptable {
namespace {

constexpr std::size_t kMostBytes = 400;

std::uint32_t Sum(std::string_view bytes) {
  std::uint32_t sum = 2166136261U;
  for (const char byte : bytes) sum = (sum ^ static_cast<unsigned char>(byte)) * 16777619U;
  return sum;
}

}  // namespace

std::string Printed(std::string_view bytes) {
  constexpr std::string_view kHex = "0123456789ABCDEF";
  std::string text = "\"";
  for (const char c : bytes.substr(0, kMostBytes)) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 0x20 && byte < 0x7F && c != '\\') {
      text += c;
    } else {
      text += '\\';
      text += kHex[byte >> 4U];
      text += kHex[byte & 0xFU];
    }
  }
  text += '"';
  if (bytes.size() > kMostBytes) {
    text += " of " + std::to_string(bytes.size()) + " bytes, sum " + std::to_string(Sum(bytes));
  }
  return text;
}

}  // namespace imptable
