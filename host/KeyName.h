#ifndef HOST_KEY_NAME_H_
#define HOST_KEY_NAME_H_

#include <string>

namespace imptable {

/// @throws HostError  wrong usage, when no registry key can have this name.
void RequireName(const std::string& name);

}  // namespace imptable

#endif  // HOST_KEY_NAME_H_
