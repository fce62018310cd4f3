#include "dialogs/ConnectedListing.h"

#include <gmock/gmock.h>

#include "dialogs/testing/EditedLayout.h"
#include "tests/drivers/ScriptedDataSource.h"

namespace imptable {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

constexpr std::string_view kClientTable = R"(
  table CLIENT TABLE dbo
  column CODE 4 INTEGER 10 0 0
  column NOM 12 VARCHAR 30 0 1
  column PRIX 3 DECIMAL 10 2 1
  column PAYS 1 CHAR 2 0 1
  index "" 0 "" 0
  index PAYS 2 IX_CLIENT 3 unique
  index CODE 1 IX_CLIENT 3 unique
)";

/// The editor, and a data source that has the table CLIENT.
class ListedLayout : public EditedLayout {
 public:
  explicit ListedLayout(std::string_view script = kClientTable) {
    source.Script(script);
    connection = {source.name(), "user", "secret", "dbo", "CLIENT"};
  }

  /// The texts of the boxes that the connection shows.
  std::vector<std::string> Diagnostics() const {
    std::vector<std::string> texts;
    for (const auto& warning : component.warnings.warnings()) texts.push_back(warning.text);
    return texts;
  }

  ScriptedDataSource source;
  ConnectionFields connection;
};

TEST(ConnectedListing, RebuildsTheGridOfTheTableInTheOrderOfTheCatalogue) {
  ListedLayout layout;
  layout.Load({"1"}, false, {"OLD,INTEGER,(Col)1"});
  layout.editor.ListTableColumns(layout.connection);
  EXPECT_THAT(layout.Grid2(), ElementsAre("1|CODE|INTEGER|*", "2|NOM|VARCHAR(30)|",
                                          "3|PRIX|DECIMAL(10,2)|", "4|PAYS|CHAR(2)|*"));
  EXPECT_THAT(layout.boxes.shown, IsEmpty());
  EXPECT_THAT(layout.Diagnostics(), IsEmpty());
}

TEST(ConnectedListing, ConnectsWithTheFieldsAndDisconnects) {
  ListedLayout layout;
  layout.editor.ListTableColumns(layout.connection);
  EXPECT_THAT(layout.source.LogLines("SQLDriverConnect"),
              ElementsAre(HasSubstr("UID=user;PWD=secret")));
  EXPECT_THAT(layout.source.LogLines("SQLDisconnect"), SizeIs(1));
  EXPECT_THAT(layout.source.LogLines("SQLColumns"), ElementsAre(HasSubstr("CLIENT")));
}

TEST(ConnectedListing, TakesTheValuesOfTheVariablesThatItsFieldsName) {
  ListedLayout layout;
  layout.component.host.variables = {{"SRC", layout.connection.data_source},
                                     {"WHO", "user"},
                                     {"PWD", "secret"},
                                     {"OWN", "dbo"},
                                     {"TAB", "CLIENT"}};
  layout.connection = {"@SRC", "@WHO", "@PWD", "@OWN", "@TAB"};
  layout.editor.ListTableColumns(layout.connection);
  EXPECT_THAT(layout.Grid2(), SizeIs(4));
  EXPECT_THAT(layout.source.LogLines("SQLDriverConnect"),
              ElementsAre(HasSubstr("UID=user;PWD=secret")));
  EXPECT_THAT(layout.component.host.looked_up, Contains("S1|Taches|SRC"));
}

TEST(ConnectedListing, LeavesTheTableTheConnectionAndTheErrorsOfARunAlone) {
  ListedLayout layout("on SQLColumns return -1 diag 42000 1 refused\ntable CLIENT");
  RunState& run = layout.module().run;
  run.owner = "run";
  run.table = "RUNNING";
  ConnectedListing listing(layout.module(), "S1", layout.connection);
  EXPECT_TRUE(listing.connected());
  std::vector<TableColumn> columns;
  EXPECT_FALSE(listing.catalogue().GetTableColumns(columns));
  EXPECT_THAT(layout.source.LogLines("SQLColumns"), ElementsAre(HasSubstr("CLIENT")));
  EXPECT_FALSE(layout.component.session().connected);
  EXPECT_EQ(run.table, "RUNNING");
  EXPECT_EQ(run.owner, "run");
  EXPECT_FALSE(run.error_reported);
}

TEST(ConnectedListing, ShowsEveryDiagnosticEvenOneThatARunIgnores) {
  ListedLayout layout(
      "on SQLDriverConnect return -1 diag 28000 18456 \"login failed\"\ntable CLIENT");
  layout.module().run.duplicate_key = Flag::kOn;
  layout.module().run.error_code = "18456";
  layout.editor.ListTableColumns(layout.connection);
  EXPECT_THAT(layout.Diagnostics(), Contains(HasSubstr("login failed")));
}

TEST(ConnectedListing, KeepsTheGridWhenItCanNotConnect) {
  ListedLayout layout("on SQLDriverConnect return -1 diag 28000 18456 \"login failed\"");
  layout.Load({"1"}, false, {"OLD,INTEGER,(Col)1"});
  layout.editor.ListTableColumns(layout.connection);
  EXPECT_THAT(layout.Grid2(), ElementsAre("1|OLD|INTEGER|Col N° 1"));
  EXPECT_THAT(layout.Diagnostics(), ElementsAre(HasSubstr("login failed")));
  layout.connection.data_source = "no such source";
  layout.editor.ListTableColumns(layout.connection);
  EXPECT_THAT(layout.Grid2(), SizeIs(1));
  EXPECT_THAT(layout.Diagnostics(), SizeIs(2));
}

