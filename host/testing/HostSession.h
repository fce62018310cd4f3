#ifndef HOST_TESTING_HOST_SESSION_H_
#define HOST_TESTING_HOST_SESSION_H_

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "host/RunHost.h"
#include "platform/testing/ScopedVariable.h"
#include "platform/testing/TemporaryFolder.h"

namespace imptable {

/// Calls of the command line on one registry file in a folder of its own.
class HostSession {
 public:
  struct Result {
    int code = 0;
    std::string out;
    std::string err;
  };

  /// In English, so that the messages can be told apart from names.
  Result Run(std::vector<std::string> arguments, const std::string& input = {},
             const Terminal* terminal = nullptr) {
    arguments.insert(arguments.begin(), {"--registry", registry(), "--lang", "en"});
    return RunAsIs(arguments, input, terminal);
  }

  /// Without the global options.
  static Result RunAsIs(const std::vector<std::string>& arguments, const std::string& input = {},
                        const Terminal* terminal = nullptr) {
    std::istringstream in(input);
    std::ostringstream out;
    std::ostringstream err;
    Result result;
    result.code = RunHost(arguments, {in, out, err, terminal});
    result.out = out.str();
    result.err = err.str();
    return result;
  }

  std::string registry() const { return folder.path() + "registry.db"; }

  TemporaryFolder folder{testing::TempDir()};

 private:
  ScopedVariable locale_{"LC_ALL", "C"};
};

}  // namespace imptable

#endif  // HOST_TESTING_HOST_SESSION_H_
