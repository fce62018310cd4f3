#include "platform/text/TextEncoding_win32.h"

#include <array>
#include <cstddef>

#include "platform/text/Utf16_win32.h"
#include "platform/text/Utf8.h"
#include "platform/text/Utf8Encoding.h"
#include "platform/windows/Windows_win32.h"

namespace imptable {
namespace {

bool IsAscii(char byte) { return static_cast<unsigned char>(byte) < 0x80; }

/// A code page of one or two bytes a character, in which ASCII is ASCII.
class CodePageEncoding : public TextEncoding {
 public:
  explicit CodePageEncoding(UINT code_page) : code_page_(code_page) {}

  bool IsUtf8() const override { return false; }

  std::string FromUtf8(std::string_view text) const override {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
      const std::size_t length = Utf8Length(text);
      if (length == 0) {
        result += '?';
      } else if (length == 1) {
        result += text.front();
      } else {
        AppendCharacter(result, DecodeUtf8(text.substr(0, length)));
      }
      text.remove_prefix(length == 0 ? 1 : length);
    }
    return result;
  }

  std::string ToUtf8(std::string_view text) const override {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
      std::size_t length = 1;
      if (IsAscii(text.front())) {
        result += text.front();
      } else {
        length = AppendUtf8Of(result, text);
      }
      text.remove_prefix(length);
    }
    return result;
  }

 private:
  void AppendCharacter(std::string& result, char32_t character) const {
    const Utf16Character units(character);
    std::array<char, 8> bytes;
    BOOL lacks = FALSE;
    // Without WC_NO_BEST_FIT_CHARS, "\u0101" would become "a".
    const int size =
        WideCharToMultiByte(code_page_, WC_NO_BEST_FIT_CHARS, units.data(), units.size(),
                            bytes.data(), static_cast<int>(bytes.size()), "?", &lacks);
    if (size <= 0 || lacks != FALSE) {
      result += '?';
    } else {
      result.append(bytes.data(), static_cast<std::size_t>(size));
    }
  }

  /// Appends the first character of `text`. @return how many bytes of `text` it takes.
  std::size_t AppendUtf8Of(std::string& result, std::string_view text) const {
    const bool leads = IsDBCSLeadByteEx(code_page_, static_cast<BYTE>(text.front())) != 0;
    const std::size_t length = leads && text.size() > 1 ? 2 : 1;
    std::array<wchar_t, 4> wide;
    const int size =
        MultiByteToWideChar(code_page_, MB_ERR_INVALID_CHARS, text.data(), static_cast<int>(length),
                            wide.data(), static_cast<int>(wide.size()));
    if (size <= 0) {
      result += kReplacementCharacter;
      return 1;
    }
    std::wstring_view units(wide.data(), static_cast<std::size_t>(size));
    while (!units.empty()) {
      const char32_t character = FirstCharacter(units);
      AppendUtf8(result, character);
      units.remove_prefix(character < 0x10000 ? 1 : 2);
    }
    return length;
  }

  UINT code_page_;
};

}  // namespace

std::unique_ptr<TextEncoding> MakeTextEncoding(unsigned code_page) {
  if (code_page == CP_UTF8 || IsValidCodePage(code_page) == 0) {
    return std::make_unique<Utf8Encoding>();
  }
  return std::make_unique<CodePageEncoding>(code_page);
}

std::unique_ptr<TextEncoding> SystemTextEncoding() { return MakeTextEncoding(GetACP()); }

}  // namespace imptable
