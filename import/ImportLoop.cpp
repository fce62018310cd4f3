#include "import/ImportLoop.h"

#include <new>
#include <utility>
#include <vector>

#include "core/MessageCatalogue.h"
#include "import/layout/ColumnLayout.h"

namespace imptable {
namespace {

constexpr std::string_view kStepPrefix = " -->   ";
constexpr std::string_view kCountPrefix = " ----->   ";

/// The number of errors that a run may have, as the modes hold it.
/// @throws RuntimeFault  overflow when it is negative or doesn't fit 16 bits.
std::int16_t ErrorLimitOf(const RunState& run) {
  if (run.most_errors < 0) {
    throw RuntimeFault(FaultNumber::kOverflow,
                       "\"Erreurs\" = \"" + std::to_string(run.most_errors) + '"');
  }
  return AsInt16(run.most_errors, "Erreurs");
}

}  // namespace

/// Keeps report lines until their place in the report has come.
class ImportLoop::HeldReport : public ReportWriter {
 public:
  void SetScenario(const std::string&) override {}
  void SetReportPath(const std::string&) override {}
  void WriteLine(const std::string& text, HostDisplay*, ReportKind kind) override {
    lines_.push_back({text, kind});
  }

  /// Takes the report's place while it lives.
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

ImportLoop::ImportLoop(ModuleCommun& module, OdbcSession& session,
                       std::unique_ptr<ModeRoutine> mode)
    : module_(module),
      session_(session),
      mode_(std::move(mode)),
      held_(std::make_unique<HeldReport>()),
      files_(module, session) {}

ImportLoop::~ImportLoop() {
  // A run that stops between two of the steps leaves none for the connection to take along.
  mode_->DropStatements();
}

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

bool ImportLoop::Check() {
  const HeldReport::Scope held(module_, *held_);
  return Guarded([this] {
    const RunState& run = module_.run;
    error_limit_ = ErrorLimitOf(run);
    ParseColumnLayout(run.column_layout, run.delimited != 1);
    mode_->CheckSettings();
    files_.OpenSource();
    return true;
  });
}

bool ImportLoop::Prepare() {
  const HeldReport::Scope held(module_, *held_);
  ready_ = Guarded([this] {
    files_.Open();
    return mode_->Prepare();
  });
  // The deletion that comes next has no line of the source: it complains to the report.
  files_.TakeDiagnostics(false);
  return ready_;
}

void ImportLoop::Run() {
  const BusyPointer pointer(module_);
  module_.WriteReport(module_.MessageText(mode_->BannerMessage()), ReportKind::kInformation);
  held_->WriteTo(module_);
  files_.TakeDiagnostics(true);
  if (ready_) {
    Guarded([this] {
      ReadLines();
      return true;
    });
  }
  mode_->DropStatements();
  ReportCounts();
  if (!reading_) RestorePrevious();
  if (const auto fault = files_.Close()) ReportFault(*fault);
}

void ImportLoop::Abandon() {
  mode_->DropStatements();
  RestorePrevious();
  files_.Discard();
}

void ImportLoop::ReadLines() {
  RunProgress& progress = module_.run.progress;
  session_.line_number = 0;
  LineReader& source = files_.source();
  RecordParser& parser = mode_->Parser();
  bool all = false;
  for (std::string_view line;;) {
    const bool more = source.Next(line);
    if (!more || !source.ended()) RequireWhole(source);
    if (!more) {
      all = true;
      break;
    }
    if (module_.run.stop_requested.load(std::memory_order_relaxed)) {
      module_.run.interrupted = true;
      session_.error_reported = true;
      break;
    }
    reading_ = true;
    ++session_.line_number;
    ++progress.read;
    progress.bytes_read = source.bytes_taken();
    if (files_.Decide(session_.line_number, line) == ResumeDecision::kSkip) {
      ++progress.skipped;
    } else {
      ImportLine(parser, line);
    }
    module_.platform.message_loop.Yield();
    if (progress.errors > error_limit_) break;
  }
  files_.EndOfLines(session_.line_number, all);
}

/// A source that was cut since it was looked at: its last line may be half a line, and those
/// after it were never seen.
void ImportLoop::RequireWhole(const LineReader& source) const {
  if (source.bytes_taken() < module_.run.progress.bytes_in_file) {
    throw RuntimeFault(FaultNumber::kInputPastEnd, source.path());
  }
}

void ImportLoop::RestorePrevious() {
  try {
    files_.RestorePrevious();
  } catch (const RuntimeFault& fault) {
    ReportFault(fault);
  }
}

void ImportLoop::ImportLine(RecordParser& parser, std::string_view line) {
  RunProgress& progress = module_.run.progress;
  LineResult result;
  switch (parser.ParseRecord(line)) {
    case ParseResult::kFailed:
      result.rejected = true;
      files_.ReportParseFailure(session_.line_number);
      break;
    case ParseResult::kEmpty:
      return;
    case ParseResult::kRecord:
      if (WouldBeCut(parser, line)) {
        result.rejected = true;
      } else {
        result = mode_->ExecuteLine();
      }
      break;
  }
  if (result.rejected) {
    ++progress.errors;
    // Also for a diagnostic that went unreported as an ignorable duplicate, in the modes that
    // count it all the same: the run may not end as a success and delete the rejected line.
    session_.error_reported = true;
    files_.Reject(line, session_.line_number, progress.errors);
  } else {
    files_.Done(session_.line_number, progress.errors);
    if (result.counter != nullptr) ++*result.counter;
  }
}

bool ImportLoop::WouldBeCut(const RecordParser& parser, std::string_view line) {
  if (!session_.dialect->cuts_at_nul || line.find('\0') == std::string_view::npos) return false;
  if (!parser.HasTextWithNul()) return false;
  const bool english = module_.language_offset == kEnglishOffset;
  session_.ReportText(module_.platform.encoding.FromUtf8(
      english
          ? "The line holds a NUL, at which the driver ends a text; it was not executed"
          : "La ligne contient un caractère nul, qui termine un texte pour le pilote ; elle n'a "
            "pas été exécutée"));
  return true;
}

void ImportLoop::ReportFault(const RuntimeFault& fault) {
  module_.run.fault = fault;
  session_.error_reported = true;
  if (mode_->FaultFailsDeletion()) module_.run.pre_deletion_failed = true;
  module_.WriteReport(std::string(kStepPrefix) + module_.MessageText(Message::kFault) +
                          std::to_string(static_cast<std::int32_t>(fault.number())) + " ," +
                          module_.FaultText(fault),
                      ReportKind::kError);
}

void ImportLoop::ReportCounts() {
  const auto report = [this](const std::string& text) {
    module_.WriteReport(std::string(kCountPrefix) + text, ReportKind::kInformation);
  };
  report(SignedText(session_.line_number) + module_.MessageText(Message::kLinesRead));
  const std::int64_t errors = module_.run.progress.errors;
  if (errors == 0) {
    mode_->ReportSuccess(module_.MessageText(Message::kSuccess) + mode_->CountsText());
    return;
  }
  report(SignedText(errors) + module_.MessageText(Message::kErrorsFound));
  report(mode_->CountsText());
}

}  // namespace imptable
