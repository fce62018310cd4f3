#include "dialogs/columns/ColumnLayoutEditor.h"

#include <gmock/gmock.h>

#include "dialogs/testing/EditedLayout.h"

namespace imptable {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

TEST(ColumnLayoutEditor, OpensANewTaskWithoutColumns) {
  EditedLayout layout;
  layout.editor.Open();
  EXPECT_THAT(layout.shown.file_header, ElementsAre("N°", "Type", "Décimales"));
  EXPECT_THAT(layout.shown.field_header, ElementsAre("N°", "Nom Colonne", "Format", "Origine"));
  EXPECT_THAT(layout.Grid1(), IsEmpty());
  EXPECT_THAT(layout.Grid2(), IsEmpty());
  EXPECT_EQ(layout.times_shown, 1);
}

TEST(ColumnLayoutEditor, HeadsItsGridsInTheLanguageOfTheUser) {
  EditedLayout layout;
  layout.module().language_offset = kEnglishOffset;
  layout.Load({"1,,3"}, true);
  EXPECT_THAT(layout.shown.file_header, ElementsAre("N°", "Type", "Decimals", "Longueur"));
  EXPECT_THAT(layout.shown.field_header, ElementsAre("N°", "Column name", "Format", "Origin"));
  EXPECT_THAT(layout.Grid1(), ElementsAre("1|Text||3"));
}

TEST(ColumnLayoutEditor, StepsTheColumnCountAndNumbersTheRows) {
  EditedLayout layout;
  layout.editor.StepColumnCount(true);
  layout.editor.StepColumnCount(true);
  EXPECT_THAT(layout.Grid1(), ElementsAre("1|Texte||", "2|Texte||"));
  layout.editor.StepColumnCount(false);
  EXPECT_THAT(layout.Grid1(), ElementsAre("1|Texte||"));
  layout.editor.StepColumnCount(false);
  layout.editor.StepColumnCount(false);
  EXPECT_THAT(layout.Grid1(), IsEmpty());
  EXPECT_EQ(layout.editor.column_count(), 0);
}

TEST(ColumnLayoutEditor, KeepsTheRowsThatAColumnCountLeaves) {
  EditedLayout layout;
  layout.Load({"5,2", "2", "8"}, false);
  layout.editor.TypeColumnCount("4");
  EXPECT_THAT(layout.Grid1(), ElementsAre("1|Single|2|", "2|Byte||", "3|Boolean||", "4|Texte||"));
  layout.editor.TypeColumnCount(" 02 ");
  EXPECT_THAT(layout.Grid1(), ElementsAre("1|Single|2|", "2|Byte||"));
  EXPECT_THAT(layout.boxes.shown, IsEmpty());
}

TEST(ColumnLayoutEditor, KeepsTheColumnCountWhenSomethingElseIsTyped) {
  EditedLayout layout;
  layout.Load({"1", "1"}, false);
  for (const char* typed : {"abc", "-1", "1.5", "32768", "99999999999"}) {
    layout.boxes.shown.clear();
    layout.editor.TypeColumnCount(typed);
    EXPECT_THAT(layout.Grid1(), SizeIs(2)) << typed;
    EXPECT_THAT(layout.boxes.shown, ElementsAre("Warn|Importation Table|Valeur incorrecte"))
        << typed;
  }
  layout.editor.TypeColumnCount("");
  EXPECT_THAT(layout.Grid1(), IsEmpty());
}

TEST(ColumnLayoutEditor, HasNoMoreColumnsThanATaskCanStore) {
  EditedLayout layout;
  layout.editor.TypeColumnCount("32767");
  layout.editor.StepColumnCount(true);
  EXPECT_EQ(layout.editor.column_count(), kMostFileColumns);
  EXPECT_EQ(layout.shown.file_rows.back().number, "32767");
}

TEST(ColumnLayoutEditor, OffersTheMenuOfTheClickedRow) {
  EditedLayout layout;
  layout.Load({"1,,3", "5,2,10", "7,7,,/,", "8,,1"}, true);
  EXPECT_EQ(layout.editor.ClickFileRow(0), (TypeMenuState{false, true, true, true}));
  EXPECT_EQ(layout.shown.selected_file_row, 0U);
  EXPECT_EQ(layout.editor.ClickFileRow(1), (TypeMenuState{true, true, true, true}));
  EXPECT_EQ(layout.editor.ClickFileRow(2), (TypeMenuState{false, true, false, false}));
  EXPECT_EQ(layout.editor.ClickFileRow(3), (TypeMenuState{false, true, false, false}));
  EXPECT_EQ(layout.shown.selected_file_row, 3U);
  EXPECT_EQ(layout.editor.ClickFileRow(4), TypeMenuState{});
  layout.editor.ChooseFileFormat(false, layout.fields);
  EXPECT_EQ(layout.editor.ClickFileRow(1), (TypeMenuState{true, false, false, false}));
}

struct Choice {
  TypeEntry entry;
  const char* delimited;  // the row afterwards
  const char* fixed;
};

TEST(ColumnLayoutEditor, GivesTheClickedRowTheChosenType) {
  for (const Choice& choice : {
           Choice{TypeEntry::kTexte, "2|Texte||", "2|Texte||10"},
           Choice{TypeEntry::kByte, "2|Byte||", "2|Byte||10"},
           Choice{TypeEntry::kInteger, "2|Integer||", "2|Integer||10"},
           Choice{TypeEntry::kLong, "2|Long||", "2|Long||10"},
           Choice{TypeEntry::kSingle, "2|Single|0|", "2|Single|0|10"},
           Choice{TypeEntry::kDouble, "2|Double|0|", "2|Double|0|10"},
           Choice{TypeEntry::kBoolean, "2|Boolean||", "2|Boolean||1"},
       }) {
    EditedLayout layout;
    layout.Load({"1,,3", "5,2,10", "1,,4"}, false);
    layout.editor.ChooseType(1, choice.entry);
    EXPECT_THAT(layout.Grid1(), ElementsAre("1|Texte||", choice.delimited, "3|Texte||"));
    layout.Load({"1,,3", "5,2,10", "1,,4"}, true);
    layout.editor.ChooseType(1, choice.entry);
    EXPECT_THAT(layout.Grid1(), ElementsAre("1|Texte||3", choice.fixed, "3|Texte||4"));
    EXPECT_THAT(layout.asked, IsEmpty());
  }
}

TEST(ColumnLayoutEditor, MakesADateOfTheRowWhenItsFormatIsConfirmed) {
  EditedLayout layout;
  layout.Load({"5,2"}, false);
  layout.answer = "jj/mm/aaaa hh:mm";
  layout.editor.ChooseType(0, TypeEntry::kDate);
  EXPECT_THAT(layout.Grid1(), ElementsAre("1|Date|jj/mm/aaaa hh:mm|"));
  layout.answer = "aammjj";
  layout.editor.ChooseType(0, TypeEntry::kDate);
  EXPECT_THAT(layout.Grid1(), ElementsAre("1|Date|aammjj|"));
  EXPECT_THAT(layout.asked, ElementsAre("Date|", "Date|jj/mm/aaaa hh:mm"));
}

TEST(ColumnLayoutEditor, ChangesNothingWhenADialogIsCancelled) {
  EditedLayout layout;
  layout.Load({"5,2,10", "7,7,10,/,"}, true);
  const std::vector<std::string> before = layout.Grid1();
  for (const TypeEntry entry : {TypeEntry::kDate, TypeEntry::kLongueur, TypeEntry::kDecimal}) {
    layout.editor.ChooseType(0, entry);
    EXPECT_EQ(layout.Grid1(), before);
  }
  layout.editor.ChooseType(1, TypeEntry::kDate);
  EXPECT_EQ(layout.Grid1(), before);
  EXPECT_THAT(layout.asked, ElementsAre("Date|", "Length|10", "Decimals|2", "Date|jj/mm/aaaa"));
}

TEST(ColumnLayoutEditor, EntersALengthAndDecimals) {
  EditedLayout layout;
  layout.Load({"6,0,8"}, true);
  layout.answer = "12";
  layout.editor.ChooseType(0, TypeEntry::kLongueur);
  layout.answer = "3";
  layout.editor.ChooseType(0, TypeEntry::kDecimal);
  EXPECT_THAT(layout.Grid1(), ElementsAre("1|Double|3|12"));
}

TEST(ColumnLayoutEditor, AsksForNothingThatTheMenuDoesNotOffer) {
  EditedLayout layout;
  layout.answer = "9";
  layout.Load({"1", "7,7,,/,"}, false);
  layout.editor.ChooseType(0, TypeEntry::kLongueur);
  layout.editor.ChooseType(0, TypeEntry::kDecimal);
  layout.editor.ChooseType(1, TypeEntry::kDecimal);
  layout.editor.ChooseType(2, TypeEntry::kDate);
  EXPECT_THAT(layout.asked, IsEmpty());
  EXPECT_THAT(layout.Grid1(), ElementsAre("1|Texte||", "2|Date|jj/mm/aaaa|"));
}

TEST(ColumnLayoutEditor, StopsAtTheFirstFaultyRowAndSelectsIt) {
  EditedLayout layout;
  layout.Load({"1,,3", "5,2,2", "1,,"}, true, {"CODE,INTEGER,"});
  EXPECT_FALSE(layout.editor.CheckColumns(true));
  EXPECT_THAT(layout.boxes.shown,
              ElementsAre("Warn|Importation Table|Le nombre de caractères doit être plus grand "
                          "d'au moins une unité que le nombre de décimales Colonne: 2"));
  EXPECT_EQ(layout.shown.selected_file_row, 1U);
  EXPECT_EQ(layout.shown.selected_field_row, std::nullopt);
}

TEST(ColumnLayoutEditor, ChecksTheOriginsOnlyWhenTheColumnsAreAssigned) {
  EditedLayout layout;
  layout.Load({"1"}, false, {"CODE,INTEGER,(Col)1", "NOM,CHAR(3),(Col)2"});
  EXPECT_TRUE(layout.editor.CheckColumns(false));
  EXPECT_THAT(layout.boxes.shown, IsEmpty());
  EXPECT_FALSE(layout.editor.CheckColumns(true));
  EXPECT_THAT(layout.boxes.shown, ElementsAre("Warn|Importation Table|Colonne inconnue"));
  EXPECT_EQ(layout.shown.selected_field_row, 1U);
  layout.editor.StepColumnCount(true);
  EXPECT_TRUE(layout.editor.CheckColumns(true));
  EXPECT_EQ(layout.shown.selected_field_row, std::nullopt);
}

TEST(ColumnLayoutEditor, ForgetsASelectedRowThatIsGone) {
  EditedLayout layout;
  layout.Load({"1", "1"}, false);
  layout.editor.ClickFileRow(1);
  layout.editor.StepColumnCount(false);
  EXPECT_EQ(layout.shown.selected_file_row, std::nullopt);
}

}  // namespace
}  // namespace imptable
