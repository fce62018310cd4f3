#ifndef CORE_RUN_FILE_H_
#define CORE_RUN_FILE_H_

#include <memory>
#include <string>
#include <string_view>

#include "platform/files/FileSystem.h"

namespace imptable {

/// A file that a run writes, without a buffer. Every failure throws a file fault that names the
/// path.
class RunFile {
 public:
  /// Creates the file, or empties it.
  /// @throws RuntimeFault
  static RunFile Create(FileSystem& files, const std::string& path);

  /// @throws RuntimeFault
  void Write(std::string_view bytes);

  /// Returns once the file has reached the disk. @throws RuntimeFault
  void Flush();

  /// @throws RuntimeFault
  void Close();

  const std::string& path() const { return path_; }

 private:
  RunFile(std::unique_ptr<OutputFile> file, std::string path);

  std::unique_ptr<OutputFile> file_;
  std::string path_;
};

}  // namespace imptable

#endif  // CORE_RUN_FILE_H_
