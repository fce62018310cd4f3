#include "host/registry/KeyName.h"

#include "host/HostError.h"
#include "platform/text/Utf16.h"

namespace imptable {

void RequireName(const TextEncoding& encoding, const std::string& name) {
  if (name.empty() || name.find('\\') != std::string::npos) {
    throw HostError(ExitCode::kUsage, HostText::kBadName, {name});
  }
  const std::size_t length = Utf16Length(encoding.ToUtf8(name));
  if (length > kLongestKeyName) {
    throw HostError(ExitCode::kUsage, HostText::kLongName,
                    {name, std::to_string(length), std::to_string(kLongestKeyName)});
  }
}

}  // namespace imptable
