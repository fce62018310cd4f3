#ifndef IMPORT_LEDGER_RESUME_DECISIONS_H_
#define IMPORT_LEDGER_RESUME_DECISIONS_H_

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

#include "import/ledger/ChainFile.h"

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
  /// @param skip_mark  whether a text may begin with a UTF-8 byte order mark that the user's editor
  /// has put there: then one that the source's line doesn't begin with is no part of it.
  ResumeDecisions(std::unique_ptr<ChainReader> chain, bool skip_mark);

  /// To be called for every source line, in order.
  /// @param line  replaced by the rejected line when the answer is kReplace; that is valid until
  /// the next call.
  ResumeDecision Decide(std::int32_t line_number, std::string_view& line);

  /// To be called at the source's end.
  /// @param lines  that the source has.
  /// @return whether the chain had come further, or has rejected lines beyond.
  bool MissesLines(std::int32_t lines);

 private:
  std::unique_ptr<ChainReader> chain_;
  bool skip_mark_;
  std::optional<ChainEntry> entry_;  // the next rejected line
  bool entry_taken_ = false;
};

}  // namespace imptable

#endif  // IMPORT_LEDGER_RESUME_DECISIONS_H_
