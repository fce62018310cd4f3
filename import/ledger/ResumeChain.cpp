#include "import/ledger/ResumeChain.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "core/FileLook.h"
#include "core/RuntimeFault.h"
#include "import/ledger/ReplacingFile.h"
#include "import/ledger/Trace.h"

namespace imptable {
namespace {

constexpr std::string_view kNewSuffix = ".NEW";

/// The memory for each file. Three files are open at a time, and most are short.
constexpr std::size_t kChainBlockBytes = std::size_t{16} << 10U;

/// Merges the lines of the last run with the chain's entries, line by line.
class ChainMerge {
 public:
  /// @param chain, trace, rejected  borrowed; null for a file that doesn't exist.
  ChainMerge(ChainReader* chain, TraceReader* trace, LineReader* rejected, ChainWriter& out)
      : chain_(chain), trace_(trace), rejected_(rejected), out_(out) {}

  void Run() {
    TakeEntry();
    std::int32_t last = 0;
    for (std::optional<TraceLine> line; (line = NextTraced());) {
      // The last run passed these lines without tracing them: as mended, they held no record.
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

std::unique_ptr<ChainReader> ResumeChain::Open() const {
  auto lines = OpenLinesIfAny(files_, path_, kChainBlockBytes);
  if (!lines) return nullptr;
  return std::make_unique<ChainReader>(std::move(lines), path_);
}

ResumeChain::State ResumeChain::state() const {
  try {
    if (IsForeign()) return State::kForeign;
    const auto chain = Open();
    if (!chain) return State::kNone;
    if (chain->is_void()) return State::kVoid;
    chain->Next();
    return chain->is_first() ? State::kFirst : State::kOpen;
  } catch (const RuntimeFault& fault) {
    if (fault.number() != FaultNumber::kInvalidFileFormat) throw;
    return State::kOpen;
  }
}

bool ResumeChain::IsForeign() const {
  if (!LookAt(files_, path_)) return false;
  std::error_code error;
  const auto file = files_.OpenForReading(path_, error);
  if (!file) throw FileFault(error, path_);
  std::array<char, kChainBeginning> beginning{};
  std::size_t length = 0;
  while (length < beginning.size()) {
    const std::size_t got = file->Read(&beginning[length], beginning.size() - length, error);
    if (error) throw FileFault(error, path_);
    if (got == 0) break;
    length += got;
  }
  return !MayBeChain({beginning.data(), length});
}

void ResumeChain::RequireOwn() const {
  if (!IsForeign()) return;
  throw RuntimeFault(FaultNumber::kInvalidFileFormat, path_, FaultRemedy::kMoveForeignChain);
}

void ResumeChain::Begin(const ChainIdentity& identity) {
  ReplacingFile next(files_, new_path_);
  ChainWriter(next.file(), identity).First();
  next.Replace(path_);
}

void ResumeChain::Mark(ChainMark mark) {
  if (mark == ChainMark::kNone) return;
  std::error_code error;
  const auto file = files_.OpenForWriting(path_, WriteMode::kAppend, error);
  if (!file) return;
  static_cast<void>(file->Write(MarkText(mark)));
  static_cast<void>(file->Close());
}

std::int32_t ResumeChain::Reached() const {
  const auto chain = Open();
  if (!chain) return 0;
  while (chain->Next()) {
  }
  return chain->reached();
}

void ResumeChain::Advance(const std::string& trace, const std::string& rejected,
                          const ChainIdentity& identity) {
  auto chain = Open();
  const std::string trace_path = files_.Locate(trace);
  auto traced = OpenLinesIfAny(files_, trace_path, kChainBlockBytes);
  const auto trace_lines =
      traced ? std::make_unique<TraceReader>(std::move(traced), trace_path) : nullptr;
  const auto rejected_lines = OpenLinesIfAny(files_, files_.Locate(rejected), kChainBlockBytes);
  ReplacingFile next(files_, new_path_);
  ChainWriter writer(next.file(), identity);
  ChainMerge(chain.get(), trace_lines.get(), rejected_lines.get(), writer).Run();
  chain.reset();  // some systems can't replace an open file
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
  // Emptying the file makes the room for its new text. A run that dies in between leaves it empty.
  // An empty file is refused as damaged, so it isn't resumed either.
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
