#include "platform/text/TextEncoding_linux.h"

#include <iconv.h>
#include <langinfo.h>
#include <locale.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <utility>

#include "platform/text/Utf8.h"
#include "platform/text/Utf8Encoding.h"

namespace imptable {
namespace {

/// Sole owner of a conversion from one code set to another.
class Conversion {
 public:
  Conversion(const char* to, const char* from) : raw_(iconv_open(to, from)) {}
  ~Conversion() {
    if (valid()) iconv_close(raw_);
  }
  Conversion(Conversion&& other) noexcept : raw_(std::exchange(other.raw_, Invalid())) {}
  Conversion& operator=(Conversion&&) = delete;

  bool valid() const { return raw_ != Invalid(); }

  /// @param skip  gets the rest of the text, which starts with something that can't be converted.
  /// It tells how many of its bytes one `replacement` stands for.
  std::string Run(std::string_view text, std::string_view replacement,
                  std::size_t (*skip)(std::string_view)) const {
    std::string result;
    while (!text.empty()) {
      const int error = Step(&text, result);
      if (error == 0 || error == E2BIG) continue;
      Step(nullptr, result);
      result += replacement;
      text.remove_prefix(skip(text));
    }
    Step(nullptr, result);
    return result;
  }

 private:
  // POSIX leaves no other way to tell a failed iconv_open.
  // NOLINTNEXTLINE(performance-no-int-to-ptr)
  static iconv_t Invalid() { return reinterpret_cast<iconv_t>(-1); }

  /// Converts as much of `text` as fits into one chunk. A null `text` fetches what the conversion
  /// still holds back.
  int Step(std::string_view* text, std::string& result) const {
    std::array<char, 256> chunk;
    char* out = chunk.data();
    std::size_t room = chunk.size();
    char* in = text == nullptr ? nullptr : const_cast<char*>(text->data());  // is only read
    std::size_t left = text == nullptr ? 0 : text->size();
    const bool failed = iconv(raw_, in == nullptr ? nullptr : &in, &left, &out, &room) ==
                        static_cast<std::size_t>(-1);
    const int error = failed ? errno : 0;
    result.append(chunk.data(), chunk.size() - room);
    if (text != nullptr) text->remove_prefix(text->size() - left);
    return error;
  }

  iconv_t raw_;
};

class ConvertedEncoding : public TextEncoding {
 public:
  ConvertedEncoding(Conversion from_utf8, Conversion to_utf8)
      : from_utf8_(std::move(from_utf8)), to_utf8_(std::move(to_utf8)) {}

  bool IsUtf8() const override { return false; }
  std::string FromUtf8(std::string_view text) const override {
    return from_utf8_.Run(text, "?", [](std::string_view rest) {
      const std::size_t length = Utf8Length(rest);
      return length == 0 ? 1 : length;
    });
  }
  std::string ToUtf8(std::string_view text) const override {
    return to_utf8_.Run(text, kReplacementCharacter,
                        [](std::string_view) -> std::size_t { return 1; });
  }

 private:
  Conversion from_utf8_;
  Conversion to_utf8_;
};

}  // namespace

std::unique_ptr<TextEncoding> MakeTextEncoding(const std::string& code_set) {
  if (code_set == "UTF-8" || code_set == "ANSI_X3.4-1968") return std::make_unique<Utf8Encoding>();
  Conversion from_utf8(code_set.c_str(), "UTF-8");
  Conversion to_utf8("UTF-8", code_set.c_str());
  if (!from_utf8.valid() || !to_utf8.valid()) return std::make_unique<Utf8Encoding>();
  return std::make_unique<ConvertedEncoding>(std::move(from_utf8), std::move(to_utf8));
}

std::unique_ptr<TextEncoding> SystemTextEncoding() {
  const locale_t locale = newlocale(LC_CTYPE_MASK, "", nullptr);
  if (locale == nullptr) return MakeTextEncoding("UTF-8");
  const std::string code_set = nl_langinfo_l(CODESET, locale);
  freelocale(locale);
  return MakeTextEncoding(code_set);
}

}  // namespace imptable
