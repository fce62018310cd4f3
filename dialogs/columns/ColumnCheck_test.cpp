#include "dialogs/columns/ColumnCheck.h"

#include <gmock/gmock.h>

#include "tests/kit/TestComponent.h"

namespace imptable {
namespace {

std::optional<LayoutFailure> Check(const std::vector<FileColumn>& columns, bool fixed_width,
                                   std::int32_t language = kFrenchOffset) {
  TestComponent component;
  component.module().language_offset = language;
  return CheckFileColumns(component.module(), columns, fixed_width);
}

struct MissingLength {
  FileColumnType type;
  const char* french;
  const char* english;
};

constexpr std::array<MissingLength, 7> kMissingLengths{{
    {FileColumnType::kText, "Entrer le nombre de caractères du champs Text de la colonne 2",
     "Enter text field character length for column 2"},
    {FileColumnType::kByte, "Entrer le nombre de caractères du champs Byte de la colonne 2",
     "Enter byte field character length for column 2"},
    {FileColumnType::kInteger, "Entrer le nombre de caractères du champs Integer de la colonne 2",
     "Enter integer field character length for column 2"},
    {FileColumnType::kLong, "Entrer le nombre de caractères du champs Long de la colonne 2",
     "Enter long field character length for column 2"},
    {FileColumnType::kSingle, "Entrer le nombre de caractères du champs Single de la colonne 2",
     "Enter single field character length for column 2"},
    {FileColumnType::kDouble, "Entrer le nombre de caractères du champs Double de la colonne 2",
     "Enter double field character length for column 2"},
    {FileColumnType::kBoolean, "Entrer le nombre de caractères du champs Text de la colonne 2",
     "Enter text field character length for column 2"},
}};

TEST(ColumnCheck, AsksForTheLengthOfEachColumnOfAFixedWidthFile) {
  for (const MissingLength& missing : kMissingLengths) {
    const std::vector<FileColumn> columns{{FileColumnType::kText, "", "1"}, {missing.type, "", ""}};
    EXPECT_EQ(Check(columns, true), (LayoutFailure{missing.french, 1}));
    EXPECT_EQ(Check(columns, true, kEnglishOffset), (LayoutFailure{missing.english, 1}));
    EXPECT_EQ(Check(columns, false), std::nullopt);
  }
}

TEST(ColumnCheck, AsksForNoLengthOfADate) {
  EXPECT_EQ(Check({{FileColumnType::kDate, "jj/mm/aaaa", ""}}, true), std::nullopt);
}

TEST(ColumnCheck, WantsALengthGreaterThanTheDecimals) {
  for (const FileColumnType type : {FileColumnType::kSingle, FileColumnType::kDouble}) {
    for (const char* length : {"0", "1", "2"}) {
      EXPECT_EQ(Check({{type, "2", length}}, true),
                (LayoutFailure{"Le nombre de caractères doit être plus grand d'au moins une unité "
                               "que le nombre de décimales Colonne: 1",
                               0}))
          << length;
    }
    for (const char* length : {"3", "10"}) {
      EXPECT_EQ(Check({{type, "2", length}}, true), std::nullopt) << length;
    }
    EXPECT_EQ(Check({{type, "2", ""}}, false), std::nullopt);
  }
}

TEST(ColumnCheck, CountsNoDecimalsWhereNoneAreGiven) {
  EXPECT_EQ(Check({{FileColumnType::kSingle, "", "1"}}, true), std::nullopt);
  EXPECT_EQ(Check({{FileColumnType::kSingle, "", "0"}}, true, kEnglishOffset),
            (LayoutFailure{"The number of characters must be greater by at least one unit than the "
                           "number of decimals Column: 1",
                           0}));
}

TEST(ColumnCheck, ComparesNumbersAndNotTexts) {
  EXPECT_EQ(Check({{FileColumnType::kDouble, "9", "10"}}, true), std::nullopt);
  EXPECT_NE(Check({{FileColumnType::kDouble, "10", "9"}}, true), std::nullopt);
}

TEST(ColumnCheck, AsksForTheFormatOfADate) {
  for (const bool fixed_width : {false, true}) {
    for (const char* format : {"", "2", "jj/mm"}) {
      EXPECT_EQ(Check({{FileColumnType::kText, "", "1"}, {FileColumnType::kDate, format, "10"}},
                      fixed_width),
                (LayoutFailure{"Entrer un format pour la colonne 2", 1}))
          << format;
    }
    EXPECT_EQ(Check({{FileColumnType::kDate, "jjmmaa", ""}}, fixed_width), std::nullopt);
  }
}

TEST(ColumnCheck, StopsAtTheFirstFaultyColumn) {
  EXPECT_EQ(Check({{FileColumnType::kText, "", "3"},
                   {FileColumnType::kDate, "", ""},
                   {FileColumnType::kByte, "", ""}},
                  true),
            (LayoutFailure{"Entrer un format pour la colonne 2", 1}));
}

TEST(ColumnCheck, PassesAFileWithoutColumns) {
  EXPECT_EQ(Check({}, true), std::nullopt);
  EXPECT_EQ(Check({}, false), std::nullopt);
}

FieldRow From(std::string origin, std::string name = "NOM") {
  FieldRow row;
  row.name = std::move(name);
  row.origin = std::move(origin);
  return row;
}

std::optional<LayoutFailure> CheckOf(const std::vector<FieldRow>& rows, std::size_t columns,
                                     std::int32_t language = kFrenchOffset) {
  TestComponent component;
  component.module().language_offset = language;
  return CheckFields(component.module(), rows, columns);
}

TEST(ColumnCheck, AsksForTheOriginOfEachColumnOfTheTable) {
  EXPECT_EQ(CheckOf({From("Null"), From("", "PRIX")}, 3),
            (LayoutFailure{"Indiquer l'origine de la colonne PRIX", 1}));
  EXPECT_EQ(CheckOf({From("", "PRIX")}, 3, kEnglishOffset),
            (LayoutFailure{"Enter origin of column PRIX", 0}));
}

TEST(ColumnCheck, AsksForTheVariableThatAnOriginOnlyAnnounces) {
  EXPECT_EQ(CheckOf({From("Variable", "PRIX")}, 3),
            (LayoutFailure{"Indiquer l'origine de la colonne PRIX", 0}));
}

TEST(ColumnCheck, KnowsOnlyTheColumnsOfTheFile) {
  for (const char* origin : {"Col N° 4", "Col N° 0", "Col N° ", "Col N° x", "Col N° 99999999999"}) {
    EXPECT_EQ(CheckOf({From("Col N° 3"), From(origin)}, 3), (LayoutFailure{"Colonne inconnue", 1}))
        << origin;
  }
  EXPECT_EQ(CheckOf({From("Col N° 1")}, 0, kEnglishOffset), (LayoutFailure{"Incorrect Column", 0}));
}

TEST(ColumnCheck, PassesEveryOtherOrigin) {
  EXPECT_EQ(CheckOf({From("Col N° 1"), From("Col N° 3"), From("Ignore"), From("Null"),
                     From("@DEPOT"), From("FR"), From(" ")},
                    3),
            std::nullopt);
  EXPECT_EQ(CheckOf({}, 3), std::nullopt);
}

TEST(ColumnCheck, StopsAtTheFirstFaultyField) {
  EXPECT_EQ(CheckOf({From("Col N° 1"), From("Col N° 9", "A"), From("", "B")}, 3),
            (LayoutFailure{"Colonne inconnue", 1}));
}

}  // namespace
}  // namespace imptable
