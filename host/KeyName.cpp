#include "host/KeyName.h"

#include "host/HostError.h"

namespace imptable {

void RequireName(const std::string& name) {
  if (name.empty() || name.find('\\') != std::string::npos) {
    throw HostError(ExitCode::kUsage, HostText::kBadName, {name});
  }
}

}  // namespace imptable
