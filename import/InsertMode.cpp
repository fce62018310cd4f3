#include "import/InsertMode.h"

#include <optional>

#include "import/ImportLoop.h"
#include "import/TargetTable.h"

namespace imptable {
namespace {

// Numbers of catalogue texts: never change.
constexpr std::int32_t kMessageBanner = 164;
constexpr std::int32_t kMessageCopied = 103;

class InsertMode final : public ModeRoutine {
 public:
  InsertMode(ModuleCommun& module, OdbcSession& session)
      : module_(module), session_(session), table_(module, session) {}

  std::int32_t BannerMessage() const override { return kMessageBanner; }

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
    // A code that is no number would let every duplicate count as an error: say so at once.
    if (module_.run.duplicate_key == 1) AsInt32(module_.run.error_code, "CodErr");
    return true;
  }

  RecordParser& Parser() override { return *parser_; }

  LineResult ExecuteLine() override {
    const SQLHSTMT statement = session_.statement.raw();
    RunProgress& progress = module_.run.progress;
    if (Succeeded(SQLExecute(statement))) return {false, &progress.inserted};
    bool duplicate_ignored = false;
    session_.ReportOdbcError(session_.connection, statement, session_.execution_mode,
                             duplicate_ignored);
    if (duplicate_ignored) return {false, &progress.ignored};
    return {true, nullptr};
  }

  void DropStatements() override { session_.statement.Drop(); }

  std::string CountsText() const override {
    return std::to_string(module_.run.progress.inserted) + module_.MessageText(kMessageCopied);
  }

  void ReportSuccess(const std::string& text) override {
    module_.WriteReport(text, ReportKind::kInformation);
  }

 private:
  ModuleCommun& module_;
  OdbcSession& session_;
  TargetTable table_;
  std::optional<RecordParser> parser_;
};

}  // namespace

void RunInsertMode(ModuleCommun& module, OdbcSession& session, bool complete_name) {
  session.line_number = 0;
  InsertMode mode(module, session);
  RunImportMode(module, session, mode, complete_name);
}

}  // namespace imptable
