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

}  // namespace
}  // namespace imptable
