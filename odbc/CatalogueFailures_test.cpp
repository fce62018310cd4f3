#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "odbc/Catalogue.h"
#include "tests/kit/ScriptedSession.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

/// What a query put into its list, as texts.
using Rows = std::vector<std::string>;

template <bool (Catalogue::*Query)(std::vector<TableColumn>&)>
Rows TableColumnNames(Catalogue catalogue, bool& complete) {
  std::vector<TableColumn> columns(3);  // replaced by what the query finds
  complete = (catalogue.*Query)(columns);
  Rows rows;
  for (const TableColumn& column : columns) rows.push_back(column.name);
  return rows;
}

Rows VersionColumnNames(Catalogue catalogue, bool& complete) {
  Rows rows(3);  // replaced by what the query finds
  complete = catalogue.GetSpecialColumns(rows);
  return rows;
}

template <bool (Catalogue::*Query)(std::vector<KeyColumn>&)>
Rows KeyColumnNames(Catalogue catalogue, bool& complete) {
  std::vector<KeyColumn> columns(3);  // replaced by what the query finds
  complete = (catalogue.*Query)(columns);
  Rows rows;
  for (const KeyColumn& column : columns) rows.push_back(column.column_name);
  return rows;
}

struct QueryCase {
  const char* name;
  const char* call;
  const char* function_number;
  std::vector<int> bound;  // result columns in the order of their binding
  Rows (*run)(Catalogue catalogue, bool& complete);
};

const std::vector<QueryCase>& Queries() {
  static const std::vector<QueryCase> queries{
      {"TableColumns",
       "SQLColumns",
       "40",
       {4, 5, 6, 7, 9, 11},
       &TableColumnNames<&Catalogue::GetTableColumns>},
      {"ColumnTypes", "SQLColumns", "40", {4, 5}, &TableColumnNames<&Catalogue::GetColumnTypes>},
      {"SpecialColumns", "SQLSpecialColumns", "52", {2}, &VersionColumnNames},
      {"PrimaryKey",
       "SQLPrimaryKeys",
       "65",
       {4, 5, 6},
       &KeyColumnNames<&Catalogue::GetPrimaryKeyColumns>},
      {"UniqueIndexes",
       "SQLStatistics",
       "53",
       {9, 8, 6, 7},
       &KeyColumnNames<&Catalogue::GetUniqueIndexColumns>},
  };
  return queries;
}

/// One query on a table of two columns, A and B, each a key, an index and a row version.
class Asked {
 public:
  Asked(const QueryCase& query, const std::string& behaviour)
      : session(
            "column A 4 INTEGER 10 0 0\ncolumn B 4 INTEGER 10 0 0\n"
            "key A 1 PK\nkey B 2 PK\nindex A 1 IX 3\nindex B 2 IX 3\n"
            "rowversion A\nrowversion B\n" +
            behaviour) {
    EXPECT_TRUE(session.Connect());
    session.run().table = "CLIENT";
    session.source.ClearLog();
    rows = query.run(session.catalogue(), complete);
  }

  std::vector<std::string> Log(std::string_view call) const {
    return session.source.LogLines(call);
  }
  bool Dropped() const { return Log("SQLFreeStmt") == Rows{"SQLFreeStmt DROP = 0"}; }

  ScriptedSession session;
  bool complete = false;
  Rows rows;
};

class CatalogueQuery : public testing::TestWithParam<std::size_t> {
 protected:
  const QueryCase& query() const { return Queries().at(GetParam()); }
  std::string On(const std::string& call, const std::string& rest) const {
    return "on " + call + ' ' + rest + '\n';
  }
};

TEST_P(CatalogueQuery, ReadsEveryRowAndDropsItsStatement) {
  const Asked asked(query(), "");
  EXPECT_TRUE(asked.complete);
  EXPECT_THAT(asked.rows, ElementsAre("A", "B"));
  EXPECT_THAT(asked.Log("SQLFetch"), SizeIs(3));
  EXPECT_THAT(asked.Log("SQLAllocStmt"), SizeIs(1));
  EXPECT_TRUE(asked.Dropped());
  EXPECT_THAT(asked.session.Boxes(), IsEmpty());
}

TEST_P(CatalogueQuery, IsNotMadeWithoutAStatement) {
  for (const char* code : {"-1", "1"}) {
    Asked asked(query(),
                On("SQLAllocStmt", "return " + std::string(code) + " diag S1001 5 \"no memory\""));
    EXPECT_FALSE(asked.complete) << code;
    EXPECT_THAT(asked.rows, IsEmpty());
    EXPECT_THAT(asked.Log(query().call), IsEmpty());
    EXPECT_THAT(asked.session.Boxes(), ElementsAre("( 5) no memory"));
  }
}

