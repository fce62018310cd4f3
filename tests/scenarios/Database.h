#ifndef TESTS_SCENARIOS_DATABASE_H_
#define TESTS_SCENARIOS_DATABASE_H_

#include <array>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace imptable {

enum class DatabaseKind { kSqlite, kPostgresql, kMariadb };

inline constexpr std::array kDatabaseKinds{DatabaseKind::kSqlite, DatabaseKind::kPostgresql,
                                           DatabaseKind::kMariadb};

/// As in file names: sqlite, postgresql, mariadb.
std::string_view NameOf(DatabaseKind kind);
/// @throws std::invalid_argument
DatabaseKind DatabaseKindFrom(std::string_view name);

/// A database of its own, empty at first, gone with its owner. It is reached by its maker's client,
/// never by the driver that a test looks at. All throw std::runtime_error with what the client
/// said.
class Database {
 public:
  virtual ~Database() = default;

  /// Its lines in odbc.ini.
  virtual std::string DataSource() const = 0;
  virtual std::string user() const { return {}; }
  virtual std::string password() const { return {}; }
  /// @param sql  one or more statements.
  virtual void Execute(const std::string& sql) = 0;
  /// One row a line, values joined by "|", <null> for NULL.
  virtual std::string Rows(const std::string& query) = 0;
  /// Texts of this database that differ from run to run, and what is compared in their place.
  virtual std::map<std::string, std::string> PassingTexts() const { return {}; }
};

/// @param folder  ends with "/"; for a database that is a file.
/// @throws std::runtime_error  where no server is running: those of tests/servers are found by
///     $IMPTABLE_SERVERS, else where ctest starts them.
std::unique_ptr<Database> MakeDatabase(DatabaseKind kind, const std::string& folder);

}  // namespace imptable

#endif  // TESTS_SCENARIOS_DATABASE_H_
