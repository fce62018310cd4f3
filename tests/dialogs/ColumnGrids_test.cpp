#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/window.h>

#include "tests/dialogs/ClientTask.h"
#include "tests/dialogs/DialogPlace.h"
#include "tests/dialogs/Languages.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// Grid1 and Grid2 of a task of two file columns, worked by the keyboard.
class ColumnGrids : public testing::Test {
 protected:
  explicit ColumnGrids(Language language = Language::kEnglish) : place_(kClientTable, language) {
    SetUpClientTask(place_);
  }

  /// Goes on with the cursor in the first row of Grid1.
  static void GoToFileColumns(Person& person) {
    person.ClickTab(3);
    person.GoTo("Grid1");
  }

  /// Goes on with the cursor in the first origin.
  static void GoToOrigins(Person& person) {
    person.ClickTab(3);
    person.GoTo("Grid2");
    person.Press("Right Right Right");
  }

  static void LeaveMenu(Person& person) {
    person.Press("Escape");
    person.WaitUntil([] { return !OpenMenu(); }, "the end of the menu");
    person.WaitForFocus("Grid1");
  }

  std::string Stored(const std::string& name) { return place_.Imptable({"get", "S1", "T1", name}); }

  DialogPlace place_;
};

class TranslatedColumnGrids : public ColumnGrids, public testing::WithParamInterface<Language> {
 protected:
  TranslatedColumnGrids() : ColumnGrids(GetParam()) {}
};

TEST_F(ColumnGrids, OpenTheirTypeMenuByEachKeyForMenus) {
  place_.Configure([](Person& person) {
    GoToFileColumns(person);
    for (const char* const key : {"space", "F4", "Menu", "shift+F10"}) {
      person.Press(key);
      EXPECT_THAT(person.WaitForMenu(), testing::Contains("Date...")) << key;
      LeaveMenu(person);
    }
    person.Press("Escape");
  });
}

TEST_F(ColumnGrids, OpenTheirTypeMenuWhereTheMouseIs) {
  place_.Configure([](Person& person) {
    person.ClickTab(3);
    person.ClickCell("Grid1", 1, 2);
    person.WaitForMenu();
    const auto [menu, mouse] = OnMainThread([] { return std::pair(MenuPlace(), MousePlace()); });
    EXPECT_NEAR(menu.x, mouse.x, 8);
    EXPECT_NEAR(menu.y, mouse.y, 8);
    LeaveMenu(person);
    person.Press("Escape");
  });
}

TEST_P(TranslatedColumnGrids, OfferWhatFitsTheTypeAndTheFormat) {
  place_.Configure([&](Person& person) {
    const std::string text = In(GetParam(), "Texte", "Text");
    const std::string numeric = In(GetParam(), "Numérique", "Numeric");
    GoToFileColumns(person);
    person.Press("F4");
    EXPECT_THAT(person.WaitForMenu(),
                ElementsAre(text, numeric, "Date...", "Boolean", "[Nombre de décimal]"));
    person.Press("Down Down Right");
    person.WaitUntil(
        [] {
          return OpenMenu().value_or(std::vector<std::string>()).size() == 5 &&
                 OpenMenu()->front() == "Byte (0 .. 256)";
        },
        "the submenu");
    person.Press("Down Down Down Return");
    person.WaitForCell("Grid1", 0, 1, "Single");
    EXPECT_EQ(person.SeesCell("Grid1", 0, 2), "0");
    person.WaitForFocus("Grid1");
    person.Press("F4");
    EXPECT_THAT(person.WaitForMenu(), testing::Contains("Nombre de décimal"));
    LeaveMenu(person);
    person.ClickTab(1);
    person.Click("optForm(0)");
    place_.boxes().Answer("Return");
    GoToFileColumns(person);
    EXPECT_EQ(person.Header("Grid1"),
              In(GetParam(), "N°|Type|Décimales|Longueur", "N°|Type|Decimals|Longueur"));
    person.Press("F4");
    EXPECT_THAT(person.WaitForMenu(), ElementsAre(text, numeric, "Date...", "Boolean", "-",
                                                  "Longueur", "Nombre de décimal"));
    LeaveMenu(person);
    person.Press("Escape");
  });
}

TEST_F(ColumnGrids, GiveABooleanTheLengthOne) {
  place_.Configure([&](Person& person) {
    person.ClickTab(1);
    person.Click("optForm(0)");
    place_.boxes().Answer("Return");
    GoToFileColumns(person);
    person.Press("Down space");
    person.Choose("Boolean");
    person.WaitForCell("Grid1", 1, 1, "Boolean");
    EXPECT_EQ(person.SeesCell("Grid1", 1, 3), "1");
    EXPECT_EQ(person.SeesCell("Grid1", 1, 2), "");
    person.Press("Escape");
  });
}

TEST_P(TranslatedColumnGrids, HaveTheirHeadersInTheLanguageOfTheUser) {
  place_.Configure([&](Person& person) {
    person.ClickTab(3);
    EXPECT_EQ(person.Header("Grid1"), In(GetParam(), "N°|Type|Décimales", "N°|Type|Decimals"));
    EXPECT_EQ(person.Header("Grid2"),
              In(GetParam(), "N°|Nom Colonne|Format|Origine", "N°|Column name|Format|Origin"));
    person.Press("Escape");
  });
}

