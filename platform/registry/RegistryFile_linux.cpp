#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cassert>
#include <cerrno>
#include <new>
#include <system_error>
#include <thread>

#include "platform/registry/RegistryFile.h"

namespace imptable {
namespace {

// Stored in the file: never change.
constexpr std::int64_t kApplicationId = 0x496D7052;
constexpr std::int64_t kFormat = 1;

// A root is the row whose id is its handle number. Further ids count from 1 and values are in the
// order of their ids, so that an overwritten value keeps its place.
constexpr const char* kSchema = R"sql(
  CREATE TABLE keys (
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    parent INTEGER REFERENCES keys(id),
    name TEXT NOT NULL,
    folded TEXT NOT NULL,
    UNIQUE (parent, folded));
  CREATE TABLE "values" (
    id INTEGER PRIMARY KEY,
    key INTEGER NOT NULL REFERENCES keys(id) ON DELETE CASCADE,
    name TEXT NOT NULL,
    folded TEXT NOT NULL,
    type INTEGER NOT NULL,
    data BLOB NOT NULL,
    UNIQUE (key, folded));
  INSERT INTO keys (id, name, folded) VALUES
    (-2147483647, 'HKEY_CURRENT_USER', 'HKEY_CURRENT_USER'),
    (-2147483646, 'HKEY_LOCAL_MACHINE', 'HKEY_LOCAL_MACHINE');
  PRAGMA application_id = 1231908946;
  PRAGMA user_version = 1;
)sql";
static_assert(kApplicationId == 1231908946 && kFormat == 1, "kSchema names both");

std::string SystemMessage(int error) { return std::generic_category().message(error); }

RegistryFileFault FaultOf(int error) {
  switch (error) {
    case EACCES:
    case EPERM:
    case EROFS:
      return RegistryFileFault::kNoRights;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return RegistryFileFault::kDiskFull;
    default:
      return RegistryFileFault::kUnusable;
  }
}

RegistryFileFault FaultOfSqlite(int code, int system_error) {
  switch (code & 0xFF) {
    case SQLITE_NOTADB:
      return RegistryFileFault::kNotARegistry;
    case SQLITE_PERM:
    case SQLITE_READONLY:
    case SQLITE_AUTH:
      return RegistryFileFault::kNoRights;
    case SQLITE_FULL:
      return RegistryFileFault::kDiskFull;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
    case SQLITE_PROTOCOL:
      return RegistryFileFault::kLocked;
    case SQLITE_CANTOPEN:
    case SQLITE_IOERR:
      return FaultOf(system_error);
    case SQLITE_TOOBIG:
      return RegistryFileFault::kUnusable;
    default:
      // A missing table, a broken index and the like: the statements themselves are right.
      return RegistryFileFault::kDamaged;
  }
}

/// @return 0 or the error number; an existing directory is no error.
int MakeDirectories(const std::string& path) {
  for (std::size_t end = path.find('/', 1); end != std::string::npos;
       end = path.find('/', end + 1)) {
    if (mkdir(path.substr(0, end).c_str(), 0700) != 0 && errno != EEXIST) return errno;
  }
  return 0;
}

}  // namespace

RegistryFile::RegistryFile(const std::string& path, std::chrono::milliseconds lock_wait)
    : path_(path), lock_wait_(lock_wait) {
  Create();
  CheckKind();
  // SQLite gives a meaning of its own to names that start with ":" or "file:".
  const std::string plain = path.starts_with('/') ? path : "./" + path;
  sqlite3* database = nullptr;
  const int code = sqlite3_open_v2(plain.c_str(), &database,
                                   SQLITE_OPEN_READWRITE | SQLITE_OPEN_EXRESCODE, nullptr);
  database_.reset(database);
  if (code != SQLITE_OK) FailWith(code);
  sqlite3_busy_timeout(database, static_cast<int>(lock_wait.count()));
  HasTables();  // fails on another kind of database, before anything in it changes
  SwitchToWriteAheadLog();
  // With a write-ahead log, a commit survives the death of the process. A power cut may undo the
  // last commits, but leaves the file consistent.
  Execute("PRAGMA synchronous = NORMAL; PRAGMA foreign_keys = ON;");
}

bool RegistryFile::IsThere(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 || (errno != ENOENT && errno != ENOTDIR);
}

void RegistryFile::Create() const {
  const auto create = [this](int flags = O_EXCL) {
    const int file = open(path_.c_str(), O_CREAT | flags | O_RDWR | O_CLOEXEC, 0600);
    if (file < 0) return errno;
    const int failed = fchmod(file, 0600) == 0 ? 0 : errno;  // the umask may have taken rights away
    close(file);
    return failed;
  };
  int error = create();
  if (error == ENOENT) {
    error = MakeDirectories(path_);
    if (error == 0) error = create();
  }
  if (error == EEXIST && !IsThere(path_)) error = create(0);  // a link to no file: make that file
  if (error != 0 && error != EEXIST) Fail(FaultOf(error), SystemMessage(error));
}

void RegistryFile::CheckKind() const {
  struct stat status;
  if (stat(path_.c_str(), &status) != 0) {
    const int error = errno;
    Fail(FaultOf(error), SystemMessage(error));
  }
  if (S_ISDIR(status.st_mode)) Fail(RegistryFileFault::kUnusable, "it is a directory");
  if (!S_ISREG(status.st_mode)) Fail(RegistryFileFault::kUnusable, "it is not a regular file");
}

