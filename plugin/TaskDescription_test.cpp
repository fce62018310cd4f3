#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "plugin/ImpTable.h"
#include "tests/kit/TestComponent.h"

namespace imptable {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr std::string_view kTask = "SOFTWARE\\KALDO\\Scenarios\\S1\\Taches\\T1";

class Description : public testing::Test {
 protected:
  std::string In(std::int32_t language) {
    ImpTable task(component.state, nullptr);
    task.InitializeProperties("T1", "S1", language);
    return task.GetTaskDescription();
  }
  void Set(std::string_view name, std::string_view text) {
    component.registry.SetText(kTask, name, text);
  }
  void Set(std::string_view name, std::int32_t number) {
    component.registry.SetNumber(kTask, name, number);
  }
  static std::string Row(const std::string& label, const std::string& value) {
    return "<tr><td class=\"i\">" + label + "</td><td class=\"j\">" + value + "</td></tr>";
  }

  TestComponent component;
};

TEST_F(Description, ListsTheSettingsInTheirOrder) {
  Set("Base Cible", "@BASE");
  Set("Login", "lu");
  Set("Owner", "dbo");
  Set("Table", "CLIENT");
  Set("Alias", "CLIENTS");
  Set("Dir", "C:\\data");
  Set("FormatFile", 1);
  Set("NombreColonnes", 2);
  component.registry.SetText(std::string(kTask) + "\\Colonnes", "1", "1");
  component.registry.SetText(std::string(kTask) + "\\Colonnes", "2", "7,7,,/,1");
  Set("DupKey", 1);
  Set("Cle/Index", "CODE");
  Set("SepDec", 1);
  Set("CodErr", "2627");
  Set("SiVide", 1);
  Set("Suppression", 2);
  Set("Comment", "nightly");
  EXPECT_EQ(
      In(kFrenchOffset),
      "<table class=\"t\"><tr><td class=\"k\">T1</td><td class=\"n\">Importation Table</td></tr>"
      "</table><table class=\"t\"><tr><td rowspan=\"7\" valign=\"top\" class=\"m\">"
      "<table class=\"l\">" +
          Row("Source ODBC", "@BASE") + Row("Utilisateur", "lu") + Row("Table", "dbo   CLIENT") +
          Row("Alias", "CLIENTS") + Row("Répertoire", "C:\\data") +
          Row("Format fichier", "Délimité") + Row("Nbr colonnes", "2") + Row("Nom Colonne1", "1") +
          Row("Nom Colonne2", "7,7,,/,1") + Row("Mode d'Importation", "Par INSERT") +
          Row("Options", "Ignorer les clés en double") + Row("Clé utilisée", "CODE") +
          Row("Séparateur de décimales", "1") + Row("Code erreur", "2627") +
          Row("Suppression", "Sélective ( <Alias.SUP )") +
          "<tr><td class=\"p\"></td><td class=\"o\">nightly</td></tr>"
          "</table></td></tr></table><hr>");
}

TEST_F(Description, ShowsAnEmptyTaskWithItsDefaultsInEnglish) {
  EXPECT_EQ(
      In(kEnglishOffset),
      "<table class=\"t\"><tr><td class=\"k\">T1</td><td class=\"n\">Import Table</td></tr>"
      "</table><table class=\"t\"><tr><td rowspan=\"7\" valign=\"top\" class=\"m\">"
      "<table class=\"l\">" +
          Row("ODBC source", "") + Row("User", "") + Row("Table", "   ") + Row("Alias", "") +
          Row("Directory", "") + Row("File format", "Fixed") + Row("No. of columns", "0") +
          Row("Import mode", "Using INSERT") + Row("Decimal separator", "0") +
          Row("Error code", "") +
          "<tr><td class=\"p\"></td><td class=\"o\"></td></tr></table></td></tr></table><hr>");
}

TEST_F(Description, NamesEveryModeAndHasNoRowForAnother) {
  const std::vector<std::string> modes{"Using INSERT", "Using UPDATE", "Using INSERT/UPDATE",
                                       "Using UPDATE/INSERT", "Using DELETE"};
  for (std::size_t mode = 0; mode < modes.size(); ++mode) {
    Set("Mode", static_cast<std::int32_t>(mode));
    EXPECT_THAT(In(kEnglishOffset), HasSubstr(Row("Import mode", modes[mode])));
  }
  for (const std::int32_t mode : {5, -1}) {
    Set("Mode", mode);
    EXPECT_THAT(In(kEnglishOffset), Not(HasSubstr("Import mode"))) << mode;
  }
}

TEST_F(Description, ShowsKeyAndDuplicatesForInsertOnly) {
  Set("Mode", 1);
  Set("DupKey", 1);
  Set("Cle/Index", "CODE");
  EXPECT_THAT(In(kFrenchOffset), Not(HasSubstr("Clé utilisée")));
  EXPECT_THAT(In(kFrenchOffset), Not(HasSubstr("Options")));
  Set("Mode", 0);
  Set("DupKey", 2);
  Set("Cle/Index", "");
  EXPECT_THAT(In(kFrenchOffset), Not(HasSubstr("Clé utilisée")));
  EXPECT_THAT(In(kFrenchOffset), Not(HasSubstr("Options")));
}

TEST_F(Description, ShowsTheDeletionOnlyWhenAnEmptyFileDeletesToo) {
  const std::vector<std::string> deletions{"None", "Global", "Selective ( <Alias.SUP )"};
  for (std::size_t mode = 0; mode < deletions.size(); ++mode) {
    Set("Suppression", static_cast<std::int32_t>(mode));
    Set("SiVide", 1);
    EXPECT_THAT(In(kEnglishOffset), HasSubstr(Row("Delete", deletions[mode])));
    Set("SiVide", 0);
    EXPECT_THAT(In(kEnglishOffset), Not(HasSubstr(">Delete<")));
  }
  Set("SiVide", 1);
  Set("Suppression", 3);
  EXPECT_THAT(In(kEnglishOffset), Not(HasSubstr(">Delete<")));
}

TEST_F(Description, LeavesTheRegistryLocationAtTheTask) {
  In(kFrenchOffset);
  EXPECT_EQ(component.module().location.path, "SOFTWARE\\KALDO\\Scenarios\\S1\\Taches");
}

}  // namespace
}  // namespace imptable
