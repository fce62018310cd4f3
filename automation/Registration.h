#ifndef AUTOMATION_REGISTRATION_H_
#define AUTOMATION_REGISTRATION_H_

#include <string>

#include "automation/AutomationApi.h"

namespace imptable {

/// Where classes are registered; borrowed keys.
struct RegistrationRoots {
  HKEY machine = HKEY_CLASSES_ROOT;
  HKEY user = HKEY_CURRENT_USER;  // whose Software\Classes is meant
};

/// Registers the class and the type library of a component for the machine. Where the machine's
/// keys can't be written, registers them for the user alone. A second registration changes nothing.
/// @param path  full path of the DLL.
/// @return S_OK, or why it failed. After a failure nothing of what it wrote is left.
/// @throws std::bad_alloc
HRESULT RegisterComponent(const std::wstring& path, const RegistrationRoots& roots = {});

/// Removes what RegisterComponent writes, and nothing that belongs to another component. It isn't a
/// failure when nothing is registered.
/// @return S_OK, or why something is still there.
/// @throws std::bad_alloc
HRESULT UnregisterComponent(const RegistrationRoots& roots = {});

}  // namespace imptable

#endif  // AUTOMATION_REGISTRATION_H_
