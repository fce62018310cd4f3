#include "import/ledger/ChainEnd.h"

#include <exception>
#include <string>
#include <string_view>

#include "core/FileLook.h"
#include "import/ledger/ResumeChain.h"
#include "import/ledger/TaskFiles.h"

namespace imptable {
namespace {

/// Deletes a side file, or empties it when it can't be deleted. @return whether either worked.
bool Discard(FileSystem& files, const OpenedTask& task, std::string_view extension) {
  const std::string path = files.Locate(SideFilePath(task, extension));
  if (!RemoveIfAny(files, path)) return true;
  // An empty file is as good as a deleted one.
  std::error_code opening;
  const auto file = files.OpenForWriting(path, WriteMode::kTruncate, opening);
  return file && !file->Close();
}

void DeleteChain(FileSystem& files, const OpenedTask& task) {
  ResumeChain chain(files, SideFilePath(task, kChainExtension));
  const bool trace_is_gone = Discard(files, task, kTraceExtension);
  Discard(files, task, kRejectedExtension);
  // With the trace option, the trace that is left would be enough for a resume.
  if (!trace_is_gone && task.trace_option == Flag::kOn) {
    chain.Void();
  } else {
    chain.Remove();
  }
}

}  // namespace

void EndChain(FileSystem& files, const OpenedTask& task) {
  ResumeChain chain(files, SideFilePath(task, kChainExtension));
  // Declare the chain over first, in one step: a run that dies later leaves no half-deleted chain
  // to resume.
  if (chain.state() == ResumeChain::State::kOpen) chain.Void();
  DeleteChain(files, task);
}

void EndDoneChain(FileSystem& files, const OpenedTask& task) noexcept {
  try {
    EndChain(files, task);
    return;
  } catch (const std::exception&) {
    // The chain couldn't be declared over, but deleting it may still work.
  }
  try {
    DeleteChain(files, task);
  } catch (const std::exception&) {
    return;
  }
}

void DeleteErrorFile(FileSystem& files, const OpenedTask& task) {
  static_cast<void>(files.Remove(files.Locate(SideFilePath(task, kErrorExtension))));
}

}  // namespace imptable
