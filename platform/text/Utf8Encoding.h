#ifndef PLATFORM_TEXT_UTF8_ENCODING_H_
#define PLATFORM_TEXT_UTF8_ENCODING_H_

#include <string>
#include <string_view>

#include "platform/text/TextEncoding.h"
#include "platform/text/Utf8.h"

namespace imptable {

/// The code page that is UTF-8.
class Utf8Encoding : public TextEncoding {
 public:
  bool IsUtf8() const override { return true; }
  std::string FromUtf8(std::string_view text) const override {
    return ReplaceInvalidUtf8(text, "?");
  }
  std::string ToUtf8(std::string_view text) const override {
    return ReplaceInvalidUtf8(text, kReplacementCharacter);
  }
};

}  // namespace imptable

#endif  // PLATFORM_TEXT_UTF8_ENCODING_H_
