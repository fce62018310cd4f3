#include "tests/drivers/LikePattern.h"

namespace imptable::scripted {

bool IsLike(std::string_view text, std::string_view pattern, char escape) {
  while (!pattern.empty()) {
    char wanted = pattern.front();
    pattern.remove_prefix(1);
    if (wanted == '%') {
      for (std::string_view rest = text;; rest.remove_prefix(1)) {
        if (IsLike(rest, pattern, escape)) return true;
        if (rest.empty()) return false;
      }
    }
    if (text.empty()) return false;
    const bool escaped = escape != '\0' && wanted == escape && !pattern.empty();
    if (escaped) {
      wanted = pattern.front();
      pattern.remove_prefix(1);
    }
    if ((escaped || wanted != '_') && wanted != text.front()) return false;
    text.remove_prefix(1);
  }
  return text.empty();
}

}  // namespace imptable::scripted
