#include "tests/robustness/faults/Consequence.h"

#include <algorithm>
#include <string_view>

namespace imptable {
namespace {

constexpr std::string_view kFaultLine = " -->   Erreur lors du traitement - N° ";
constexpr std::string_view kDeletionFaultLine = " -->   Erreur lors de la suppression";
constexpr std::string_view kNoKeyLine = "Clé Primaire";
constexpr std::string_view kLinesReadText = " enreg(s) lu(s)";
constexpr std::string_view kClosingLine = " --------------- PROCEDURE TERMINEE ---------------";
constexpr std::string_view kRefusedLine =
    " ARRET DE LA PROCEDURE : CONNEXION A LA SOURCE IMPOSSIBLE";
constexpr std::string_view kBannerStart = " -->   Mode ";

bool IsReport(const Occurrence& hit) { return hit.about.ends_with("report.txt"); }

std::string NameIn(const std::string& path) { return path.substr(path.find_last_of("/\\") + 1); }

bool IsChain(const Occurrence& hit) { return NameIn(hit.about).find(".REP") != std::string::npos; }

/// Whether it writes the mark of how the run ended. That may fail: without a mark, the component
/// takes the careful answer.
bool IsMark(const Occurrence& hit) {
  const bool adds = hit.operation == Operation::kOpenWrite || hit.operation == Operation::kWrite ||
                    hit.operation == Operation::kClose;
  return adds && hit.about.ends_with(".REP") &&
         (hit.phase == Phase::kReading || hit.phase == Phase::kClosing);
}

Consequence OfFile(const Occurrence& hit) {
  if (IsMark(hit)) return Consequence::kPassedOver;
  // The import's work is done by then. A side file that can't be deleted is emptied or declared to
  // be over.
  if (IsReport(hit) || hit.phase == Phase::kEnding) return Consequence::kPassedOver;
  // Here, only what the import has reported counts.
  if (hit.operation == Operation::kQuery && hit.phase == Phase::kClosing) {
    return Consequence::kPassedOver;
  }
  // The run can't tell whether there is a selection.
  if (hit.operation == Operation::kQuery && hit.phase == Phase::kImportPreparing &&
      NameIn(hit.about).ends_with(".SUP")) {
    return Consequence::kStopped;
  }
  // A file that can't be deleted is emptied instead.
  if (hit.operation == Operation::kRemove && !IsChain(hit)) return Consequence::kPassedOver;
  switch (hit.phase) {
    case Phase::kPreparing:
      return Consequence::kStopped;
    case Phase::kChecking:
      return Consequence::kRefused;
    case Phase::kDeleting:
      return Consequence::kFaultInDeletion;
    default:
      return Consequence::kFaultInImport;
  }
}

Consequence OfRegistry(const Occurrence& hit) {
  if (hit.operation == Operation::kRegistryWrite) return Consequence::kPassedOver;
  if (hit.phase == Phase::kLoading) return Consequence::kNotBegun;
  return hit.phase == Phase::kPreparing ? Consequence::kStopped : Consequence::kFaultInImport;
}

Consequence OfHost(const Fault& fault, const Occurrence& hit) {
  switch (hit.operation) {
    case Operation::kVariable:
      return Consequence::kNotBegun;
    case Operation::kProfileRead:
      return Consequence::kFaultInDeletion;
    default:
      // A single report line that fails within the deletion is a fault of the deletion.
      return hit.about.starts_with(" ---->   ") && !fault.persists ? Consequence::kFaultInDeletion
                                                                   : Consequence::kStopped;
  }
}

/// Where success with information is as good as success.
bool InformationSuffices(Operation operation, const Workload& workload) {
  switch (operation) {
    case Operation::kDriverConnect:
    case Operation::kGetFunctions:
    case Operation::kColumns:
    case Operation::kSpecialColumns:
    case Operation::kPrimaryKeys:
    case Operation::kExecute:
      return true;
    case Operation::kPrepare:
      return workload.mode == kInsert;
    default:
      return false;
  }
}

Consequence OfOdbc(const Fault& fault, const Occurrence& hit, const Workload& workload) {
  switch (hit.operation) {
    case Operation::kSetConnectOption:
    case Operation::kFreeStmt:
    case Operation::kError:
      return Consequence::kPassedOver;
    case Operation::kDisconnect:
    case Operation::kFreeConnect:
    case Operation::kFreeEnv:
      return Consequence::kMentionedAfterwards;
    case Operation::kGetInfo:
      // The longest names (30, 35) have defaults. A database without a name (17) has a default
      // dialect.
      return hit.about == "17" || hit.about == "30" || hit.about == "35" ? Consequence::kPassedOver
                                                                         : Consequence::kMentioned;
    default:
      break;
  }
  if (fault.effect == Effect::kInformation && InformationSuffices(hit.operation, workload)) {
    return Consequence::kPassedOver;
  }
  switch (hit.phase) {
    case Phase::kConnecting:
      return Consequence::kConnectionRefused;
    case Phase::kDeleting:
      return Consequence::kDeletionFailed;
    case Phase::kImportPreparing:
      return Consequence::kNoLineRead;
    default:
      // Without a row count, the line is done all the same.
      return hit.operation == Operation::kRowCount ? Consequence::kMentioned
                                                   : Consequence::kLinesRejected;
  }
}

/// Reads what one run left, and collects objections to it.
class Reader {
 public:
  Reader(const RunRecord& run, std::vector<std::string>& objections)
      : run_(run), objections_(objections) {}

