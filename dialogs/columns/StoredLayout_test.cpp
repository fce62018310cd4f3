#include "dialogs/columns/StoredLayout.h"

#include <gmock/gmock.h>

#include "core/TaskSettings.h"
#include "dialogs/testing/EditedLayout.h"
#include "import/layout/ColumnLayout.h"

namespace imptable {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr const char* kUnreadable =
    "Warn|Importation Table|Erreur d'enregistrement dans les registres";

TEST(StoredLayout, FillsTheGridOfTheFileFromColonnes) {
  EditedLayout layout;
  layout.Load({"1,,12", "2,,3", "3,,4", "4,,9", "5,2,10", "6,0,8", "7,7,19,/,1", "8,,1"}, true);
  EXPECT_THAT(layout.Grid1(),
              ElementsAre("1|Texte||12", "2|Byte||3", "3|Integer||4", "4|Long||9", "5|Single|2|10",
                          "6|Double|0|8", "7|Date|jj/mm/aaaa hh:mm:ss|19", "8|Boolean||1"));
  EXPECT_THAT(layout.shown.file_header, SizeIs(4));
  EXPECT_THAT(layout.boxes.shown, IsEmpty());
}

TEST(StoredLayout, ShowsADateInTheLanguageOfTheUser) {
  EditedLayout layout;
  layout.module().language_offset = kEnglishOffset;
  layout.Load({"7,15,,-,0", "7,6,,,"}, false);
  EXPECT_THAT(layout.Grid1(), ElementsAre("1|Date|yyyy-dd-mm hh:mm|", "2|Date|yymmdd|"));
}

TEST(StoredLayout, FillsTheGridOfTheTableFromChamps) {
  EditedLayout layout;
  layout.Load({"1"}, false,
              {"CODE,INTEGER,(Col)1", "NOM,VARCHAR(30),Null", "PRIX,DECIMAL(10,2),@PRIX",
               "PAYS,CHAR(2),FR", "STAMP,TIMESTAMP,Ignore"});
  EXPECT_THAT(layout.Grid2(), ElementsAre("1|CODE|INTEGER|Col N° 1", "2|NOM|VARCHAR(30)|Null",
                                          "3|PRIX|DECIMAL(10,2)|@PRIX", "4|PAYS|CHAR(2)|FR",
                                          "5|STAMP|TIMESTAMP|Ignore"));
  EXPECT_THAT(layout.boxes.shown, IsEmpty());
}

TEST(StoredLayout, HasAsManyRowsAsTheTaskHasColumns) {
  EditedLayout layout;
  layout.Store("Colonnes", {"2", "4", "8"});
  layout.editor.Load("T1", false, 2);
  EXPECT_THAT(layout.Grid1(), ElementsAre("1|Byte||", "2|Long||"));
  layout.editor.Load("T1", false, -1);
  EXPECT_THAT(layout.Grid1(), IsEmpty());
  EXPECT_THAT(layout.boxes.shown, IsEmpty());
}

TEST(StoredLayout, TakesColumnsForTextsInATaskThatDescribesNone) {
  EditedLayout layout;
  layout.editor.Load("T1", false, 2);
  EXPECT_THAT(layout.Grid1(), ElementsAre("1|Texte||", "2|Texte||"));
  EXPECT_THAT(layout.boxes.shown, IsEmpty());
}

TEST(StoredLayout, NamesTheValuesThatCanNotBeReadAndLoadsTheRest) {
  EditedLayout layout;
  layout.Store("Colonnes", {"5,x,10", "1,,12", "9,,3"});
  layout.Store("Champs", {"CODE,INTEGER,(Col)0", "NOM,CHAR(3),Null"});
  layout.editor.Load("T1", true, 4);
  EXPECT_THAT(layout.Grid1(),
              ElementsAre("1|Single||10", "2|Texte||12", "3|Texte||3", "4|Texte||"));
  EXPECT_THAT(layout.Grid2(), ElementsAre("1|CODE|INTEGER|", "2|NOM|CHAR(3)|Null"));
  EXPECT_THAT(layout.boxes.shown,
              ElementsAre(std::string(kUnreadable) + "\n\"Colonnes\\1\" = \"5,x,10\""
                                                     "\n\"Colonnes\\3\" = \"9,,3\""
                                                     "\n\"Colonnes\\4\" = \"\"",
                          std::string(kUnreadable) + "\n\"Champs\\1\" = \"CODE,INTEGER,(Col)0\""));
}

TEST(StoredLayout, NamesNoMoreUnreadableValuesThanABoxCanHold) {
  EditedLayout layout;
  layout.Load(std::vector<std::string>(500, "x\n" + std::string(1000, 'y')), false);
  ASSERT_THAT(layout.boxes.shown, SizeIs(1));
  const std::string& text = layout.boxes.shown[0];
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 11);
  EXPECT_TRUE(text.ends_with("\n...")) << text;
  EXPECT_LT(text.size(), 1200U);
}

