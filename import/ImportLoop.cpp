#include "import/ImportLoop.h"

#include <new>
#include <utility>
#include <vector>

#include "core/MessageCatalogue.h"
#include "import/layout/ColumnLayout.h"
#include "import/ledger/TaskFiles.h"

namespace imptable {
namespace {

constexpr std::string_view kStepPrefix = " -->   ";
constexpr std::string_view kCountPrefix = " ----->   ";

/// A block is executed and settled as a whole. It has one record, because the buffers hold the
/// values of one.
constexpr std::size_t kRecordsOfABlock = 1;

/// The number of errors that a run may have, in the 16 bits that the modes use.
/// @throws RuntimeFault  overflow when it is negative or doesn't fit 16 bits.
std::int16_t ErrorLimitOf(const RunState& run) {
  if (run.most_errors < 0) {
    throw RuntimeFault(FaultNumber::kOverflow,
                       "\"Erreurs\" = \"" + std::to_string(run.most_errors) + '"');
  }
  return AsInt16(run.most_errors, "Erreurs");
}

}  // namespace

/// Keeps report lines back until it is their turn in the report.
class ImportLoop::HeldReport : public ReportWriter {
 public:
  void SetScenario(const std::string&) override {}
  void SetReportPath(const std::string&) override {}
  void WriteLine(const std::string& text, HostDisplay*, ReportKind kind) override {
    lines_.push_back({text, kind});
  }

  /// Replaces the report writer while it lives.
  class Scope {
   public:
    Scope(ModuleCommun& module, HeldReport& held)
        : module_(module), writer_(std::exchange(module.report_writer, &held)) {}
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;
    ~Scope() { module_.report_writer = writer_; }

   private:
    ModuleCommun& module_;
    ReportWriter* writer_;
  };

  void WriteTo(ModuleCommun& module) {
    for (const Line& line : std::exchange(lines_, {})) module.WriteReport(line.text, line.kind);
  }

