#include "import/ResumeChain.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "import/TraceReader.h"
#include "plugin/core/FileLook.h"
#include "plugin/core/RuntimeFault.h"

namespace imptable {
namespace {

constexpr std::string_view kNewSuffix = ".NEW";

/// Of memory for each file: three are open at a time, and as a rule they are short.
constexpr std::size_t kBlockBytes = std::size_t{16} << 10U;

/// A file that takes another's place once it is complete and on the disk; removed otherwise.
class ReplacingFile {
 public:
  /// @param files  borrowed.
  ReplacingFile(FileSystem& files, const std::string& path)
      : files_(files), file_(RunFile::Create(files, path)), path_(file_->path()) {}
  ReplacingFile(const ReplacingFile&) = delete;
  ReplacingFile& operator=(const ReplacingFile&) = delete;
  ~ReplacingFile() {
    file_.reset();  // some systems delete no open file
    if (!done_) static_cast<void>(files_.Remove(path_));
  }

  RunFile& file() { return *file_; }

  void Replace(const std::string& path) {
    file_->Flush();
    file_->Close();
    if (const std::error_code error = files_.Replace(path_, path)) {
      throw FileFault(error, path);
    }
    done_ = true;
  }

 private:
  FileSystem& files_;
  std::optional<RunFile> file_;
  std::string path_;
  bool done_ = false;
};

/// The lines of an earlier run, taken one by one beside the chain's entries.
class ChainMerge {
 public:
  /// @param chain, trace, rejected  borrowed; null for what doesn't exist.
  ChainMerge(ChainReader* chain, TraceReader* trace, LineReader* rejected, ChainWriter& out)
      : chain_(chain), trace_(trace), rejected_(rejected), out_(out) {}

  void Run() {
    TakeEntry();
    std::int32_t last = 0;
    for (std::optional<TraceLine> line; (line = NextTraced());) {
      // The last run came past these and left no trace of them: as mended, they held no record.
      while (entry_ && entry_->line_number < line->line_number) TakeEntry();
      const bool known = entry_ && entry_->line_number == line->line_number;
      if (line->failed) Reject(line->line_number, known);
      if (known) TakeEntry();
      last = line->line_number;
    }
    for (; entry_; TakeEntry()) out_.Add(*entry_);
    out_.End(std::max(last, chain_ == nullptr ? 0 : chain_->reached()));
  }

 private:
  void TakeEntry() { entry_ = chain_ == nullptr ? std::nullopt : chain_->Next(); }
  std::optional<TraceLine> NextTraced() {
    return trace_ == nullptr ? std::nullopt : trace_->Next();
  }

  void Reject(std::int32_t line_number, bool known) {
    std::string_view text;
    if (rejected_ != nullptr && rejected_->Next(text)) {
      out_.Add({line_number, text});
    } else {
      out_.Add({line_number, known ? entry_->text : std::nullopt});
    }
  }

  ChainReader* chain_;
  TraceReader* trace_;
  LineReader* rejected_;
  ChainWriter& out_;
  std::optional<ChainEntry> entry_;  // the next of the chain
};

}  // namespace

ResumeChain::ResumeChain(FileSystem& files, const std::string& path)
    : files_(files), path_(files.Locate(path)), new_path_(path + std::string(kNewSuffix)) {}

std::unique_ptr<LineReader> ResumeChain::OpenLines(const std::string& path, bool skip_mark) const {
  if (!LookAt(files_, path)) return nullptr;
  std::error_code error;
  auto file = files_.OpenForReading(path, error);
  if (!file) throw FileFault(error, path);
  return std::make_unique<LineReader>(std::move(file), path, skip_mark, kBlockBytes);
}

std::unique_ptr<ChainReader> ResumeChain::Open() const {
  auto lines = OpenLines(path_, false);
  if (!lines) return nullptr;
  return std::make_unique<ChainReader>(std::move(lines), path_);
}

ResumeChain::State ResumeChain::state() const {
  try {
    const auto chain = Open();
    if (!chain) return State::kNone;
    return chain->is_void() ? State::kVoid : State::kOpen;
  } catch (const RuntimeFault& fault) {
    if (fault.number() != FaultNumber::kInvalidFileFormat) throw;
    return State::kOpen;
  }
}

std::int32_t ResumeChain::Reached() const {
  const auto chain = Open();
  if (!chain) return 0;
  while (chain->Next()) {
  }
  return chain->reached();
}

void ResumeChain::Advance(const std::string& trace, const std::string& rejected, bool skip_mark) {
  auto chain = Open();
  const std::string trace_path = files_.Locate(trace);
  auto traced = OpenLines(trace_path, false);
  const auto trace_lines =
      traced ? std::make_unique<TraceReader>(std::move(traced), trace_path) : nullptr;
  const auto rejected_lines = OpenLines(files_.Locate(rejected), skip_mark);
  ReplacingFile next(files_, new_path_);
  ChainWriter writer(next.file());
  ChainMerge(chain.get(), trace_lines.get(), rejected_lines.get(), writer).Run();
  chain.reset();  // some systems replace no open file
  next.Replace(path_);
}

void ResumeChain::Void() {
  try {
    ReplacingFile over(files_, new_path_);
    over.file().Write(VoidChainText());
    over.Replace(path_);
  } catch (const RuntimeFault& fault) {
    if (fault.number() != FaultNumber::kDiskFull) throw;
    VoidInPlace();
  }
}

void ResumeChain::VoidInPlace() {
  // Cut, the file makes the room that its new text needs. A run that dies in between leaves an
  // empty one, that is refused as damaged: neither is resumed.
  RunFile over = RunFile::Create(files_, path_);
  over.Write(VoidChainText());
  over.Flush();
  over.Close();
}

void ResumeChain::Remove() {
  for (const std::string& path : {new_path_, path_}) {
    if (const std::error_code error = RemoveIfAny(files_, path)) throw FileFault(error, path);
  }
}

}  // namespace imptable
