#include "odbc/Catalogue.h"

#include <algorithm>

namespace imptable {
namespace {

constexpr std::size_t kTypeNameBytes = 51;
constexpr std::size_t kLeastTableNameBytes = 257;  // drivers give longer names than they announce

/// A text column of a result set: its buffer and its length indicator.
class TextCell {
 public:
  explicit TextCell(std::size_t bytes) : buffer_(bytes) {}

  SQLRETURN Bind(SQLHSTMT statement, SQLUSMALLINT column) {
    return SQLBindCol(statement, column, SQL_C_CHAR, buffer_.data(),
                      static_cast<SQLLEN>(buffer_.size()), &length_);
  }

  std::string Text() const {
    const auto length = std::clamp<SQLLEN>(length_, 0, static_cast<SQLLEN>(buffer_.size()) - 1);
    return {buffer_.data(), static_cast<std::size_t>(length)};
  }

 private:
  std::vector<char> buffer_;
  SQLLEN length_ = 0;
};

/// One catalogue query: a statement, its bindings, its fetch loop and its failures.
class CatalogueQuery {
 public:
  explicit CatalogueQuery(OdbcSession& session) : session_(session) {
    if (statement_.Allocate(session.connection) != SQL_SUCCESS) session.ReportOdbcError();
  }

  bool allocated() const { return static_cast<bool>(statement_); }
  SQLHSTMT raw() const { return statement_.raw(); }
  std::size_t NameBytes() const { return std::size_t{session_.max_column_name_length} + 1; }

  bool Ran(SQLRETURN code) { return Succeeded(code) || Fail(); }

  /// @param code  the result of one binding.
  bool Bound(SQLRETURN code) { return code == SQL_SUCCESS || Fail(); }

  SQLRETURN BindShort(SQLUSMALLINT column, SQLSMALLINT& target) {
    return SQLBindCol(raw(), column, SQL_C_SHORT, &target, sizeof target, &scratch_);
  }
  SQLRETURN BindInteger(SQLUSMALLINT column, SQLINTEGER& target) {
    return SQLBindCol(raw(), column, SQL_C_LONG, &target, sizeof target, &scratch_);
  }

  /// @param before  clears the row's buffers, because a driver leaves the buffer of a null
  /// untouched.
  /// @param take  stores the fetched row.
  template <typename Before, typename Take>
  bool FetchAll(Before before, Take take) {
    for (;;) {
      before();
      const SQLRETURN code = SQLFetch(raw());
      if (code == SQL_NO_DATA) return true;
      if (code != SQL_SUCCESS) return Fail();
      take();
    }
  }

 private:
  bool Fail() {
    session_.ReportOdbcError(raw());
    return false;
  }

