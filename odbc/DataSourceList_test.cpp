#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/kit/ScriptedSession.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> ListedNames() {
  std::vector<std::string> names;
  ListDataSources([&](const std::string& name) { names.push_back(name); });
  return names;
}

TEST(DataSourceList, GivesEveryDataSourceByItsName) {
  ScriptedDataSource source;
  const std::string second = source.Add(
      "Second with blanks ", {{"Driver", "/nowhere/driver.so"}, {"Description", "not shown"}});
  EXPECT_THAT(ListedNames(), ElementsAre(source.name(), second));
}

TEST(DataSourceList, NeedsNoConnectionAndDisturbsNone) {
  ScriptedSession session;
  EXPECT_TRUE(session.Connect());
  const SQLHENV environment = session.odbc().environment;
  session.source.ClearLog();
  EXPECT_THAT(ListedNames(), ElementsAre(session.source.name()));
  EXPECT_EQ(session.odbc().environment, environment);
  EXPECT_THAT(session.source.LogLines(), IsEmpty());
}

}  // namespace
}  // namespace imptable
