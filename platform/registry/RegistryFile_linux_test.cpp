#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <optional>
#include <random>
#include <string>

#include "platform/registry/RegistryFile.h"
#include "platform/registry/RegistryStore.h"
#include "platform/testing/TemporaryFolder.h"

namespace imptable {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

const KeyPath kKey{kHkeyLocalMachine, "SOFTWARE\\Task"};

RegistryValue Text(const std::string& text) { return {RegistryType::kText, text + '\0'}; }

const KeyPath kFirstKey{kHkeyCurrentUser, "First"};
const std::vector<RegistryEdit> kFirstEdits{
    {RegistryEdit::Action::kSetValue, kFirstKey, "first", Text("1")}};

/// @return what `action` threw, nullopt when it succeeded.
std::optional<RegistryFileError> ErrorOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const RegistryFileError& error) {
    return error;
  }
  return std::nullopt;
}

std::optional<RegistryFileError> ErrorOfOpening(const std::string& path) {
  return ErrorOf([&] { RegistryStore(path, {}, std::chrono::milliseconds(50)); });
}

std::optional<RegistryFileError> ErrorOfWriting(const std::string& path) {
  return ErrorOf(
      [&] { RegistryStore(path, {}, std::chrono::milliseconds(50)).Write(kKey, "v", Text("x")); });
}

class RegistryFiles : public testing::Test {
 protected:
  void Sql(const std::string& sql) const {
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(path_.c_str(), &database), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
        << sqlite3_errmsg(database);
    sqlite3_close(database);
  }

  void Fill(int values) const {
    RegistryStore store(path_);
    std::vector<RegistryEdit> edits;
    for (int i = 0; i < values; ++i) {
      edits.push_back({RegistryEdit::Action::kSetValue,
                       {kHkeyLocalMachine, "K" + std::to_string(i % 7)},
                       std::to_string(i),
                       Text(std::string(100, 'x'))});
    }
    store.Apply(edits);
  }

  mode_t ModeOf(const std::string& path) const {
    struct stat status = {};
    EXPECT_EQ(stat(path.c_str(), &status), 0) << path;
    return status.st_mode & 07777;
  }

  TemporaryFolder folder_;
  std::string path_ = folder_.path() + "registry.db";
};

TEST_F(RegistryFiles, AreCreatedForTheirOwnerOnlyWithTheDirectoriesOnTheWay) {
  const mode_t before = umask(0);
  const std::string path = folder_.path() + "share/imptable/registry.db";
  {
    RegistryStore store(path);
    store.Write(kKey, "v", Text("x"));
    EXPECT_EQ(ModeOf(path), 0600U);
    EXPECT_EQ(ModeOf(path + "-wal"), 0600U);
    EXPECT_EQ(ModeOf(path + "-shm"), 0600U);
    EXPECT_EQ(ModeOf(folder_.path() + "share"), 0700U);
    EXPECT_EQ(ModeOf(folder_.path() + "share/imptable"), 0700U);
  }
  umask(before);
}

TEST_F(RegistryFiles, AreTheirOwnersWhateverTheUmaskTakesAway) {
  const mode_t before = umask(0577);
  {
    RegistryStore store(path_);
    store.Write(kKey, "v", Text("x"));
    EXPECT_EQ(ModeOf(path_), 0600U);
    EXPECT_EQ(ModeOf(path_ + "-wal"), 0600U);
    EXPECT_EQ(ModeOf(path_ + "-shm"), 0600U);
  }
  umask(before);
}

TEST_F(RegistryFiles, KeepTheRightsThatTheyHave) {
  const mode_t before = umask(0);
  for (const mode_t mode : {0600U, 0640U, 0660U}) {
    std::filesystem::remove(path_);
    Fill(1);
    ASSERT_EQ(chmod(path_.c_str(), mode), 0);
    RegistryStore store(path_);
    store.Write(kKey, "v", Text("x"));
    EXPECT_EQ(ModeOf(path_), mode);
    EXPECT_EQ(ModeOf(path_ + "-wal"), mode);
    EXPECT_EQ(ModeOf(path_ + "-shm"), mode);
  }
  umask(before);
}

