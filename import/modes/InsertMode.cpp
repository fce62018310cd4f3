#include "import/modes/InsertMode.h"

#include <optional>

#include "import/target/Execution.h"
#include "import/target/SentValues.h"
#include "import/target/TargetTable.h"

namespace imptable {
namespace {

class InsertMode final : public ModeRoutine {
 public:
  InsertMode(ModuleCommun& module, OdbcSession& session)
      : module_(module), session_(session), table_(module, session) {}

  Message BannerMessage() const override { return Message::kInsertBanner; }

  void CheckSettings() const override {
    // A code that is no number would let every duplicate count as an error: say so at once.
    if (module_.run.duplicate_key == 1) AsInt32(module_.run.error_code, "CodErr");
  }

  bool Prepare() override {
    if (!table_.Load(true)) return false;
    if (session_.statement.Allocate(session_.connection) != SQL_SUCCESS) {
      session_.ReportError();
      return false;
    }
    if (!table_.PrepareInsert(session_.statement.raw(), false)) return false;
    // Some drivers prepare anything: without columns every line would be called badly formatted.
    if (table_.columns().empty()) {
      throw RuntimeFault(FaultNumber::kInvalidArgument, "\"Table\" = \"" + module_.run.table + '"');
    }
    parser_.emplace(table_.MakeParser());
    values_.emplace(module_, session_, table_);
    return true;
  }

  RecordParser& Parser() override { return *parser_; }

  LineResult ExecuteLine() override {
    if (!values_->Check()) return {true, nullptr};
    RunProgress& progress = module_.run.progress;
    const Execution insert = ExecuteInsert(session_, session_.statement.raw(), true);
    if (insert.refused) return {true, nullptr};
    return {false, insert.duplicate_ignored ? &progress.ignored : &progress.inserted};
  }

  void DropStatements() override { session_.statement.Drop(); }

  std::string CountsText() const override {
    return std::to_string(module_.run.progress.inserted) + module_.MessageText(Message::kCopied);
  }

  void ReportSuccess(const std::string& text) override {
    module_.WriteReport(text, ReportKind::kInformation);
  }

 private:
  ModuleCommun& module_;
  OdbcSession& session_;
  TargetTable table_;
  std::optional<RecordParser> parser_;
  std::optional<SentValues> values_;
};

}  // namespace

std::unique_ptr<ModeRoutine> MakeInsertMode(ModuleCommun& module, OdbcSession& session) {
  session.line_number = 0;
  return std::make_unique<InsertMode>(module, session);
}

}  // namespace imptable
