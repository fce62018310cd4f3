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

/// Registers the class and the type library of a component, for the machine or, where that may not
/// be written, for the user alone. To do it again changes nothing.
/// @param path  full path of the DLL.
/// @return S_OK; else why it failed, and then what it wrote is gone again.
/// @throws std::bad_alloc
HRESULT RegisterComponent(const std::wstring& path, const RegistrationRoots& roots = {});

/// Removes all of that again, and nothing that belongs to another component. Not to be registered
/// is no failure.
/// @return S_OK; else why something is still there.
/// @throws std::bad_alloc
HRESULT UnregisterComponent(const RegistrationRoots& roots = {});

}  // namespace imptable

#endif  // AUTOMATION_REGISTRATION_H_
