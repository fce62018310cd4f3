#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <stdexcept>
#include <string>

#include "platform/registry/RegistryStore.h"
#include "platform/testing/TemporaryFolder.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Action = RegistryEdit::Action;

KeyPath Key(std::string path) { return {kHkeyLocalMachine, std::move(path)}; }

RegistryValue Text(const std::string& text) { return {RegistryType::kText, text + '\0'}; }

class Store : public testing::Test {
 protected:
  int RowsIn(const std::string& table) {
    sqlite3* database = nullptr;
    sqlite3_stmt* query = nullptr;
    sqlite3_open(path_.c_str(), &database);
    sqlite3_prepare_v2(database, ("SELECT count(*) FROM \"" + table + "\"").c_str(), -1, &query,
                       nullptr);
    EXPECT_EQ(sqlite3_step(query), SQLITE_ROW);
    const int count = sqlite3_column_int(query, 0);
    sqlite3_finalize(query);
    sqlite3_close(database);
    return count;
  }

  TemporaryFolder folder_;
  std::string path_ = folder_.path() + "registry.db";
  RegistryStore store_{path_};
};

TEST_F(Store, GetsItsFirstEditsOnceAlone) {
  const std::vector<RegistryEdit> edits{
      {RegistryEdit::Action::kSetValue, {kHkeyCurrentUser, "First"}, "v", Text("1")}};
  RegistryStore first(path_, edits);
  first.Write(Key("K"), "v", Text("x"));
  EXPECT_EQ(first.Read({kHkeyCurrentUser, "First"}, "v"), Text("1"));
  EXPECT_TRUE(first.DeleteTree({kHkeyCurrentUser, "First"}));
  RegistryStore again(path_, edits);
  again.Write(Key("K"), "v", Text("y"));
  EXPECT_THAT(again.SubkeyNames({kHkeyCurrentUser, ""}), IsEmpty());
}

TEST_F(Store, DoesSeveralThingsTogetherOrNoneOfThem) {
  store_.Write(Key("K"), "v", Text("x"));
  EXPECT_THROW(store_.Together([&] {
    store_.Write(Key("K"), "v", Text("y"));
    EXPECT_EQ(store_.Read(Key("K"), "v"), Text("y"));
    store_.DeleteTree(Key("K"));
    store_.Apply({{RegistryEdit::Action::kCreateKey, Key("L"), "", {}}});
    throw std::runtime_error("no");
  }),
               std::runtime_error);
  EXPECT_EQ(store_.Read(Key("K"), "v"), Text("x"));
  EXPECT_FALSE(store_.KeyExists(Key("L")));
  store_.Together([&] {
    store_.Write(Key("K"), "v", *store_.Read(Key("K"), "v"));
    store_.Write(Key("L"), "v", Text("z"));
  });
  EXPECT_EQ(RegistryStore(path_).Read(Key("L"), "v"), Text("z"));
}

TEST_F(Store, KeepsWhatWasWrittenAfterItWasClosed) {
  const KeyPath key = Key("SOFTWARE\\Tâche");
  { RegistryStore(path_).Write(key, "CréeLe", Text("2024")); }
  EXPECT_EQ(store_.Read(key, "CRÉELE"), Text("2024"));
}

TEST_F(Store, GivesTheValuesOfAKeyWithTheirTypes) {
  store_.Write(Key("K"), "b", Text("x"));
  store_.Write(Key("K"), "a", {RegistryType::kBinary, ""});
  EXPECT_THAT(store_.Values(Key("k")), ElementsAre(NamedValue{"b", Text("x")},
                                                   NamedValue{"a", {RegistryType::kBinary, ""}}));
  EXPECT_THAT(store_.Values(Key("absent")), IsEmpty());
}

TEST_F(Store, PutsAValueThatWasDeletedAndWrittenAgainLast) {
  for (const char* name : {"a", "b", "c"}) store_.Write(Key("K"), name, Text(name));
  EXPECT_TRUE(store_.DeleteValue(Key("K"), "A"));
  EXPECT_FALSE(store_.DeleteValue(Key("K"), "a"));
  EXPECT_FALSE(store_.DeleteValue(Key("absent"), "a"));
  store_.Write(Key("K"), "a", Text("again"));
  EXPECT_THAT(store_.ValueNames(Key("K")), ElementsAre("b", "c", "a"));
}

TEST_F(Store, KnowsAKeyWithoutValues) {
  EXPECT_FALSE(store_.KeyExists(Key("A\\B")));
  store_.Apply({{Action::kCreateKey, Key("A\\B"), "", {}}});
  EXPECT_TRUE(store_.KeyExists(Key("a\\b")));
  EXPECT_TRUE(store_.KeyExists(Key("A")));
  EXPECT_TRUE(store_.KeyExists(Key("")));
  EXPECT_FALSE(store_.KeyExists({7, ""}));
}

TEST_F(Store, LeavesNothingOfADeletedTreeBehind) {
  store_.Write(Key("Other"), "v", Text("x"));
  const int keys = RowsIn("keys");
  const int values = RowsIn("values");
  for (const char* path : {"A", "A\\B", "A\\B\\C\\D", "A\\E"}) {
    store_.Write(Key(path), "v", Text("x"));
    store_.Write(Key(path), "w", Text("y"));
  }
  EXPECT_EQ(RowsIn("keys"), keys + 5);
  EXPECT_EQ(RowsIn("values"), values + 8);
  EXPECT_TRUE(store_.DeleteTree(Key("a")));
  EXPECT_FALSE(store_.DeleteTree(Key("a")));
  EXPECT_EQ(RowsIn("keys"), keys);
  EXPECT_EQ(RowsIn("values"), values);
}

