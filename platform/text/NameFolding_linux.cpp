#include <locale.h>
#include <wctype.h>

#include <stdexcept>

#include "platform/text/NameFolding.h"

namespace imptable {
namespace {

locale_t Utf8Locale() {
  static const locale_t locale = [] {
    const locale_t created = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    if (created == nullptr) throw std::runtime_error("The system has no C.UTF-8 locale.");
    return created;
  }();
  return locale;
}

}  // namespace

char32_t UpperCase(char32_t character) {
  return static_cast<char32_t>(towupper_l(static_cast<wint_t>(character), Utf8Locale()));
}

}  // namespace imptable
