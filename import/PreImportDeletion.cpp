#include "import/PreImportDeletion.h"

#include <algorithm>
#include <array>
#include <new>
#include <optional>
#include <system_error>

#include "core/Blanks.h"
#include "import/ledger/TaskFiles.h"
#include "import/target/TargetTable.h"
#include "platform/text/CharacterCount.h"

namespace imptable {
namespace {

constexpr int kSections = 20;
constexpr int kKeys = 10;
constexpr std::string_view kMissing = "Non";
constexpr std::size_t kMostValueCharacters = 254;
constexpr std::size_t kMostBytesOfACharacter = 4;
constexpr std::string_view kCountPrefix = " ---->   ";

std::string TwoDigits(int number) {
  return {static_cast<char>('0' + number / 10), static_cast<char>('0' + number % 10)};
}

bool TakesQuotes(std::int16_t sql_type) {
  return sql_type == kSqlChar || sql_type == kSqlVarchar || sql_type == kSqlDate ||
         sql_type == kSqlTime || sql_type == kSqlTimestamp;
}

/// One value of the selection file.
struct Range {
  std::string_view column, low, high;
};

/// @throws RuntimeFault  invalid argument, naming the value, when it has fewer than two commas.
Range SplitRange(std::string_view value) {
  const std::size_t first = value.find(',');
  const std::size_t second = first == std::string_view::npos ? first : value.find(',', first + 1);
  if (second == std::string_view::npos) {
    throw RuntimeFault(FaultNumber::kInvalidArgument, std::string(value));
  }
  return {value.substr(0, first), value.substr(first + 1, second - first - 1),
          value.substr(second + 1)};
}

class DeletionRun {
 public:
  DeletionRun(ModuleCommun& module, OdbcSession& session) : module_(module), session_(session) {}

  void Global() {
    Report(Message::kDeleteAll);
    Guarded(Message::kGlobalDeletionFault, [this] {
      if (!Allocate()) return;
      const std::string text = "TRUNCATE TABLE " + TableReference(session_, TableOf(module_.run));
      if (session_.ExecuteText(Raw(), text) == SQL_SUCCESS) {
        module_.run.progress.deleted_before.reset();
        module_.platform.message_loop.Yield();
      } else {
        Fail();
      }
    });
  }

  void Selective() {
    Report(Message::kDeleteSelected);
    Guarded(Message::kSelectiveDeletionFault, [this] {
      if (!LoadColumns()) return;
      CheckSelection();
      for (int section = 1; section <= kSections; ++section) {
        std::optional<std::string> conditions;
        if (!ReadConditions("Table" + TwoDigits(section), conditions)) return;
        if (conditions && !Execute(*conditions)) return;
      }
    });
  }

 private:
  /// A fault ends the deletion but not the run: the import goes on.
  template <typename Steps>
  void Guarded(Message fault_message, Steps steps) {
    const Hourglass hourglass(module_.platform.mouse_pointer, module_.ShowsHourglass());
    std::optional<RuntimeFault> fault;
    try {
      steps();
    } catch (const RuntimeFault& caught) {
      fault = caught;
    } catch (const std::bad_alloc&) {
      fault = RuntimeFault(FaultNumber::kOutOfMemory);
    }
    statement_.Drop();
    if (!fault) return;
    module_.run.error_reported = true;
    module_.run.fault = fault;
    module_.run.deletion_faulted = true;
    module_.WriteReport(module_.MessageText(fault_message) +
                            std::to_string(static_cast<std::int32_t>(fault->number())),
                        ReportKind::kError);
  }

  void Report(Message message, const std::string& value = {}) {
    module_.WriteReport(module_.MessageText(message) + value, ReportKind::kInformation);
  }

  SQLHSTMT Raw() const { return statement_.raw(); }

  bool Allocate() {
    if (statement_.Allocate(session_.connection) == SQL_SUCCESS) return true;
    session_.ReportOdbcError();
    module_.run.pre_deletion_failed = true;
    return false;
  }

  bool Fail() {
    session_.ReportOdbcError(Raw());
    module_.run.pre_deletion_failed = true;
    return false;
  }

