#include "import/SideFiles.h"

#include <utility>
#include <vector>

#include "import/ResumeChain.h"
#include "import/TaskFiles.h"
#include "import/TraceLine.h"
#include "plugin/core/FileLook.h"

namespace imptable {
namespace {

constexpr std::size_t kCopyBytes = std::size_t{64} << 10U;

/// A longer line isn't copied just to save one call.
constexpr std::size_t kMostJoinedBytes = std::size_t{64} << 10U;

// Numbers of catalogue texts: never change.
constexpr std::int32_t kMessageLine = 157;
constexpr std::int32_t kMessageBadRecord = 160;
constexpr std::int32_t kMessageBadRecordEnd = 161;

}  // namespace

std::unique_ptr<LineReader> SideFiles::OpenForReading(const std::string& path) {
  FileSystem& files = module_.platform.files;
  const std::string located = files.Locate(path);
  std::error_code error;
  auto file = files.OpenForReading(located, error);
  if (!file) throw FileFault(error, located);
  return std::make_unique<LineReader>(std::move(file), located, module_.platform.encoding.IsUtf8());
}

void SideFiles::CopyFile(const std::string& from, const std::string& to) {
  FileSystem& files = module_.platform.files;
  const std::string located = files.Locate(from);
  if (!LookAt(files, located)) return;
  std::error_code error;
  const auto source = files.OpenForReading(located, error);
  if (!source) throw FileFault(error, located);
  RunFile copy = RunFile::Create(files, to);
  std::vector<char> block(kCopyBytes);
  for (;;) {
    const std::size_t got = source->Read(block.data(), block.size(), error);
    if (error) throw FileFault(error, located);
    if (got == 0) break;
    copy.Write({block.data(), got});
  }
  copy.Close();
}

void SideFiles::AdvanceChain() {
  const RunState& run = module_.run;
  ResumeChain chain(module_.platform.files, SideFilePath(run, kChainExtension));
  chain.Advance(SideFilePath(run, kTraceExtension), SideFilePath(run, kRejectedExtension),
                module_.platform.encoding.IsUtf8());
  auto state = chain.Open();
  if (!state) {
    throw FileFault(std::make_error_code(std::errc::no_such_file_or_directory), chain.path());
  }
  resume_ = std::make_unique<ResumeDecisions>(std::move(state));
}

void SideFiles::CopyPrevious() {
  const RunState& run = module_.run;
  FileSystem& files = module_.platform.files;
  const std::string rejected = SideFilePath(run, kRejectedCopyExtension);
  const std::string trace = SideFilePath(run, kTraceCopyExtension);
  files.Remove(files.Locate(rejected));
  files.Remove(files.Locate(trace));
  CopyFile(SideFilePath(run, kRejectedExtension), rejected);
  CopyFile(SideFilePath(run, kTraceExtension), trace);
  previous_copied_ = true;
}

void SideFiles::Open(bool complete_name) {
  const RunState& run = module_.run;
  FileSystem& files = module_.platform.files;
  source_ = OpenForReading(DataFilePath(run, complete_name));
  // Before anything is emptied: a damaged chain or trace is found while all is as it was.
  if (run.resume) AdvanceChain();
  errors_ = RunFile::Create(files, SideFilePath(run, kErrorExtension));
  session_.error_file = &*errors_;
  if (run.resume) CopyPrevious();
  if (run.resume_option == 0) return;
  rejected_ = RunFile::Create(files, SideFilePath(run, kRejectedExtension));
  trace_ = RunFile::Create(files, SideFilePath(run, kTraceExtension));
  // What said that an older trace, which couldn't be deleted, isn't to be resumed: it is gone now.
  if (!run.resume && run.trace_option == 1) {
    ResumeChain(files, SideFilePath(run, kChainExtension)).Remove();
  }
}

void SideFiles::Trace(std::int32_t line_number, bool failed, std::int64_t errors) {
  text_.clear();
  AppendTraceLine({line_number, failed, static_cast<std::int32_t>(errors)}, text_);
  text_ += SystemLineEnd();
  trace_->Write(text_);
}

void SideFiles::Reject(std::string_view line, std::int32_t line_number, std::int64_t errors) {
  if (!rejected_) return;
  if (line.size() <= kMostJoinedBytes) {
    text_.assign(line);
    text_ += SystemLineEnd();
    rejected_->Write(text_);
  } else {
    rejected_->Write(line);
    rejected_->Write(SystemLineEnd());
  }
  Trace(line_number, true, errors);
}

void SideFiles::ReportParseFailure(std::int32_t line_number) {
  errors_->Write(module_.DateTimeText() + module_.MessageText(kMessageLine) +
                 SignedText(line_number) + ' ' + module_.MessageText(kMessageBadRecord) +
                 module_.run.delimiter + module_.MessageText(kMessageBadRecordEnd) +
                 std::string(SystemLineEnd()));
}

void SideFiles::RestorePrevious() {
  if (!previous_copied_) return;
  const RunState& run = module_.run;
  CopyFile(SideFilePath(run, kRejectedCopyExtension), SideFilePath(run, kRejectedExtension));
  CopyFile(SideFilePath(run, kTraceCopyExtension), SideFilePath(run, kTraceExtension));
}

std::optional<RuntimeFault> SideFiles::Close() {
  std::optional<RuntimeFault> first;
  session_.error_file = nullptr;
  source_.reset();
  for (std::optional<RunFile>* file : {&errors_, &rejected_, &trace_}) {
    if (!*file) continue;
    try {
      (*file)->Close();
    } catch (const RuntimeFault& fault) {
      if (!first) first = fault;
    }
    file->reset();
  }
  resume_.reset();
  return first;
}

}  // namespace imptable
