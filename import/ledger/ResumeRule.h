#ifndef IMPORT_LEDGER_RESUME_RULE_H_
#define IMPORT_LEDGER_RESUME_RULE_H_

#include <string>

#include "core/RunState.h"
#include "platform/files/FileSystem.h"

namespace imptable {

/// Whether a run that asks for a resume resumes: the task's resume option is on, and its trace and
/// rejected-lines files both hold something, or there is the state of an open chain of resumes;
/// with the trace option the trace alone is enough. Never after a chain that is over.
/// @throws RuntimeFault  the file fault, when a file that decides can't be looked at.
bool CanResume(FileSystem& files, const RunState& run);

/// Whether the file exists and holds something, as far as it can be looked at.
bool IsNotEmpty(const FileSystem& files, const std::string& path);

}  // namespace imptable

#endif  // IMPORT_LEDGER_RESUME_RULE_H_
