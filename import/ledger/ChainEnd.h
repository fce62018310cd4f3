#ifndef IMPORT_LEDGER_CHAIN_END_H_
#define IMPORT_LEDGER_CHAIN_END_H_

#include "core/RunState.h"
#include "platform/files/FileSystem.h"

namespace imptable {

/// Declares the chain of a task's resumes over, then deletes its files: a fresh run is about to
/// begin.
/// @throws RuntimeFault  the file fault, when files are left that could be resumed.
void EndChain(FileSystem& files, const OpenedTask& task);

/// The same after a run that has done every line. Files that can't be deleted are left to the next
/// run, which ends the chain or says why it can't.
void EndDoneChain(FileSystem& files, const OpenedTask& task) noexcept;

/// Deletes the former run's ".ERR". When that fails, the import complains when it opens the file.
void DeleteErrorFile(FileSystem& files, const OpenedTask& task);

}  // namespace imptable

#endif  // IMPORT_LEDGER_CHAIN_END_H_
