#include "tests/scenarios/Database.h"

#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "tests/scenarios/ChildProcess.h"
#include "tests/scenarios/CommandUnderTest.h"

namespace imptable {
namespace {

constexpr std::array<std::string_view, 3> kNames{"sqlite", "postgresql", "mariadb"};

class SqliteDatabase : public Database {
 public:
  explicit SqliteDatabase(const std::string& folder) : path_(folder + "database.db") {}

  std::string DataSource() const override {
    return "Driver=" + TheCommand().SqliteDriver() + "\nDatabase=" + path_ +
           "\nSyncPragma=OFF\nTimeout=10000\n";
  }
  void Execute(const std::string& sql) override { Client(sql); }
  std::string Rows(const std::string& query) override { return Client(query); }

 private:
  std::string Client(const std::string& sql) const {
    return OutputOf({.words = {"sqlite3", "-batch", "-bail", "-noheader", "-list", "-separator",
                               "|", "-nullvalue", "<null>", path_},
                     .input = sql});
  }

  std::string path_;
};

/// What tests/servers/start wrote.
class Servers {
 public:
  Servers() {
    const char* const other = std::getenv("IMPTABLE_SERVERS");
    const std::string folder = other != nullptr ? other : SERVERS_FOLDER;
    std::ifstream file(folder + "/servers.env");
    if (!file) {
      throw std::runtime_error("No server is running: tests/servers/start " + folder);
    }
    std::string line;
    while (std::getline(file, line)) {
      const std::size_t at = line.find('=');
      if (at != std::string::npos) values_[line.substr(0, at)] = line.substr(at + 1);
    }
  }
  std::string operator[](const std::string& name) const { return values_.at(name); }

 private:
  std::map<std::string, std::string> values_;
};

std::string FreshName() {
  static int count = 0;
  return "scenario_" + std::to_string(getpid()) + '_' + std::to_string(++count);
}

class ServerDatabase : public Database {
 public:
  std::string user() const override { return servers_["SERVERS_USER"]; }
  std::string password() const override { return servers_["SERVERS_PASSWORD"]; }
  std::map<std::string, std::string> PassingTexts() const override {
    return {{"port " + port_, "port {PORT}"},
            {'"' + name_ + '"', "\"{DATABASE}\""},
            {'\'' + name_ + '\'', "'{DATABASE}'"},
            {'`' + name_ + '`', "`{DATABASE}`"},
            {'\'' + name_ + '.', "'{DATABASE}."}};
  }

 protected:
  explicit ServerDatabase(const std::string& port) : port_(servers_[port]) {}

  const Servers& servers() const { return servers_; }
  const std::string& port() const { return port_; }
  const std::string& name() const { return name_; }

 private:
  Servers servers_;
  std::string port_;
  std::string name_ = FreshName();
};

class PostgresqlDatabase : public ServerDatabase {
 public:
  PostgresqlDatabase() : ServerDatabase("POSTGRESQL_PORT") {
    Client("postgres", "CREATE DATABASE " + name() + " TEMPLATE template0");
  }
  ~PostgresqlDatabase() override {
    try {
      Client("postgres", "DROP DATABASE " + name() + " WITH (FORCE)");
    } catch (const std::exception&) {
      // It goes with its server at the latest.
    }
  }

  std::string DataSource() const override {
    return "Driver=" POSTGRESQL_ODBC_DRIVER "\nServername=127.0.0.1\nPort=" + port() +
           "\nDatabase=" + name() + "\n";
  }
  void Execute(const std::string& sql) override { Client(name(), sql); }
  std::string Rows(const std::string& query) override { return Client(name(), query); }

 private:
  std::string Client(const std::string& database, const std::string& sql) const {
    return OutputOf({.words = {servers()["POSTGRESQL_BIN"] + "/psql", "-X", "-q", "-A", "-t", "-F",
                               "|", "-P", "null=<null>", "-v", "ON_ERROR_STOP=1", "-h", "127.0.0.1",
                               "-p", port(), "-U", user(), "-d", database},
                     .environment = {{"PGPASSWORD", password()}, {"PGCLIENTENCODING", "UTF8"}},
                     .input = sql});
  }
};

class MariadbDatabase : public ServerDatabase {
 public:
  MariadbDatabase() : ServerDatabase("MARIADB_PORT") {
    Client("mysql", "CREATE DATABASE " + name() + " CHARACTER SET utf8mb4");
  }
  ~MariadbDatabase() override {
    try {
      Client("mysql", "DROP DATABASE " + name());
    } catch (const std::exception&) {
      // It goes with its server at the latest.
    }
  }

  std::string DataSource() const override {
    return "Driver=" MARIADB_ODBC_DRIVER "\nServer=127.0.0.1\nPort=" + port() +
           "\nDatabase=" + name() + "\n";
  }
  void Execute(const std::string& sql) override { Client(name(), sql); }

  std::string Rows(const std::string& query) override {
    std::istringstream lines(Client(name(), query));
    std::string rows;
    std::string line;
    while (std::getline(lines, line)) {
      std::istringstream values(line + '\t');
      std::string value;
      for (bool first = true; std::getline(values, value, '\t'); first = false) {
        if (!first) rows += '|';
        // The client writes a null as NULL, which can't be told from the text NULL.
        rows += value == "NULL" ? "<null>" : value;
      }
      rows += '\n';
    }
    return rows;
  }

 private:
  std::string Client(const std::string& database, const std::string& sql) const {
    return OutputOf({.words = {"mariadb", "--no-defaults", "--batch", "--skip-column-names",
                               "--default-character-set=utf8mb4", "-h", "127.0.0.1", "-P", port(),
                               "-u", user(), database},
                     .environment = {{"MYSQL_PWD", password()}},
                     .input = sql});
  }
};

}  // namespace

std::string_view NameOf(DatabaseKind kind) { return kNames[static_cast<std::size_t>(kind)]; }

DatabaseKind DatabaseKindFrom(std::string_view name) {
  for (const DatabaseKind kind : kDatabaseKinds) {
    if (NameOf(kind) == name) return kind;
  }
  throw std::invalid_argument("No such database: " + std::string(name));
}

std::unique_ptr<Database> MakeDatabase(DatabaseKind kind, const std::string& folder) {
  switch (kind) {
    case DatabaseKind::kSqlite:
      return std::make_unique<SqliteDatabase>(folder);
    case DatabaseKind::kPostgresql:
      return std::make_unique<PostgresqlDatabase>();
    case DatabaseKind::kMariadb:
      return std::make_unique<MariadbDatabase>();
  }
  throw std::invalid_argument("No such database");
}

}  // namespace imptable
