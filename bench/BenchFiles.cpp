#include "bench/BenchFiles.h"

#include <sqlite3.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>

namespace imptable {
namespace {

using Database = std::unique_ptr<sqlite3, int (*)(sqlite3*)>;

Database Open(const std::string& path) {
  sqlite3* raw = nullptr;
  const int code = sqlite3_open(path.c_str(), &raw);
  Database database(raw, sqlite3_close);
  if (code != SQLITE_OK) throw std::runtime_error(path);
  return database;
}

void Execute(sqlite3* database, const std::string& sql) {
  if (sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
    throw std::runtime_error(sqlite3_errmsg(database));
  }
}

}  // namespace

void WriteLines(const std::string& path, int first, int lines) {
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "w"), std::fclose);
  if (!file) throw std::runtime_error(path);
  for (int i = first; i < first + lines; ++i) {
    std::fprintf(file.get(),
                 "%d;Customer %07d;%d Example Street;Springfield %d;%d.%02d;0.%02d;%02d/%02d/%d;"
                 "note on the customer number %d\n",
                 i, i, i % 977, i % 83, i % 10000, i % 100, i % 97, i % 28 + 1, i % 12 + 1,
                 1950 + i % 60, i);
  }
}

std::vector<std::string> CustomerTask(const std::string& source, const std::string& folder,
                                      const std::string& alias) {
  return {"Base Cible=" + source, "Table=CUSTOMER",  "Dir=" + folder,
          "Alias=" + alias,       "Mode=0",          "Cle/Index=ID",
          "FormatFile=1",         "SepDec=1",        "NombreColonnes=8",
          "Colonnes\\1=3",        "Colonnes\\2=1",   "Colonnes\\3=1",
          "Colonnes\\4=1",        "Colonnes\\5=5,2", "Colonnes\\6=5,2",
          "Colonnes\\7=7,7,,/,",  "Colonnes\\8=1"};
}

void MakeDatabase(const std::string& path, int rows) {
  std::filesystem::remove(path);
  const Database database = Open(path);
  Execute(database.get(),
          "PRAGMA synchronous = OFF;"
          "CREATE TABLE CUSTOMER (ID INTEGER NOT NULL PRIMARY KEY, NAME VARCHAR(40),"
          " STREET VARCHAR(40), CITY VARCHAR(30), PRICE DECIMAL(10,2), RATE DECIMAL(8,2),"
          " BORN DATE, NOTE VARCHAR(60));"
          "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
              std::to_string(rows) +
              ") INSERT INTO CUSTOMER SELECT i, 'before', '', '', 0, 0, '2000-01-01', '' FROM n"
              " WHERE i <= " +
              std::to_string(rows));
}

int CountRows(const std::string& path) {
  const Database database = Open(path);
  int rows = -1;
  sqlite3_exec(
      database.get(), "SELECT count(*) FROM CUSTOMER",
      [](void* out, int, char** values, char**) {
        *static_cast<int*>(out) = std::stoi(values[0]);
        return 0;
      },
      &rows, nullptr);
  return rows;
}

void WriteFile(const std::string& path, const std::string& text) {
  std::ofstream file(path, std::ios::binary);
  if (!(file << text)) throw std::runtime_error(path);
}

void CopyFile(const std::string& from, const std::string& to) {
  std::filesystem::copy_file(from, to, std::filesystem::copy_options::overwrite_existing);
}

}  // namespace imptable
