#include "platform/testing/MemoryRegistry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace imptable {
namespace {

using testing::ElementsAre;

TEST(MemoryRegistry, GivesBackTextsAndNumbers) {
  MemoryRegistry registry;
  registry.SetText("SOFTWARE\\Task", "Dir", "/data/");
  registry.SetNumber("SOFTWARE\\Task", "Mode", -2);
  registry.SetText({kHkeyCurrentUser, "Control Panel\\International"}, "sDecimal", ",");

  EXPECT_EQ(registry.Text("software\\TASK", "dir"), "/data/");
  EXPECT_EQ(registry.Number("SOFTWARE\\Task", "Mode"), -2);
  EXPECT_EQ(registry.Text({kHkeyCurrentUser, "Control Panel\\International"}, "sDecimal"), ",");
  EXPECT_EQ(registry.Text("Control Panel\\International", "sDecimal"), std::nullopt);
  EXPECT_EQ(registry.Text("SOFTWARE\\Task", "Mode"), std::nullopt);
  EXPECT_EQ(registry.Number("SOFTWARE\\Task", "Dir"), std::nullopt);
  EXPECT_TRUE(registry.HasKey("SOFTWARE"));
  EXPECT_FALSE(registry.HasKey("SOFTWARE\\Other"));
}

TEST(MemoryRegistry, StoresWhatTheRealOnesStore) {
  MemoryRegistry registry;
  registry.SetText("T", "Empty", "");
  registry.SetNumber("T", "Mode", 258);
  EXPECT_EQ(registry.Read({kHkeyLocalMachine, "T"}, "Empty"),
            (RegistryValue{RegistryType::kText, std::string(1, '\0')}));
  EXPECT_EQ(registry.Read({kHkeyLocalMachine, "T"}, "Mode"),
            (RegistryValue{RegistryType::kNumber, std::string("\x02\x01\0\0", 4)}));
}

TEST(MemoryRegistry, RecordsTheReadsOfThePortInOrder) {
  MemoryRegistry registry;
  registry.SetText("T", "Dir", "x");
  registry.Text("T", "Dir");
  registry.Read({kHkeyLocalMachine, "T"}, "Dir");
  registry.Read({kHkeyLocalMachine, "T\\Colonnes"}, "1");
  EXPECT_THAT(registry.reads(), ElementsAre("T|Dir", "T\\Colonnes|1"));
  registry.ForgetReads();
  EXPECT_THAT(registry.reads(), ElementsAre());
}

TEST(MemoryRegistry, RecordsTheWritesOfThePortInOrder) {
  MemoryRegistry registry;
  registry.SetText("T", "Dir", "x");
  registry.Write({kHkeyLocalMachine, "T"}, "Etat", {RegistryType::kNumber, {"\x02\0\0\0", 4}});
  registry.Write({kHkeyLocalMachine, "T"}, "Dir", {RegistryType::kText, {"y\0", 2}});
  EXPECT_THAT(registry.writes(), ElementsAre("T|Etat=2", "T|Dir=y"));
  registry.SetNumber("T", "Etat", 3);
  EXPECT_THAT(registry.writes(), ElementsAre("T|Etat=2", "T|Dir=y"));
}

TEST(MemoryRegistry, FailsWhenATestWantsItTo) {
  MemoryRegistry registry;
  const KeyPath key{kHkeyLocalMachine, "T"};
  registry.SetText(key, "Dir", "x");
  registry.FailReadsFrom(2);
  EXPECT_NO_THROW(registry.Read(key, "Dir"));
  EXPECT_THROW(registry.Read(key, "Dir"), RegistryError);
  EXPECT_THROW(registry.Read(key, "Dir"), RegistryError);
  registry.FailWrites(kRegistryAccessDenied);
  EXPECT_EQ(registry.Write(key, "Dir", {RegistryType::kText, "y"}), kRegistryAccessDenied);
  EXPECT_EQ(registry.Text(key, "Dir"), "x");
}

}  // namespace
}  // namespace imptable