bool RegistryFile::HasTables() {
  RegistryQuery query(*this,
                      "SELECT (SELECT application_id FROM pragma_application_id),"
                      " (SELECT user_version FROM pragma_user_version),"
                      " (SELECT count(*) FROM sqlite_schema)");
  query.Step();
  const std::int64_t application = query.Integer(0);
  const std::int64_t format = query.Integer(1);
  const bool empty = query.Integer(2) == 0;
  if (application == 0 && format == 0 && empty) return false;
  if (application != kApplicationId) {
    Fail(RegistryFileFault::kNotARegistry, "it is another application's database");
  }
  if (format > kFormat) {
    Fail(RegistryFileFault::kNewerFormat, "its format is " + std::to_string(format) +
                                              ", the newest one known here is " +
                                              std::to_string(kFormat));
  }
  if (format != kFormat || empty) Fail(RegistryFileFault::kDamaged, "its tables are missing");
  return true;
}

void RegistryFile::CreateTables() { Execute(kSchema); }

void RegistryFile::SwitchToWriteAheadLog() {
  // The switch needs the file for itself for a moment. SQLite doesn't wait for that, so we do.
  const auto give_up = std::chrono::steady_clock::now() + lock_wait_;
  for (;;) {
    const int code =
        sqlite3_exec(database_.get(), "PRAGMA journal_mode = WAL", nullptr, nullptr, nullptr);
    if (code == SQLITE_OK) return;
    if ((code & 0xFF) != SQLITE_BUSY || std::chrono::steady_clock::now() >= give_up) {
      FailWith(code);
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
}

void RegistryFile::Execute(const char* sql) {
  const int code = sqlite3_exec(database_.get(), sql, nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) FailWith(code);
}

sqlite3_stmt* RegistryFile::Prepared(std::string_view sql) {
  auto& statement = statements_[sql];
  if (statement == nullptr) {
    sqlite3_stmt* prepared = nullptr;
    const int code = sqlite3_prepare_v3(database_.get(), sql.data(), static_cast<int>(sql.size()),
                                        SQLITE_PREPARE_PERSISTENT, &prepared, nullptr);
    if (code != SQLITE_OK) FailWith(code);
    statement.reset(prepared);
  }
  return statement.get();
}

void RegistryFile::Fail(RegistryFileFault fault, std::string_view detail) const {
  throw RegistryFileError(path_, fault, detail);
}

void RegistryFile::FailWith(int code) const {
  const int last_error = errno;
  if ((code & 0xFF) == SQLITE_NOMEM) throw std::bad_alloc();
  int error = database_ == nullptr ? 0 : sqlite3_system_errno(database_.get());
  if (error == 0) error = last_error;  // SQLite keeps no number for a failed commit
  const RegistryFileFault fault = FaultOfSqlite(code, error);
  std::string detail =
      database_ == nullptr ? sqlite3_errstr(code) : sqlite3_errmsg(database_.get());
  if (fault == RegistryFileFault::kLocked) {
    detail = "waited " + std::to_string(lock_wait_.count()) + " ms";
  } else if (((code & 0xFF) == SQLITE_CANTOPEN || (code & 0xFF) == SQLITE_IOERR) && error != 0) {
    detail += ", " + SystemMessage(error);
  }
  Fail(fault, detail);
}

RegistryQuery::RegistryQuery(RegistryFile& file, std::string_view sql)
    : file_(file), statement_(file.Prepared(sql)) {
  assert(sqlite3_stmt_busy(statement_) == 0);
}

RegistryQuery::~RegistryQuery() {
  sqlite3_reset(statement_);
  sqlite3_clear_bindings(statement_);
}

RegistryQuery& RegistryQuery::Bind(std::int64_t number) {
  Check(sqlite3_bind_int64(statement_, ++bound_, number));
  return *this;
}

// A null pointer would bind NULL instead of an empty text.
RegistryQuery& RegistryQuery::BindText(std::string_view text) {
  Check(sqlite3_bind_text64(statement_, ++bound_, text.empty() ? "" : text.data(), text.size(),
                            SQLITE_TRANSIENT, SQLITE_UTF8));
  return *this;
}

RegistryQuery& RegistryQuery::BindBlob(std::string_view bytes) {
  Check(sqlite3_bind_blob64(statement_, ++bound_, bytes.empty() ? "" : bytes.data(), bytes.size(),
                            SQLITE_TRANSIENT));
  return *this;
}

bool RegistryQuery::Step() {
  errno = 0;
  const int code = sqlite3_step(statement_);
  if (code == SQLITE_ROW) return true;
  if (code != SQLITE_DONE) file_.FailWith(code);
  return false;
}

std::int64_t RegistryQuery::Integer(int column) const {
  return sqlite3_column_int64(statement_, column);
}

std::string RegistryQuery::Bytes(int column) const {
  const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement_, column));
  const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement_, column));
  return bytes == nullptr ? std::string() : std::string(bytes, size);
}

void RegistryQuery::Check(int code) const {
  if (code != SQLITE_OK) file_.FailWith(code);
}

RegistryTransaction::RegistryTransaction(RegistryFile& file, Kind kind)
    : file_(file), joined_(file.in_transaction_) {
  if (joined_) return;
  RegistryQuery(file_, kind == Kind::kWrite ? "BEGIN IMMEDIATE" : "BEGIN").Step();
  file_.in_transaction_ = true;
}

RegistryTransaction::~RegistryTransaction() {
  if (joined_) return;
  file_.in_transaction_ = false;
  if (open_ && sqlite3_get_autocommit(file_.database_.get()) == 0) {
    sqlite3_exec(file_.database_.get(), "ROLLBACK", nullptr, nullptr, nullptr);
  }
}

void RegistryTransaction::Commit() {
  if (joined_) return;
  RegistryQuery(file_, "COMMIT").Step();
  open_ = false;
}

}  // namespace imptable
