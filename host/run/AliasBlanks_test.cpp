#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/testing/HostSession.h"
#include "platform/files/LockFile_linux.h"
#include "tests/drivers/ScriptedDataSource.h"

namespace imptable {
namespace {

using testing::HasSubstr;
using testing::Not;

/// Task "T", whose alias has blanks around it. Its files' names include the leading blanks, but not
/// the trailing ones.
TEST(AliasWithBlanksAroundIt, NamesInEveryMessageTheFilesThatAreReallyUsed) {
  ScriptedDataSource source;
  source.Script(
      "column CODE 4 INTEGER 10 0 0\ncolumn NOM 12 VARCHAR 30 0 1\n"
      "on SQLExecute return -1 diag 23000 1 \"refused\"\n");
  HostSession session;
  const std::string folder = session.folder.path();
  session.folder.Write(" CLIENTS.CSV", "1;a\n");
  ASSERT_EQ(session
                .Run({"set", "S", "T", "Base Cible=" + source.name(), "Table=CLIENT",
                      "Dir=" + folder, "Alias= CLIENTS  ", "FormatFile=1"})
                .code,
            0);
  const std::vector<std::string> run{"run", "S", "T", "--report", folder + "report.txt"};
  const auto summary = session.Run(run);
  EXPECT_EQ(summary.code, 1);
  EXPECT_TRUE(session.folder.Exists(" CLIENTS.ERR"));
  EXPECT_THAT(summary.err, HasSubstr(folder + " CLIENTS.ERR"));
  EXPECT_THAT(summary.out, HasSubstr(folder + " CLIENTS.LER"));
  EXPECT_THAT(summary.err + summary.out, Not(HasSubstr("CLIENTS  ")));
  const LockFile lock(folder + " CLIENTS.LCK");
  EXPECT_THAT(session.Run(run).err, HasSubstr("(lock " + folder + " CLIENTS.LCK)"));
}

}  // namespace
}  // namespace imptable