TEST_F(RegistryFiles, AreFoundByPathsThatSqliteWouldTakeForSomethingElse) {
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder_.path());
  for (const char* name : {":memory:", "file:x?mode=memory", "plain", "sub/plain"}) {
    RegistryStore(name).Write(kKey, "v", Text(name));
    EXPECT_EQ(RegistryStore(name).Read(kKey, "v"), Text(name));
    EXPECT_TRUE(folder_.Exists(name));
  }
  std::filesystem::current_path(before);
}

TEST_F(RegistryFiles, AreMadeByTheFirstWriteAndByNothingElse) {
  RegistryStore store(path_, kFirstEdits);
  EXPECT_FALSE(store.Exists());
  EXPECT_FALSE(store.Read(kKey, "v"));
  EXPECT_FALSE(store.KeyExists({kHkeyLocalMachine, ""}));
  EXPECT_TRUE(store.Values(kKey).empty());
  EXPECT_TRUE(store.ValueNames(kKey).empty());
  EXPECT_TRUE(store.SubkeyNames(kKey).empty());
  EXPECT_TRUE(store.Tree({kHkeyLocalMachine, ""}).empty());
  EXPECT_FALSE(store.DeleteValue(kKey, "v"));
  EXPECT_EQ(store.DeleteKey(kKey), RegistryStore::KeyDeletion::kAbsent);
  EXPECT_FALSE(store.DeleteTree(kKey));
  EXPECT_FALSE(folder_.Exists("registry.db"));
  store.Write(kKey, "v", Text("x"));
  EXPECT_TRUE(store.Exists());
  EXPECT_EQ(store.Read(kFirstKey, "first"), Text("1"));
  EXPECT_EQ(store.Read(kKey, "v"), Text("x"));
}

TEST_F(RegistryFiles, ThatAnotherProcessMadeAreSeenByAStoreThatFoundNone) {
  const RegistryStore store(path_);
  RegistryStore(path_).Write(kKey, "v", Text("x"));
  EXPECT_EQ(store.Read(kKey, "v"), Text("x"));
}

TEST_F(RegistryFiles, AreMadeWhereADanglingLinkLeads) {
  std::filesystem::create_symlink("real.db", path_);
  RegistryStore(path_).Write(kKey, "v", Text("x"));
  EXPECT_TRUE(std::filesystem::is_symlink(path_));
  EXPECT_EQ(ModeOf(folder_.path() + "real.db"), 0600U);
  EXPECT_EQ(RegistryStore(path_).Read(kKey, "v"), Text("x"));
}

TEST_F(RegistryFiles, AreFilledWhenTheyAreEmpty) {
  folder_.Write("registry.db", "");
  RegistryStore store(path_, kFirstEdits);
  EXPECT_FALSE(store.Exists());
  store.Write(kKey, "v", Text("x"));
  EXPECT_TRUE(store.Exists());
  EXPECT_EQ(store.Read(kFirstKey, "first"), Text("1"));
}

TEST_F(RegistryFiles, SurviveADeathDuringTheirCreation) {
  Sql("PRAGMA journal_mode = WAL");
  RegistryStore store(path_, kFirstEdits);
  EXPECT_FALSE(store.Exists());
  store.Write(kKey, "v", Text("x"));
  EXPECT_TRUE(store.Exists());
  EXPECT_EQ(store.Read(kFirstKey, "first"), Text("1"));
}

