#include "import/modes/ModeTable.h"

#include <algorithm>
#include <array>

namespace imptable {
namespace {

constexpr std::array<Mode, 4> kModes{{
    {.number = ImportMode::kInsert,
     .banner = Message::kInsertBanner,
     .count = {Outcome::kInserted, Message::kCopied},
     .ignores_duplicates = true,
     .make_steps = MakeInsertSteps},
    {.number = ImportMode::kUpdate,
     .banner = Message::kUpdateBanner,
     .count = {Outcome::kModified, Message::kEdited, true},
     .success = SuccessLine::kOwnWriter,
     .make_steps = MakeUpdateSteps},
    {.number = ImportMode::kUpdateInsert,
     .banner = Message::kUpdateInsertBanner,
     .count = {Outcome::kModified, Message::kEdited, true},
     .second_count = ClosingCount{Outcome::kInserted, Message::kInserted},
     .fault_fails_deletion = false,
     .make_steps = MakeUpdateInsertSteps},
    {.number = ImportMode::kDelete,
     .banner = Message::kDeleteBanner,
     .count = {Outcome::kDeleted, Message::kDeleted, true},
     .success = SuccessLine::kSuccess,
     .make_steps = MakeDeleteSteps},
}};

}  // namespace

const Mode* FindMode(ImportMode number) {
  const auto* const found = std::find_if(kModes.begin(), kModes.end(),
                                         [&](const Mode& mode) { return mode.number == number; });
  return found == kModes.end() ? nullptr : &*found;
}

}  // namespace imptable
