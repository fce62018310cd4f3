#include "host/registry/RegistryExportText.h"
#include "platform/text/TextEncoding_linux.h"

namespace imptable {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";  // U+FFFD

/// The bytes in this code page, as far as they are characters of it.
ConvertedText Utf8FromCodePage(std::string_view bytes, const TextEncoding& encoding) {
  std::string text = encoding.ToUtf8(bytes);
  // U+FFFD may also be what the file holds; then it converts back to the same bytes.
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
