#include <array>

#include "platform/text/NameFolding.h"
#include "platform/text/Utf16_win32.h"
#include "platform/windows/Windows_win32.h"

namespace imptable {

char32_t UpperCase(char32_t character) {
  const Utf16Character units(character);
  std::array<wchar_t, 4> upper;
  const int size = LCMapStringW(LOCALE_INVARIANT, LCMAP_UPPERCASE, units.data(), units.size(),
                                upper.data(), static_cast<int>(upper.size()));
  if (size != units.size()) return character;
  return FirstCharacter({upper.data(), static_cast<std::size_t>(size)});
}

}  // namespace imptable
