#include "host/HostConsole.h"

#include <memory>

#include "platform/text/TextEncoding.h"
#include "platform/text/Utf8.h"

namespace imptable {
namespace {

bool IsControl(char32_t character) {
  return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

/// Keeps bytes that aren't UTF-8, except those that a terminal could take for control characters.
std::string Utf8WithoutControls(std::string_view text, LineEnds line_ends) {
  std::string result;
  while (!text.empty()) {
    const std::size_t length = Utf8Length(text);
    const std::string_view bytes = text.substr(0, length == 0 ? 1 : length);
    const char32_t character =
        length == 0 ? static_cast<unsigned char>(text.front()) : DecodeUtf8(bytes);
    const bool stays = character == U'\n' && line_ends == LineEnds::kStay;
    result += IsControl(character) && !stays ? std::string_view("?") : bytes;
    text.remove_prefix(bytes.size());
  }
  return result;
}

}  // namespace

std::string WithoutControls(std::string_view text, LineEnds line_ends) {
  const std::unique_ptr<TextEncoding> encoding = SystemTextEncoding();
  if (encoding->IsUtf8()) return Utf8WithoutControls(text, line_ends);
  return encoding->FromUtf8(Utf8WithoutControls(encoding->ToUtf8(text), line_ends));
}

void PrintErrorLine(std::ostream& err, std::string_view text) {
  err << "imptable: " << WithoutControls(text) << '\n' << std::flush;
}

void ConsoleWarningBox::Warn(std::string_view text, std::string_view caption) {
  PrintErrorLine(err_, std::string(caption) + ": " + std::string(text));
}

}  // namespace imptable
