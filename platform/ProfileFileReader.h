#ifndef PLATFORM_PROFILE_FILE_READER_H_
#define PLATFORM_PROFILE_FILE_READER_H_

#include "platform/FileSystem.h"
#include "platform/ProfileFile.h"

namespace imptable {

/// Reads initialisation files as the other platform's profile-string reader does.
class ProfileFileReader : public ProfileFile {
 public:
  /// @param files  borrowed.
  explicit ProfileFileReader(FileSystem& files) : files_(files) {}

  std::string ReadString(const std::string& path, std::string_view section, std::string_view key,
                         std::string_view fallback, std::size_t most) const override;

 private:
  FileSystem& files_;
};

}  // namespace imptable

#endif  // PLATFORM_PROFILE_FILE_READER_H_
