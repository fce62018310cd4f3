#include "import/modes/UpdateMode.h"

#include <optional>

#include "import/target/Execution.h"
#include "import/target/SentValues.h"
#include "import/target/UpdateStatement.h"

namespace imptable {
namespace {

class UpdateMode final : public ModeRoutine {
 public:
  UpdateMode(ModuleCommun& module, OdbcSession& session)
      : module_(module),
        session_(session),
        table_(module, session),
        update_(module, session, table_) {}

  Message BannerMessage() const override { return Message::kUpdateBanner; }

  bool Prepare() override {
    std::vector<std::string> keys;
    if (!ChooseKeyColumns(module_, session_, keys) || !table_.Load(true) ||
        !update_.Prepare(keys)) {
      return false;
    }
    parser_.emplace(table_.MakeKeyedParser());
    values_.emplace(module_, session_, table_);
    return true;
  }

  RecordParser& Parser() override { return *parser_; }

  LineResult ExecuteLine() override {
    if (!values_->Check()) return {true, nullptr};
    const Execution execution = ExecuteKeyed(session_, update_.raw());
    if (execution.refused) return {true, nullptr};
    RunProgress& progress = module_.run.progress;
    if (execution.changed()) return {false, &progress.modified};
    return {false, execution.rows == 0 ? &progress.unmatched : nullptr};
  }

  void DropStatements() override {
    update_.Drop();
    session_.statement.Drop();
  }

  std::string CountsText() const override {
    return SignedText(module_.run.progress.modified) + module_.MessageText(Message::kEdited);
  }

  /// The one line of all modes that goes through the component's own writer.
  void ReportSuccess(const std::string& text) override {
    module_.ReportLine(text, module_.run.display, ReportKind::kInformation);
  }

 private:
  ModuleCommun& module_;
  OdbcSession& session_;
  TargetTable table_;
  UpdateStatement update_;
  std::optional<RecordParser> parser_;
  std::optional<SentValues> values_;
};

}  // namespace

std::unique_ptr<ModeRoutine> MakeUpdateMode(ModuleCommun& module, OdbcSession& session) {
  return std::make_unique<UpdateMode>(module, session);
}

}  // namespace imptable
