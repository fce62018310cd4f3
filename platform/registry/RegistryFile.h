#ifndef PLATFORM_REGISTRY_REGISTRY_FILE_H_
#define PLATFORM_REGISTRY_REGISTRY_FILE_H_

#include <sqlite3.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/registry/RegistryFileError.h"

namespace imptable {

/// The open SQLite file that holds a registry. Everything that goes wrong with the file, here and
/// in the queries and transactions on it, is thrown as a RegistryFileError. For one thread; not to
/// be used on both sides of a fork.
class RegistryFile {
 public:
  /// @return false when there is no file at the path. A file that can't be looked at counts as
  /// there.
  static bool IsThere(const std::string& path);

  /// Opens the file. When there is none it is created without tables, for its owner only, together
  /// with the directories on the way to it.
  /// @param lock_wait  how long to wait for other processes before giving up.
  RegistryFile(const std::string& path, std::chrono::milliseconds lock_wait);

  RegistryFile(const RegistryFile&) = delete;
  RegistryFile& operator=(const RegistryFile&) = delete;

  /// @return false for a file that nothing was ever stored in.
  /// @throws RegistryFileError for a database of another kind or of a newer format.
  bool HasTables();

  /// To be called within a write transaction, when HasTables() is false.
  void CreateTables();

  std::int64_t LastInsertedRow() const { return sqlite3_last_insert_rowid(database_.get()); }

  [[noreturn]] void Fail(RegistryFileFault fault, std::string_view detail) const;

 private:
  friend class RegistryQuery;
  friend class RegistryTransaction;

  struct Close {
    void operator()(sqlite3* database) const noexcept { sqlite3_close_v2(database); }
  };
  struct Finalize {
    void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
  };

  void Create() const;
  void CheckKind() const;
  void Execute(const char* sql);
  void SwitchToWriteAheadLog();
  /// @param sql  a string literal. Its statement is prepared once, kept, and found again by the
  /// text.
  sqlite3_stmt* Prepared(std::string_view sql);
  [[noreturn]] void FailWith(int code) const;

  std::string path_;
  std::chrono::milliseconds lock_wait_;
  std::unique_ptr<sqlite3, Close> database_;
  bool in_transaction_ = false;
  std::unordered_map<std::string_view, std::unique_ptr<sqlite3_stmt, Finalize>> statements_;
};

/// One use of a prepared statement. The destructor makes the statement ready for its next use. Two
/// uses of the same text must not overlap.
class RegistryQuery {
 public:
  /// @param sql  a literal.
  RegistryQuery(RegistryFile& file, std::string_view sql);
  ~RegistryQuery();

  RegistryQuery(const RegistryQuery&) = delete;
  RegistryQuery& operator=(const RegistryQuery&) = delete;

  /// The parameters are bound from left to right.
  RegistryQuery& Bind(std::int64_t number);
  RegistryQuery& BindText(std::string_view text);
  RegistryQuery& BindBlob(std::string_view bytes);

  /// @return false when there is no further row.
  bool Step();

  std::int64_t Integer(int column) const;
  std::string Bytes(int column) const;

 private:
  void Check(int code) const;

  RegistryFile& file_;
  sqlite3_stmt* statement_;  // owned by file_
  int bound_ = 0;
};

/// The destructor rolls the transaction back unless it was committed.
class RegistryTransaction {
 public:
  enum class Kind {
    kRead,  // all its queries see the file in the same state
    kWrite  // keeps other writers out from the start
  };

  RegistryTransaction(RegistryFile& file, Kind kind);
  ~RegistryTransaction();

  RegistryTransaction(const RegistryTransaction&) = delete;
  RegistryTransaction& operator=(const RegistryTransaction&) = delete;

  void Commit();

 private:
  RegistryFile& file_;
  bool joined_;  // true within another transaction: this one is a part of that one
  bool open_ = true;
};

}  // namespace imptable

#endif  // PLATFORM_REGISTRY_REGISTRY_FILE_H_
