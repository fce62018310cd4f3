#include "host/registry/RegistryExportText.h"
#include "platform/text/TextEncoding_linux.h"

namespace imptable {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";  // U+FFFD

/// Converts bytes of this code page, up to the first byte that is no character of it.
ConvertedText Utf8FromCodePage(std::string_view bytes, const TextEncoding& encoding) {
  std::string text = encoding.ToUtf8(bytes);
  // The file itself may hold U+FFFD. Then the text converts back to the same bytes.
  const std::size_t flaw = text.find(kReplacement);
  if (flaw == std::string::npos || encoding.FromUtf8(text) == bytes) return {text, true};
  text.resize(flaw);
  return {text, false};
}

}  // namespace

ConvertedText Utf8FromAnsi(std::string_view bytes, const TextEncoding& encoding) {
  ConvertedText converted = Utf8FromCodePage(bytes, encoding);
  if (converted.complete || !encoding.IsUtf8()) return converted;
  return Utf8FromCodePage(bytes, *MakeTextEncoding("WINDOWS-1252"));
}

}  // namespace imptable
