#include "host/registry/RegistryFailureText.h"

namespace imptable {
namespace {

HostText SentenceFor(RegistryFileFault fault) {
  switch (fault) {
    case RegistryFileFault::kNotARegistry:
      return HostText::kRegistryNotARegistry;
    case RegistryFileFault::kNewerFormat:
      return HostText::kRegistryNewerFormat;
    case RegistryFileFault::kDamaged:
      return HostText::kRegistryDamaged;
    case RegistryFileFault::kNoRights:
      return HostText::kRegistryNoRights;
    case RegistryFileFault::kDiskFull:
      return HostText::kRegistryDiskFull;
    case RegistryFileFault::kLocked:
      return HostText::kRegistryLocked;
    case RegistryFileFault::kUnusable:
      break;
  }
  return HostText::kRegistryUnusable;
}

}  // namespace

std::string RegistryFailureText(const RegistryFileError& error, const HostTexts& texts) {
  const std::string reason = error.detail().empty() ? "" : " (" + error.detail() + ')';
  return texts.Text(SentenceFor(error.fault()), {error.path(), reason});
}

}  // namespace imptable
