#include "import/values/ParameterBuffer.h"

#include "platform/text/Utf8.h"

namespace imptable {
namespace {

bool IsContinuationByte(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

/// A UTF-8 character has at most this many bytes after its first one.
constexpr std::size_t kMostContinuationBytes = 3;

}  // namespace

std::string_view ParameterBuffer::CutToBuffer(std::string_view value, bool utf8) {
  std::size_t start = kParameterTextBytes;
  while (utf8 && kParameterTextBytes - start < kMostContinuationBytes &&
         IsContinuationByte(value[start])) {
    --start;
  }
  // Bytes that are no valid UTF-8 are characters of their own: the cut goes between them.
  const bool splits_character = start + Utf8Length(value.substr(start)) > kParameterTextBytes;
  return value.substr(
      0, start < kParameterTextBytes && splits_character ? start : kParameterTextBytes);
}

}  // namespace imptable
