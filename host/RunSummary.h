#ifndef HOST_RUN_SUMMARY_H_
#define HOST_RUN_SUMMARY_H_

#include <string>

#include "host/HostTexts.h"
#include "host/RunOutcome.h"

namespace imptable {

/// A few lines that a person reads at a glance.
std::string SummaryText(const RunOutcome& outcome, const HostTexts& texts, bool colours);

/// One JSON object in one line, for scripts, in UTF-8.
std::string SummaryJson(const RunOutcome& outcome, const TextEncoding& encoding);

}  // namespace imptable

#endif  // HOST_RUN_SUMMARY_H_
