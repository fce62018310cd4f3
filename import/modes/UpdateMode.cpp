#include <string>
#include <vector>

#include "import/modes/ModeSteps.h"
#include "import/target/Execution.h"
#include "import/target/UpdateStatement.h"

namespace imptable {
namespace {

class UpdateSteps final : public ModeSteps {
 public:
  UpdateSteps(ModuleCommun& module, OdbcSession& session)
      : ModeSteps(module, session), update_(session, table()) {}

  bool Prepare() override {
    std::vector<std::string> keys;
    if (!ChooseKeyColumns(module(), session(), keys) || !table().Load(true) ||
        !update_.Prepare(keys)) {
      return false;
    }
    ReadWith(table().MakeKeyedParser());
    return true;
  }

 private:
  RecordResult Execute() override {
    return ResultOfKeyed(ExecuteKeyed(session(), update_.raw()), Outcome::kModified);
  }

  UpdateStatement update_;
};

}  // namespace

std::unique_ptr<ModeSteps> MakeUpdateSteps(ModuleCommun& module, OdbcSession& session) {
  return std::make_unique<UpdateSteps>(module, session);
}

}  // namespace imptable
