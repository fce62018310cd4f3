#ifndef HOST_REGISTRY_REPLACED_FILE_H_
#define HOST_REGISTRY_REPLACED_FILE_H_

#include <string>
#include <string_view>
#include <system_error>

namespace imptable {

/// Writes a whole file, readable by its owner alone when it is new. It takes the place of the old
/// one only once it is complete, so a failure leaves the old one; a link to it, or to where it is
/// to be, stays. What is no plain file (a pipe, a terminal) is written to directly.
std::error_code ReplaceFile(const std::string& path, std::string_view bytes);

}  // namespace imptable

#endif  // HOST_REGISTRY_REPLACED_FILE_H_
