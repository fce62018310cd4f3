#include "host/RunSummary.h"

#include <cmath>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <string_view>
#include <vector>

#include "import/TaskFiles.h"

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
    case RunEnding::kStopped:
      return HostText::kOutcomeStopped;
    case RunEnding::kInterrupted:
      return HostText::kOutcomeInterrupted;
  }
  return HostText::kOutcomeErrors;
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
  line(HostText::kSummaryRead, {texts.Number(progress.read)});
  line(HostText::kSummaryWritten, {texts.Number(progress.inserted), texts.Number(progress.modified),
                                   texts.Number(progress.deleted)});
  line(HostText::kSummaryLeftOut, {texts.Number(progress.errors), texts.Number(progress.ignored),
                                   texts.Number(progress.skipped)});
  line(HostText::kSummarySeconds, {texts.Decimal(outcome.seconds)});
  line(HostText::kSummaryReport, {outcome.report});
  if (progress.errors == 0) return summary;
  if (outcome.has_error_file) {
    line(HostText::kSummaryErrorFile, {outcome.side_files + std::string(kErrorExtension)});
  }
  if (outcome.has_rejected_file) {
    line(HostText::kSummaryRejectedFile, {outcome.side_files + std::string(kRejectedExtension)});
  }
  line(outcome.can_resume ? HostText::kSummaryMendAndResume : HostText::kSummaryMendAndRun, {});
  return summary;
}

std::string SummaryJson(const RunOutcome& outcome, const TextEncoding& encoding) {
  const RunProgress& progress = outcome.progress;
  const nlohmann::ordered_json object = {
      {"scenario", encoding.ToUtf8(outcome.scenario)},
      {"task", encoding.ToUtf8(outcome.task)},
      {"status", static_cast<std::int16_t>(outcome.status)},
      {"read", progress.read},
      {"inserted", progress.inserted},
      {"modified", progress.modified},
      {"deleted", progress.deleted},
      {"errors", progress.errors},
      {"ignored", progress.ignored},
      {"skipped", progress.skipped},
      {"seconds", std::round(outcome.seconds * 1000) / 1000},
      {"report", encoding.ToUtf8(outcome.report)},
  };
  return object.dump() + '\n';
}

}  // namespace imptable
