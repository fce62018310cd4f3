#ifndef HOST_TASKS_SHOWN_PASSWORD_H_
#define HOST_TASKS_SHOWN_PASSWORD_H_

#include <set>
#include <string>
#include <string_view>

#include "platform/registry/RegistryStore.h"

namespace imptable {

// All in UTF-8.

/// Whether a task's value of this name is its password; a subkey before the name doesn't count.
bool IsPasswordName(std::string_view name);

/// The password in a form that anybody may see. An empty text and a reference to a variable stay as
/// they are; anything else is hidden.
std::string HiddenForm(const RegistryValue& password);

/// The variables of a scenario that its tasks take their passwords from.
class PasswordVariables {
 public:
  PasswordVariables(const RegistryStore& store, const std::string& scenario);
  bool Include(std::string_view name) const;

 private:
  std::set<std::string> folded_names_;
};

}  // namespace imptable

#endif  // HOST_TASKS_SHOWN_PASSWORD_H_