TEST_F(ColumnGrids, PickAnOriginByEachKeyForMenus) {
  place_.Configure([](Person& person) {
    GoToOrigins(person);
    for (const char* const key : {"space", "F4", "Menu", "shift+F10"}) {
      person.Press(key);
      person.WaitForFocus("List1");
      EXPECT_EQ(person.Entries("List1"), "Ignore Null Variable Col N° 1 Col N° 2") << key;
      person.Press("Escape");
      person.WaitForFocus("Grid2");
      EXPECT_EQ(person.SeesCell("Grid2", 0, 3), "Col N° 1") << key;
    }
    person.Press("Escape");
  });
}

TEST_F(ColumnGrids, TakeThePickedOriginOnEnterAndOnSpace) {
  place_.Configure([](Person& person) {
    GoToOrigins(person);
    person.Press("F4");
    person.WaitForFocus("List1");
    person.Press("Home Down Return");
    person.WaitForCell("Grid2", 0, 3, "Null");
    person.WaitForFocus("Grid2");
    person.Press("Down F4");
    person.WaitForFocus("List1");
    person.Press("End space");
    person.WaitForCell("Grid2", 1, 3, "Col N° 2");
    person.WaitForFocus("Grid2");
    person.Click("cmdValider");
  });
  EXPECT_EQ(Stored("Champs\\1"), "ID,INTEGER,Null\n");
}

TEST_F(ColumnGrids, TakeAClickOnAnyEntryOfTheOriginsAlsoTheFirst) {
  place_.Configure([](Person& person) {
    person.ClickTab(3);
    const std::vector<std::string> entries{"Ignore", "Null", "Variable", "Col N° 1", "Col N° 2"};
    for (const int entry : {0, 4, 1, 3, 0}) {
      person.ClickCell("Grid2", 1, 3);
      person.ClickEntry("List1", entry);
      person.WaitForCell("Grid2", 1, 3, entries[static_cast<std::size_t>(entry)]);
      person.WaitUntil([&] { return !Control("List1").IsShown(); }, "the list to go");
    }
    person.Press("Escape");
  });
}

TEST_F(ColumnGrids, KeepTheOriginThatIsConfirmedInTheOpenList) {
  place_.Configure([](Person& person) {
    GoToOrigins(person);
    person.Press("Down F4");
    person.WaitForFocus("List1");
    person.Press("Return");
    person.WaitForFocus("Grid2");
    EXPECT_EQ(person.SeesCell("Grid2", 1, 3), "Col N° 2");
    person.Press("Escape");
  });
}

TEST_F(ColumnGrids, OpenTheirOriginsOverTheClickedCellWithTheirButton) {
  place_.Configure([](Person& person) {
    person.ClickTab(3);
    person.ClickCell("Grid2", 2, 3);
    person.WaitForFocus("List1");
    const wxRect cell = person.CellPlace("Grid2", 2, 3);
    const auto place = [](wxWindow& window) { return window.GetScreenRect(); };
    const wxRect list = person.Ask("List1", place);
    EXPECT_EQ(list.x, cell.x);
    EXPECT_EQ(list.width, cell.width);
    EXPECT_EQ(list.y, cell.y + cell.height);
    EXPECT_TRUE(cell.Contains(person.Ask("Command3", place)));
    person.Click("Command3");
    person.WaitForFocus("List1");
    person.Press("Escape");
    person.WaitUntil([] { return !Control("Command3").IsShown(); }, "the button to go");
    person.Press("Escape");
  });
}

TEST_F(ColumnGrids, TakeATypedReferenceAsOrigin) {
  place_.Configure([](Person& person) {
    GoToOrigins(person);
    person.Press("F4");
    person.WaitForFocus("List1");
    person.Press("Home Down Down Return");
    person.WaitForFocus("Text1");
    EXPECT_EQ(person.Sees("Text1"), "@");
    person.Type("DEPOT");
    person.Press("Escape");
    person.WaitForFocus("Grid2");
    EXPECT_EQ(person.SeesCell("Grid2", 0, 3), "Col N° 1");
    person.Press("F4");
    person.WaitForFocus("List1");
    person.Press("Home Down Down Return");
    person.WaitForFocus("Text1");
    person.Type("DEPOT");
    person.Press("Return");
    person.WaitForCell("Grid2", 0, 3, "@DEPOT");
    person.WaitForFocus("Grid2");
    person.Click("cmdValider");
  });
  EXPECT_THAT(Stored("Champs\\1"), HasSubstr(",@DEPOT"));
}

TEST_F(ColumnGrids, ShowTheFirstLineInAFixedPitchFont) {
  place_.Configure([](Person& person) {
    person.ClickTab(3);
    EXPECT_EQ(person.Sees("TextFichier"), "1;Anna");
    EXPECT_TRUE(person.Ask("TextFichier", [](wxWindow& window) {
      return window.GetTextExtent("iiii").x == window.GetTextExtent("WWWW").x;
    }));
    person.Press("Escape");
  });
}

TEST_F(ColumnGrids, FollowTheSpinnerOfTheColumnCount) {
  place_.Configure([](Person& person) {
    person.ClickTab(1);
    person.Click("textNbCol");
    person.Press("Up");
    person.WaitForText("textNbCol", "3");
    person.ClickTab(3);
    EXPECT_EQ(person.SeesCell("Grid1", 2, 0), "3");
    person.ClickTab(1);
    person.Click("textNbCol");
    person.Press("Down Down");
    person.WaitForText("textNbCol", "1");
    person.ClickTab(3);
    EXPECT_EQ(person.SeesCell("Grid1", 0, 0), "1");
    EXPECT_EQ(person.SeesCell("Grid1", 1, 0), "");
    person.Press("Escape");
  });
}

INSTANTIATE_TEST_SUITE_P(EachLanguage, TranslatedColumnGrids, kEachLanguage, LanguageName);

}  // namespace
}  // namespace imptable
