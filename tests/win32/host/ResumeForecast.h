#ifndef TESTS_WIN32_HOST_RESUMEFORECAST_H_
#define TESTS_WIN32_HOST_RESUMEFORECAST_H_

#include <optional>
#include <string>

namespace imptable {

/// Foretells from a task's settings and files, as anybody could, whether a run that is to resume
/// would start afresh although the trace of the last run holds something.
/// @return the path of that trace; nullopt when the run may go ahead.
std::optional<std::string> TraceThatAResumeWouldLose(const std::string& scenario,
                                                     const std::string& task);

}  // namespace imptable

#endif  // TESTS_WIN32_HOST_RESUMEFORECAST_H_
