#include "import/modes/DeleteMode.h"

#include <optional>

#include "import/target/Execution.h"
#include "import/target/KeyColumns.h"
#include "import/target/SentValues.h"

namespace imptable {
namespace {

class DeleteMode final : public ModeRoutine {
 public:
  DeleteMode(ModuleCommun& module, OdbcSession& session)
      : module_(module), session_(session), table_(module, session) {}

  Message BannerMessage() const override { return Message::kDeleteBanner; }

  bool Prepare() override {
    std::vector<std::string> keys;
    if (!ChooseKeyColumns(module_, session_, keys) || !table_.Load(false)) return false;
    if (delete_.Allocate(session_.connection) != SQL_SUCCESS) {
      session_.ReportError();
      return false;
    }
    const std::string text = "DELETE FROM " + TableReference(module_, session_) + " WHERE " +
                             KeyCondition(session_, keys);
    SQLRETURN code = SQLPrepare(delete_.raw(), SqlText(text), static_cast<SQLINTEGER>(text.size()));
    if (code == SQL_SUCCESS) code = BindKeys(table_, delete_.raw(), 1, keys);
    if (code != SQL_SUCCESS) {
      session_.ReportError(delete_.raw());
      return false;
    }
    parser_.emplace(table_.MakeKeyedParser());
    values_.emplace(module_, session_, table_);
    return true;
  }

  RecordParser& Parser() override { return *parser_; }

  LineResult ExecuteLine() override {
    if (!values_->Check()) return {true, nullptr};
    const Execution execution = ExecuteKeyed(session_, delete_.raw());
    if (execution.refused) return {true, nullptr};
    RunProgress& progress = module_.run.progress;
    if (execution.changed()) return {false, &progress.deleted};
    return {false, execution.rows == 0 ? &progress.unmatched : nullptr};
  }

  void DropStatements() override {
    delete_.Drop();
    session_.statement.Drop();
  }

  std::string CountsText() const override {
    return SignedText(module_.run.progress.deleted) + module_.MessageText(Message::kDeleted);
  }

  void ReportSuccess(const std::string& text) override {
    module_.WriteReport(text, ReportKind::kSuccess);
  }

 private:
  ModuleCommun& module_;
  OdbcSession& session_;
  TargetTable table_;
  Statement delete_;
  std::optional<RecordParser> parser_;
  std::optional<SentValues> values_;
};

}  // namespace

std::unique_ptr<ModeRoutine> MakeDeleteMode(ModuleCommun& module, OdbcSession& session) {
  return std::make_unique<DeleteMode>(module, session);
}

}  // namespace imptable