  OdbcSession& session_;
  Statement statement_;
  SQLLEN scratch_ = 0;
};

/// The owner argument of a catalogue call: a null pointer when there is none.
struct OwnerArgument {
  explicit OwnerArgument(const std::string& owner)
      : text(owner.empty() ? nullptr : SqlText(owner)),
        length(static_cast<SQLSMALLINT>(owner.size())) {}
  SQLCHAR* text;
  SQLSMALLINT length;
};

SQLSMALLINT Length(const std::string& text) { return static_cast<SQLSMALLINT>(text.size()); }

}  // namespace

bool Catalogue::GetTableColumns(std::vector<TableColumn>& columns) {
  columns.clear();
  CatalogueQuery query(session_);
  if (!query.allocated()) return false;
  std::string table = table_.name;
  EscapeUnderscores(table, session_.escape_char);
  const OwnerArgument owner(table_.owner);
  if (!query.Ran(SQLColumns(query.raw(), nullptr, 0, owner.text, owner.length, SqlText(table),
                            Length(table), nullptr, 0))) {
    return false;
  }
  TextCell name(query.NameBytes());
  TextCell type_name(kTypeNameBytes);
  SQLSMALLINT sql_type = 0;
  SQLINTEGER precision = 0;
  SQLSMALLINT scale = 0;
  SQLSMALLINT nullable = 0;
  if (!query.Bound(name.Bind(query.raw(), 4)) || !query.Bound(query.BindShort(5, sql_type)) ||
      !query.Bound(type_name.Bind(query.raw(), 6)) ||
      !query.Bound(query.BindInteger(7, precision)) || !query.Bound(query.BindShort(9, scale)) ||
      !query.Bound(query.BindShort(11, nullable))) {
    return false;
  }
  return query.FetchAll(
      [&] {
        sql_type = scale = nullable = 0;
        precision = 0;
      },
      [&] {
        columns.push_back({name.Text(), sql_type, type_name.Text(), precision, scale, nullable});
      });
}

bool Catalogue::GetColumnTypes(std::vector<TableColumn>& columns) {
  columns.clear();
  CatalogueQuery query(session_);
  if (!query.allocated()) return false;
  const OwnerArgument owner(table_.owner);
  const std::string& table = table_.name;
  if (!query.Ran(SQLColumns(query.raw(), nullptr, 0, owner.text, owner.length, SqlText(table),
                            Length(table), nullptr, 0))) {
    return false;
  }
  TextCell name(query.NameBytes());
  SQLSMALLINT sql_type = 0;
  if (!query.Bound(name.Bind(query.raw(), 4)) || !query.Bound(query.BindShort(5, sql_type))) {
    return false;
  }
  return query.FetchAll([&] { sql_type = 0; },
                        [&] {
                          TableColumn column;
                          column.name = name.Text();
                          column.sql_type = sql_type;
                          columns.push_back(std::move(column));
                        });
}

bool Catalogue::GetSpecialColumns(std::vector<std::string>& names) {
  names.clear();
  CatalogueQuery query(session_);
  if (!query.allocated()) return false;
  const OwnerArgument owner(table_.owner);
  const std::string& table = table_.name;
  if (!query.Ran(SQLSpecialColumns(query.raw(), SQL_ROWVER, nullptr, 0, owner.text, owner.length,
                                   SqlText(table), Length(table), SQL_SCOPE_CURROW,
                                   SQL_NULLABLE))) {
    return false;
  }
  TextCell name(query.NameBytes());
  if (!query.Bound(name.Bind(query.raw(), 2))) return false;
  return query.FetchAll([] {}, [&] { names.push_back(name.Text()); });
}

bool Catalogue::CanListPrimaryKeys() const {
  SQLUSMALLINT supported = SQL_FALSE;
  SQLGetFunctions(session_.connection, SQL_API_SQLPRIMARYKEYS, &supported);
  return supported != SQL_FALSE;
}

bool Catalogue::GetPrimaryKeyColumns(std::vector<KeyColumn>& key) {
  key.clear();
  CatalogueQuery query(session_);
  if (!query.allocated()) return false;
  const OwnerArgument owner(table_.owner);
  const std::string& table = table_.name;
  if (!query.Ran(SQLPrimaryKeys(query.raw(), nullptr, 0, owner.text, owner.length, SqlText(table),
                                Length(table)))) {
    return false;
  }
  TextCell column_name(query.NameBytes());
  SQLSMALLINT position = 0;
  TextCell key_name(query.NameBytes());
  if (!query.Bound(column_name.Bind(query.raw(), 4)) ||
      !query.Bound(query.BindShort(5, position)) || !query.Bound(key_name.Bind(query.raw(), 6))) {
    return false;
  }
  return query.FetchAll([&] { position = 0; },
                        [&] {
                          key.push_back({column_name.Text(), position, {}});
                        });
}

bool Catalogue::GetUniqueIndexColumns(std::vector<KeyColumn>& key) {
  key.clear();
  CatalogueQuery query(session_);
  if (!query.allocated()) return false;
  const OwnerArgument owner(table_.owner);
  const std::string& table = table_.name;
  if (!query.Ran(SQLStatistics(query.raw(), nullptr, 0, owner.text, owner.length, SqlText(table),
                               Length(table), SQL_INDEX_UNIQUE, SQL_QUICK))) {
    return false;
  }
  TextCell column_name(query.NameBytes());
  SQLSMALLINT position = 0;
  TextCell index_name(query.NameBytes());
  SQLSMALLINT type = SQL_TABLE_STAT;
  if (!query.Bound(column_name.Bind(query.raw(), 9)) ||
      !query.Bound(query.BindShort(8, position)) || !query.Bound(index_name.Bind(query.raw(), 6)) ||
      !query.Bound(query.BindShort(7, type))) {
    return false;
  }
  return query.FetchAll(
      [&] {
        position = 0;
        type = SQL_TABLE_STAT;
      },
      [&] {
        if (type == SQL_TABLE_STAT) return;
        key.push_back({column_name.Text(), position, index_name.Text()});
      });
}

bool Catalogue::GetTables(std::vector<TableName>& tables) {
  tables.clear();
  CatalogueQuery query(session_);
  if (!query.allocated()) return false;
  const std::string type = "'TABLE'";
  if (!query.Ran(SQLTables(query.raw(), nullptr, 0, nullptr, 0, nullptr, 0, SqlText(type),
                           Length(type)))) {
    return false;
  }
  const std::size_t name_bytes =
      std::max(std::size_t{session_.max_table_name_length} + 1, kLeastTableNameBytes);
  TextCell owner(name_bytes);
  TextCell name(name_bytes);
  if (!query.Bound(owner.Bind(query.raw(), 2)) || !query.Bound(name.Bind(query.raw(), 3))) {
    return false;
  }
  return query.FetchAll([] {}, [&] { tables.push_back({owner.Text(), name.Text()}); });
}

std::string QuoteIdentifier(const OdbcSession& session, std::string_view name) {
  return session.quote_char + std::string(name) + session.quote_char;
}

std::string TableReference(const OdbcSession& session, const TableName& table) {
  std::string reference = QuoteIdentifier(session, table.name);
  if (table.owner.empty()) return reference;
  return QuoteIdentifier(session, table.owner) + '.' + reference;
}

void EscapeUnderscores(std::string& name, std::string_view escape) {
  for (std::size_t at = name.find('_'); at != std::string::npos; at = name.find('_', at)) {
    name.insert(at, escape);
    at += escape.size() + 1;
  }
}

}  // namespace imptable
