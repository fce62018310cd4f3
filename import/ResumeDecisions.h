#ifndef IMPORT_RESUME_DECISIONS_H_
#define IMPORT_RESUME_DECISIONS_H_

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

#include "import/ChainFile.h"

namespace imptable {

/// What a resumed run does with a line of its source.
enum class ResumeDecision : std::uint8_t {
  kTake,     // the chain did not come to it, or its rejected text is gone
  kSkip,     // done earlier
  kReplace,  // rejected earlier: its text, as mended by the user, takes its place
};

/// Decides, line by line, by the state of the chain.
class ResumeDecisions {
 public:
  explicit ResumeDecisions(std::unique_ptr<ChainReader> chain);

  /// To be called for every source line, in order.
  /// @param line  replaced by the rejected line when the answer is kReplace; that is valid until
  /// the next call.
  ResumeDecision Decide(std::int32_t line_number, std::string_view& line);

 private:
  std::unique_ptr<ChainReader> chain_;
  std::optional<ChainEntry> entry_;  // the next rejected line
  bool entry_taken_ = false;
};

}  // namespace imptable

#endif  // IMPORT_RESUME_DECISIONS_H_
