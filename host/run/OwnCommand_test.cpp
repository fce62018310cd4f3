#include "host/run/OwnCommand.h"

#include <gtest/gtest.h>

namespace imptable {
namespace {

TEST(OwnCommand, IsTypedAsItStands) {
  CommandRequest request;
  request.scenario = "Night";
  request.task = "Clients";
  EXPECT_EQ(SetCommandFor(request, "RecTrace=1"), "imptable set Night Clients RecTrace=1");
  EXPECT_EQ(RunCommandFor(request, "--resume"), "imptable run Night Clients --resume");
  request.registry = "/a b/r.db";
  request.task = "New 'clients'";
  EXPECT_EQ(RunCommandFor(request, "--resume"),
            "imptable --registry '/a b/r.db' run Night 'New '\\''clients'\\''' --resume");
}

TEST(OwnCommand, TakesNoNameForAnOption) {
  CommandRequest request;
  request.scenario = "Night";
  request.task = "-x";
  EXPECT_EQ(SetCommandFor(request, "RecTrace=1"), "imptable set -- Night -x RecTrace=1");
  EXPECT_EQ(RunCommandFor(request, "--resume"), "imptable run --resume -- Night -x");
}

TEST(ShellWord, IsQuotedUnlessItIsPlain) {
  EXPECT_EQ(ShellWord(""), "''");
  EXPECT_EQ(ShellWord("a-b/c.d_e=1"), "a-b/c.d_e=1");
  for (const char* const word :
       {"a b", "$HOME", "a;b", "*", "~", "a\"b", "\\", "\xC3\xA9t\xC3\xA9"}) {
    EXPECT_EQ(ShellWord(word), '\'' + std::string(word) + '\'');
  }
}

}  // namespace
}  // namespace imptable
