#ifndef TESTS_ROBUSTNESS_FUZZ_MEMORY_INPUT_H_
#define TESTS_ROBUSTNESS_FUZZ_MEMORY_INPUT_H_

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>

#include "platform/files/FileSystem.h"

namespace imptable {

/// A file in memory. Each read gives at most the bytes of the next step; the steps repeat.
class MemoryInput : public InputFile {
 public:
  /// @param steps  one byte a step: the read gives as many bytes as the byte says and one more.
  /// When empty, a read gives all that it is asked for.
  explicit MemoryInput(std::string bytes, std::string_view steps = {})
      : bytes_(std::move(bytes)), steps_(steps) {}

  std::size_t Read(char* buffer, std::size_t size, std::error_code& error) override {
    error.clear();
    std::size_t most = size;
    if (!steps_.empty()) {
      const auto step = static_cast<unsigned char>(steps_[step_++ % steps_.size()]);
      most = std::min(most, std::size_t{step} + 1);
    }
    const std::size_t got = std::min(most, bytes_.size() - at_);
    std::memcpy(buffer, bytes_.data() + at_, got);
    at_ += got;
    return got;
  }

 private:
  std::string bytes_;
  std::string steps_;
  std::size_t at_ = 0;
  std::size_t step_ = 0;
};

}  // namespace imptable

#endif  // TESTS_ROBUSTNESS_FUZZ_MEMORY_INPUT_H_