  void Expect(bool holds, const std::string& what) {
    if (!holds) objections_.push_back(what);
  }

  bool HasLine(std::string_view start) const {
    return std::any_of(run_.report.begin(), run_.report.end(),
                       [start](const std::string& line) { return line.starts_with(start); });
  }
  bool LastLineIs(std::string_view line) const {
    return !run_.report.empty() && run_.report.back() == line;
  }

  void ExpectClosed() { Expect(LastLineIs(kClosingLine), "the closing line isn't the last one"); }
  void ExpectCounts() {
    const auto counts = [](const std::string& line) {
      return line.find(kLinesReadText) != std::string::npos;
    };
    Expect(std::any_of(run_.report.begin(), run_.report.end(), counts), "no counts are reported");
  }
  void ExpectEtat(RunStatus status) {
    Expect(run_.status == status, "the run's status is " +
                                      std::to_string(static_cast<int>(run_.status)) + ", not " +
                                      std::to_string(static_cast<int>(status)));
  }

 private:
  const RunRecord& run_;
  std::vector<std::string>& objections_;
};

bool IsPrefix(const std::vector<std::string>& part, const std::vector<std::string>& whole) {
  return part.size() <= whole.size() && std::equal(part.begin(), part.end(), whole.begin());
}

/// Without the last line if it tells a fault, as of a run that may not go on with what it is to
/// resume.
std::vector<std::string> WithoutFaultLine(std::vector<std::string> report) {
  if (!report.empty() && report.back().starts_with(kFaultLine)) report.pop_back();
  return report;
}

void ObjectToConsequence(Consequence consequence, const Occurrence& hit, const Workload& workload,
                         const RunRecord& plain, const RunRecord& struck, Reader& reader) {
  switch (consequence) {
    case Consequence::kPassedOver:
      reader.ExpectEtat(plain.status);
      reader.Expect(struck.report == plain.report, "the report differs");
      reader.Expect(struck.rows == plain.rows, "the rows differ");
      reader.Expect(hit.operation == Operation::kError || struck.diagnostics == plain.diagnostics,
                    "the diagnostics differ");
      reader.Expect(IsReport(hit) || struck.own_report == plain.own_report,
                    "the component's own report line differs");
      reader.Expect(struck.own_report_failed == (IsReport(hit) && workload.stand_alone),
                    "the host library isn't told of the report line, or of none");
      return;
    case Consequence::kMentioned:
      reader.ExpectEtat(RunStatus::kFailed);
      reader.ExpectClosed();
      reader.Expect(struck.rows == plain.rows, "the rows differ");
      return;
    case Consequence::kNotBegun:
      reader.ExpectEtat(RunStatus::kRunning);
      reader.Expect(struck.report.empty(), "something is reported");
      reader.Expect(struck.connections_made == 0, "it connected");
      return;
    case Consequence::kStopped:
      reader.ExpectEtat(RunStatus::kRunning);
      reader.Expect(IsPrefix(WithoutFaultLine(struck.report), plain.report),
                    "the report isn't that of the run");
      reader.Expect(!reader.HasLine(kClosingLine), "it is reported as ended");
      return;
    case Consequence::kConnectionRefused:
      reader.ExpectEtat(RunStatus::kFailed);
      reader.Expect(reader.LastLineIs(kRefusedLine) || hit.operation == Operation::kAllocEnv,
                    "the last line doesn't say that the connection was refused");
      reader.Expect(struck.connections_made == 0, "it connected");
      reader.Expect(struck.progress.read == 0, "it read lines");
      return;
    case Consequence::kDeletionFailed:
      reader.ExpectEtat(RunStatus::kFailed);
      reader.ExpectClosed();
      reader.Expect(!reader.HasLine(kBannerStart), "the import began");
      return;
    case Consequence::kFaultInDeletion:
      reader.ExpectEtat(RunStatus::kFailed);
      reader.Expect(reader.HasLine(kDeletionFaultLine), "no line tells the fault");
      reader.Expect(reader.HasLine(kBannerStart), "no import follows");
      reader.ExpectClosed();
      return;
    case Consequence::kRefused:
      reader.ExpectEtat(RunStatus::kFailed);
      reader.Expect(reader.HasLine(kFaultLine), "no line tells the fault");
      reader.ExpectCounts();
      reader.ExpectClosed();
      reader.Expect(struck.progress.read == 0, "lines were read");
      return;
    case Consequence::kNoLineRead:
      reader.ExpectEtat(RunStatus::kFailed);
      reader.ExpectCounts();
      reader.ExpectClosed();
      reader.Expect(struck.progress.read == 0, "lines were read");
      return;
    case Consequence::kLinesRejected:
      reader.ExpectEtat(RunStatus::kFailed);
      reader.ExpectCounts();
      reader.ExpectClosed();
      reader.Expect(struck.progress.read == plain.progress.read, "not every line was read");
      reader.Expect(struck.progress.lines[Outcome::kRejected] >=
                        std::max<std::int64_t>(1, plain.progress.lines[Outcome::kRejected]),
                    "the error isn't counted");
      return;
    case Consequence::kFaultInImport:
      reader.ExpectEtat(RunStatus::kFailed);
      reader.Expect(reader.HasLine(kFaultLine), "no line tells the fault");
      reader.ExpectCounts();
      reader.ExpectClosed();
      return;
    case Consequence::kMentionedAfterwards:
      reader.ExpectEtat(plain.status);
      reader.Expect(
          IsPrefix(plain.report, struck.report) && struck.report.size() > plain.report.size(),
          "the report isn't that of the run with lines after it");
      reader.Expect(struck.rows == plain.rows, "the rows differ");
      return;
  }
}

bool IsRelease(Operation operation) {
  return operation == Operation::kFreeStmt || operation == Operation::kDisconnect ||
         operation == Operation::kFreeConnect || operation == Operation::kFreeEnv;
}

bool IsCopy(const std::string& path) { return path.ends_with(".LEB") || path.ends_with(".TRB"); }

/// Whether a file may go without being told to close: a file that failed itself, a file that is
/// open when the run stops, or a copy that is given up because its original can't be read.
bool MayBeDropped(const std::string& path, const std::vector<Occurrence>& hits,
                  Consequence consequence) {
  if (consequence == Consequence::kStopped) return true;
  return std::any_of(hits.begin(), hits.end(), [&](const Occurrence& hit) {
    if (hit.about == path) return true;
    const bool given_up = path.ends_with(".NEW") || IsCopy(path) || IsCopy(hit.about);
    return given_up && hit.operation == Operation::kRead;
  });
}

}  // namespace

Consequence ConsequenceOf(const Fault& fault, const Occurrence& hit, const Workload& workload) {
  switch (GroupOf(hit.operation)) {
    case OperationGroup::kFiles:
      return OfFile(hit);
    case OperationGroup::kRegistry:
      return OfRegistry(hit);
    case OperationGroup::kHost:
      return OfHost(fault, hit);
    case OperationGroup::kOdbc:
      return OfOdbc(fault, hit, workload);
  }
  return Consequence::kPassedOver;
}

const Occurrence& DecisiveOf(const Fault& fault, const std::vector<Occurrence>& hits,
                             const Workload& workload) {
  // A fault that persists may first hit operations that are passed over, and then one that isn't.
  const auto decisive = std::find_if(hits.begin(), hits.end(), [&](const Occurrence& each) {
    return ConsequenceOf(fault, each, workload) != Consequence::kPassedOver;
  });
  if (decisive != hits.end()) return *decisive;
  // When all hits are passed over, only a hit on the report shows afterwards.
  const auto report = std::find_if(hits.begin(), hits.end(), IsReport);
  return report == hits.end() ? hits.front() : *report;
}

std::string MentionOf(const Fault& fault, const Occurrence& hit, Consequence consequence) {
  if (consequence == Consequence::kPassedOver) return {};
  switch (GroupOf(hit.operation)) {
    case OperationGroup::kFiles:
      return NameIn(hit.about);
    case OperationGroup::kRegistry:
      return "the registry can't be read: " + hit.about;
    case OperationGroup::kHost:
      return hit.operation == Operation::kReportLine ? "report: " + hit.about : NameIn(hit.about);
    case OperationGroup::kOdbc:
      break;
  }
  if (hit.operation == Operation::kGetFunctions) return std::string(kNoKeyLine);
  const bool has_message = IsRelease(hit.operation) || hit.operation == Operation::kAllocEnv ||
                           hit.operation == Operation::kAllocConnect;
  if (has_message) return "(" + std::string(NameOf(hit.operation)) + ")";
  // An invalid handle has no diagnostics.
  if (fault.effect == Effect::kInvalidHandle) return {};
  return "fault in " + std::string(NameOf(hit.operation));
}

std::vector<std::string> Objections(const Fault& fault, const std::vector<Occurrence>& hits,
                                    const Workload& workload, const RunRecord& plain,
                                    const RunRecord& struck) {
  std::vector<std::string> objections;
  Reader reader(struck, objections);
  if (hits.empty()) return {"the fault wasn't injected"};
  const Occurrence& hit = DecisiveOf(fault, hits, workload);

  reader.Expect(struck.completes == 1,
                "Complete was raised " + std::to_string(struck.completes) + " times");
  reader.Expect(struck.complete_was_last, "an event came after Complete");
  reader.Expect(struck.armed_timers == 0, "a timer is still armed");
  reader.Expect(struck.open_files == 0,
                std::to_string(struck.open_files) + " files are still open");
  reader.Expect(struck.connections_made == struck.disconnects_tried,
                std::to_string(struck.connections_made) + " connections, " +
                    std::to_string(struck.disconnects_tried) + " disconnects");
  reader.Expect(IsRelease(hit.operation) || struck.live_handles == 0,
                std::to_string(struck.live_handles) + " handles are still allocated");
  reader.Expect(hit.operation == Operation::kFreeStmt || struck.statements_left == 0,
                std::to_string(struck.statements_left) + " statements went with the connection");
  reader.Expect(hit.operation == Operation::kRegistryWrite ||
                    struck.etat == static_cast<std::int32_t>(struck.status),
                "\"Etat\" is " + std::to_string(struck.etat));
  reader.Expect(struck.status != RunStatus::kSucceeded || struck.rows == workload.RowsAfter(),
                "success, but the rows aren't as they should be");

  const Consequence consequence = ConsequenceOf(fault, hit, workload);
  for (const std::string& path : struck.dropped_files) {
    reader.Expect(MayBeDropped(path, hits, consequence), path + " isn't told to close");
  }
  ObjectToConsequence(consequence, hit, workload, plain, struck, reader);
  // When several operations fail, it is enough that one of them is mentioned.
  const bool mentioned = std::any_of(hits.begin(), hits.end(), [&](const Occurrence& each) {
    return struck.Says(MentionOf(fault, each, consequence));
  });
  reader.Expect(mentioned, "nothing mentions \"" + MentionOf(fault, hit, consequence) + '"');
  return objections;
}

}  // namespace imptable
