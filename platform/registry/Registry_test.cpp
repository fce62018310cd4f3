#include "platform/registry/Registry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "platform/testing/RegistryPlace.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

struct Kind {
  const char* name;
  std::unique_ptr<RegistryPlace> (*make)();
};

void PrintTo(const Kind& kind, std::ostream* out) { *out << kind.name; }

/// What every implementation of the registry port has to do.
class Registries : public testing::TestWithParam<Kind> {
 protected:
  Registry& registry() { return place_->registry(); }
  /// In the registry's code page.
  std::string In(std::string_view utf8) const { return place_->encoding().FromUtf8(utf8); }
  KeyPath Key(std::string_view path) const { return place_->Key(In(path)); }
  std::int32_t OtherRoot() const {
    return Key("").root == kHkeyLocalMachine ? kHkeyCurrentUser : kHkeyLocalMachine;
  }
  RegistryValue Text(std::string_view text) const { return {RegistryType::kText, In(text) + '\0'}; }

 private:
  std::unique_ptr<RegistryPlace> place_ = GetParam().make();
};

INSTANTIATE_TEST_SUITE_P(, Registries,
                         testing::Values(Kind{"InMemory", PlaceInMemory},
                                         Kind{"InTheSystem", PlaceInTheSystem}),
                         [](const auto& kind) { return kind.param.name; });

TEST_P(Registries, GiveBackWhatWasWritten) {
  for (const RegistryValue& value :
       {Text("été"), Text(""), RegistryValue{RegistryType::kNone, ""},
        RegistryValue{RegistryType::kBinary, std::string("\0\xFF\x80", 3)},
        RegistryValue{RegistryType::kNumber, std::string("\x01\0\0\0", 4)},
        RegistryValue{RegistryType::kMultiText, std::string("a\0b\0\0", 5)},
        RegistryValue{static_cast<RegistryType>(0xFFFFFFFF), "12345678"}}) {
    EXPECT_EQ(registry().Write(Key("A\\B"), "v", value), kRegistryOk);
    EXPECT_EQ(registry().Read(Key("A\\B"), "v"), value);
  }
}

TEST_P(Registries, FindNothingWhereNothingWasWritten) {
  registry().Write(Key("A\\B"), "v", Text("x"));
  EXPECT_EQ(registry().Read(Key("A\\B"), "w"), std::nullopt);
  EXPECT_EQ(registry().Read(Key("A\\B"), ""), std::nullopt);
  EXPECT_EQ(registry().Read(Key("A"), "v"), std::nullopt);
  EXPECT_EQ(registry().Read(Key("A\\B\\C"), "v"), std::nullopt);
  EXPECT_EQ(registry().Read({OtherRoot(), Key("A\\B").path}, "v"), std::nullopt);
  EXPECT_THAT(registry().ValueNames(Key("B")), IsEmpty());
  EXPECT_THAT(registry().SubkeyNames(Key("B")), IsEmpty());
}

TEST_P(Registries, KnowPredefinedRootsOnly) {
  for (const std::int32_t root : {0, 1, 0x7FFFFFFF, -1}) {
    EXPECT_EQ(registry().Write({root, "A"}, "v", Text("x")), 6) << root;
    EXPECT_EQ(registry().Read({root, "A"}, "v"), std::nullopt) << root;
    EXPECT_EQ(registry().DeleteKey({root, "A"}), kRegistryNotFound) << root;
    EXPECT_THAT(registry().SubkeyNames({root, ""}), IsEmpty()) << root;
    EXPECT_THAT(registry().ValueNames({root, ""}), IsEmpty()) << root;
  }
}

TEST_P(Registries, MatchNamesWithoutRegardToCase) {
  registry().Write(Key("Tâche\\Colonnes"), In("CréeLe"), Text("x"));
  EXPECT_EQ(registry().Read(Key("TÂCHE\\COLONNES"), In("CRÉELE")), Text("x"));
  EXPECT_EQ(registry().Read(Key("tâche\\colonnes"), "CreeLe"), std::nullopt);
}

TEST_P(Registries, KeepTheCaseOfTheFirstWriting) {
  registry().Write(Key("Tâche"), In("CréeLe"), Text("x"));
  registry().Write(Key("TÂCHE"), In("CRÉELE"), Text("y"));
  EXPECT_THAT(registry().SubkeyNames(Key("")), ElementsAre(In("Tâche")));
  EXPECT_THAT(registry().ValueNames(Key("Tâche")), ElementsAre(In("CréeLe")));
  EXPECT_EQ(registry().Read(Key("Tâche"), In("CréeLe")), Text("y"));
}

TEST_P(Registries, ListEachValueOnce) {
  for (const char* name : {"z", "", "A", "m", "a", "z", "10", "9"}) {
    registry().Write(Key("K"), name, Text(name));
  }
  EXPECT_THAT(registry().ValueNames(Key("K")), UnorderedElementsAre("z", "", "A", "m", "10", "9"));
}

TEST_P(Registries, ListSubkeysByName) {
  for (const char* name : {"b", "Z", "é", "A", "10", "9", "B\\deeper"}) {
    registry().Write(Key(name), "v", Text("x"));
  }
  EXPECT_THAT(registry().SubkeyNames(Key("")), ElementsAre("10", "9", "A", "b", "Z", In("é")));
}

TEST_P(Registries, DeleteAKeyWithItsValues) {
  registry().Write(Key("A\\B"), "v", Text("x"));
  EXPECT_EQ(registry().DeleteKey(Key("a\\b")), kRegistryOk);
  EXPECT_THAT(registry().SubkeyNames(Key("A")), IsEmpty());
  EXPECT_EQ(registry().DeleteKey(Key("A\\B")), kRegistryNotFound);
  registry().Write(Key("A\\B"), "w", Text("y"));
  EXPECT_THAT(registry().ValueNames(Key("A\\B")), ElementsAre("w"));
}

TEST_P(Registries, RefuseToDeleteAKeyThatHasSubkeys) {
  registry().Write(Key("A"), "v", Text("x"));
  registry().Write(Key("A\\B"), "v", Text("x"));
  EXPECT_EQ(registry().DeleteKey(Key("A")), kRegistryAccessDenied);
  EXPECT_EQ(registry().DeleteKey(Key("")), kRegistryAccessDenied);
  EXPECT_EQ(registry().Read(Key("A"), "v"), Text("x"));
}

TEST_P(Registries, RefuseToDeleteARoot) {
  EXPECT_EQ(registry().DeleteKey({Key("").root, ""}), kRegistryAccessDenied);
}

TEST_P(Registries, PassOverABackslashTooMany) {
  registry().Write(Key("A\\B"), "v", Text("x"));
  EXPECT_EQ(registry().Read(Key("A\\\\B\\"), "v"), Text("x"));
  const KeyPath key = Key("A\\B");
  EXPECT_EQ(registry().Read({key.root, '\\' + key.path}, "v"), Text("x"));
  EXPECT_EQ(registry().DeleteKey(Key("A\\\\B\\")), kRegistryOk);
}

TEST_P(Registries, HaveAValueWithoutAName) {
  registry().Write(Key("K"), "", Text("default"));
  EXPECT_EQ(registry().Read(Key("K"), ""), Text("default"));
  EXPECT_THAT(registry().ValueNames(Key("K")), ElementsAre(""));
}

}  // namespace
}  // namespace imptable
