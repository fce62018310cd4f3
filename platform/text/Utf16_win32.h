#ifndef PLATFORM_TEXT_UTF16_WIN32_H_
#define PLATFORM_TEXT_UTF16_WIN32_H_

#include <array>
#include <cstddef>
#include <string_view>

namespace imptable {

/// One character in the form of the system's W functions.
class Utf16Character {
 public:
  explicit constexpr Utf16Character(char32_t character) {
    if (character < 0x10000) {
      units_[0] = static_cast<wchar_t>(character);
      return;
    }
    units_[0] = static_cast<wchar_t>(0xD800U + ((character - 0x10000U) >> 10));
    units_[1] = static_cast<wchar_t>(0xDC00U + (character & 0x3FFU));
    size_ = 2;
  }

  constexpr const wchar_t* data() const { return units_.data(); }
  constexpr int size() const { return size_; }

 private:
  std::array<wchar_t, 2> units_{};
  int size_ = 1;
};

/// @param units  not empty, no lone surrogate.
/// @return the first character.
constexpr char32_t FirstCharacter(std::wstring_view units) {
  const char32_t first = units[0];
  if (first < 0xD800 || first > 0xDFFF) return first;
  return 0x10000U + ((first - 0xD800U) << 10) + (units[1] - 0xDC00U);
}

}  // namespace imptable

#endif  // PLATFORM_TEXT_UTF16_WIN32_H_
