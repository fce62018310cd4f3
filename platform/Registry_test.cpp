#include "platform/Registry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "platform/RegistryStore.h"
#include "platform/SqliteRegistry.h"
#include "platform/testing/MemoryRegistry.h"
#include "platform/testing/PlainEncodings.h"
#include "platform/testing/TemporaryFolder.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct InMemory {
  MemoryRegistry registry;
};

struct InAFile {
  TemporaryFolder folder;
  RegistryStore store{folder.path() + "registry.db", "."};
  Utf8TextEncoding encoding;
  SqliteRegistry registry{store, encoding};
};

/// What every body of the port has to keep to.
template <typename Kind>
class Registries : public testing::Test {
 protected:
  KeyPath Key(std::string path) const { return {kHkeyLocalMachine, std::move(path)}; }
  RegistryValue Text(const std::string& text) const { return {RegistryType::kText, text + '\0'}; }

  Kind kind_;
  Registry& registry_ = kind_.registry;
};

using Kinds = testing::Types<InMemory, InAFile>;
TYPED_TEST_SUITE(Registries, Kinds);

TYPED_TEST(Registries, GiveBackWhatWasWritten) {
  for (const RegistryValue& value :
       {this->Text("été"), this->Text(""), RegistryValue{RegistryType::kNone, ""},
        RegistryValue{RegistryType::kBinary, std::string("\0\xFF\x80", 3)},
        RegistryValue{RegistryType::kNumber, std::string("\x01\0\0\0", 4)},
        RegistryValue{RegistryType::kText, "no terminator"},
        RegistryValue{RegistryType::kMultiText, std::string("a\0b\0\0", 5)},
        RegistryValue{static_cast<RegistryType>(0xFFFFFFFF), "12345678"}}) {
    EXPECT_EQ(this->registry_.Write(this->Key("A\\B"), "v", value), kRegistryOk);
    EXPECT_EQ(this->registry_.Read(this->Key("A\\B"), "v"), value);
  }
}

TYPED_TEST(Registries, FindNothingWhereNothingWasWritten) {
  this->registry_.Write(this->Key("A\\B"), "v", this->Text("x"));
  EXPECT_EQ(this->registry_.Read(this->Key("A\\B"), "w"), std::nullopt);
  EXPECT_EQ(this->registry_.Read(this->Key("A\\B"), ""), std::nullopt);
  EXPECT_EQ(this->registry_.Read(this->Key("A"), "v"), std::nullopt);
  EXPECT_EQ(this->registry_.Read(this->Key("A\\B\\C"), "v"), std::nullopt);
  EXPECT_EQ(this->registry_.Read({kHkeyCurrentUser, "A\\B"}, "v"), std::nullopt);
  EXPECT_THAT(this->registry_.ValueNames(this->Key("B")), IsEmpty());
  EXPECT_THAT(this->registry_.SubkeyNames(this->Key("B")), IsEmpty());
}

TYPED_TEST(Registries, KnowNoRootButTheTwo) {
  EXPECT_EQ(this->registry_.Write({0, "A"}, "v", this->Text("x")), 6);
  EXPECT_EQ(this->registry_.Read({0, "A"}, "v"), std::nullopt);
  EXPECT_EQ(this->registry_.DeleteKey({0, "A"}), kRegistryNotFound);
  EXPECT_THAT(this->registry_.SubkeyNames({1, ""}), IsEmpty());
}

TYPED_TEST(Registries, MatchNamesWithoutRegardToCase) {
  this->registry_.Write(this->Key("Tâche\\Colonnes"), "CréeLe", this->Text("x"));
  EXPECT_EQ(this->registry_.Read(this->Key("TÂCHE\\COLONNES"), "CRÉELE"), this->Text("x"));
  EXPECT_EQ(this->registry_.Read(this->Key("tâche\\colonnes"), "CreeLe"), std::nullopt);
}

TYPED_TEST(Registries, KeepTheCaseOfTheFirstWriting) {
  this->registry_.Write(this->Key("Tâche"), "CréeLe", this->Text("x"));
  this->registry_.Write(this->Key("TÂCHE"), "CRÉELE", this->Text("y"));
  EXPECT_THAT(this->registry_.SubkeyNames(this->Key("")), ElementsAre("Tâche"));
  EXPECT_THAT(this->registry_.ValueNames(this->Key("Tâche")), ElementsAre("CréeLe"));
  EXPECT_EQ(this->registry_.Read(this->Key("Tâche"), "CréeLe"), this->Text("y"));
}

TYPED_TEST(Registries, KeepTheOrderInWhichValuesWereFirstWritten) {
  for (const char* name : {"z", "", "A", "m", "A", "z", "10", "9"}) {
    this->registry_.Write(this->Key("K"), name, this->Text(name));
  }
  EXPECT_THAT(this->registry_.ValueNames(this->Key("K")),
              ElementsAre("z", "", "A", "m", "10", "9"));
}

TYPED_TEST(Registries, ListSubkeysByName) {
  for (const char* name : {"b", "Z", "é", "A", "10", "9", "_", "B\\deeper"}) {
    this->registry_.Write(this->Key(name), "v", this->Text("x"));
  }
  EXPECT_THAT(this->registry_.SubkeyNames(this->Key("")),
              ElementsAre("10", "9", "A", "b", "Z", "_", "é"));
}

TYPED_TEST(Registries, DeleteAKeyWithItsValues) {
  this->registry_.Write(this->Key("A\\B"), "v", this->Text("x"));
  EXPECT_EQ(this->registry_.DeleteKey(this->Key("a\\b")), kRegistryOk);
  EXPECT_THAT(this->registry_.SubkeyNames(this->Key("A")), IsEmpty());
  EXPECT_EQ(this->registry_.DeleteKey(this->Key("A\\B")), kRegistryNotFound);
  this->registry_.Write(this->Key("A\\B"), "w", this->Text("y"));
  EXPECT_THAT(this->registry_.ValueNames(this->Key("A\\B")), ElementsAre("w"));
}

TYPED_TEST(Registries, RefuseToDeleteAKeyThatHasSubkeys) {
  this->registry_.Write(this->Key("A"), "v", this->Text("x"));
  this->registry_.Write(this->Key("A\\B"), "v", this->Text("x"));
  EXPECT_EQ(this->registry_.DeleteKey(this->Key("A")), kRegistryAccessDenied);
  EXPECT_EQ(this->registry_.DeleteKey(this->Key("")), kRegistryAccessDenied);
  EXPECT_EQ(this->registry_.Read(this->Key("A"), "v"), this->Text("x"));
}

TYPED_TEST(Registries, HaveAValueWithoutAName) {
  this->registry_.Write(this->Key("K"), "", this->Text("default"));
  EXPECT_EQ(this->registry_.Read(this->Key("K"), ""), this->Text("default"));
  EXPECT_THAT(this->registry_.ValueNames(this->Key("K")), ElementsAre(""));
}

}  // namespace
}  // namespace imptable
