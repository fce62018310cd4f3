#include "import/UpdateMode.h"

#include <optional>

#include "import/ImportLoop.h"
#include "import/UpdateStatement.h"

namespace imptable {
namespace {

// Numbers of catalogue texts: never change.
constexpr std::int32_t kMessageBanner = 168;
constexpr std::int32_t kMessageEdited = 167;

class UpdateMode final : public ModeRoutine {
 public:
  UpdateMode(ModuleCommun& module, OdbcSession& session)
      : module_(module),
        session_(session),
        table_(module, session),
        update_(module, session, table_) {}

  std::int32_t BannerMessage() const override { return kMessageBanner; }

  bool Prepare() override {
    std::vector<std::string> keys;
    if (!ChooseKeyColumns(module_, session_, keys) || !table_.Load(true) ||
        !update_.Prepare(keys)) {
      return false;
    }
    parser_.emplace(table_.MakeParser());
    return true;
  }

  RecordParser& Parser() override { return *parser_; }

  LineResult ExecuteLine() override {
    if (Succeeded(SQLExecute(update_.raw()))) {
      const bool changed = SaysChanged(ChangedRows(session_, update_.raw()));
      return {false, changed ? &module_.run.progress.modified : nullptr};
    }
    session_.ReportError(update_.raw());
    return {true, nullptr};
  }

  void DropStatements() override {
    update_.Drop();
    session_.statement.Drop();
  }

  std::string CountsText() const override {
    return SignedText(module_.run.progress.modified) + module_.MessageText(kMessageEdited);
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
};

}  // namespace

void RunUpdateMode(ModuleCommun& module, OdbcSession& session, bool complete_name) {
  UpdateMode mode(module, session);
  RunImportMode(module, session, mode, complete_name);
}

}  // namespace imptable
