#ifndef HOST_REGISTRY_REPLACED_FILE_H_
#define HOST_REGISTRY_REPLACED_FILE_H_

#include <string>
#include <string_view>
#include <system_error>

namespace imptable {

/// Writes a whole file. A new file can be read by its owner alone. An old file is replaced only
/// once the new one is complete, so a failure leaves the old one. A link to the file stays a link,
/// even when the file is missing. A pipe or a terminal is written to directly.
std::error_code ReplaceFile(const std::string& path, std::string_view bytes);

}  // namespace imptable

#endif  // HOST_REGISTRY_REPLACED_FILE_H_
