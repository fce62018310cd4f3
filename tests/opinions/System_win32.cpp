// clang-format off
#include "platform/windows/Windows_win32.h"
#include <oleauto.h>
// clang-format on

#include "platform/files/ProfileFile_win32.h"
#include "platform/registry/Registry_win32.h"
#include "tests/opinions/System.h"

namespace imptable {
namespace {

// Languages whose decimal separators are "." and ",".
constexpr LCID kEnglish = 0x0409;
constexpr LCID kFrench = 0x040C;

/// A conversion of the system's, as the host's language uses them.
template <typename Number>
using Conversion = HRESULT(WINAPI*)(OLECHAR*, LCID, ULONG, Number*);

template <typename Number>
HRESULT Convert(Conversion<Number> convert, const std::string& text, LCID language,
                Number& number) {
  std::wstring wide;
  for (const char byte : text) wide += static_cast<unsigned char>(byte);
  return convert(wide.data(), language, 0, &number);
}

template <typename Number>
std::string ReadInteger(Conversion<Number> convert, const std::string& text) {
  Number number = 0;
  switch (const HRESULT result = Convert(convert, text, kEnglish, number)) {
    case S_OK:
      return std::to_string(number);
    case DISP_E_TYPEMISMATCH:
      return "mismatch";
    case DISP_E_OVERFLOW:
      return "overflow";
    default:
      return "error " + std::to_string(result);
  }
}

}  // namespace

std::string ReadProfileString(const std::string& path, std::string_view section,
                              std::string_view key, std::string_view fallback, std::size_t most) {
  // Wine cuts the last byte off a quoted value that just fits, so ask for one byte more.
  return SystemProfileFile()->ReadString(path, section, key, fallback, most + 1).substr(0, most);
}

void WithOwnRegistry(const std::string& /*folder*/, const std::function<void(Registry&)>& use) {
  use(*SystemRegistry());
}

std::string ReadInt16(const std::string& text) { return ReadInteger<SHORT>(VarI2FromStr, text); }

std::string ReadInt32(const std::string& text) { return ReadInteger<LONG>(VarI4FromStr, text); }

std::optional<double> ReadDouble(const std::string& text, std::string_view separator) {
  double number = 0;
  const LCID language = separator == "." ? kEnglish : kFrench;
  if (FAILED(Convert<double>(VarR8FromStr, text, language, number))) return std::nullopt;
  return number;
}

std::optional<int> ReadYear(const std::string& digits) {
  SHORT number = 0;
  if (FAILED(Convert<SHORT>(VarI2FromStr, digits, kEnglish, number))) return std::nullopt;
  return number;
}

}  // namespace imptable
