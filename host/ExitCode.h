#ifndef HOST_EXIT_CODE_H_
#define HOST_EXIT_CODE_H_

namespace imptable {

/// How a command ended. Scripts rely on the numbers: never change.
enum class ExitCode {
  kDone = 0,
  kRunFailed = 1,  // "Etat" 3
  kUsage = 2,
  kMissing = 3,  // no such scenario, task, key or file
  kFault = 4,
  kInterrupted = 130,
};

}  // namespace imptable

#endif  // HOST_EXIT_CODE_H_
