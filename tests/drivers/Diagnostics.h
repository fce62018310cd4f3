#ifndef TESTS_DRIVERS_DIAGNOSTICS_H_
#define TESTS_DRIVERS_DIAGNOSTICS_H_

#include <cstddef>
#include <string>
#include <vector>

#include "tests/drivers/DriverApi.h"

namespace imptable::scripted {

struct Diagnostic {
  std::string state;
  SQLINTEGER native = 0;
  std::string text;
};

/// What went wrong with the last call on one handle, oldest first.
class DiagnosticQueue {
 public:
  void Clear() {
    if (!queue_.empty()) {
      queue_.clear();
      next_ = 0;
    }
  }
  void Push(Diagnostic diagnostic) { queue_.push_back(std::move(diagnostic)); }
  /// @return nullptr when all have been taken; valid until the next Clear or Push.
  const Diagnostic* Pop() { return next_ < queue_.size() ? &queue_[next_++] : nullptr; }

 private:
  std::vector<Diagnostic> queue_;
  std::size_t next_ = 0;
};

}  // namespace imptable::scripted

#endif  // TESTS_DRIVERS_DIAGNOSTICS_H_
