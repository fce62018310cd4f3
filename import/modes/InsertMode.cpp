#include <optional>

#include "import/modes/ModeSteps.h"
#include "import/target/Execution.h"

namespace imptable {
namespace {

class InsertSteps final : public ModeSteps {
 public:
  InsertSteps(ModuleCommun& module, OdbcSession& session) : ModeSteps(module, session) {
    module.run.line_number = 0;
  }

  bool Prepare() override {
    ignorable_ = IgnorableCode(module().run);
    if (!table().Load(true) || !Allocate(insert_) || !table().PrepareInsert(insert_.raw(), false)) {
      return false;
    }
    // Some drivers prepare any text. Without columns every line would then be called badly
    // formatted.
    if (table().columns().empty()) {
      throw RuntimeFault(FaultNumber::kInvalidArgument,
                         "\"Table\" = \"" + module().run.table + '"');
    }
    ReadWith(table().MakeParser());
    return true;
  }

 private:
  RecordResult Execute() override {
    return ResultOfInsert(ExecuteInsert(session(), insert_.raw(), ignorable_));
  }

  std::optional<SQLINTEGER> ignorable_;
  Statement insert_;
};

}  // namespace

std::unique_ptr<ModeSteps> MakeInsertSteps(ModuleCommun& module, OdbcSession& session) {
  return std::make_unique<InsertSteps>(module, session);
}

}  // namespace imptable
