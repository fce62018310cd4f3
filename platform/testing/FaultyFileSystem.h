#ifndef PLATFORM_TESTING_FAULTYFILESYSTEM_H_
#define PLATFORM_TESTING_FAULTYFILESYSTEM_H_

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/files/FileSystem.h"

namespace imptable {

enum class FileOperation {
  kOpenRead,
  kOpenWrite,
  kRead,
  kWrite,
  kFlush,
  kClose,
  kRemove,
  kReplace
};

/// Passes everything on to another file system, except what a test wants to fail; keeps a log.
/// Must outlive the files it opened.
class FaultyFileSystem : public FileSystem {
 public:
  /// @param files  borrowed.
  explicit FaultyFileSystem(FileSystem& files) : files_(files) {}

  /// Fails the nth operation of this kind, counted from 1 for the next one; those before and after
  /// it succeed. It isn't passed on, except that a file whose close fails is closed all the same.
  void Fail(FileOperation operation, int nth, std::error_code error);

  /// Fails the nth operation of this kind, counted in the same way, and all those after it.
  void FailFrom(FileOperation operation, int nth, std::error_code error);

  /// One line an operation, failed ones included, in the order of the calls: "open read PATH",
  /// "open write PATH", "open append PATH", "read PATH N" (bytes read), "write PATH N" (bytes
  /// given), "flush PATH", "close PATH" (only an explicit one), "remove PATH", "replace PATH by
  /// PATH". Locate and Query leave no line.
  const std::vector<std::string>& log() const { return log_; }

  std::string Locate(std::string_view path) const override { return files_.Locate(path); }
  using FileSystem::Query;
  std::optional<FileInfo> Query(const std::string& path, std::error_code& error) const override {
    return files_.Query(path, error);
  }
  std::unique_ptr<InputFile> OpenForReading(const std::string& path,
                                            std::error_code& error) override;
  std::unique_ptr<OutputFile> OpenForWriting(const std::string& path, WriteMode mode,
                                             std::error_code& error) override;
  std::error_code Remove(const std::string& path) override;
  std::error_code Replace(const std::string& from, const std::string& to) override;

 private:
  class Input;
  class Output;
  struct Fault {
    FileOperation operation;
    int countdown;
    bool persists;
    std::error_code error;
  };

  std::error_code Next(FileOperation operation);

  FileSystem& files_;
  std::vector<Fault> faults_;
  std::vector<std::string> log_;
};

}  // namespace imptable

#endif  // PLATFORM_TESTING_FAULTYFILESYSTEM_H_
