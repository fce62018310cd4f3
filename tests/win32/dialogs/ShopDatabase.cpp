#include "tests/win32/dialogs/ShopDatabase.h"

#include <array>
#include <stdexcept>

namespace imptable {

ShopDatabase::ShopDatabase() {
  SQLAllocEnv(&environment_);
  SQLAllocConnect(environment_, &connection_);
  const std::string source = "Shop";
  const std::string nobody;
  if (!Succeeded(SQLConnect(connection_, SqlText(source), SQL_NTS, SqlText(nobody), SQL_NTS,
                            SqlText(nobody), SQL_NTS))) {
    throw std::runtime_error("There is no data source Shop.");
  }
}

ShopDatabase::~ShopDatabase() {
  SQLDisconnect(connection_);
  SQLFreeConnect(connection_);
  SQLFreeEnv(environment_);
}

std::string ShopDatabase::Rows(const std::string& query) {
  SQLHSTMT statement = nullptr;
  SQLAllocStmt(connection_, &statement);
  std::string rows;
  SQLRETURN code = SQLExecDirect(statement, SqlText(query), SQL_NTS);
  const bool is_done = Succeeded(code) || code == SQL_NO_DATA;
  SQLSMALLINT columns = 0;
  SQLNumResultCols(statement, &columns);
  while (columns > 0 && Succeeded(SQLFetch(statement))) {
    for (SQLSMALLINT column = 1; column <= columns; ++column) {
      std::array<char, 256> text{};
      SQLLEN length = 0;
      SQLGetData(statement, static_cast<SQLUSMALLINT>(column), SQL_C_CHAR, text.data(),
                 static_cast<SQLLEN>(text.size()), &length);
      rows += std::string(column > 1 ? "|" : "") + text.data();
    }
    rows += '\n';
  }
  SQLFreeStmt(statement, SQL_DROP);
  if (!is_done) throw std::runtime_error("The database refuses: " + query);
  return rows;
}

}  // namespace imptable
