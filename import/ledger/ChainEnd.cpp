#include "import/ledger/ChainEnd.h"

#include <exception>
#include <string>
#include <string_view>

#include "core/FileLook.h"
#include "import/ledger/ResumeChain.h"
#include "import/ledger/TaskFiles.h"

namespace imptable {
namespace {

/// Deletes a side file, or empties it where it can't be deleted. @return whether one of these did.
bool Discard(FileSystem& files, const OpenedTask& task, std::string_view extension) {
  const std::string path = files.Locate(SideFilePath(task, extension));
  if (!RemoveIfAny(files, path)) return true;
  // Emptied it is as good as deleted.
  std::error_code opening;
  const auto file = files.OpenForWriting(path, WriteMode::kTruncate, opening);
  return file && !file->Close();
}

void DeleteChain(FileSystem& files, const OpenedTask& task) {
  ResumeChain chain(files, SideFilePath(task, kChainExtension));
  const bool trace_is_gone = Discard(files, task, kTraceExtension);
  Discard(files, task, kRejectedExtension);
  // With the trace option that trace alone would be resumed.
  if (!trace_is_gone && task.trace_option == Flag::kOn) {
    chain.Void();
  } else {
    chain.Remove();
  }
}

}  // namespace

void EndChain(FileSystem& files, const OpenedTask& task) {
  ResumeChain chain(files, SideFilePath(task, kChainExtension));
  // First of all, in one step: whenever the run dies, nothing half deleted is resumed.
  if (chain.state() == ResumeChain::State::kOpen) chain.Void();
  DeleteChain(files, task);
}

void EndDoneChain(FileSystem& files, const OpenedTask& task) noexcept {
  try {
    EndChain(files, task);
    return;
  } catch (const std::exception&) {
    // Deleting may do where declaring it over didn't.
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
