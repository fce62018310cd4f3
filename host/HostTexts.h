#ifndef HOST_HOST_TEXTS_H_
#define HOST_HOST_TEXTS_H_

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text/TextEncoding.h"

namespace imptable {

enum class Language { kFrench, kEnglish };

/// "fr" or "en", as --lang has it.
std::optional<Language> LanguageNamed(std::string_view name);

/// What is added to a message number in this language.
std::int32_t OffsetOf(Language language);

enum class HostText {
#define HOST_TEXT(name, french, english) name,
#include "host/HostTexts.inc"
#undef HOST_TEXT
};

/// What the command line says, in one language and in the system's code page.
class HostTexts {
 public:
  /// @param encoding  borrowed.
  HostTexts(Language language, const TextEncoding& encoding)
      : language_(language), encoding_(&encoding) {}

  Language language() const { return language_; }
  const TextEncoding& encoding() const { return *encoding_; }

  /// @param arguments  what stands for %1, %2 and so on, in the system's code page.
  std::string Text(HostText text, const std::vector<std::string>& arguments = {}) const;

  /// The number with the language's mark between thousands.
  std::string Number(std::int64_t number) const;

  /// With one digit after the language's decimal mark.
  std::string Decimal(double number) const;

 private:
  Language language_;
  const TextEncoding* encoding_;
};

}  // namespace imptable

#endif  // HOST_HOST_TEXTS_H_
