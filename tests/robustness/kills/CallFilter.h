#ifndef TESTS_ROBUSTNESS_KILLS_CALLFILTER_H_
#define TESTS_ROBUSTNESS_KILLS_CALLFILTER_H_

#include <linux/filter.h>

#include <vector>

namespace imptable {

/// A seccomp program that stops a traced process before each call that the world outside can see:
/// files opened for writing, written, cut, flushed, renamed, removed; a server connected to, sent
/// to, read from; the end of the process.
std::vector<sock_filter> CallFilter();

/// For a process that is about to execute a program: async-signal-safe.
bool InstallFilter(const std::vector<sock_filter>& filter);

}  // namespace imptable

#endif  // TESTS_ROBUSTNESS_KILLS_CALLFILTER_H_
