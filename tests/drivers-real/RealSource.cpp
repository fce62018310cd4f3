#include "tests/drivers-real/RealSource.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <sstream>
#include <stdexcept>
#include <thread>

#include "import/target/TargetTable.h"

namespace imptable {
namespace {

ScriptedDataSource::Values ValuesOf(const std::string& lines) {
  ScriptedDataSource::Values values;
  std::istringstream rest(lines);
  for (std::string line; std::getline(rest, line);) {
    const std::size_t equals = line.find('=');
    if (equals != std::string::npos) {
      values.emplace_back(line.substr(0, equals), line.substr(equals + 1));
    }
  }
  return values;
}

}  // namespace

RealSource::RealSource(DatabaseKind kind, const std::string& options)
    : kind_(kind), database_(MakeDatabase(kind, folder_.path())) {
  source_ = session_.source.Add(std::string(NameOf(kind)),
                                ValuesOf(database_->DataSource() + options + "\n"));
  if (!odbc().ConnectDataSource(source_, database_->user(), database_->password())) {
    throw std::runtime_error("No connection: " + session_.Boxes().back());
  }
}

Catalogue RealSource::Of(const std::string& table) {
  session_.run().table = table;
  return session_.catalogue();
}

std::vector<std::string> RealSource::Columns(const std::string& table) {
  std::vector<TableColumn> columns;
  if (!Of(table).GetTableColumns(columns)) return {"<failed>"};
  std::vector<std::string> texts;
  for (const TableColumn& column : columns) {
    texts.push_back(column.name + ' ' + std::to_string(column.sql_type) + ' ' + column.type_name +
                    ' ' + std::to_string(column.precision) + ' ' + std::to_string(column.scale));
  }
  return texts;
}

std::vector<std::string> RealSource::PrimaryKey(const std::string& table) {
  std::vector<KeyColumn> key;
  if (!Of(table).GetPrimaryKeyColumns(key)) return {"<failed>"};
  std::vector<std::string> names;
  for (const KeyColumn& column : key) names.push_back(column.column_name);
  return names;
}

std::vector<std::string> RealSource::VersionedColumns(const std::string& table) {
  std::vector<TableColumn> columns;
  std::vector<std::string> versions;
  if (!Of(table).GetTableColumns(columns) || !Of(table).GetSpecialColumns(versions)) {
    return {"<failed>"};
  }
  // A database may have versions that are no column of the table.
  std::erase_if(versions, [&](const std::string& name) {
    return std::none_of(columns.begin(), columns.end(),
                        [&](const TableColumn& column) { return column.name == name; });
  });
  return versions;
}

std::string RealSource::Outcome(SQLRETURN code) {
  if (Succeeded(code)) {
    SQLLEN rows = 0;
    if (SQLRowCount(statement_.raw(), &rows) != SQL_SUCCESS) return "no count";
    return (code == SQL_SUCCESS ? "" : "information, ") + std::to_string(rows) + " row(s)";
  }
  if (code == SQL_NO_DATA) return "no data";
  std::array<SQLCHAR, 6> state{};
  SQLINTEGER native = 0;
  SQLSMALLINT length = 0;
  SQLError(odbc().environment, odbc().connection, statement_.raw(), state.data(), &native, nullptr,
           0, &length);
  return std::string(reinterpret_cast<const char*>(state.data())) + ' ' + std::to_string(native);
}

std::string RealSource::Do(const std::string& sql) {
  statement_.Allocate(odbc().connection);
  return Outcome(SQLExecDirect(statement_.raw(), SqlText(sql), SQL_NTS));
}

std::string RealSource::DoPrepared(const std::string& sql, std::vector<std::string> values) {
  statement_.Allocate(odbc().connection);
  const SQLRETURN code = SQLPrepare(statement_.raw(), SqlText(sql), SQL_NTS);
  if (code != SQL_SUCCESS) return "prepared: " + Outcome(code);
  values_ = std::move(values);
  lengths_.resize(values_.size());
  for (std::size_t n = 0; n < values_.size(); ++n) {
    lengths_[n] = static_cast<SQLLEN>(values_[n].size());
    SQLBindParameter(statement_.raw(), static_cast<SQLUSMALLINT>(n + 1), SQL_PARAM_INPUT,
                     SQL_C_CHAR, kSqlVarchar, 30, 0, SqlText(values_[n]), lengths_[n],
                     &lengths_[n]);
  }
  return Again();
}

std::string RealSource::DoWithTime(const std::string& sql) {
  statement_.Allocate(odbc().connection);
  ParameterBuffer buffer;
  buffer.SetDate(
      {.year = 2006, .month = 1, .day = 2, .hour = 8, .minute = 30, .second = 0, .fraction = 0});
  const TableColumn column{"stamp", kSqlTimestamp, "", 0, 0, 1};
  SQLPrepare(statement_.raw(), SqlText(sql), SQL_NTS);
  BindParameter(statement_.raw(), 1, column, buffer);
  return Again();
}

std::string RealSource::DoWithText(const std::string& sql, std::int16_t sql_type,
                                   const std::string& text) {
  statement_.Allocate(odbc().connection);
  ParameterBuffer buffer;
  buffer.SetText(text, true);
  const TableColumn column{"at", sql_type, "", 8, 0, 1};
  SQLPrepare(statement_.raw(), SqlText(sql), SQL_NTS);
  BindParameter(statement_.raw(), 1, column, buffer);
  return Again();
}

std::string RealSource::Again() { return Outcome(SQLExecute(statement_.raw())); }

bool RealSource::ConnectAs(const std::string& user, const std::string& password) {
  statement_.Drop();
  odbc().DisconnectDataSource();
  return odbc().ConnectDataSource(source_, user, password);
}

void RealSource::HangUp() {
  if (kind_ == DatabaseKind::kPostgresql) {
    database_->Execute(
        "SELECT pg_terminate_backend(pid, 10000) FROM pg_stat_activity "
        "WHERE datname = current_database() AND pid <> pg_backend_pid();");
    return;
  }
  const std::string connections =
      "SELECT id FROM information_schema.processlist WHERE db = DATABASE() AND id <> "
      "CONNECTION_ID();";
  database_->Execute("KILL " + database_->Rows(connections) + ";");
  for (int tries = 0; tries < 1000 && !database_->Rows(connections).empty(); ++tries) {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
}

}  // namespace imptable
