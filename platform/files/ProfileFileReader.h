#ifndef PLATFORM_FILES_PROFILE_FILE_READER_H_
#define PLATFORM_FILES_PROFILE_FILE_READER_H_

#include "platform/files/FileSystem.h"
#include "platform/files/ProfileFile.h"
#include "platform/text/TextEncoding.h"

namespace imptable {

/// Reads initialisation files as Windows' profile-string reader does.
class ProfileFileReader : public ProfileFile {
 public:
  /// Both are borrowed.
  ProfileFileReader(FileSystem& files, const TextEncoding& encoding)
      : files_(files), encoding_(encoding) {}

  std::string ReadString(const std::string& path, std::string_view section, std::string_view key,
                         std::string_view fallback, std::size_t most) const override;

 private:
  FileSystem& files_;
  const TextEncoding& encoding_;
};

}  // namespace imptable

#endif  // PLATFORM_FILES_PROFILE_FILE_READER_H_