TEST(ConnectedListing, KeepsTheGridWhenTheColumnsCanNotBeListed) {
  ListedLayout layout(std::string(kClientTable) +
                      "on SQLColumns return -1 diag S1000 5 \"no rights\"");
  layout.Load({"1"}, false, {"OLD,INTEGER,(Col)1"});
  layout.editor.ListTableColumns(layout.connection);
  EXPECT_THAT(layout.Grid2(), ElementsAre("1|OLD|INTEGER|Col N° 1"));
  EXPECT_THAT(layout.Diagnostics(), ElementsAre(HasSubstr("no rights")));
  EXPECT_THAT(layout.source.LogLines("SQLDisconnect"), SizeIs(1));
}

TEST(ConnectedListing, AsksForATableWhenThereIsNoSuchOne) {
  ListedLayout layout;
  layout.Load({"1"}, false, {"OLD,INTEGER,(Col)1"});
  layout.connection.table = "OTHER";
  layout.editor.ListTableColumns(layout.connection);
  EXPECT_THAT(layout.Grid2(), ElementsAre("1|OLD|INTEGER|Col N° 1"));
  EXPECT_THAT(layout.boxes.shown, ElementsAre("Warn|Importation Table|Sélectionner une Table"));
}

TEST(ConnectedListing, ListsTheColumnsThoughTheirIndexesCanNotBeListed) {
  ListedLayout layout(std::string(kClientTable) +
                      "on SQLStatistics return -1 diag S1000 5 \"no statistics\"");
  layout.editor.ListTableColumns(layout.connection);
  EXPECT_THAT(layout.Grid2(), ElementsAre("1|CODE|INTEGER|", "2|NOM|VARCHAR(30)|",
                                          "3|PRIX|DECIMAL(10,2)|", "4|PAYS|CHAR(2)|"));
  EXPECT_THAT(layout.Diagnostics(), ElementsAre(HasSubstr("no statistics")));
}

TEST(ConnectedListing, SaysWhenItCanNotDisconnect) {
  ListedLayout layout(std::string(kClientTable) +
                      "on SQLDisconnect 1 return -1 diag S1000 5 \"busy\"");
  layout.editor.ListTableColumns(layout.connection);
  EXPECT_THAT(layout.Grid2(), SizeIs(4));
  EXPECT_THAT(layout.Diagnostics(), Contains("Erreur Déconnexion  (SQLDisconnect)"));
}

TEST(ConnectedListing, MarksTheKeyColumnsOfALoadedTask) {
  ListedLayout layout;
  layout.Load({"1"}, false, {"NOM,VARCHAR(30),(Col)1", "CODE,INTEGER,Null"});
  layout.editor.RefreshKeyMarks(layout.connection);
  EXPECT_THAT(layout.Grid2(), ElementsAre("1|NOM|VARCHAR(30)|Col N° 1", "2|CODE|INTEGER|Null*"));
}

TEST(ConnectedListing, TakesTheMarksOfAnEarlierKeyAway) {
  ListedLayout layout;
  layout.editor.ListTableColumns(layout.connection);
  layout.source.Script("table CLIENT TABLE dbo\nindex NOM 1 IX 3 unique");
  layout.editor.RefreshKeyMarks(layout.connection);
  EXPECT_THAT(layout.Grid2(),
              ElementsAre(Not(testing::EndsWith("*")), testing::EndsWith("*"),
                          Not(testing::EndsWith("*")), Not(testing::EndsWith("*"))));
}

TEST(ConnectedListing, DoesNotConnectWithNothingToMark) {
  ListedLayout layout;
  layout.editor.RefreshKeyMarks(layout.connection);
  layout.Load({"1"}, false, {"NOM,VARCHAR(30),(Col)1"});
  ConnectionFields nowhere = layout.connection;
  nowhere.table.clear();
  layout.editor.RefreshKeyMarks(nowhere);
  nowhere = layout.connection;
  nowhere.data_source.clear();
  layout.editor.RefreshKeyMarks(nowhere);
  EXPECT_THAT(layout.source.LogLines("SQLDriverConnect"), IsEmpty());
}

TEST(ConnectedListing, StaysUsableWhenTheHostCanNotResolveAReference) {
  ListedLayout layout;
  layout.Load({"1"}, false, {"NOM,VARCHAR(30),(Col)1"});
  layout.component.host.unavailable = true;
  layout.connection.password = "@PWD";
  layout.module().run.table = "RUNNING";
  layout.editor.ListTableColumns(layout.connection);
  layout.editor.RefreshKeyMarks(layout.connection);
  EXPECT_THAT(layout.boxes.shown,
              ElementsAre("Warn|Importation Table|Objet de l'hôte non disponible : PWD",
                          "Warn|Importation Table|Objet de l'hôte non disponible : PWD"));
  EXPECT_EQ(layout.module().run.table, "RUNNING");
  EXPECT_THAT(layout.Grid2(), SizeIs(1));
  EXPECT_THAT(layout.source.LogLines("SQLDriverConnect"), IsEmpty());
}

}  // namespace
}  // namespace imptable
