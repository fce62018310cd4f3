#include "core/SettingsTable.h"

#include <gtest/gtest.h>

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
                           "Colonnes\\01", "Colonnes\\-1", "Colonnes\\1x", "Champs\\32768",
                           "Colonnes\\99999999999", "Champs\\1\\2", "Action\\1", "\\Mode"}) {
    EXPECT_FALSE(FindSetting(name)) << name;
  }
}

TEST(Settings, AreListedInOrder) {
  EXPECT_TRUE(SettingNames().starts_with("Base Cible, Login, Password, "));
  EXPECT_TRUE(SettingNames().ends_with(", ModifiéLe, Type"));
}

}  // namespace
}  // namespace imptable
