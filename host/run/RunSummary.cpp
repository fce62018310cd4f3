#include "host/run/RunSummary.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <string_view>
#include <vector>

#include "import/ledger/ChainIdentity.h"
#include "import/ledger/TaskFiles.h"

namespace imptable {
namespace {

constexpr std::string_view kGreen = "\x1b[32m";
constexpr std::string_view kRed = "\x1b[31m";
constexpr std::string_view kPlain = "\x1b[0m";

HostText OutcomeText(RunEnding ending) {
  switch (ending) {
    case RunEnding::kDone:
      return HostText::kOutcomeDone;
    case RunEnding::kRejected:
      return HostText::kOutcomeRejected;
    case RunEnding::kErrorLimit:
      return HostText::kOutcomeErrorLimit;
    case RunEnding::kNoConnection:
      return HostText::kOutcomeNoConnection;
    case RunEnding::kDeletionFailed:
      return HostText::kOutcomeDeletionFailed;
    case RunEnding::kModeFaulted:
    case RunEnding::kErrors:
      return HostText::kOutcomeErrors;
    case RunEnding::kNoFile:
      return HostText::kOutcomeNoFile;
    case RunEnding::kStopped:
      return HostText::kOutcomeStopped;
    case RunEnding::kInterrupted:
      return HostText::kOutcomeInterrupted;
  }
  return HostText::kOutcomeErrors;
}

/// Whether the source was read. A run may end before it comes to a file that exists.
bool WasRead(const RunOutcome& outcome) {
  return outcome.source_state == SourceState::kPresent && outcome.progress.read > 0;
}

std::string_view EndedBy(RunEnding ending) {
  switch (ending) {
    case RunEnding::kDone:
    case RunEnding::kRejected:
    case RunEnding::kNoFile:
      return "end";
    case RunEnding::kErrorLimit:
      return "limit";
    case RunEnding::kInterrupted:
      return "interruption";
    case RunEnding::kNoConnection:
    case RunEnding::kDeletionFailed:
    case RunEnding::kModeFaulted:
    case RunEnding::kErrors:
    case RunEnding::kStopped:
      break;
  }
  return "fault";
}

/// The values of "Mode" by their names.
constexpr std::array<std::string_view, 5> kModes{"INSERT", "UPDATE", "INSERT/UPDATE",
                                                 "UPDATE/INSERT", "DELETE"};

using Json = nlohmann::ordered_json;

Json SourceJson(const RunOutcome& outcome, const TextEncoding& encoding) {
  if (outcome.source_path.empty()) return nullptr;
  Json source{{"path", encoding.ToUtf8(outcome.source_path)}, {"state", nullptr}};
  if (outcome.source_state == SourceState::kMissing) source["state"] = "missing";
  if (outcome.source_state == SourceState::kEmpty) source["state"] = "empty";
  if (WasRead(outcome)) source["state"] = "read";
  return source;
}

Json TextOrNull(const std::optional<std::string>& text, const TextEncoding& encoding) {
  return text ? Json(encoding.ToUtf8(*text)) : Json(nullptr);
}

}  // namespace

std::string SummaryText(const RunOutcome& outcome, const HostTexts& texts, bool colours) {
  const RunProgress& progress = outcome.progress;
  std::string ending = texts.Text(OutcomeText(outcome.ending));
  if (colours) {
    const std::string_view colour = outcome.ending == RunEnding::kDone ? kGreen : kRed;
    ending = std::string(colour) + ending + std::string(kPlain);
  }
  std::string summary;
  const auto line = [&](HostText text, const std::vector<std::string>& arguments) {
    summary += texts.Text(text, arguments) + '\n';
  };
  line(HostText::kSummaryHeading, {ending, outcome.scenario, outcome.task});
  if (outcome.source_state == SourceState::kMissing) {
    line(HostText::kSummaryFileMissing, {outcome.source_path});
  } else if (outcome.source_state == SourceState::kEmpty) {
    line(HostText::kSummaryFileEmpty, {outcome.source_path});
  } else if (WasRead(outcome)) {
    line(HostText::kSummaryFileRead, {outcome.source_path});
  }
  line(HostText::kSummaryRead, {texts.Number(progress.read)});
  line(HostText::kSummaryWritten, {texts.Number(progress.lines[Outcome::kInserted]),
                                   texts.Number(progress.lines[Outcome::kModified]),
                                   texts.Number(progress.lines[Outcome::kDeleted])});
  line(HostText::kSummaryLeftOut, {texts.Number(progress.lines[Outcome::kRejected]),
                                   texts.Number(progress.lines[Outcome::kIgnored]),
                                   texts.Number(progress.lines[Outcome::kSkipped])});
  line(HostText::kSummarySeconds, {texts.Decimal(outcome.seconds)});
  line(HostText::kSummaryReport, {outcome.report});
  if (progress.lines[Outcome::kRejected] == 0) return summary;
  if (outcome.has_error_file) {
    line(HostText::kSummaryErrorFile, {outcome.side_files + std::string(kErrorExtension)});
  }
  if (outcome.has_rejected_file) {
    line(HostText::kSummaryRejectedFile, {outcome.side_files + std::string(kRejectedExtension)});
  }
  line(outcome.next == NextStep::kResume ? HostText::kSummaryMendAndResume
                                         : HostText::kSummaryMendApart,
       {});
  return summary;
}

std::string SummaryJson(const RunOutcome& outcome, const HostTexts& texts) {
  const RunProgress& progress = outcome.progress;
  const TextEncoding& encoding = texts.encoding();
  Json files = Json::array();
  for (const std::string& path : outcome.files) files.push_back(encoding.ToUtf8(path));
  Json warnings = Json::array();
  for (const std::string& text : outcome.warnings) warnings.push_back(encoding.ToUtf8(text));
  // A negative mode becomes a very large number, which has no name either.
  const auto mode = static_cast<std::size_t>(outcome.mode);
  const bool deleted_known = progress.deleted_before.has_value();
  const Json object = {
      {"scenario", encoding.ToUtf8(outcome.scenario)},
      {"task", encoding.ToUtf8(outcome.task)},
      {"status", static_cast<std::int16_t>(outcome.status)},
      {"read", progress.read},
      {"inserted", progress.lines[Outcome::kInserted]},
      {"modified", progress.lines[Outcome::kModified]},
      {"deleted", progress.lines[Outcome::kDeleted]},
      {"errors", progress.lines[Outcome::kRejected]},
      {"ignored", progress.lines[Outcome::kIgnored]},
      {"skipped", progress.lines[Outcome::kSkipped]},
      {"seconds", std::round(outcome.seconds * 1000) / 1000},
      {"report", encoding.ToUtf8(outcome.report)},
      {"code", static_cast<int>(ExitCodeOf(outcome))},
      {"resumed", outcome.resumed},
      {"file", SourceJson(outcome, encoding)},
      {"table", encoding.ToUtf8(outcome.table)},
      {"mode", mode < kModes.size() ? Json(kModes[mode]) : Json(nullptr)},
      {"started", TimeText(outcome.started)},
      {"ended", TimeText(outcome.ended)},
      {"ended_by", EndedBy(outcome.ending)},
      {"message", TextOrNull(ErrorLineOf(outcome, texts), encoding)},
      {"before", deleted_known ? Json(*progress.deleted_before) : Json(nullptr)},
      {"unmatched", progress.lines[Outcome::kUnmatched]},
      {"files", files},
      {"warnings", warnings},
  };
  return object.dump() + '\n';
}

std::string RefusalJson(const CommandRequest& request, ExitCode code, const std::string& message,
                        const TextEncoding& encoding) {
  const auto text = [&encoding](const std::string& value) {
    return value.empty() ? Json(nullptr) : Json(encoding.ToUtf8(value));
  };
  Json object = {
      {"scenario", text(request.scenario)}, {"task", text(request.task)}, {"status", nullptr}};
  for (const char* const count :
       {"read", "inserted", "modified", "deleted", "errors", "ignored", "skipped", "seconds"}) {
    object[count] = 0;
  }
  object["report"] = nullptr;
  object["code"] = static_cast<int>(code);
  object["resumed"] = false;
  for (const char* const name : {"file", "table", "mode", "started", "ended"}) {
    object[name] = nullptr;
  }
  object["ended_by"] = "fault";
  object["message"] = encoding.ToUtf8(message);
  object["before"] = 0;
  object["unmatched"] = 0;
  object["files"] = Json::array();
  object["warnings"] = Json::array();
  return object.dump() + '\n';
}

}  // namespace imptable
