#include <gmock/gmock.h>

#include "dialogs/testing/EditedLayout.h"

namespace imptable {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

TEST(CountedColumns, AreOneMoreThanTheSeparatorsOfTheFirstLine) {
  EditedLayout layout;
  layout.Source("a;b;;c\nd\n");
  layout.editor.CountColumns(layout.fields);
  EXPECT_THAT(layout.boxes.shown,
              ElementsAre("Inform|Importation Table|Le fichier contient 4 colonne(s)"));
  EXPECT_THAT(layout.Grid1(), ElementsAre("1|Texte||", "2|Texte||", "3|Texte||", "4|Texte||"));
  EXPECT_EQ(layout.editor.column_count(), 4);
  EXPECT_EQ(layout.shown.first_line, "a;b;;c");
}

TEST(CountedColumns, AreSaidInTheLanguageOfTheUser) {
  EditedLayout layout;
  layout.module().language_offset = kEnglishOffset;
  layout.Source("a\n");
  layout.editor.CountColumns(layout.fields);
  layout.Source("");
  layout.editor.CountColumns(layout.fields);
  EXPECT_THAT(layout.boxes.shown, ElementsAre("Inform|Importation Table|File contains 1 column(s)",
                                              "Inform|Importation Table|File is empty..."));
}

TEST(CountedColumns, FollowTheSeparator) {
  EditedLayout layout;
  layout.Source("a;b|c|d\n");
  layout.fields.separator = "|";
  layout.editor.CountColumns(layout.fields);
  EXPECT_EQ(layout.editor.column_count(), 3);
  layout.fields.separator = "|c|";
  layout.editor.CountColumns(layout.fields);
  EXPECT_EQ(layout.editor.column_count(), 2);
}

TEST(CountedColumns, KeepTheRowsThatAreDescribedAlready) {
  EditedLayout layout;
  layout.Load({"5,2", "2"}, false);
  layout.Source("a;b;c\n");
  layout.editor.CountColumns(layout.fields);
  EXPECT_THAT(layout.Grid1(), ElementsAre("1|Single|2|", "2|Byte||", "3|Texte||"));
}

TEST(CountedColumns, AreCountedAtEachChoiceOfAFormat) {
  EditedLayout layout;
  layout.Source("a;b\n");
  layout.editor.ChooseFileFormat(true, layout.fields);
  EXPECT_TRUE(layout.editor.fixed_width());
  layout.editor.ChooseFileFormat(false, layout.fields);
  EXPECT_FALSE(layout.editor.fixed_width());
  EXPECT_THAT(layout.boxes.shown,
              ElementsAre("Inform|Importation Table|Le fichier contient 2 colonne(s)",
                          "Inform|Importation Table|Le fichier contient 2 colonne(s)"));
}

TEST(CountedColumns, StayWhenTheFileIsEmpty) {
  EditedLayout layout;
  layout.Load({"2", "4"}, false);
  layout.Source("");
  layout.editor.CountColumns(layout.fields);
  EXPECT_THAT(layout.boxes.shown, ElementsAre("Inform|Importation Table|Le Fichier est vide ..."));
  EXPECT_THAT(layout.Grid1(), ElementsAre("1|Byte||", "2|Long||"));
}

TEST(CountedColumns, StayInSilenceWhenThereIsNoFile) {
  EditedLayout layout;
  layout.Load({"2", "4"}, false);
  layout.Source("a;b;c\n");
  layout.editor.ShowFirstLine(layout.fields);
  layout.fields.alias = "others";
  layout.editor.CountColumns(layout.fields);
  EXPECT_THAT(layout.boxes.shown, IsEmpty());
  EXPECT_THAT(layout.Grid1(), ElementsAre("1|Byte||", "2|Long||"));
  EXPECT_EQ(layout.shown.first_line, "");
}

TEST(CountedColumns, StayWhenTheFileCanNotBeRead) {
  EditedLayout layout;
  layout.Load({"2"}, false);
  layout.Source("a;b\n");
  layout.component.files.Fail(FileOperation::kOpenRead, 1,
                              std::make_error_code(std::errc::permission_denied));
  layout.editor.CountColumns(layout.fields);
  layout.component.files.Fail(FileOperation::kRead, 1, std::make_error_code(std::errc::io_error));
  layout.editor.CountColumns(layout.fields);
  const std::string path = layout.folder.path() + "clients.csv";
  EXPECT_THAT(
      layout.boxes.shown,
      ElementsAre("Warn|Importation Table|Permission refusée : " + path,
                  "Warn|Importation Table|Erreur d'entrée/sortie du périphérique : " + path));
  EXPECT_THAT(layout.Grid1(), ElementsAre("1|Byte||"));
  layout.editor.CountColumns(layout.fields);
  EXPECT_EQ(layout.editor.column_count(), 2);
}

TEST(CountedColumns, StayWhenTheFileIsNoText) {
  using std::string_view_literals::operator""sv;
  EditedLayout layout;
  layout.Load({"2"}, false);
  layout.Source(
      "\x7F"
      "ELF\0\0;;\n"sv);
  layout.editor.CountColumns(layout.fields);
  EXPECT_THAT(layout.boxes.shown,
              ElementsAre("Warn|Importation Table|Format de fichier incorrect : " +
                          layout.folder.path() + "clients.csv"));
  EXPECT_THAT(layout.Grid1(), ElementsAre("1|Byte||"));
  EXPECT_EQ(layout.shown.first_line, ".ELF..;;");
}

TEST(CountedColumns, StayWhenTheFirstLineIsTooLongToBeCounted) {
  EditedLayout layout;
  layout.Load({"2"}, false);
  layout.Source(std::string(kFileStartBytes, 'x') + ";\n");
  layout.editor.CountColumns(layout.fields);
  EXPECT_THAT(layout.boxes.shown, ElementsAre("Warn|Importation Table|Dépassement de capacité : " +
                                              layout.folder.path() + "clients.csv"));
  EXPECT_THAT(layout.Grid1(), ElementsAre("1|Byte||"));
}

TEST(CountedColumns, StayWhenThereAreMoreThanATaskCanStore) {
  EditedLayout layout;
  layout.Source(std::string(kMostFileColumns - 1, ';') + '\n');
  layout.editor.CountColumns(layout.fields);
  EXPECT_EQ(layout.editor.column_count(), kMostFileColumns);
  layout.boxes.shown.clear();
  layout.Source(std::string(kMostFileColumns, ';') + '\n');
  layout.editor.CountColumns(layout.fields);
  EXPECT_THAT(layout.boxes.shown, ElementsAre("Warn|Importation Table|Dépassement de capacité : " +
                                              layout.folder.path() + "clients.csv"));
  EXPECT_EQ(layout.editor.column_count(), kMostFileColumns);
}

TEST(CountedColumns, StayWhenTheHostCanNotSayWhereTheFileIs) {
  EditedLayout layout;
  layout.Load({"2"}, false);
  layout.component.host.unavailable = true;
  layout.fields.directory = "@DIR";
  layout.editor.CountColumns(layout.fields);
  EXPECT_THAT(layout.boxes.shown,
              ElementsAre("Warn|Importation Table|Objet de l'hôte non disponible : DIR"));
  EXPECT_THAT(layout.Grid1(), ElementsAre("1|Byte||"));
  layout.editor.ShowFirstLine(layout.fields);
  EXPECT_EQ(layout.shown.first_line, "Objet de l'hôte non disponible : DIR");
  EXPECT_THAT(layout.boxes.shown, SizeIs(1));
}

TEST(FirstLine, IsShownWithoutABoxOrACount) {
  EditedLayout layout;
  layout.Source("a;b\tc\r\nd");
  layout.editor.ShowFirstLine(layout.fields);
  EXPECT_EQ(layout.shown.first_line, "a;b.c");
  EXPECT_THAT(layout.Grid1(), IsEmpty());
  EXPECT_THAT(layout.boxes.shown, IsEmpty());
}

TEST(FirstLine, GivesItsPlaceToWhatKeepsItFromBeingShown) {
  EditedLayout layout;
  layout.Source("");
  layout.editor.ShowFirstLine(layout.fields);
  EXPECT_EQ(layout.shown.first_line, "Le Fichier est vide ...");
  layout.Source("a");
  layout.component.files.Fail(FileOperation::kOpenRead, 1,
                              std::make_error_code(std::errc::permission_denied));
  layout.editor.ShowFirstLine(layout.fields);
  EXPECT_EQ(layout.shown.first_line,
            "Permission refusée : " + layout.folder.path() + "clients.csv");
  layout.fields.alias = "";
  layout.editor.ShowFirstLine(layout.fields);
  EXPECT_EQ(layout.shown.first_line, "");
  EXPECT_THAT(layout.boxes.shown, IsEmpty());
}

TEST(FirstLine, IsShownUpToALengthThatAFieldCanHold) {
  EditedLayout layout;
  layout.Source(std::string(100000, 'x'));
  layout.editor.ShowFirstLine(layout.fields);
  EXPECT_EQ(layout.shown.first_line, std::string(8192, 'x') + "...");
}

TEST(FirstLine, IsThatOfTheFileThatVariablesName) {
  EditedLayout layout;
  layout.Source("a;b");
  layout.component.host.variables["DIR"] = layout.folder.path();
  layout.fields.directory = "@DIR";
  layout.editor.ShowFirstLine(layout.fields);
  EXPECT_EQ(layout.shown.first_line, "a;b");
}

}  // namespace
}  // namespace imptable
