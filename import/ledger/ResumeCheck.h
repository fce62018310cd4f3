#ifndef IMPORT_LEDGER_RESUME_CHECK_H_
#define IMPORT_LEDGER_RESUME_CHECK_H_

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/RunState.h"
#include "import/ledger/ChainFile.h"
#include "platform/files/FileSystem.h"

namespace imptable {

/// Whether a run that asks for a resume resumes. The task's resume option has to be on. Then an
/// open chain is enough, or a trace and rejected lines that both hold something. With the trace
/// option the trace alone is enough. A chain that is over is never resumed.
/// @throws RuntimeFault  the file fault, when one of these files can't be looked at.
bool CanResume(FileSystem& files, const RunState& run);

/// Whether the file exists and holds something; false when it can't be looked at.
bool IsNotEmpty(const FileSystem& files, const std::string& path);

/// What the files say of the chain that a resume would go on with.
struct ChainFindings {
  std::int32_t reached = 0;         // the last source line that the chain came to
  std::string reached_path;         // the file that says so
  std::int32_t rejections = 0;      // in the last run's trace
  std::int32_t rejected_lines = 0;  // in its rejected-lines file
  std::string trace_path;
  std::string rejected_path;
  std::string chain_path;
  ChainMark mark = ChainMark::kNone;  // how the last run ended

  /// The chain's file alone tells which lines are rejected, and their texts: the last run died
  /// after it emptied its rejected lines and before it emptied its trace.
  bool rejected_lines_are_in_chain = false;

  std::optional<ChainIdentity> identity;  // nullopt for a chain that an older version began
};

/// @throws RuntimeFault  for a damaged chain or trace, naming file and line; for a file that isn't
/// a chain's; file faults.
ChainFindings FindChain(FileSystem& files, const RunState& run);

/// Why a resume can't go on with the chain that it finds.
struct ResumeObstacle {
  enum class Kind : std::uint8_t {
    kOtherTask,      // another task has begun it
    kOtherTarget,    // the task had another value for `setting`
    kOtherSource,    // the source isn't the chain's
    kRejectedLines,  // the rejected-lines file has lines too many or too few
  };
  Kind kind;
  std::string setting = {};  // of kOtherTarget, by its name in the registry
  std::string before = {};   // the task or value that the chain was begun with
  std::string now = {};
  SourceIdentity source_now = {};
};

/// Compares the chain with the run as it is now. The source isn't looked at when it is missing or
/// empty, or when the run takes a changed one.
/// @return nullopt when nothing is in the way.
/// @throws RuntimeFault  the file fault.
std::optional<ResumeObstacle> FindObstacle(FileSystem& files, const RunState& run,
                                           const ChainFindings& chain);

/// The obstacle as a fault that names the files.
RuntimeFault FaultOf(const ResumeObstacle& obstacle, const ChainFindings& chain);

}  // namespace imptable

#endif  // IMPORT_LEDGER_RESUME_CHECK_H_
