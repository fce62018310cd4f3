// A driver that repeats the password in its messages.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "tests/kit/ScriptedSession.h"

namespace imptable {
namespace {

using testing::ElementsAre;

constexpr const char* kEchoes =
    "on SQLDriverConnect return -1 diag 28000 18456 \"login failed: UID=sa;PWD=top secret;\"\n";

bool ConnectWithPassword(ScriptedSession& session) {
  return session.odbc().ConnectDataSource(session.source.name(), "sa", "top secret");
}

TEST(HiddenPassword, IsNotInAMessageBox) {
  ScriptedSession session(kEchoes);
  EXPECT_FALSE(ConnectWithPassword(session));
  EXPECT_THAT(session.Boxes(), ElementsAre("( 18456) login failed: UID=sa;PWD=******;"));
}

TEST(HiddenPassword, IsNotInTheReport) {
  ScriptedSession session(kEchoes);
  session.ReportToTheRun();
  EXPECT_FALSE(ConnectWithPassword(session));
  EXPECT_THAT(session.component.host.lines,
              ElementsAre(WrittenLine{"( 18456) login failed: UID=sa;PWD=******;",
                                      ReportKind::kError, nullptr}));
}

TEST(HiddenPassword, IsNotAtTheEndOfATextThatIsCutThere) {
  const std::string filler(511 - 3, '.');
  ScriptedSession session("on SQLDriverConnect return -1 diag 28000 1 \"" + filler +
                          "top secret\"\n");
  EXPECT_FALSE(ConnectWithPassword(session));
  EXPECT_THAT(session.Boxes(), ElementsAre("( 1) " + filler + "******"));
}

TEST(HiddenPassword, IsThatOfTheLastConnection) {
  ScriptedSession session(kEchoes);
  EXPECT_FALSE(ConnectWithPassword(session));
  EXPECT_FALSE(session.odbc().ConnectDataSource(session.source.name(), "sa", "other"));
  EXPECT_THAT(session.Boxes(), ElementsAre("( 18456) login failed: UID=sa;PWD=******;",
                                           "( 18456) login failed: UID=sa;PWD=top secret;"));
}

}  // namespace
}  // namespace imptable
