#include <string>
#include <utility>
#include <vector>

#include "import/modes/ModeSteps.h"
#include "import/target/Execution.h"
#include "import/target/UpdateStatement.h"

namespace imptable {
namespace {

class UpdateInsertSteps final : public ModeSteps {
 public:
  UpdateInsertSteps(ModuleCommun& module, OdbcSession& session)
      : ModeSteps(module, session), update_(session, table()) {}

  bool Prepare() override {
    std::vector<std::string> keys;
    if (!ChooseKeyColumns(module(), session(), keys) || !table().Load(true) || !Allocate(insert_) ||
        !table().PrepareInsert(insert_.raw(), true) || !update_.Prepare(keys)) {
      return false;
    }
    ReadWith(table().MakeParser());
    return true;
  }

 private:
  RecordResult Execute() override {
    // A line whose UPDATE fails counts as one error. No INSERT is tried, whatever the reason.
    Execution update = ExecuteKeyed(session(), update_.raw());
    if (update.refused || update.changed()) {
      return ResultOfKeyed(std::move(update), Outcome::kModified);
    }
    RecordResult result = ResultOfInsert(ExecuteInsert(session(), insert_.raw(), std::nullopt));
    if (update.diagnostics.empty()) return result;
    RecordResult both = ResultOfKeyed(std::move(update), Outcome::kModified);
    both.outcome = result.outcome;
    for (RecordDiagnostic& each : result.diagnostics) both.diagnostics.push_back(std::move(each));
    return both;
  }

  UpdateStatement update_;
  Statement insert_;
};

}  // namespace

std::unique_ptr<ModeSteps> MakeUpdateInsertSteps(ModuleCommun& module, OdbcSession& session) {
  return std::make_unique<UpdateInsertSteps>(module, session);
}

}  // namespace imptable