TEST(StoredLayout, CanNotReadAValueOfAnotherKind) {
  EditedLayout layout;
  const KeyPath key{kHkeyLocalMachine, "Taches\\T1\\Champs"};
  layout.component.registry.Write(key, "1", {RegistryType::kBinary, "NOM,CHAR,Null"});
  layout.component.registry.SetText(key, "2", "CODE,INTEGER,Null");
  layout.editor.Load("T1", false, 0);
  EXPECT_THAT(layout.Grid2(), ElementsAre("1|||", "2|CODE|INTEGER|Null"));
  EXPECT_THAT(layout.boxes.shown, ElementsAre(std::string(kUnreadable) + "\n\"Champs\\1\" = \"\""));
}

TEST(StoredLayout, OpensAllTheSameWhenTheRegistryCanNotBeRead) {
  EditedLayout layout;
  layout.Store("Colonnes", {"2", "4"});
  layout.component.registry.FailReadsFrom(1);
  layout.editor.Load("T1", false, 2);
  EXPECT_THAT(layout.Grid1(), ElementsAre("1|Texte||", "2|Texte||"));
  ASSERT_THAT(layout.boxes.shown, SizeIs(1));
  EXPECT_THAT(layout.boxes.shown[0],
              testing::StartsWith(std::string(kUnreadable) +
                                  "\nErreur d'entrée/sortie du périphérique : "));
}

TEST(StoredLayout, ReplacesWhatWasLoadedBefore) {
  EditedLayout layout;
  layout.Load({"2", "4"}, false, {"A,B,Null", "C,D,Null"});
  layout.editor.ClickFileRow(1);
  layout.editor.ClickOrigin(1);
  layout.editor.Load("T2", false, 0);
  EXPECT_THAT(layout.Grid1(), IsEmpty());
  EXPECT_THAT(layout.Grid2(), IsEmpty());
  EXPECT_EQ(layout.shown.origin_list, std::nullopt);
  EXPECT_EQ(layout.shown.selected_file_row, std::nullopt);
  EXPECT_EQ(layout.shown.selected_field_row, std::nullopt);
}

TEST(StoredLayout, WritesOneValueForEachColumnOfTheFile) {
  EditedLayout layout;
  layout.editor.TypeColumnCount("3");
  layout.editor.ChooseType(1, TypeEntry::kSingle);
  layout.answer = "2";
  layout.editor.ChooseType(1, TypeEntry::kDecimal);
  layout.answer = "jj/mm/aaaa hh:mm:ss";
  layout.editor.ChooseType(2, TypeEntry::kDate);
  EXPECT_EQ(layout.WriteColonnes(), kRegistryOk);
  EXPECT_THAT(layout.Stored("Colonnes"), ElementsAre("1=1", "2=5,2", "3=7,7,,/,1"));
}

TEST(StoredLayout, LeavesNoRowOfAnEarlierLayoutBehind) {
  EditedLayout layout;
  layout.Load({"1", "1", "1"}, false, {"A,B,Null", "C,D,Null"});
  layout.component.registry.SetText("Taches\\T1\\Colonnes", "99", "1");
  layout.editor.StepColumnCount(false);
  layout.WriteColonnes();
  layout.WriteChamps(true);
  EXPECT_THAT(layout.Stored("Colonnes"), ElementsAre("1=1", "2=1"));
  EXPECT_THAT(layout.Stored("Champs"), ElementsAre("1=A,B,Null", "2=C,D,Null"));
}

