#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/testing/TemporaryFolder.h"
#include "tests/command/ChildProcess.h"

namespace imptable {
namespace {

class SourcesHint : public testing::Test {
 protected:
  std::string Hint() {
    ChildProcess command(
        {IMPTABLE_COMMAND, "--registry", folder.path() + "registry.db", "--lang", "en", "sources"},
        ChildProcess::Output::kPipe,
        {{"ODBCINI", folder.path() + "odbc.ini"},
         {"ODBCSYSINI", folder.path()},
         {"HOME", "/home/me"}});
    EXPECT_EQ(command.Finish(), 0);
    return command.output();
  }

  TemporaryFolder folder{testing::TempDir()};
};

TEST_F(SourcesHint, ShowsAnExampleForADriverThatTheDriverManagerKnows) {
  folder.Write("odbcinst.ini",
               "[Other]\nDriver=/nowhere/other.so\n\n[SQLite3]\nDriver=/nowhere/sqlite3.so\n");
  EXPECT_EQ(Hint(), "imptable: no ODBC data source: add a section to " + folder.path() +
                        "odbc.ini, for example\n\n"
                        "[Shop]\nDriver=SQLite3\nDatabase=/home/me/shop.db\n\n"
                        "The installed drivers are: Other, SQLite3\n");
}

TEST_F(SourcesHint, AsksForADriverWhenTheDriverManagerKnowsNone) {
  folder.Write("odbcinst.ini", "");
  EXPECT_THAT(Hint(), testing::StartsWith("imptable: no ODBC driver and no data source: install"));
}

TEST_F(SourcesHint, IsNotShownWhenThereIsADataSource) {
  folder.Write("odbcinst.ini", "");
  folder.Write("odbc.ini", "[Shop]\nDriver=/nowhere/driver.so\n");
  EXPECT_EQ(Hint(), "Shop\n");
}

}  // namespace
}  // namespace imptable
