#include "host/registry/NewRegistry.h"

#include "core/StoredValue.h"

namespace imptable {

std::vector<RegistryEdit> FirstRegistryEdits(Language language) {
  constexpr auto kSet = RegistryEdit::Action::kSetValue;
  return {{kSet, {kHkeyCurrentUser, "Control Panel\\International"}, "sDecimal", TextValue(".")},
          {kSet,
           {kHkeyLocalMachine, "SOFTWARE\\KALDO\\Configuration"},
           "Lang",
           NumberValue(OffsetOf(language))}};
}

}  // namespace imptable
