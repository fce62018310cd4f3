#include "host/registry/RegistryExportText.h"
#include "platform/windows/Windows_win32.h"
#include "tests/win32/host/WideText.h"

namespace imptable {
namespace {

constexpr UINT kWesternEuropean = 1252;

}  // namespace

ConvertedText Utf8FromAnsi(std::string_view bytes, const TextEncoding& encoding) {
  const UINT code_page = encoding.IsUtf8() ? kWesternEuropean : CP_ACP;
  const int size = static_cast<int>(bytes.size());
  const int length = MultiByteToWideChar(code_page, 0, bytes.data(), size, nullptr, 0);
  std::wstring text(static_cast<std::size_t>(length), L'\0');
  MultiByteToWideChar(code_page, 0, bytes.data(), size, text.data(), length);
  return {Narrow(text), true};
}

}  // namespace imptable
