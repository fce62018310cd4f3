#include "dialogs/columns/FieldGrid.h"

#include <gmock/gmock.h>

#include "dialogs/testing/EditedLayout.h"

namespace imptable {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::size_t kIgnore = 0;
constexpr std::size_t kNull = 1;
constexpr std::size_t kVariable = 2;
constexpr std::size_t kFirstFileColumn = 3;

/// Two columns of the file; a table whose columns have these origins.
class EditedOrigins : public EditedLayout {
 public:
  explicit EditedOrigins(const std::vector<std::string>& origins) {
    std::vector<std::string> assignments;
    for (const std::string& origin : origins) assignments.push_back("NOM,CHAR(3)," + origin);
    Load({"1", "1"}, false, assignments);
  }

  void Pick(std::size_t row, std::size_t entry) {
    editor.ClickOrigin(row);
    editor.PickOrigin(entry);
  }
};

TEST(FieldGrid, OffersAllOriginsOverTheClickedRow) {
  EditedOrigins layout({"", ""});
  layout.editor.ClickOrigin(1);
  ASSERT_TRUE(layout.shown.origin_list);
  EXPECT_EQ(layout.shown.origin_list->row, 1U);
  EXPECT_THAT(layout.shown.origin_list->entries,
              ElementsAre("Ignore", "Null", "Variable", "Col N° 1", "Col N° 2"));
  EXPECT_EQ(layout.shown.selected_field_row, 1U);
}

TEST(FieldGrid, OffersTheColumnsThatTheFileHasNow) {
  EditedOrigins layout({""});
  layout.editor.StepColumnCount(true);
  layout.editor.ClickOrigin(0);
  EXPECT_EQ(layout.shown.origin_list->entries.back(), "Col N° 3");
  layout.editor.TypeColumnCount("0");
  EXPECT_THAT(layout.shown.origin_list->entries, ElementsAre("Ignore", "Null", "Variable"));
}

TEST(FieldGrid, WritesThePickedOriginAndHidesTheList) {
  EditedOrigins layout({"", "", ""});
  layout.Pick(0, kIgnore);
  layout.Pick(1, kNull);
  layout.Pick(2, kFirstFileColumn + 1);
  EXPECT_THAT(layout.Origins(), ElementsAre("Ignore", "Null", "Col N° 2"));
  EXPECT_EQ(layout.shown.origin_list, std::nullopt);
  EXPECT_EQ(layout.shown.origin_entry, std::nullopt);
}

TEST(FieldGrid, KeepsTheOriginWhenTheListIsLeft) {
  EditedOrigins layout({"Null"});
  layout.editor.ClickOrigin(0);
  layout.editor.LeaveOrigin();
  EXPECT_EQ(layout.shown.origin_list, std::nullopt);
  layout.editor.ClickOrigin(0);
  layout.editor.PickOrigin(5);
  EXPECT_EQ(layout.shown.origin_list, std::nullopt);
  EXPECT_THAT(layout.Origins(), ElementsAre("Null"));
}

TEST(FieldGrid, IgnoresWhatIsNotThere) {
  EditedOrigins layout({"Null"});
  layout.editor.PickOrigin(kIgnore);
  layout.editor.TypeOrigin("@DEPOT");
  layout.editor.ClickOrigin(1);
  EXPECT_EQ(layout.shown.origin_list, std::nullopt);
  layout.editor.PickOrigin(kIgnore);
  EXPECT_THAT(layout.Origins(), ElementsAre("Null"));
}

TEST(FieldGrid, AsksForTheReferenceOfAVariable) {
  EditedOrigins layout({"", "Null", "(Col)1"});
  for (std::size_t row = 0; row < 3; ++row) {
    layout.Pick(row, kVariable);
    EXPECT_EQ(layout.shown.origin_entry, (OriginEntry{row, "@"}));
    EXPECT_EQ(layout.shown.field_rows[row].origin, "Variable");
    layout.editor.TypeOrigin("@DEPOT");
  }
  EXPECT_THAT(layout.Origins(), ElementsAre("@DEPOT", "@DEPOT", "@DEPOT"));
  EXPECT_EQ(layout.shown.origin_entry, std::nullopt);
}

TEST(FieldGrid, EditsWhatWasTypedBefore) {
  EditedOrigins layout({"@DEPOT", "FR"});
  layout.Pick(0, kVariable);
  EXPECT_EQ(layout.shown.origin_entry, (OriginEntry{0, "@DEPOT"}));
  layout.editor.TypeOrigin("@DEPOT2");
  layout.Pick(1, kVariable);
  EXPECT_EQ(layout.shown.origin_entry, (OriginEntry{1, "FR"}));
  layout.editor.TypeOrigin("DE");
  EXPECT_THAT(layout.Origins(), ElementsAre("@DEPOT2", "DE"));
}

TEST(FieldGrid, PutsTheFormerOriginBackWhenNothingIsTyped) {
  EditedOrigins layout({"Null", "@DEPOT", "", "(Col)2"});
  layout.Pick(0, kVariable);
  layout.editor.TypeOrigin("@");
  layout.Pick(1, kVariable);
  layout.editor.TypeOrigin("");
  layout.Pick(2, kVariable);
  layout.editor.LeaveOrigin();
  layout.Pick(3, kVariable);
  layout.editor.ClickOrigin(0);
  EXPECT_THAT(layout.Origins(), ElementsAre("Null", "@DEPOT", "", "Col N° 2"));
  EXPECT_EQ(layout.shown.origin_entry, std::nullopt);
  EXPECT_THAT(layout.boxes.shown, IsEmpty());
}

TEST(FieldGrid, RefusesATypedOriginThatCanNotBeStored) {
  EditedOrigins layout({"Null"});
  layout.Pick(0, kVariable);
  layout.editor.TypeOrigin("a,b");
  EXPECT_THAT(layout.boxes.shown, ElementsAre("Warn|Importation Table|Valeur incorrecte"));
  EXPECT_EQ(layout.shown.origin_entry, (OriginEntry{0, "a,b"}));
  layout.editor.TypeOrigin("ab");
  EXPECT_THAT(layout.Origins(), ElementsAre("ab"));
}

TEST(FieldGrid, DoesNotPassTheChecksWhileAVariableHasNoReference) {
  EditedOrigins layout({"Null"});
  layout.Pick(0, kVariable);
  EXPECT_FALSE(layout.editor.CheckColumns(true));
  EXPECT_THAT(layout.boxes.shown,
              ElementsAre("Warn|Importation Table|Indiquer l'origine de la colonne NOM"));
}

TEST(FieldGrid, ShowsATypedFileColumnAsAPickedOne) {
  EditedOrigins layout({""});
  layout.Pick(0, kVariable);
  layout.editor.TypeOrigin("(Col)2");
  EXPECT_THAT(layout.Origins(), ElementsAre("Col N° 2"));
}

}  // namespace
}  // namespace imptable
