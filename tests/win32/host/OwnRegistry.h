#ifndef TESTS_WIN32_HOST_OWNREGISTRY_H_
#define TESTS_WIN32_HOST_OWNREGISTRY_H_

#include <optional>
#include <string>
#include <vector>

#include "platform/registry/RegistryStore.h"

namespace imptable {

// The system's registry by its own calls, for a host that shares nothing with the component. Paths,
// names and the data of text types are in UTF-8.
// @throws Failure  when the system refuses.

/// From now on HKEY_LOCAL_MACHINE and HKEY_CURRENT_USER are, for this process, keys of this name
/// that several processes may share. New ones hold nothing but the user's decimal separator.
void UseOwnRegistry(const std::string& name, const std::string& decimal_separator);

/// Deletes the keys of every name.
void ForgetOwnRegistries();

bool KeyExists(const KeyPath& key);
std::optional<RegistryValue> ReadValue(const KeyPath& key, const std::string& name);

/// As text, numbers in decimal; empty when there is no such value.
std::string ReadShown(const KeyPath& key, const std::string& name);

/// In their order. Deleting what isn't there is no error.
void Apply(const std::vector<RegistryEdit>& edits);

}  // namespace imptable

#endif  // TESTS_WIN32_HOST_OWNREGISTRY_H_