TEST(StoredLayout, WritesChampsOnlyWhenTheColumnsAreAssigned) {
  EditedLayout layout;
  layout.Load({"1", "1"}, false, {"CODE,INTEGER,(Col)2", "NOM,CHAR(3),FR"});
  layout.editor.ClickOrigin(0);
  layout.editor.PickOrigin(3);
  EXPECT_EQ(layout.WriteChamps(true), kRegistryOk);
  EXPECT_THAT(layout.Stored("Champs"), ElementsAre("1=CODE,INTEGER,(Col)1", "2=NOM,CHAR(3),FR"));
  EXPECT_EQ(layout.WriteChamps(false), kRegistryOk);
  EXPECT_THAT(layout.Stored("Champs"), ElementsAre("<none>"));
  EXPECT_EQ(layout.WriteChamps(false), kRegistryOk);
}

TEST(StoredLayout, WritesNoKeyForNoRow) {
  EditedLayout layout;
  layout.editor.Open();
  EXPECT_EQ(layout.WriteColonnes(), kRegistryOk);
  EXPECT_EQ(layout.WriteChamps(true), kRegistryOk);
  EXPECT_THAT(layout.Stored("Colonnes"), ElementsAre("<none>"));
  EXPECT_THAT(layout.Stored("Champs"), ElementsAre("<none>"));
}

TEST(StoredLayout, GivesTheCodeOfAWriteThatFails) {
  EditedLayout layout;
  layout.Load({"1", "1"}, false, {"CODE,INTEGER,Null"});
  layout.component.registry.FailWrites(kRegistryAccessDenied);
  EXPECT_EQ(layout.WriteColonnes(), kRegistryAccessDenied);
  EXPECT_EQ(layout.WriteChamps(true), kRegistryAccessDenied);
}

TEST(StoredLayout, DropsTheLengthsWithTheFixedWidth) {
  EditedLayout layout;
  layout.Load({"1,,12", "5,2,10", "7,7,10,/,"}, true);
  layout.editor.ChooseFileFormat(false, layout.fields);
  EXPECT_THAT(layout.Grid1(), ElementsAre("1|Texte||", "2|Single|2|", "3|Date|jj/mm/aaaa|"));
  EXPECT_THAT(layout.shown.file_header, ElementsAre("N°", "Type", "Décimales"));
  layout.WriteColonnes();
  EXPECT_THAT(layout.Stored("Colonnes"), ElementsAre("1=1", "2=5,2", "3=7,7,,/,"));
  layout.editor.ChooseFileFormat(true, layout.fields);
  EXPECT_THAT(layout.shown.file_header, ElementsAre("N°", "Type", "Décimales", "Longueur"));
  EXPECT_THAT(layout.Grid1(), ElementsAre("1|Texte||", "2|Single|2|", "3|Date|jj/mm/aaaa|"));
}

TEST(StoredLayout, IsWhatARunReads) {
  EditedLayout layout;
  layout.Load({"1,,12", "5,2,10", "7,14,,,0"}, true,
              {"CODE,INTEGER,(Col)3", "NOM,CHAR(3),Ignore", "PRIX,DECIMAL(10,2),@PRIX"});
  layout.WriteColonnes();
  layout.WriteChamps(true);
  layout.component.registry.SetNumber("Taches\\T1", "NombreColonnes", 3);
  const ImportSettings settings = LoadSettings(layout.module(), "T1");
  const auto columns = ParseColumnLayout(settings.column_layout, true);
  ASSERT_THAT(columns, SizeIs(3));
  EXPECT_EQ(columns[0].width, 12U);
  EXPECT_EQ(columns[1].decimals, 2U);
  EXPECT_EQ(columns[2].width, 14U);
  EXPECT_EQ(columns[2].date.style, 14);
  std::vector<ColumnOrigin::Kind> origins;
  for (const std::string& name : layout.module().ValueNames("T1\\Champs")) {
    const std::string value = AsText(layout.module().ReadValue("T1\\Champs", name));
    origins.push_back(ParseColumnOrigin(value, name).kind);
  }
  EXPECT_THAT(origins, ElementsAre(ColumnOrigin::Kind::kField, ColumnOrigin::Kind::kConstant,
                                   ColumnOrigin::Kind::kVariable));
}

}  // namespace
}  // namespace imptable
