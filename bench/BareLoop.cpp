#include "bench/BareLoop.h"

#include <chrono>
#include <stdexcept>

#include "import/ledger/TaskFiles.h"
#include "import/source/LineReader.h"
#include "import/target/RecordParser.h"
#include "import/target/UpdateStatement.h"
#include "plugin/ScenarioKeys.h"
#include "plugin/TaskLoading.h"

namespace imptable {
namespace {

void Require(bool holds, const char* what) {
  if (!holds) throw std::runtime_error(what);
}

}  // namespace

BareLoop::BareLoop(ModuleState& state, const std::string& scenario, const std::string& task)
    : module_(state.commun), session_(state.odbc), table_(module_, session_) {
  module_.location = TasksKey(scenario);
  TakeTask(module_, OpenTask(module_, scenario, task));
  const RunState& run = module_.run;
  Require(session_.ConnectDataSource(run.data_source, run.login, run.password), "no connection");
  module_.ReadDecimalSeparator();
  Require(table_.Load(run.mode != ImportMode::kDelete), "no columns");
  buffers_.resize(table_.columns().size());
}

double BareLoop::Seconds() {
  PrepareStatements();
  ReadLines();
  const auto start = std::chrono::steady_clock::now();
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    lines_.Restore(i, buffers_);
    Execute();
  }
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void BareLoop::Prepare(Statement& statement, const std::string& text) {
  Require(statement.Allocate(session_.connection) == SQL_SUCCESS, "no statement");
  Require(Succeeded(SQLPrepare(statement.raw(), SqlText(text), SQL_NTS)), text.c_str());
}

void BareLoop::BindColumns(Statement& statement, SQLUSMALLINT& number) {
  for (std::size_t i = 0; i < buffers_.size(); ++i) Bind(statement, number++, i);
}

void BareLoop::Bind(Statement& statement, SQLUSMALLINT number, std::size_t column) {
  Require(BindParameter(statement.raw(), number, table_.columns()[column], buffers_[column]) ==
              SQL_SUCCESS,
          "bind");
}

/// In the bench's tables the only key column is the first, and every column is written.
void BareLoop::PrepareStatements() {
  const std::vector<std::string> keys{table_.columns().front().name};
  SQLUSMALLINT number = 1;
  switch (module_.run.mode) {
    case ImportMode::kUpdateInsert:
      Prepare(insert_, table_.InsertText());
      BindColumns(insert_, number);
      number = 1;
      [[fallthrough]];
    case ImportMode::kUpdate:
      Prepare(keyed_, UpdateStatement(session_, table_).Text(keys));
      BindColumns(keyed_, number);
      Bind(keyed_, number, 0);
      break;
    case ImportMode::kDelete:
      Prepare(keyed_, "DELETE FROM " + TableReference(session_, table_.name()) + " WHERE " +
                          KeyCondition(session_, keys));
      Bind(keyed_, number, 0);
      break;
    case ImportMode::kInsert:
    case ImportMode::kInsertUpdate:
      Prepare(insert_, table_.InsertText());
      BindColumns(insert_, number);
  }
}

void BareLoop::ReadLines() {
  const std::string path = DataFilePath(module_.run);
  std::error_code error;
  auto file = module_.platform.files.OpenForReading(path, error);
  Require(file != nullptr, "no data file");
  LineReader reader(std::move(file), path, true);
  std::vector<TargetColumn> columns = table_.columns();
  for (TargetColumn& column : columns) column.bound = true;
  RecordParser parser(CompileRecordPlan(module_, columns, buffers_));
  for (std::string_view line; reader.Next(line);) {
    Require(parser.ParseRecord(line) == ParseResult::kRecord, "a line can't be parsed");
    lines_.Keep(buffers_);
  }
}

void BareLoop::Execute() {
  if (keyed_) {
    Require(Succeeded(SQLExecute(keyed_.raw())), "execute");
    SQLLEN rows = 0;
    Require(Succeeded(SQLRowCount(keyed_.raw(), &rows)), "row count");
    if (rows != 0 || !insert_) return;
  }
  Require(Succeeded(SQLExecute(insert_.raw())), "execute");
}

}  // namespace imptable
