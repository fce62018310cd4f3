#include "import/ledger/Ledger.h"

#include <utility>

#include "core/FileLook.h"
#include "import/ledger/ReplacingFile.h"
#include "import/ledger/ResumeChain.h"
#include "import/ledger/TaskFiles.h"
#include "import/ledger/Trace.h"

namespace imptable {
namespace {

/// The suffix of a side file that is being put back, until it is complete.
constexpr std::string_view kNewSuffix = ".NEW";

/// A longer line is written apart from its end, which takes two calls but no copy.
constexpr std::size_t kMostJoinedBytes = std::size_t{64} << 10U;

/// How the run before this one ended. When the source's size has changed since, its end counts as a
/// stop.
ChainMark MarkOf(const ResumeChain& chain, const SourceIdentity& source) {
  const auto lines = chain.Open();
  while (lines && lines->Next()) {
  }
  if (!lines) return ChainMark::kNone;
  const bool grown = lines->identity() && lines->identity()->source.size != source.size;
  return lines->mark() == ChainMark::kRead && grown ? ChainMark::kStopped : lines->mark();
}

}  // namespace

void Ledger::CopyFile(const std::string& from, const std::string& to) {
  FileSystem& files = module_.platform.files;
  const std::string located = files.Locate(from);
  if (!LookAt(files, located)) return;
  CopiedFile source(files, located);
  RunFile copy = RunFile::Create(files, to);
  source.CopyTo(copy);
  copy.Close();
}

void Ledger::TakeChain() {
  const RunState& run = module_.run;
  if (!run.resume) return;
  ResumeChain chain(module_.platform.files, SideFilePath(run, kChainExtension));
  const ChainIdentity identity = IdentityOf(module_.platform.files, run);
  previous_mark_ = MarkOf(chain, identity.source);
  chain.Advance(SideFilePath(run, kTraceExtension), SideFilePath(run, kRejectedExtension),
                identity);
  auto state = chain.Open();
  if (!state) {
    throw FileFault(std::make_error_code(std::errc::no_such_file_or_directory), chain.path());
  }
  resume_ = std::make_unique<ResumeDecisions>(std::move(state), module_.platform.encoding.IsUtf8());
}

void Ledger::BeginChain() {
  FileSystem& files = module_.platform.files;
  ResumeChain(files, SideFilePath(module_.run, kChainExtension))
      .Begin(IdentityOf(files, module_.run));
}

void Ledger::CopyPrevious() {
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

void Ledger::TakeFailures(bool taken) {
  session_.listener = taken && errors_ ? &*errors_ : listener_;
}

void Ledger::Open() {
  const RunState& run = module_.run;
  FileSystem& files = module_.platform.files;
  errors_.emplace(module_, SideFilePath(run, kErrorExtension));
  TakeFailures(true);
  if (run.resume) CopyPrevious();
  if (run.record_errors == Flag::kOff) return;
  rejected_ = RunFile::Create(files, SideFilePath(run, kRejectedExtension));
  trace_ = RunFile::Create(files, SideFilePath(run, kTraceExtension));
  // Not before the trace is empty: the chain's file may have kept an older trace from being
  // resumed.
  if (!run.resume) BeginChain();
}

void Ledger::Settle(std::span<const Record> block) {
  for (const Record& record : block) Settle(record);
}

void Ledger::Settle(const Record& record) {
  OutcomeCounts& counts = module_.run.progress.lines;
  const Outcome outcome = record.result.outcome;
  for (const RecordDiagnostic& each : record.result.diagnostics) {
    errors_->Write(record.number, each);
  }
  switch (outcome) {
    case Outcome::kRejected:
      ++counts[outcome];
      module_.run.error_reported = true;
      if (!trace_) return;
      KeepRejected(record.line);
      Trace(record.number, true);
      return;
    case Outcome::kInserted:
    case Outcome::kModified:
    case Outcome::kDeleted:
    case Outcome::kUnmatched:
    case Outcome::kUncounted:
    case Outcome::kIgnored:
      if (trace_) Trace(record.number, false);
      break;
    case Outcome::kEmpty:
    case Outcome::kSkipped:
      break;
  }
  ++counts[outcome];
}

void Ledger::Trace(std::int32_t line_number, bool failed) {
  const auto errors = static_cast<std::int32_t>(module_.run.progress.lines[Outcome::kRejected]);
  text_.clear();
  AppendTraceLine({line_number, failed, errors}, text_);
  text_ += SystemLineEnd();
  trace_->Write(text_);
}

void Ledger::KeepRejected(std::string_view line) {
  if (line.size() <= kMostJoinedBytes) {
    text_.assign(line);
    text_ += SystemLineEnd();
    rejected_->Write(text_);
  } else {
    rejected_->Write(line);
    rejected_->Write(SystemLineEnd());
  }
}

void Ledger::End(const std::string& source, std::int32_t lines, bool all) {
  if (all && resume_ && resume_->MissesLines(lines)) {
    throw RuntimeFault(FaultNumber::kInputPastEnd, source);
  }
  // A run that came to no line leaves no mark: the previous run's files are put back, with their
  // mark.
  if (trace_ && lines > 0) MarkChain(all ? ChainMark::kRead : ChainMark::kStopped);
}

void Ledger::MarkChain(ChainMark mark) {
  ResumeChain(module_.platform.files, SideFilePath(module_.run, kChainExtension)).Mark(mark);
}

void Ledger::RestoreFile(std::string_view copy, std::string_view extension) {
  FileSystem& files = module_.platform.files;
  const std::string from = files.Locate(SideFilePath(module_.run, copy));
  if (!LookAt(files, from)) return;
  const std::string path = files.Locate(SideFilePath(module_.run, extension));
  CopiedFile source(files, from);
  ReplacingFile restored(files, path + std::string(kNewSuffix));
  source.CopyTo(restored.file());
  restored.Replace(path);
}

void Ledger::RestorePrevious() {
  if (!previous_copied_) return;
  // Some systems can't replace an open file.
  for (std::optional<RunFile>* file : {&rejected_, &trace_}) {
    if (*file) (*file)->Close();
    file->reset();
  }
  // The trace first. A run that dies in between then leaves a trace without rejected lines, as a
  // run does that has just emptied them. It never leaves rejected lines without their trace.
  RestoreFile(kTraceCopyExtension, kTraceExtension);
  RestoreFile(kRejectedCopyExtension, kRejectedExtension);
  MarkChain(previous_mark_);
}

void Ledger::Discard() {
  std::vector<std::string> made;
  if (errors_) made.push_back(errors_->path());
  for (const std::optional<RunFile>* file : {&rejected_, &trace_}) {
    if (*file) made.push_back((*file)->path());
  }
  // A file that can't be closed or deleted is empty, and the next run complains about it.
  static_cast<void>(Close());
  if (module_.run.resume) return;
  FileSystem& files = module_.platform.files;
  for (const std::string& path : made) static_cast<void>(files.Remove(path));
  static_cast<void>(files.Remove(files.Locate(SideFilePath(module_.run, kChainExtension))));
}

std::optional<RuntimeFault> Ledger::Close() {
  std::optional<RuntimeFault> first;
  const auto close = [&first](auto& file) {
    if (!file) return;
    try {
      file->Close();
    } catch (const RuntimeFault& fault) {
      if (!first) first = fault;
    }
    file.reset();
  };
  TakeFailures(false);
  close(errors_);
  close(rejected_);
  close(trace_);
  resume_.reset();
  return first;
}

}  // namespace imptable
