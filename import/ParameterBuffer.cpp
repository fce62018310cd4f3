#include "import/ParameterBuffer.h"

namespace imptable {
namespace {

bool IsContinuationByte(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

/// A UTF-8 character has at most this many bytes after its first one.
constexpr std::size_t kMostContinuationBytes = 3;

}  // namespace

std::string_view ParameterBuffer::CutToBuffer(std::string_view value, bool utf8) {
  std::size_t length = kParameterTextBytes;
  while (utf8 && kParameterTextBytes - length <= kMostContinuationBytes &&
         IsContinuationByte(value[length])) {
    --length;
  }
  const bool within_character = kParameterTextBytes - length <= kMostContinuationBytes;
  return value.substr(0, within_character ? length : kParameterTextBytes);
}

}  // namespace imptable
