#ifndef PLATFORM_TEXT_TEXT_ENCODING_H_
#define PLATFORM_TEXT_TEXT_ENCODING_H_

#include <memory>
#include <string>
#include <string_view>

namespace imptable {

/// The system's code page: the user's ANSI code page on Windows, the locale's elsewhere (a C or
/// POSIX locale counts as UTF-8). Text inside the component is in this code page.
class TextEncoding {
 public:
  virtual ~TextEncoding() = default;

  /// True when a character may take several bytes, in the manner of UTF-8.
  virtual bool IsUtf8() const = 0;

  /// A character that the code page lacks becomes "?".
  virtual std::string FromUtf8(std::string_view text) const = 0;

  /// A byte that is no character of the code page becomes U+FFFD.
  virtual std::string ToUtf8(std::string_view text) const = 0;
};

/// The encoding of the environment's locale.
std::unique_ptr<TextEncoding> SystemTextEncoding();

}  // namespace imptable

#endif  // PLATFORM_TEXT_TEXT_ENCODING_H_