 private:
  struct Line {
    std::string text;
    ReportKind kind;
  };
  std::vector<Line> lines_;
};

ImportLoop::ImportLoop(ModuleCommun& module, OdbcSession& session, const Mode& mode)
    : module_(module),
      mode_(mode),
      steps_(mode.make_steps(module, session)),
      held_(std::make_unique<HeldReport>()),
      ledger_(module, session) {
  block_.reserve(kRecordsOfABlock);
}

ImportLoop::~ImportLoop() = default;

template <typename Steps>
bool ImportLoop::Guarded(Steps steps) {
  try {
    return steps();
  } catch (const RuntimeFault& fault) {
    ReportFault(fault);
  } catch (const std::bad_alloc&) {
    ReportFault(RuntimeFault(FaultNumber::kOutOfMemory));
  }
  return false;
}

void ImportLoop::OpenSource() {
  FileSystem& files = module_.platform.files;
  const std::string located = files.Locate(DataFilePath(module_.run));
  std::error_code error;
  auto file = files.OpenForReading(located, error);
  if (!file) throw FileFault(error, located);
  source_ =
      std::make_unique<LineReader>(std::move(file), located, module_.platform.encoding.IsUtf8());
}

bool ImportLoop::Check() {
  const HeldReport::Scope held(module_, *held_);
  return Guarded([this] {
    const RunState& run = module_.run;
    error_limit_ = ErrorLimitOf(run);
    ParseColumnLayout(run.column_layout, run.file_format != FileFormat::kDelimited);
    // With a code that is no number every duplicate would count as an error: fail at once.
    if (mode_.ignores_duplicates) static_cast<void>(IgnorableCode(run));
    OpenSource();
    ledger_.TakeChain();
    return true;
  });
}

bool ImportLoop::Prepare() {
  const HeldReport::Scope held(module_, *held_);
  ready_ = Guarded([this] {
    ledger_.Open();
    return steps_->Prepare();
  });
  // The deletion comes next. It works on no source line, so its failures go to the report.
  ledger_.TakeFailures(false);
  return ready_;
}

void ImportLoop::Run() {
  const Hourglass hourglass(module_.platform.mouse_pointer, module_.ShowsHourglass());
  module_.WriteReport(module_.MessageText(mode_.banner), ReportKind::kInformation);
  held_->WriteTo(module_);
  ledger_.TakeFailures(true);
  if (ready_) {
    Guarded([this] {
      ReadLines();
      return true;
    });
  }
  steps_.reset();
  ReportCounts();
  source_.reset();
  if (!reading_) RestorePrevious();
  if (const auto fault = ledger_.Close()) ReportFault(*fault);
}

void ImportLoop::Abandon() {
  steps_.reset();
  source_.reset();
  RestorePrevious();
  ledger_.Discard();
}

void ImportLoop::ReadLines() {
  RunProgress& progress = module_.run.progress;
  std::int32_t& number = module_.run.line_number;
  number = 0;
  bool all = false;
  for (std::string_view line;;) {
    const bool more = source_->Next(line);
    if (!more || !source_->ended()) RequireWhole();
    if (!more) {
      all = true;
      break;
    }
    if (module_.run.stop_requested.load(std::memory_order_relaxed)) {
      module_.run.interrupted = true;
      module_.run.error_reported = true;
      break;
    }
    reading_ = true;
    ++number;
    ++progress.read;
    progress.bytes_read = source_->bytes_taken();
    block_.push_back(Take(line));
    if (block_.size() == kRecordsOfABlock) FinishBlock();
    module_.platform.message_loop.Yield();
    if (progress.lines[Outcome::kRejected] > error_limit_) break;
  }
  ledger_.End(source_->path(), number, all);
}

/// Throws when the source became shorter after it was looked at: its last line may be half a line,
/// and the lines after it were never seen.
void ImportLoop::RequireWhole() const {
  if (source_->bytes_taken() < module_.run.progress.bytes_in_file) {
    throw RuntimeFault(FaultNumber::kInputPastEnd, source_->path());
  }
}

void ImportLoop::RestorePrevious() {
  try {
    ledger_.RestorePrevious();
  } catch (const RuntimeFault& fault) {
    ReportFault(fault);
  }
}

Record ImportLoop::Take(std::string_view line) {
  Record record{.number = module_.run.line_number};
  if (ledger_.Decide(record.number, line) == ResumeDecision::kSkip) {
    record.result = {.outcome = Outcome::kSkipped};
    return record;
  }
  record.line = line;
  switch (steps_->parser().ParseRecord(line)) {
    case ParseResult::kFailed:
      record.result = {.diagnostics = {{.complaint = Complaint::kBadRecord}}};
      break;
    case ParseResult::kEmpty:
      record.result = {.outcome = Outcome::kEmpty};
      break;
    case ParseResult::kRecord:
      record.to_execute = true;
      break;
  }
  return record;
}

void ImportLoop::FinishBlock() {
  for (Record& record : block_) {
    if (record.to_execute) record.result = steps_->ExecuteRecord(record.line);
  }
  ledger_.Settle(block_);
  block_.clear();
}

void ImportLoop::ReportFault(const RuntimeFault& fault) {
  module_.run.fault = fault;
  module_.run.error_reported = true;
  if (mode_.fault_fails_deletion) module_.run.pre_deletion_failed = true;
  module_.WriteReport(std::string(kStepPrefix) + module_.MessageText(Message::kFault) +
                          std::to_string(static_cast<std::int32_t>(fault.number())) + " ," +
                          module_.FaultText(fault),
                      ReportKind::kError);
}

std::string ImportLoop::CountText(const ClosingCount& count) const {
  const std::int64_t number = module_.run.progress.lines[count.outcome];
  return (count.leading_blank ? SignedText(number) : std::to_string(number)) +
         module_.MessageText(count.text);
}

void ImportLoop::ReportCounts() {
  const auto report = [this](const std::string& text) {
    module_.WriteReport(std::string(kCountPrefix) + text, ReportKind::kInformation);
  };
  report(SignedText(module_.run.line_number) + module_.MessageText(Message::kLinesRead));
  std::string counts = CountText(mode_.count);
  if (mode_.second_count) counts += ", " + CountText(*mode_.second_count);
  const std::int64_t errors = module_.run.progress.lines[Outcome::kRejected];
  if (errors == 0) {
    ReportSuccess(module_.MessageText(Message::kSuccess) + counts);
    return;
  }
  report(SignedText(errors) + module_.MessageText(Message::kErrorsFound));
  report(counts);
}

void ImportLoop::ReportSuccess(const std::string& text) {
  switch (mode_.success) {
    case SuccessLine::kInformation:
      module_.WriteReport(text, ReportKind::kInformation);
      break;
    case SuccessLine::kSuccess:
      module_.WriteReport(text, ReportKind::kSuccess);
      break;
    case SuccessLine::kOwnWriter:
      module_.ReportLine(text, module_.run.display, ReportKind::kInformation);
      break;
  }
}

}  // namespace imptable
