#include "core/StoredValue.h"

#include <gtest/gtest.h>

#include <limits>

namespace imptable {
namespace {

TEST(StoredValue, OfATextEndsWithItsTerminator) {
  EXPECT_EQ(TextValue("ab"), (RegistryValue{RegistryType::kText, std::string("ab\0", 3)}));
  EXPECT_EQ(TextValue(""), (RegistryValue{RegistryType::kText, std::string(1, '\0')}));
}

TEST(StoredValue, OfANumberHasItsLowestByteFirst) {
  EXPECT_EQ(NumberValue(16909060), (RegistryValue{RegistryType::kNumber, "\4\3\2\1"}));
  EXPECT_EQ(NumberValue(-2), (RegistryValue{RegistryType::kNumber, "\xFE\xFF\xFF\xFF"}));
}

TEST(StoredValue, GivesBackWhatWasPutIn) {
  for (const char* text : {"", "a", "Répertoire"}) EXPECT_EQ(TextOf(TextValue(text)), text);
  for (const std::int32_t number : {0, 1, -1, std::numeric_limits<std::int32_t>::min()}) {
    EXPECT_EQ(NumberOf(NumberValue(number)), number);
  }
}

TEST(StoredValue, IsATextUpToTheFirstTerminatorIfItHasOne) {
  EXPECT_EQ(TextOf({RegistryType::kExpandableText, std::string("x\0y", 3)}), "x");
  EXPECT_EQ(TextOf({RegistryType::kText, "open"}), "open");
}

TEST(StoredValue, OfAnotherTypeOrSizeIsNeitherTextNorNumber) {
  EXPECT_FALSE(TextOf(NumberValue(1)));
  EXPECT_FALSE(TextOf({RegistryType::kMultiText, std::string("a\0\0", 3)}));
  EXPECT_FALSE(NumberOf(TextValue("abc")));
  EXPECT_FALSE(NumberOf({RegistryType::kNumber, "\1"}));
  EXPECT_FALSE(NumberOf({RegistryType::kNumber, "12345"}));
}

}  // namespace
}  // namespace imptable