TEST_P(CatalogueQuery, ReportsARefusalAndDropsItsStatement) {
  Asked asked(query(), On(query().call, "return -1 diag S1000 7 refused diag 01000 8 more"));
  EXPECT_FALSE(asked.complete);
  EXPECT_THAT(asked.rows, IsEmpty());
  EXPECT_THAT(asked.session.Boxes(), ElementsAre("( 7) refused", "( 8) more"));
  EXPECT_THAT(asked.Log("SQLBindCol"), IsEmpty());
  EXPECT_TRUE(asked.Dropped());
}

TEST_P(CatalogueQuery, ReportsAFunctionThatTheDriverDoesNotHave) {
  Asked asked(query(), "support " + std::string(query().function_number) + " no\n");
  EXPECT_FALSE(asked.complete);
  EXPECT_THAT(asked.session.Boxes(), ElementsAre(HasSubstr("does not support this function")));
  EXPECT_TRUE(asked.Dropped());
}

TEST_P(CatalogueQuery, GoesOnWhenTheDriverSucceedsWithInformation) {
  Asked asked(query(), On(query().call, "return 1 diag 01000 7 \"by the way\""));
  EXPECT_TRUE(asked.complete);
  EXPECT_THAT(asked.rows, ElementsAre("A", "B"));
  EXPECT_THAT(asked.session.Boxes(), IsEmpty());
}

TEST_P(CatalogueQuery, EndsAtTheFirstBindingThatDoesNotSucceed) {
  for (const char* code : {"-1", "1"}) {
    for (std::size_t n = 0; n < query().bound.size(); ++n) {
      const std::string column = std::to_string(query().bound[n]);
      Asked asked(query(), On("SQLBindCol", "where text = \"" + column + "\" return " + code +
                                                " diag S1002 9 \"binding\""));
      EXPECT_FALSE(asked.complete) << column;
      EXPECT_THAT(asked.Log("SQLBindCol"), SizeIs(n + 1)) << column;
      EXPECT_THAT(asked.Log("SQLFetch"), IsEmpty()) << column;
      EXPECT_THAT(asked.session.Boxes(), ElementsAre("( 9) binding")) << column;
      EXPECT_TRUE(asked.Dropped()) << column;
    }
  }
}

TEST_P(CatalogueQuery, KeepsWhatItReadBeforeAFetchThatFails) {
  for (const char* code : {"-1", "1"}) {
    Asked asked(query(), On("SQLFetch", "2 return " + std::string(code) + " diag S1000 4 broken"));
    EXPECT_FALSE(asked.complete) << code;
    EXPECT_THAT(asked.rows, ElementsAre("A")) << code;
    EXPECT_THAT(asked.session.Boxes(), ElementsAre("( 4) broken")) << code;
    EXPECT_TRUE(asked.Dropped()) << code;
  }
}

TEST_P(CatalogueQuery, HasNothingWhenTheFirstFetchFails) {
  Asked asked(query(), On("SQLFetch", "return -1 diag S1000 4 broken"));
  EXPECT_FALSE(asked.complete);
  EXPECT_THAT(asked.rows, IsEmpty());
  EXPECT_THAT(asked.Log("SQLFetch"), SizeIs(1));
}

TEST_P(CatalogueQuery, HasAStatementOfItsOwn) {
  ScriptedSession session;
  EXPECT_TRUE(session.Connect());
  Statement other;
  EXPECT_EQ(other.Allocate(session.odbc().connection), SQL_SUCCESS);
  bool complete = false;
  query().run(session.catalogue(), complete);
  EXPECT_TRUE(complete);
  EXPECT_THAT(session.source.LogLines("SQLAllocStmt"), SizeIs(2));
  EXPECT_THAT(session.source.LogLines("SQLFreeStmt"), SizeIs(1));
}

TEST_P(CatalogueQuery, ReportsToTheReportDuringARun) {
  ScriptedSession session(On(query().call, "return -1 diag S1000 7 refused"));
  EXPECT_TRUE(session.Connect());
  session.ReportToTheRun();
  bool complete = true;
  query().run(session.catalogue(), complete);
  EXPECT_FALSE(complete);
  EXPECT_THAT(session.component.host.Texts(), ElementsAre("( 7) refused"));
  EXPECT_THAT(session.Boxes(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Each, CatalogueQuery, testing::Range<std::size_t>(0, Queries().size()),
                         [](const auto& instance) {
                           return std::string(Queries().at(instance.param).name);
                         });

}  // namespace
}  // namespace imptable
