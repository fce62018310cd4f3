#ifndef HOST_HOST_ERROR_H_
#define HOST_HOST_ERROR_H_

#include <exception>
#include <string>
#include <utility>
#include <vector>

#include "host/ExitCode.h"
#include "host/HostTexts.h"

namespace imptable {

/// Ends a command: the exit code and what the one line on standard error says. The line is made
/// where it is printed, once the language is known.
class HostError : public std::exception {
 public:
  HostError(ExitCode code, HostText text, std::vector<std::string> arguments = {})
      : code_(code), text_(text), arguments_(std::move(arguments)) {}

  ExitCode code() const noexcept { return code_; }
  HostText text() const noexcept { return text_; }
  const std::vector<std::string>& arguments() const noexcept { return arguments_; }
  const char* what() const noexcept override { return "the command can't be carried out"; }

 private:
  ExitCode code_;
  HostText text_;
  std::vector<std::string> arguments_;
};

}  // namespace imptable

#endif  // HOST_HOST_ERROR_H_
