#ifndef TESTS_ROBUSTNESS_FAULTS_CONSEQUENCE_H_
#define TESTS_ROBUSTNESS_FAULTS_CONSEQUENCE_H_

#include <cstdint>
#include <string>
#include <vector>

#include "tests/robustness/faults/FaultedTask.h"

namespace imptable {

/// What a fault does to a run, by where it strikes: "Etat" and the report.
enum class Consequence : std::uint8_t {
  kPassedOver,           // as without it
  kMentioned,            // all is done as without it, but the run doesn't end as a success
  kNotBegun,             // Etat 1 and no report line
  kStopped,              // Etat 1, the report as without it up to here
  kConnectionRefused,    // Etat 3, told by the last line; nothing is touched
  kDeletionFailed,       // Etat 3, no import, the closing line
  kFaultInDeletion,      // Etat 3, told by a line; the import and the closing line follow. A resume
                         // does the import's lines, not what is left of the deletion
  kRefused,              // Etat 3, told by a line; the mode's counts and the closing line. Nothing
                         // is touched: the run is begun again
  kNoLineRead,           // Etat 3, the mode's counts and the closing line, no row touched
  kLinesRejected,        // Etat 3, the mode's counts and the closing line
  kFaultInImport,        // Etat 3, told by a line; the mode's counts and the closing line
  kMentionedAfterwards,  // as without it, told by lines after the closing one
};

Consequence ConsequenceOf(const Fault& fault, const Occurrence& hit, const Workload& workload);

/// The operation that decides what becomes of the run.
/// @param hits  the operations that the fault struck, in order; not empty.
const Occurrence& DecisiveOf(const Fault& fault, const std::vector<Occurrence>& hits,
                             const Workload& workload);

/// What a reader has to find in the report, the diagnostics or the run's fault; empty when the
/// failure may go unmentioned.
std::string MentionOf(const Fault& fault, const Occurrence& hit, Consequence consequence);

/// What is wrong with a run that a fault struck; empty when nothing is.
/// @param hits  the operations that it struck, in order.
/// @param plain  the same run without the fault.
std::vector<std::string> Objections(const Fault& fault, const std::vector<Occurrence>& hits,
                                    const Workload& workload, const RunRecord& plain,
                                    const RunRecord& struck);

}  // namespace imptable

#endif  // TESTS_ROBUSTNESS_FAULTS_CONSEQUENCE_H_