  bool LoadColumns() {
    if (Catalogue(session_, TableOf(module_.run)).GetColumnTypes(columns_)) return true;
    module_.run.pre_deletion_failed = true;
    return false;
  }

  /// Reads the whole file once: some profile readers take an unreadable file for one without
  /// sections.
  void CheckSelection() {
    FileSystem& files = module_.platform.files;
    path_ = files.Locate(SideFilePath(module_.run, kSelectionExtension));
    std::error_code error;
    const auto file = files.OpenForReading(path_, error);
    std::array<char, 4096> block{};
    while (file && file->Read(block.data(), block.size(), error) != 0) {
    }
    if (error) throw FileFault(error, path_);
  }

  /// A key that can't be read must not count as missing: without its condition the DELETE would
  /// remove too many rows.
  std::string ReadValue(const std::string& section, const std::string& key) const {
    try {
      return module_.platform.profile_file.ReadString(
          path_, section, key, kMissing, kMostValueCharacters * kMostBytesOfACharacter);
    } catch (const std::system_error& error) {
      throw FileFault(error.code(), path_);
    }
  }

  /// @return empty when the key is missing.
  std::string ReadRange(const std::string& section, const std::string& key) const {
    std::string value = ReadValue(section, key);
    if (value.starts_with(kMissing)) return {};
    value.resize(
        BytesOfCharacters(value, kMostValueCharacters, module_.platform.encoding.IsUtf8()));
    return value;
  }

  /// @param conditions  the section's conditions joined by " AND "; nullopt when it has no value.
  /// @return false when the table lacks a column: that ends the whole deletion.
  bool ReadConditions(const std::string& section, std::optional<std::string>& conditions) {
    for (int key = 1; key <= kKeys; ++key) {
      const std::string value = ReadRange(section, TwoDigits(key));
      if (value.empty()) continue;
      const Range range = SplitRange(value);
      const auto column = std::find_if(
          columns_.begin(), columns_.end(),
          [&](const TableColumn& each) { return WithoutBlanks(each.name) == range.column; });
      if (column == columns_.end()) {
        Report(Message::kUnknownDeletionColumn,
               std::string(range.column) + module_.MessageText(Message::kAbandonTask));
        module_.run.pre_deletion_failed = true;
        module_.run.error_reported = true;
        return false;
      }
      const std::string quote = TakesQuotes(column->sql_type) ? "'" : "";
      conditions = conditions ? *conditions + " AND " : std::string();
      conditions->append("(").append(QuoteIdentifier(session_, range.column));
      conditions->append(" BETWEEN ").append(quote).append(range.low).append(quote);
      conditions->append(" AND ").append(quote).append(range.high).append(quote).append(")");
    }
    return true;
  }

  bool Execute(const std::string& conditions) {
    const std::string text =
        "DELETE FROM " + TableReference(session_, TableOf(module_.run)) + " WHERE " + conditions;
    if (!Allocate()) return false;
    Report(Message::kRunQuery, text);
    if (session_.ExecuteText(Raw(), text) != SQL_SUCCESS) return Fail();
    SQLLEN rows = 0;
    if (SQLRowCount(Raw(), &rows) != SQL_SUCCESS) return Fail();
    std::optional<std::int64_t>& deleted = module_.run.progress.deleted_before;
    if (rows == -1) {
      deleted.reset();
      Report(Message::kNoneDeleted);
    } else {
      if (deleted) *deleted += rows;
      module_.WriteReport(
          std::string(kCountPrefix) + SignedText(rows) + module_.MessageText(Message::kDeleted),
          ReportKind::kInformation);
    }
    module_.platform.message_loop.Yield();
    statement_.Drop();
    return true;
  }

  ModuleCommun& module_;
  OdbcSession& session_;
  Statement statement_;  // not the import's, which is prepared by now
  std::vector<TableColumn> columns_;
  std::string path_;
};

}  // namespace

void RunGlobalDeletion(ModuleCommun& module, OdbcSession& session) {
  DeletionRun(module, session).Global();
}

void RunSelectiveDeletion(ModuleCommun& module, OdbcSession& session) {
  DeletionRun(module, session).Selective();
}

}  // namespace imptable
