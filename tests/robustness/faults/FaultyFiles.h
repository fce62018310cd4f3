#ifndef TESTS_ROBUSTNESS_FAULTS_FAULTY_FILES_H_
#define TESTS_ROBUSTNESS_FAULTS_FAULTY_FILES_H_

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/files/FileSystem.h"
#include "tests/robustness/faults/FaultPlan.h"

namespace imptable {

/// Passes on to another file system what a fault plan doesn't hit, and counts the files that are
/// open. A file whose close is hit is closed all the same.
class FaultyFiles : public FileSystem {
 public:
  /// Both are borrowed; must outlive the files it opened.
  FaultyFiles(FileSystem& files, FaultPlan& plan) : files_(files), plan_(plan) {}

  int open_files() const { return open_files_; }

  /// The files that were written but never told to close, so that nobody learnt whether closing
  /// worked.
  const std::vector<std::string>& dropped() const { return dropped_; }
  void ForgetDropped() { dropped_.clear(); }

  std::string Locate(std::string_view path) const override { return files_.Locate(path); }
  using FileSystem::Query;
  std::optional<FileInfo> Query(const std::string& path, std::error_code& error) const override;
  std::unique_ptr<InputFile> OpenForReading(const std::string& path,
                                            std::error_code& error) override;
  std::unique_ptr<OutputFile> OpenForWriting(const std::string& path, WriteMode mode,
                                             std::error_code& error) override;
  std::error_code Remove(const std::string& path) override;
  std::error_code Replace(const std::string& from, const std::string& to) override;

 private:
  class Input;
  class Output;

  /// @return empty when the operation isn't hit.
  std::error_code Next(Operation operation, const std::string& path) const;

  /// The same for an operation that does nothing when the file doesn't exist.
  std::error_code NextOfExisting(Operation operation, const std::string& path) const;

  FileSystem& files_;
  FaultPlan& plan_;
  int open_files_ = 0;
  std::vector<std::string> dropped_;
};

}  // namespace imptable

#endif  // TESTS_ROBUSTNESS_FAULTS_FAULTY_FILES_H_
