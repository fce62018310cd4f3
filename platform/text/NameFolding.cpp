#include "platform/text/NameFolding.h"

#include <cstddef>

#include "platform/text/Utf8.h"

namespace imptable {

std::string FoldName(std::string_view name) {
  std::string folded(name);
  bool ascii = true;
  for (char& byte : folded) {
    if (byte >= 'a' && byte <= 'z') byte = static_cast<char>(byte - 'a' + 'A');
    ascii = ascii && static_cast<unsigned char>(byte) < 0x80;
  }
  if (ascii) return folded;

  folded.clear();
  while (!name.empty()) {
    const std::size_t length = Utf8Length(name);
    if (length == 0) {
      folded += name.front();
    } else {
      AppendUtf8(folded, UpperCase(DecodeUtf8(name.substr(0, length))));
    }
    name.remove_prefix(length == 0 ? 1 : length);
  }
  return folded;
}

}  // namespace imptable
