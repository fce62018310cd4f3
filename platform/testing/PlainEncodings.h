#ifndef PLATFORM_TESTING_PLAINENCODINGS_H_
#define PLATFORM_TESTING_PLAINENCODINGS_H_

#include <string>
#include <string_view>

#include "platform/text/TextEncoding.h"

namespace imptable {

/// The code page of a UTF-8 locale, whatever the locale is.
class Utf8TextEncoding : public TextEncoding {
 public:
  bool IsUtf8() const override { return true; }
  std::string FromUtf8(std::string_view text) const override;
  std::string ToUtf8(std::string_view text) const override;
};

/// A single-byte code page, ISO 8859-1, whatever the locale is.
class Latin1TextEncoding : public TextEncoding {
 public:
  bool IsUtf8() const override { return false; }
  std::string FromUtf8(std::string_view text) const override;
  std::string ToUtf8(std::string_view text) const override;
};

}  // namespace imptable

#endif  // PLATFORM_TESTING_PLAINENCODINGS_H_
