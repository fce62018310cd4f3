#ifndef TESTS_WIN32_HOST_FAILURE_H_
#define TESTS_WIN32_HOST_FAILURE_H_

#include <stdexcept>
#include <string>

#include "host/ExitCode.h"

namespace imptable {

/// Ends the program: its exit code and what its one line on standard error says, in UTF-8.
class Failure : public std::runtime_error {
 public:
  Failure(ExitCode code, const std::string& text) : std::runtime_error(text), code_(code) {}
  ExitCode code() const noexcept { return code_; }

 private:
  ExitCode code_;
};

}  // namespace imptable

#endif  // TESTS_WIN32_HOST_FAILURE_H_
