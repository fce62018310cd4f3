#ifndef HOST_RUN_RUN_SUMMARY_H_
#define HOST_RUN_RUN_SUMMARY_H_

#include <string>

#include "host/CommandRequest.h"
#include "host/HostTexts.h"
#include "host/run/RunOutcome.h"

namespace imptable {

/// A few lines that a person reads at a glance.
std::string SummaryText(const RunOutcome& outcome, const HostTexts& texts, bool colours);

/// One JSON object on one line, for scripts, in UTF-8. Its message is in the language of `texts`.
std::string SummaryJson(const RunOutcome& outcome, const HostTexts& texts);

/// The same for a run that was refused before it began: what isn't known is null.
std::string RefusalJson(const CommandRequest& request, ExitCode code, const std::string& message,
                        const TextEncoding& encoding);

}  // namespace imptable

#endif  // HOST_RUN_RUN_SUMMARY_H_
