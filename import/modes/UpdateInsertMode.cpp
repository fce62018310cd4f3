#include "import/modes/UpdateInsertMode.h"

#include <optional>

#include "import/target/Execution.h"
#include "import/target/SentValues.h"
#include "import/target/UpdateStatement.h"

namespace imptable {
namespace {

class UpdateInsertMode final : public ModeRoutine {
 public:
  UpdateInsertMode(ModuleCommun& module, OdbcSession& session)
      : module_(module),
        session_(session),
        table_(module, session),
        update_(module, session, table_) {}

  Message BannerMessage() const override { return Message::kUpdateInsertBanner; }

  bool Prepare() override {
    std::vector<std::string> keys;
    if (!ChooseKeyColumns(module_, session_, keys) || !table_.Load(true)) return false;
    if (session_.statement.Allocate(session_.connection) != SQL_SUCCESS) {
      session_.ReportError();
      return false;
    }
    if (!table_.PrepareInsert(session_.statement.raw(), true) || !update_.Prepare(keys)) {
      return false;
    }
    parser_.emplace(table_.MakeParser());
    values_.emplace(module_, session_, table_);
    return true;
  }

  RecordParser& Parser() override { return *parser_; }

  LineResult ExecuteLine() override {
    RunProgress& progress = module_.run.progress;
    // A line whose UPDATE fails is one error: no INSERT is tried, whatever the reason.
    if (!values_->Check()) return {true, nullptr};
    const Execution update = ExecuteKeyed(session_, update_.raw());
    if (update.refused) return {true, nullptr};
    if (update.changed()) return {false, &progress.modified};
    if (ExecuteInsert(session_, session_.statement.raw(), false).refused) return {true, nullptr};
    return {false, &progress.inserted};
  }

  void DropStatements() override {
    update_.Drop();
    session_.statement.Drop();
  }

  std::string CountsText() const override {
    const RunProgress& progress = module_.run.progress;
    return SignedText(progress.modified) + module_.MessageText(Message::kEdited) + ", " +
           std::to_string(progress.inserted) + module_.MessageText(Message::kInserted);
  }

  void ReportSuccess(const std::string& text) override {
    module_.WriteReport(text, ReportKind::kInformation);
  }

  bool FaultFailsDeletion() const override { return false; }

 private:
  ModuleCommun& module_;
  OdbcSession& session_;
  TargetTable table_;
  UpdateStatement update_;
  std::optional<RecordParser> parser_;
  std::optional<SentValues> values_;
};

}  // namespace

std::unique_ptr<ModeRoutine> MakeUpdateInsertMode(ModuleCommun& module, OdbcSession& session) {
  return std::make_unique<UpdateInsertMode>(module, session);
}

}  // namespace imptable
