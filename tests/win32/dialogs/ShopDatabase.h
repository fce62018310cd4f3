#ifndef TESTS_WIN32_DIALOGS_SHOP_DATABASE_H_
#define TESTS_WIN32_DIALOGS_SHOP_DATABASE_H_

#include <string>

#include "odbc/OdbcApi.h"

namespace imptable {

/// The database behind the data source "Shop".
class ShopDatabase {
 public:
  /// @throws std::runtime_error  as do the others.
  ShopDatabase();
  ShopDatabase(const ShopDatabase&) = delete;
  ShopDatabase& operator=(const ShopDatabase&) = delete;
  ~ShopDatabase();

  void Execute(const std::string& statement) { Rows(statement); }

  /// Values joined by "|", a row a line.
  std::string Rows(const std::string& query);

 private:
  SQLHENV environment_ = nullptr;
  SQLHDBC connection_ = nullptr;
};

}  // namespace imptable

#endif  // TESTS_WIN32_DIALOGS_SHOP_DATABASE_H_
