#ifndef PLATFORM_FILES_FILE_SYSTEM_H_
#define PLATFORM_FILES_FILE_SYSTEM_H_

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace imptable {

/// A file opened for reading; closed with its owner.
class InputFile {
 public:
  virtual ~InputFile() = default;

  /// @return the number of bytes read, 0 at the end of the file or when `error` is set.
  virtual std::size_t Read(char* buffer, std::size_t size, std::error_code& error) = 0;

  /// Moves on by `bytes`. Beyond the end there is nothing more to read.
  virtual std::error_code Skip(std::uint64_t bytes);
};

/// A file opened for writing. Nothing is buffered: a successful Write has reached the operating
/// system. Closed with its owner, but only Close() tells whether that worked.
class OutputFile {
 public:
  virtual ~OutputFile() = default;
  virtual std::error_code Write(std::string_view bytes) = 0;

  /// Returns once what was written has reached the disk.
  virtual std::error_code Flush() = 0;
  virtual std::error_code Close() = 0;
};

enum class WriteMode { kTruncate, kAppend };

struct FileInfo {
  std::uint64_t size = 0;  // bytes
  bool is_file = true;     // a file of data: no directory, pipe, socket or device

  /// When it was last changed, in seconds since 1970 UTC.
  std::int64_t modified = 0;
};

/// Files by path, in the system's code page. Errors are values of std::generic_category().
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  /// @return the path of the file that the system finds under this name. That is the path itself
  /// when it exists. Else, on systems that tell case apart, it is the first file of the directory
  /// whose name differs in case only. Else it is the path itself.
  virtual std::string Locate(std::string_view path) const = 0;

  /// @return nullopt when there is no such file. Also nullopt when it can't be looked at: then
  /// `error` is set.
  virtual std::optional<FileInfo> Query(const std::string& path, std::error_code& error) const = 0;

  /// For callers that treat a file that can't be looked at like a missing one.
  std::optional<FileInfo> Query(const std::string& path) const {
    std::error_code error;
    return Query(path, error);
  }

  virtual std::unique_ptr<InputFile> OpenForReading(const std::string& path,
                                                    std::error_code& error) = 0;

  /// Creates the file when it doesn't exist. Where files have owners, kTruncate opens regular files
  /// only and follows no symbolic link; kAppend follows only links that this user or the
  /// administrator made. The error for any other link is too_many_symbolic_link_levels.
  virtual std::unique_ptr<OutputFile> OpenForWriting(const std::string& path, WriteMode mode,
                                                     std::error_code& error) = 0;

  virtual std::error_code Remove(const std::string& path) = 0;

  /// Renames `from` to `to` in the same directory. A file that `to` already names is replaced in
  /// one step. On success the change has reached the disk.
  virtual std::error_code Replace(const std::string& from, const std::string& to) = 0;
};

std::unique_ptr<FileSystem> SystemFileSystem();

/// The line end of text files written for the user: CR LF on Windows, LF elsewhere.
std::string_view SystemLineEnd();

/// The separator that a directory setting ends with: "\" on Windows, "/" elsewhere.
char SystemPathSeparator();

}  // namespace imptable

#endif  // PLATFORM_FILES_FILE_SYSTEM_H_
