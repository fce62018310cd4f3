#include "import/ImportLoop.h"

#include <new>

#include "import/SideFiles.h"

namespace imptable {
namespace {

// Numbers of catalogue texts: never change.
constexpr std::int32_t kMessageSuccess = 102;
constexpr std::int32_t kMessageFault = 112;
constexpr std::int32_t kMessageLinesRead = 162;
constexpr std::int32_t kMessageErrors = 163;

constexpr std::string_view kStepPrefix = " -->   ";
constexpr std::string_view kCountPrefix = " ----->   ";

class ImportLoop {
 public:
  ImportLoop(ModuleCommun& module, OdbcSession& session, ModeRoutine& mode)
      : module_(module), session_(session), mode_(mode), files_(module, session) {}

  void Run(bool complete_name) {
    const BusyPointer pointer(module_);
    module_.WriteReport(module_.MessageText(mode_.BannerMessage()), ReportKind::kInformation);
    try {
      files_.Open(complete_name);
      if (mode_.Prepare()) ReadLines();
    } catch (const RuntimeFault& fault) {
      ReportFault(fault);
    } catch (const std::bad_alloc&) {
      ReportFault(RuntimeFault(FaultNumber::kOutOfMemory));
    }
    mode_.DropStatements();
    ReportCounts();
    if (!reading_) RestorePrevious();
    if (const auto fault = files_.Close()) ReportFault(*fault);
  }

 private:
  void ReadLines() {
    RunProgress& progress = module_.run.progress;
    const std::int16_t limit = ErrorLimitOf(module_.run);
    session_.line_number = 0;
    LineReader& source = files_.source();
    RecordParser& parser = mode_.Parser();
    for (std::string_view line;;) {
      const bool more = source.Next(line);
      if (!more || !source.ended()) RequireWhole(source);
      if (!more) break;
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
      if (progress.errors > limit) break;
    }
  }

  /// A source that was cut since it was looked at: its last line may be half a line, and those
  /// after it were never seen.
  void RequireWhole(const LineReader& source) const {
    if (source.bytes_taken() < module_.run.progress.bytes_in_file) {
      throw RuntimeFault(FaultNumber::kInputPastEnd, source.path());
    }
  }

  void RestorePrevious() {
    try {
      files_.RestorePrevious();
    } catch (const RuntimeFault& fault) {
      ReportFault(fault);
    }
  }

  void ImportLine(RecordParser& parser, std::string_view line) {
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
        result = mode_.ExecuteLine();
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

  void ReportFault(const RuntimeFault& fault) {
    module_.run.fault = fault;
    session_.error_reported = true;
    if (mode_.FaultFailsDeletion()) module_.run.pre_deletion_failed = true;
    module_.WriteReport(std::string(kStepPrefix) + module_.MessageText(kMessageFault) +
                            std::to_string(static_cast<std::int32_t>(fault.number())) + " ," +
                            module_.FaultText(fault),
                        ReportKind::kError);
  }

  void ReportCounts() {
    const auto report = [this](const std::string& text) {
      module_.WriteReport(std::string(kCountPrefix) + text, ReportKind::kInformation);
    };
    report(SignedText(session_.line_number) + module_.MessageText(kMessageLinesRead));
    const std::int64_t errors = module_.run.progress.errors;
    if (errors == 0) {
      mode_.ReportSuccess(module_.MessageText(kMessageSuccess) + mode_.CountsText());
      return;
    }
    report(SignedText(errors) + module_.MessageText(kMessageErrors));
    report(mode_.CountsText());
  }

  ModuleCommun& module_;
  OdbcSession& session_;
  ModeRoutine& mode_;
  SideFiles files_;
  bool reading_ = false;  // the mode has come to its lines
};

}  // namespace

std::int16_t ErrorLimitOf(const RunState& run) { return AsInt16(run.error_limit, "Erreurs"); }

void RunImportMode(ModuleCommun& module, OdbcSession& session, ModeRoutine& mode,
                   bool complete_name) {
  ImportLoop(module, session, mode).Run(complete_name);
}

}  // namespace imptable
