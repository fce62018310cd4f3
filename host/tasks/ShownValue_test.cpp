#include "host/tasks/ShownValue.h"

#include <gtest/gtest.h>

#include "core/StoredValue.h"

namespace imptable {
namespace {

TEST(ShownValue, IsATextUpToItsEndOrANumberWithItsSign) {
  EXPECT_EQ(ShownValue(TextValue("a=b")), "a=b");
  EXPECT_EQ(ShownValue(TextValue("")), "");
  EXPECT_EQ(ShownValue({RegistryType::kExpandableText, std::string("x\0y", 3)}), "x");
  EXPECT_EQ(ShownValue(NumberValue(-2)), "-2");
  EXPECT_EQ(ShownValue(NumberValue(16909060)), "16909060");
}

TEST(ShownValue, HasListsAndBytesInOneLine) {
  EXPECT_EQ(ShownValue({RegistryType::kMultiText, std::string("a\0b\0\0", 5)}), "a|b");
  EXPECT_EQ(ShownValue({RegistryType::kBinary, std::string("\0\xFF", 2)}), "00,ff");
  EXPECT_EQ(ShownValue({RegistryType::kNumber, "\1"}), "01");
  EXPECT_EQ(ShownValue({static_cast<RegistryType>(11), "\1\2"}), "01,02");
}

}  // namespace
}  // namespace imptable
