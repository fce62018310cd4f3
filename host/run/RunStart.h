#ifndef HOST_RUN_RUN_START_H_
#define HOST_RUN_RUN_START_H_

#include <cstdint>
#include <optional>
#include <string>

#include "host/CommandRequest.h"
#include "host/HostContext.h"

namespace imptable {

/// How a run is to begin.
struct RunStart {
  bool resumes = false;

  /// What is given up by beginning afresh, in words; empty when nothing is.
  std::optional<std::string> given_up = {};
};

/// Decides by what the last run left. Changes no file, but copies rejected lines that are given up.
/// @throws HostError  missing, when the run can't begin as asked for: names what is missing and
/// what to do; fault, for damaged files, or when the copy can't be made.
RunStart DecideStart(HostContext& context, const CommandRequest& request);

}  // namespace imptable

#endif  // HOST_RUN_RUN_START_H_
