#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <chrono>
#include <string>

#include "platform/registry/SqliteRegistry.h"
#include "platform/testing/PlainEncodings.h"
#include "platform/testing/TemporaryFolder.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

const KeyPath kKey{kHkeyLocalMachine,
                   "T\xE2"
                   "che"};
const KeyPath kStoredKey{kHkeyLocalMachine, "Tâche"};

class AdaptedRegistry : public testing::Test {
 protected:
  void Sql(const char* sql) {
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(path_.c_str(), &database), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(database, sql, nullptr, nullptr, nullptr), SQLITE_OK)
        << sqlite3_errmsg(database);
    sqlite3_close(database);
  }

  TemporaryFolder folder_;
  std::string path_ = folder_.path() + "registry.db";
  RegistryStore store_{path_, {}, std::chrono::milliseconds(50)};
  Latin1TextEncoding latin1_;
  SqliteRegistry registry_{store_, latin1_};
};

TEST_F(AdaptedRegistry, KeepsNamesAndTextsInUtf8AndGivesThemInTheCodePage) {
  const RegistryValue text{RegistryType::kText, std::string("\xE9t\xE9\0", 4)};
  EXPECT_EQ(registry_.Write(kKey,
                            "Cr\xE9"
                            "eLe",
                            text),
            kRegistryOk);
  EXPECT_EQ(store_.Read(kStoredKey, "CréeLe"),
            (RegistryValue{RegistryType::kText, std::string("été\0", 6)}));
  EXPECT_EQ(registry_.Read(kKey,
                           "CR\xC9"
                           "ELE"),
            text);
  EXPECT_THAT(registry_.ValueNames(kKey), ElementsAre("Cr\xE9"
                                                      "eLe"));
  EXPECT_THAT(registry_.SubkeyNames({kHkeyLocalMachine, ""}), ElementsAre(kKey.path));
  EXPECT_EQ(registry_.DeleteKey(kKey), kRegistryOk);
  EXPECT_FALSE(store_.KeyExists(kStoredKey));
}

TEST_F(AdaptedRegistry, ConvertsEveryTextOfAListAndKeepsItsNuls) {
  const RegistryValue list{RegistryType::kMultiText, std::string("\xE9\0\0b\0\0", 6)};
  registry_.Write(kKey, "v", list);
  EXPECT_EQ(store_.Read(kStoredKey, "v")->data, std::string("é\0\0b\0\0", 7));
  EXPECT_EQ(registry_.Read(kKey, "v"), list);
}

TEST_F(AdaptedRegistry, ConvertsNoBinaryData) {
  const RegistryValue binary{RegistryType::kBinary, "\xE9\xFF"};
  registry_.Write(kKey, "v", binary);
  EXPECT_EQ(store_.Read(kStoredKey, "v"), binary);
  EXPECT_EQ(registry_.Read(kKey, "v"), binary);
}

TEST_F(AdaptedRegistry, ShowsAQuestionMarkForWhatTheCodePageLacks) {
  store_.Write(kStoredKey, "日", {RegistryType::kText, std::string("a日\0", 5)});
  EXPECT_THAT(registry_.ValueNames(kKey), ElementsAre("?"));
  store_.Write(kStoredKey, "v", {RegistryType::kText, std::string("a日\0", 5)});
  EXPECT_EQ(registry_.Read(kKey, "v")->data, std::string("a?\0", 3));
}

TEST_F(AdaptedRegistry, DoesNotPassADamagedFileForAnEmptyOne) {
  registry_.Write(kKey, "v", {RegistryType::kText, std::string("x\0", 2)});
  Sql("DROP TABLE \"values\"");
  EXPECT_THROW(registry_.Read(kKey, "v"), RegistryError);
  EXPECT_THROW(registry_.ValueNames(kKey), RegistryError);
  Sql("DROP TABLE keys");
  EXPECT_THROW(registry_.SubkeyNames(kKey), RegistryError);
  EXPECT_FALSE(registry_.last_write_failure());
  EXPECT_EQ(registry_.Write(kKey, "v", {}), 1009);
  EXPECT_EQ(registry_.DeleteKey(kKey), 1009);
  ASSERT_TRUE(registry_.last_write_failure());
  EXPECT_EQ(registry_.last_write_failure()->path(), path_);
}

TEST_F(AdaptedRegistry, RemembersWhyAWriteFailed) {
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(path_.c_str(), &other), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
  EXPECT_EQ(registry_.Write(kKey, "v", {}), 33);
  sqlite3_close(other);
  EXPECT_EQ(registry_.Write(kKey, "v", {}), kRegistryOk);
  ASSERT_TRUE(registry_.last_write_failure());
  EXPECT_EQ(registry_.last_write_failure()->fault(), RegistryFileFault::kLocked);
}

TEST_F(AdaptedRegistry, DoesNotCountARefusedDeletionAsAFailureOfTheFile) {
  EXPECT_EQ(registry_.DeleteKey(kKey), kRegistryNotFound);
  EXPECT_EQ(registry_.DeleteKey({kHkeyLocalMachine, ""}), kRegistryAccessDenied);
  EXPECT_FALSE(registry_.last_write_failure());
}

}  // namespace
}  // namespace imptable
