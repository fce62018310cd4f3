#include "import/DeleteMode.h"

#include <optional>

#include "import/ImportLoop.h"
#include "import/KeyColumns.h"

namespace imptable {
namespace {

// Numbers of catalogue texts: never change.
constexpr std::int32_t kMessageBanner = 158;
constexpr std::int32_t kMessageDeleted = 110;

class DeleteMode final : public ModeRoutine {
 public:
  DeleteMode(ModuleCommun& module, OdbcSession& session)
      : module_(module), session_(session), table_(module, session) {}

  std::int32_t BannerMessage() const override { return kMessageBanner; }

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
    parser_.emplace(table_.MakeParser());
    return true;
  }

  RecordParser& Parser() override { return *parser_; }

  LineResult ExecuteLine() override {
    if (Succeeded(SQLExecute(delete_.raw()))) {
      const bool changed = SaysChanged(ChangedRows(session_, delete_.raw()));
      return {false, changed ? &module_.run.progress.deleted : nullptr};
    }
    session_.ReportError(delete_.raw());
    return {true, nullptr};
  }

  void DropStatements() override {
    delete_.Drop();
    session_.statement.Drop();
  }

  std::string CountsText() const override {
    return SignedText(module_.run.progress.deleted) + module_.MessageText(kMessageDeleted);
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
};

}  // namespace

void RunDeleteMode(ModuleCommun& module, OdbcSession& session, bool complete_name) {
  DeleteMode mode(module, session);
  RunImportMode(module, session, mode, complete_name);
}

}  // namespace imptable
