#include "host/SettingsTable.h"

#include <gtest/gtest.h>

#include "host/StoredValue.h"

namespace imptable {
namespace {

TEST(Settings, AreFoundWithoutRegardToCase) {
  EXPECT_EQ(FindSetting("base cible")->name, "Base Cible");
  EXPECT_EQ(FindSetting("CLE/INDEX")->name, "Cle/Index");
  EXPECT_EQ(FindSetting("CRÉELE")->name, "CréeLe");
  EXPECT_EQ(FindSetting("modifiéle")->name, "ModifiéLe");
}

TEST(Settings, HaveTheTypeThatTheComponentReads) {
  for (const char* name :
       {"Base Cible", "Login", "Password", "Owner", "Table", "Alias", "Comment", "Dir", "Cle/Index",
        "CodErr", "Erreurs", "DelimiteurFile", "ExecuteLe", "CréeLe", "ModifiéLe"}) {
    ASSERT_TRUE(FindSetting(name)) << name;
    EXPECT_EQ(FindSetting(name)->type, RegistryType::kText) << name;
    EXPECT_EQ(FindSetting(name)->subkey, "") << name;
  }
  for (const char* name :
       {"Mode", "Suppression", "PrimKey", "DupKey", "RecErreurs", "FicErr", "SiVide", "SepDec",
        "Null", "Param", "NombreColonnes", "FormatFile", "UseAlias", "Etat", "Type"}) {
    ASSERT_TRUE(FindSetting(name)) << name;
    EXPECT_EQ(FindSetting(name)->type, RegistryType::kNumber) << name;
  }
}

TEST(Settings, OfAColumnAreTextsInASubkey) {
  const auto column = FindSetting("colonnes\\12");
  ASSERT_TRUE(column);
  EXPECT_EQ(column->subkey, "Colonnes");
  EXPECT_EQ(column->name, "12");
  EXPECT_EQ(column->type, RegistryType::kText);
  EXPECT_EQ(FindSetting("CHAMPS\\1")->subkey, "Champs");
}

TEST(Settings, OfAnyOtherNameAreNone) {
  for (const char* name : {"", "Creele", "Mode ", "Colonnes", "Colonnes\\", "Colonnes\\0",
                           "Colonnes\\01", "Colonnes\\-1", "Colonnes\\1x", "Colonnes\\99999999999",
                           "Champs\\1\\2", "Action\\1", "\\Mode"}) {
    EXPECT_FALSE(FindSetting(name)) << name;
  }
}

TEST(Settings, AreListedInOrder) {
  EXPECT_TRUE(SettingNames().starts_with("Base Cible, Login, Password, "));
  EXPECT_TRUE(SettingNames().ends_with(", ModifiéLe, Type"));
}

TEST(StoredValue, ShowsTextsUpToTheirEndAndNumbersWithTheirSign) {
  EXPECT_EQ(ShownValue(TextValue("a=b")), "a=b");
  EXPECT_EQ(ShownValue(TextValue("")), "");
  EXPECT_EQ(ShownValue({RegistryType::kExpandableText, std::string("x\0y", 3)}), "x");
  EXPECT_EQ(ShownValue(NumberValue(-2)), "-2");
  EXPECT_EQ(ShownValue(NumberValue(16909060)), "16909060");
  EXPECT_EQ(NumberValue(16909060).data, "\4\3\2\1");
}

TEST(StoredValue, ShowsListsAndBytesInOneLine) {
  EXPECT_EQ(ShownValue({RegistryType::kMultiText, std::string("a\0b\0\0", 5)}), "a|b");
  EXPECT_EQ(ShownValue({RegistryType::kBinary, std::string("\0\xFF", 2)}), "00,ff");
  EXPECT_EQ(ShownValue({RegistryType::kNumber, "\1"}), "01");
  EXPECT_EQ(ShownValue({static_cast<RegistryType>(11), "\1\2"}), "01,02");
}

TEST(StoredValue, TakesOnlyWholeDecimalNumbersOf32Bits) {
  EXPECT_EQ(NumberFromText("0"), 0);
  EXPECT_EQ(NumberFromText("2147483647"), 2147483647);
  EXPECT_EQ(NumberFromText("-2147483648"), -2147483647 - 1);
  for (const char* text : {"", " 1", "1 ", "1.5", "+1", "0x10", "2147483648", "abc"}) {
    EXPECT_FALSE(NumberFromText(text)) << text;
  }
}

}  // namespace
}  // namespace imptable
