#ifndef CORE_MESSAGE_CATALOGUE_H_
#define CORE_MESSAGE_CATALOGUE_H_

#include <cstdint>
#include <string>
#include <vector>

#include "platform/text/TextEncoding.h"

namespace imptable {

/// Language offsets, as the host passes them: never change.
inline constexpr std::int32_t kFrenchOffset = 0;
inline constexpr std::int32_t kEnglishOffset = 10000;

/// A name for every text. Its value is the number of the French text.
enum class Message : std::int32_t {
#define MESSAGE(name, number, french, english) name = (number),
#include "resources/Messages.inc"
#undef MESSAGE
};

inline constexpr std::int32_t kMessageCount = 180;

/// Every text that a user sees, in both languages: numbers 1 to 180 French, 10001 to 10180 English.
class MessageCatalogue {
 public:
  /// Converts every text to the code page of `encoding`, once.
  explicit MessageCatalogue(const TextEncoding& encoding);

  /// @return the text exactly as stored, blanks included; valid as long as the catalogue.
  /// @throws RuntimeFault  overflow when number + language_offset doesn't fit 32 bits; resource not
  /// found for a number outside 1..180 or another offset. There is no fallback to the other
  /// language.
  const std::string& Text(std::int32_t number, std::int32_t language_offset) const;

 private:
  std::vector<std::string> french_;   // index = number - 1
  std::vector<std::string> english_;  // index = number - 1
};

}  // namespace imptable

#endif  // CORE_MESSAGE_CATALOGUE_H_
