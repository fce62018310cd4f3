#include "import/source/FieldSplitting.h"

#include <cstring>

#include "platform/text/CharacterCount.h"

namespace imptable {
namespace {

std::size_t FindDelimiter(std::string_view line, std::string_view delimiter, std::size_t from) {
  if (delimiter.size() != 1) return line.find(delimiter, from);
  const void* const found = std::memchr(line.data() + from, delimiter[0], line.size() - from);
  if (found == nullptr) return std::string_view::npos;
  return static_cast<std::size_t>(static_cast<const char*>(found) - line.data());
}

}  // namespace

std::size_t DelimiterStep(std::string_view delimiter, bool utf8) {
  return BytesOfCharacters(delimiter, 1, utf8);
}

void SplitDelimited(std::string_view line, std::string_view delimiter, std::size_t step,
                    std::size_t most, std::vector<std::string_view>& fields) {
  fields.clear();
  std::size_t from = 0;
  while (fields.size() < most) {
    const std::size_t at = FindDelimiter(line, delimiter, from);
    if (at == std::string_view::npos) {
      fields.push_back(line.substr(from));
      return;
    }
    fields.push_back(line.substr(from, at - from));
    from = at + step;
  }
}

void SplitFixedWidth(std::string_view line, const std::vector<std::size_t>& widths, bool utf8,
                     std::vector<std::string_view>& fields) {
  fields.clear();
  const bool by_characters = utf8 && !IsAscii(line);
  for (const std::size_t width : widths) {
    const std::size_t bytes = BytesOfCharacters(line, width, by_characters);
    fields.push_back(line.substr(0, bytes));
    line.remove_prefix(bytes);
  }
}

}  // namespace imptable
