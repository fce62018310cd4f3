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
  kTake,     // the chain did not come to it, or has no text for it
  kSkip,     // done earlier
  kReplace,  // rejected earlier: the text that the user has mended replaces it
};

/// Decides, line by line, by the state of the chain.
class ResumeDecisions {
 public:
  /// @param skip_mark  whether the user's editor may have put a UTF-8 byte order mark before a
  /// text. The mark is left out then, unless the source's line begins with one.
  ResumeDecisions(std::unique_ptr<ChainReader> chain, bool skip_mark);

  /// To be called for every source line, in order.
  /// @param line  replaced by the rejected line when the answer is kReplace. The rejected line is
  /// valid until the next call.
  ResumeDecision Decide(std::int32_t line_number, std::string_view& line);

  /// To be called at the source's end.
  /// @param lines  how many the source has.
  /// @return whether the chain had come further, or has rejected lines beyond these.
  bool MissesLines(std::int32_t lines);

 private:
  std::unique_ptr<ChainReader> chain_;
  bool skip_mark_;
  std::optional<ChainEntry> entry_;  // the next rejected line
  bool entry_taken_ = false;
};

}  // namespace imptable

#endif  // IMPORT_LEDGER_RESUME_DECISIONS_H_
