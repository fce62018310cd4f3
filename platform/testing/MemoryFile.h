#ifndef PLATFORM_TESTING_MEMORYFILE_H_
#define PLATFORM_TESTING_MEMORYFILE_H_

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "platform/files/FileSystem.h"

namespace imptable {

/// An open file whose bytes are in memory.
class MemoryFile : public InputFile {
 public:
  explicit MemoryFile(std::string bytes) : bytes_(std::move(bytes)) {}

  static std::unique_ptr<InputFile> Of(std::string_view bytes) {
    return std::make_unique<MemoryFile>(std::string(bytes));
  }

  std::size_t Read(char* buffer, std::size_t size, std::error_code& error) override {
    error.clear();
    const std::size_t count = bytes_.copy(buffer, size, at_);
    at_ += count;
    return count;
  }

 private:
  std::string bytes_;
  std::size_t at_ = 0;
};

}  // namespace imptable

#endif  // PLATFORM_TESTING_MEMORYFILE_H_
