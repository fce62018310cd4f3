#ifndef HOST_REGISTRY_COLUMN_ORDER_H_
#define HOST_REGISTRY_COLUMN_ORDER_H_

#include <vector>

#include "platform/registry/RegistryStore.h"

namespace imptable {

/// Whether a key holds one value per column of a task: its "Colonnes" or its "Champs".
bool IsColumnKey(const KeyPath& key);

/// Sorts the values of a key by their names as numbers; other names come last. A run reads "Champs"
/// in the order in which the registry lists its values.
void OrderByNumber(RegistryStore& store, const KeyPath& key);

/// The same for every column key that one of the edits writes to.
void OrderColumnsOf(RegistryStore& store, const std::vector<RegistryEdit>& edits);

}  // namespace imptable

#endif  // HOST_REGISTRY_COLUMN_ORDER_H_