TEST_F(RegistryFiles, AreRefusedWhenTheyAreSomethingElse) {
  std::mt19937 random(1);
  std::string noise(20'000, '\0');
  for (char& byte : noise) byte = static_cast<char>(random());
  for (const std::string& bytes :
       {noise, noise.substr(0, 3), noise.substr(0, 512), std::string("Dir=/data\n"),
        std::string(4096, '\0'), std::string("SQLite format 3"), std::string(60'000, 'a')}) {
    folder_.Write("registry.db", bytes);
    const auto error = ErrorOfOpening(path_);
    ASSERT_TRUE(error) << bytes.substr(0, 20);
    EXPECT_EQ(error->fault(), RegistryFileFault::kNotARegistry) << error->what();
    EXPECT_EQ(folder_.Read("registry.db"), bytes);
  }
}

TEST_F(RegistryFiles, SayInOneLineWhichFileWhatIsWrongAndWhatToDo) {
  const auto error = [this] {
    folder_.Write("line\nbreak.db", "no registry");
    return ErrorOfOpening(folder_.path() + "line\nbreak.db");
  }();
  ASSERT_TRUE(error);
  EXPECT_EQ(error->path(), folder_.path() + "line\nbreak.db");
  EXPECT_THAT(error->what(),
              AllOf(HasSubstr(folder_.path() + "line?break.db"), HasSubstr("not a registry file"),
                    HasSubstr("name another file"), Not(HasSubstr("\n"))));
}

TEST_F(RegistryFiles, OfAnotherApplicationAreLeftAlone) {
  Sql("CREATE TABLE t (x); INSERT INTO t VALUES (1)");
  const std::string before = folder_.Read("registry.db");
  EXPECT_EQ(ErrorOfOpening(path_)->fault(), RegistryFileFault::kNotARegistry);
  EXPECT_EQ(folder_.Read("registry.db"), before);
  Sql("PRAGMA application_id = 77");
  EXPECT_EQ(ErrorOfOpening(path_)->fault(), RegistryFileFault::kNotARegistry);
}

TEST_F(RegistryFiles, OfANewerFormatAreRefused) {
  Fill(1);
  Sql("PRAGMA user_version = 2");
  const auto error = ErrorOfOpening(path_);
  ASSERT_TRUE(error);
  EXPECT_EQ(error->fault(), RegistryFileFault::kNewerFormat);
  EXPECT_THAT(error->what(), HasSubstr("update this program"));
}

TEST_F(RegistryFiles, WithoutTheirTablesAreDamaged) {
  Fill(1);
  Sql("DROP TABLE \"values\"");
  const auto error = ErrorOf([this] { RegistryStore(path_).Read(kKey, "v"); });
  EXPECT_FALSE(error) << "the key is looked for first, and isn't there";
  const auto later = ErrorOf([this] { RegistryStore(path_).Read({kHkeyLocalMachine, "K0"}, "0"); });
  ASSERT_TRUE(later);
  EXPECT_EQ(later->fault(), RegistryFileFault::kDamaged);
}

TEST_F(RegistryFiles, ThatWereCutOffAreDamaged) {
  Fill(500);
  const std::string whole = folder_.Read("registry.db");
  for (const std::size_t size : {whole.size() - 4096, whole.size() / 2, whole.size() / 7}) {
    folder_.Write("registry.db", whole.substr(0, size));
    const auto error = ErrorOf([this] { RegistryStore(path_).Tree({kHkeyLocalMachine, ""}); });
    ASSERT_TRUE(error) << size;
    EXPECT_EQ(error->fault(), RegistryFileFault::kDamaged) << error->what();
    EXPECT_THAT(error->what(), HasSubstr(path_));
  }
}

TEST_F(RegistryFiles, WithBrokenBytesGiveAnErrorOrAnAnswer) {
  Fill(300);
  const std::string whole = folder_.Read("registry.db");
  std::mt19937 random(7);
  int refused = 0;
  for (int round = 0; round < 300; ++round) {
    std::string broken = whole;
    const std::size_t burst = 1 + random() % 200;
    for (std::size_t at = random() % whole.size(), end = std::min(at + burst, whole.size());
         at < end; ++at) {
      broken[at] = static_cast<char>(random());
    }
    folder_.Write("registry.db", broken);
    std::filesystem::remove(path_ + "-wal");
    std::filesystem::remove(path_ + "-shm");
    refused += ErrorOf([this] {
                 RegistryStore store(path_, {}, std::chrono::milliseconds(50));
                 store.Tree({kHkeyLocalMachine, ""});
                 store.Tree({kHkeyCurrentUser, ""});
                 store.Write({kHkeyLocalMachine, "K1"}, "1", Text("y"));
                 store.DeleteTree({kHkeyLocalMachine, "K2"});
               }).has_value();
  }
  EXPECT_GT(refused, 10);
}

TEST_F(RegistryFiles, CannotBeDirectoriesOrDevices) {
  const auto directory = ErrorOfOpening(folder_.path());
  ASSERT_TRUE(directory);
  EXPECT_EQ(directory->fault(), RegistryFileFault::kUnusable);
  std::filesystem::create_directory(path_);
  EXPECT_THAT(ErrorOfOpening(path_)->what(), HasSubstr("it is a directory"));
  EXPECT_EQ(ErrorOfOpening("/dev/null")->fault(), RegistryFileFault::kUnusable);
  EXPECT_EQ(ErrorOfWriting("")->fault(), RegistryFileFault::kUnusable);
  folder_.Write("file", "");
  EXPECT_EQ(ErrorOfWriting(folder_.path() + "file/registry.db")->fault(),
            RegistryFileFault::kUnusable);
}

/// Runs `action` as a user who isn't root, in a process of its own.
/// @return 0 when `action` gave true.
int AsOrdinaryUser(const std::function<bool()>& action) {
  const pid_t child = fork();
  if (child == 0) {
    if (geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0)) _exit(9);
    _exit(action() ? 0 : 1);
  }
  int status = -1;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST_F(RegistryFiles, ThatTheUserMayNotReadAreRefused) {
  Fill(1);
  ASSERT_EQ(chmod(folder_.path().c_str(), 0755), 0);
  ASSERT_EQ(chmod(path_.c_str(), 0000), 0);
  EXPECT_EQ(AsOrdinaryUser([this] {
              const auto error = ErrorOfOpening(path_);
              return error && error->fault() == RegistryFileFault::kNoRights;
            }),
            0);
}

TEST_F(RegistryFiles, ThatTheUserMayNotWriteRefuseAWrite) {
  Fill(1);
  ASSERT_EQ(chmod(folder_.path().c_str(), 0777), 0);
  ASSERT_EQ(chmod(path_.c_str(), 0444), 0);
  EXPECT_EQ(AsOrdinaryUser([this] {
              const auto error =
                  ErrorOf([this] { RegistryStore(path_).Write(kKey, "v", Text("x")); });
              return error && error->fault() == RegistryFileFault::kNoRights;
            }),
            0);
  EXPECT_FALSE(RegistryStore(path_).KeyExists(kKey));
}

TEST_F(RegistryFiles, CannotBeCreatedWhereTheUserMayNotWrite) {
  ASSERT_EQ(chmod(folder_.path().c_str(), 0555), 0);
  EXPECT_EQ(AsOrdinaryUser([this] {
              const auto file = ErrorOfWriting(path_);
              const auto directory = ErrorOfWriting(folder_.path() + "sub/registry.db");
              return file && file->fault() == RegistryFileFault::kNoRights && directory &&
                     directory->fault() == RegistryFileFault::kNoRights;
            }),
            0);
  ASSERT_EQ(chmod(folder_.path().c_str(), 0700), 0);
}

TEST_F(RegistryFiles, ThatAnotherProcessWritesCanStillBeRead) {
  RegistryStore store(path_, {}, std::chrono::milliseconds(50));
  store.Write(kKey, "v", Text("x"));
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(path_.c_str(), &other), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
  EXPECT_EQ(store.Read(kKey, "v"), Text("x"));
  const auto error = ErrorOf([&] { store.Write(kKey, "v", Text("y")); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->fault(), RegistryFileFault::kLocked);
  EXPECT_THAT(error->what(), HasSubstr("waited 50 ms"));
  sqlite3_close(other);
  store.Write(kKey, "v", Text("y"));
  EXPECT_EQ(store.Read(kKey, "v"), Text("y"));
}

TEST_F(RegistryFiles, ThatAnotherProcessHoldsForItselfAreRefused) {
  Fill(1);
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(path_.c_str(), &other), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(other,
                         "PRAGMA locking_mode = EXCLUSIVE; BEGIN IMMEDIATE; DELETE FROM \"values\"",
                         nullptr, nullptr, nullptr),
            SQLITE_OK);
  const auto error = ErrorOfOpening(path_);
  ASSERT_TRUE(error);
  EXPECT_EQ(error->fault(), RegistryFileFault::kLocked) << error->what();
  sqlite3_close(other);
  EXPECT_FALSE(ErrorOfOpening(path_));
}

TEST_F(RegistryFiles, ThatTheDiskHasNoRoomForKeepTheirContents) {
  RegistryStore store(path_);
  store.Write(kKey, "v", Text("x"));
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  rlimit before = {};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
  const rlimit small = {256 * 1024, before.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
  const auto error = ErrorOf([&] { store.Write(kKey, "v", Text(std::string(1'000'000, 'y'))); });
  setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);
  ASSERT_TRUE(error);
  EXPECT_EQ(error->fault(), RegistryFileFault::kDiskFull) << error->what();
  EXPECT_EQ(store.Read(kKey, "v"), Text("x"));
  store.Write(kKey, "v", Text("z"));
  EXPECT_EQ(store.Read(kKey, "v"), Text("z"));
}

}  // namespace
}  // namespace imptable