TEST_F(Store, LeavesNothingOfADeletedKeyBehind) {
  store_.Apply({{Action::kCreateKey, Key("A"), "", {}}});
  const int keys = RowsIn("keys");
  const int values = RowsIn("values");
  store_.Write(Key("A\\B"), "v", Text("x"));
  EXPECT_EQ(store_.DeleteKey(Key("A\\B")), RegistryStore::KeyDeletion::kDone);
  EXPECT_EQ(RowsIn("keys"), keys);
  EXPECT_EQ(RowsIn("values"), values);
}

TEST_F(Store, EmptiesARootButKeepsIt) {
  store_.Write(Key("A\\B"), "v", Text("x"));
  store_.Write(Key(""), "v", Text("x"));
  store_.Write({kHkeyCurrentUser, "Control Panel"}, "v", Text("x"));
  EXPECT_TRUE(store_.DeleteTree(Key("")));
  EXPECT_TRUE(store_.KeyExists(Key("")));
  EXPECT_THAT(store_.SubkeyNames(Key("")), IsEmpty());
  EXPECT_THAT(store_.ValueNames(Key("")), IsEmpty());
  EXPECT_THAT(store_.SubkeyNames({kHkeyCurrentUser, ""}), ElementsAre("Control Panel"));
}

TEST_F(Store, ListsATreeKeyBeforeSubkeysAndByName) {
  for (const char* path : {"T\\b", "T\\A\\z", "T\\A\\Y", "T\\c"}) {
    store_.Write(Key(path), "v", Text(path));
  }
  std::vector<std::string> paths;
  for (const StoredKey& key : store_.Tree(Key("t"))) {
    EXPECT_EQ(key.key.root, kHkeyLocalMachine);
    paths.push_back(key.key.path);
  }
  EXPECT_THAT(paths, ElementsAre("T", "T\\A", "T\\A\\Y", "T\\A\\z", "T\\b", "T\\c"));
  const auto leaf = store_.Tree(Key("t\\a\\Z"));
  ASSERT_EQ(leaf.size(), 1U);
  EXPECT_EQ(leaf[0].key.path, "T\\A\\z");
  EXPECT_THAT(leaf[0].values, ElementsAre(NamedValue{"v", Text("T\\A\\z")}));
  EXPECT_EQ(store_.Tree(Key("")).size(), 7U);
  EXPECT_THAT(store_.Tree(Key("absent")), IsEmpty());
}

TEST_F(Store, AppliesEditsInTheirOrder) {
  store_.Write(Key("Old\\Sub"), "v", Text("x"));
  store_.Write(Key("Kept"), "gone", Text("x"));
  store_.Apply({
      {Action::kDeleteTree, Key("Old"), "", {}},
      {Action::kCreateKey, Key("Old"), "", {}},
      {Action::kSetValue, Key("New"), "v", Text("1")},
      {Action::kSetValue, Key("New"), "V", Text("2")},
      {Action::kDeleteValue, Key("Kept"), "gone", {}},
      {Action::kDeleteValue, Key("Kept"), "never there", {}},
      {Action::kDeleteTree, Key("never there"), "", {}},
  });
  EXPECT_THAT(store_.SubkeyNames(Key("")), ElementsAre("Kept", "New", "Old"));
  EXPECT_THAT(store_.SubkeyNames(Key("Old")), IsEmpty());
  EXPECT_THAT(store_.Values(Key("New")), ElementsAre(NamedValue{"v", Text("2")}));
  EXPECT_THAT(store_.ValueNames(Key("Kept")), IsEmpty());
}

TEST_F(Store, AppliesNoneOfTheEditsWhenOneFails) {
  store_.Write(Key("Kept"), "v", Text("x"));
  EXPECT_THROW(store_.Apply({
                   {Action::kSetValue, Key("New"), "v", Text("1")},
                   {Action::kDeleteTree, Key("Kept"), "", {}},
                   {Action::kSetValue, {99, "No such root"}, "v", Text("1")},
               }),
               std::invalid_argument);
  EXPECT_FALSE(store_.KeyExists(Key("New")));
  EXPECT_EQ(store_.Read(Key("Kept"), "v"), Text("x"));
  store_.Write(Key("Kept"), "w", Text("still works"));
  EXPECT_THAT(store_.ValueNames(Key("Kept")), ElementsAre("v", "w"));
}

TEST_F(Store, HoldsLargeValuesAndDeepKeys) {
  const std::string large(3'000'000, 'x');
  store_.Write(Key("K"), "large", {RegistryType::kBinary, large});
  EXPECT_EQ(store_.Read(Key("K"), "large")->data, large);

  std::string deep = "D";
  for (int i = 0; i < 1500; ++i) deep += "\\d";
  store_.Write(Key(deep), "v", Text("bottom"));
  EXPECT_EQ(store_.Read(Key(deep), "v"), Text("bottom"));
  EXPECT_EQ(store_.Tree(Key("D")).size(), 1501U);
  EXPECT_TRUE(store_.DeleteTree(Key("D")));
  EXPECT_FALSE(store_.KeyExists(Key("D")));
}

TEST_F(Store, KeepsBytesThatAreNoText) {
  const std::string odd("\xE9\0\x80", 3);
  store_.Write(Key(odd), odd, {RegistryType::kBinary, odd});
  EXPECT_THAT(store_.SubkeyNames(Key("")), ElementsAre(odd));
  EXPECT_THAT(store_.ValueNames(Key(odd)), ElementsAre(odd));
  EXPECT_EQ(store_.Read(Key(odd), odd)->data, odd);
}

TEST_F(Store, LeavesOutABackslashTooMany) {
  store_.Write(Key("\\A\\\\B\\"), "v", Text("x"));
  EXPECT_EQ(store_.Read(Key("A\\B"), "v"), Text("x"));
}

}  // namespace
}  // namespace imptable
