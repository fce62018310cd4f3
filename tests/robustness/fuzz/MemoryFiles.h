#ifndef TESTS_ROBUSTNESS_FUZZ_MEMORY_FILES_H_
#define TESTS_ROBUSTNESS_FUZZ_MEMORY_FILES_H_

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "platform/files/FileSystem.h"
#include "tests/robustness/fuzz/MemoryInput.h"

namespace imptable {

/// Files in memory, found only by exactly their path. An open file can be neither removed nor
/// replaced, as on the system that is strictest about that.
class MemoryFiles : public FileSystem {
 public:
  std::map<std::string, std::string> files;

  std::string Locate(std::string_view path) const override { return std::string(path); }

  using FileSystem::Query;
  std::optional<FileInfo> Query(const std::string& path, std::error_code& error) const override {
    error.clear();
    const auto found = files.find(path);
    if (found == files.end()) return std::nullopt;
    return FileInfo{.size = found->second.size()};
  }

  std::unique_ptr<InputFile> OpenForReading(const std::string& path,
                                            std::error_code& error) override {
    const auto found = files.find(path);
    if (found == files.end()) {
      error = std::make_error_code(std::errc::no_such_file_or_directory);
      return nullptr;
    }
    error.clear();
    return std::make_unique<Input>(found->second, open_[path]);
  }

  std::unique_ptr<OutputFile> OpenForWriting(const std::string& path, WriteMode mode,
                                             std::error_code& error) override {
    error.clear();
    std::string& bytes = files[path];
    if (mode == WriteMode::kTruncate) bytes.clear();
    return std::make_unique<Output>(bytes, open_[path]);
  }

  std::error_code Remove(const std::string& path) override {
    if (open_[path] > 0) return std::make_error_code(std::errc::permission_denied);
    if (files.erase(path) > 0) return {};
    return std::make_error_code(std::errc::no_such_file_or_directory);
  }

  std::error_code Replace(const std::string& from, const std::string& to) override {
    const auto found = files.find(from);
    if (found == files.end()) return std::make_error_code(std::errc::no_such_file_or_directory);
    if (open_[from] + open_[to] > 0) return std::make_error_code(std::errc::permission_denied);
    std::string bytes = std::move(found->second);
    files.erase(found);
    files[to] = std::move(bytes);
    return {};
  }

 private:
  /// Counts a file as open while it lives.
  class Use {
   public:
    explicit Use(int& uses) : uses_(uses) { ++uses_; }
    Use(const Use&) = delete;
    Use& operator=(const Use&) = delete;
    ~Use() { --uses_; }

   private:
    int& uses_;
  };

  class Input : public MemoryInput {
   public:
    Input(std::string bytes, int& uses) : MemoryInput(std::move(bytes)), use_(uses) {}

   private:
    Use use_;
  };

  class Output : public OutputFile {
   public:
    Output(std::string& bytes, int& uses) : bytes_(bytes), use_(std::in_place, uses) {}
    std::error_code Write(std::string_view bytes) override {
      bytes_ += bytes;
      return {};
    }
    std::error_code Flush() override { return {}; }
    std::error_code Close() override {
      use_.reset();
      return {};
    }

   private:
    std::string& bytes_;
    std::optional<Use> use_;
  };

  std::map<std::string, int> open_;
};

}  // namespace imptable

#endif  // TESTS_ROBUSTNESS_FUZZ_MEMORY_FILES_H_
