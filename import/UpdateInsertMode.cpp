#include "import/UpdateInsertMode.h"

#include <optional>

#include "import/ImportLoop.h"
#include "import/UpdateStatement.h"

namespace imptable {
namespace {

// Numbers of catalogue texts: never change.
constexpr std::int32_t kMessageBanner = 169;
constexpr std::int32_t kMessageInserted = 166;
constexpr std::int32_t kMessageEdited = 167;

class UpdateInsertMode final : public ModeRoutine {
 public:
  UpdateInsertMode(ModuleCommun& module, OdbcSession& session)
      : module_(module),
        session_(session),
        table_(module, session),
        update_(module, session, table_) {}

  std::int32_t BannerMessage() const override { return kMessageBanner; }

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
    return true;
  }

  RecordParser& Parser() override { return *parser_; }

  LineResult ExecuteLine() override {
    RunProgress& progress = module_.run.progress;
    // A line whose UPDATE fails is one error: no INSERT is tried, whatever the reason.
    if (!Execute(update_.raw())) return {true, nullptr};
    if (SaysChanged(ChangedRows(session_, update_.raw()))) return {false, &progress.modified};
    if (!Execute(session_.statement.raw())) return {true, nullptr};
    return {false, &progress.inserted};
  }

  void DropStatements() override {
    update_.Drop();
    session_.statement.Drop();
  }

  std::string CountsText() const override {
    const RunProgress& progress = module_.run.progress;
    return SignedText(progress.modified) + module_.MessageText(kMessageEdited) + ", " +
           std::to_string(progress.inserted) + module_.MessageText(kMessageInserted);
  }

  void ReportSuccess(const std::string& text) override {
    module_.WriteReport(text, ReportKind::kInformation);
  }

  bool FaultFailsDeletion() const override { return false; }

 private:
  bool Execute(SQLHSTMT statement) {
    if (Succeeded(SQLExecute(statement))) return true;
    session_.ReportError(statement);
    return false;
  }

  ModuleCommun& module_;
  OdbcSession& session_;
  TargetTable table_;
  UpdateStatement update_;
  std::optional<RecordParser> parser_;
};

}  // namespace

void RunUpdateInsertMode(ModuleCommun& module, OdbcSession& session, bool complete_name) {
  UpdateInsertMode mode(module, session);
  RunImportMode(module, session, mode, complete_name);
}

}  // namespace imptable
