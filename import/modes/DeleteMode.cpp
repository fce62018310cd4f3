#include <string>
#include <vector>

#include "import/modes/ModeSteps.h"
#include "import/target/Execution.h"
#include "import/target/KeyColumns.h"

namespace imptable {
namespace {

class DeleteSteps final : public ModeSteps {
 public:
  DeleteSteps(ModuleCommun& module, OdbcSession& session) : ModeSteps(module, session) {}

  bool Prepare() override {
    std::vector<std::string> keys;
    if (!ChooseKeyColumns(module(), session(), keys) || !table().Load(false) ||
        !Allocate(delete_) || !PrepareDelete(keys)) {
      return false;
    }
    ReadWith(table().MakeKeyedParser());
    return true;
  }

 private:
  bool PrepareDelete(const std::vector<std::string>& keys) {
    const std::string text = "DELETE FROM " + TableReference(session(), table().name()) +
                             " WHERE " + KeyCondition(session(), keys);
    SQLRETURN code = SQLPrepare(delete_.raw(), SqlText(text), static_cast<SQLINTEGER>(text.size()));
    if (code == SQL_SUCCESS) code = BindKeys(table(), delete_.raw(), 1, keys);
    if (code == SQL_SUCCESS) return true;
    session().ReportOdbcError(delete_.raw());
    return false;
  }

  RecordResult Execute() override {
    return ResultOfKeyed(ExecuteKeyed(session(), delete_.raw()), Outcome::kDeleted);
  }

  Statement delete_;
};

}  // namespace

std::unique_ptr<ModeSteps> MakeDeleteSteps(ModuleCommun& module, OdbcSession& session) {
  return std::make_unique<DeleteSteps>(module, session);
}

}  // namespace imptable
