#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "platform/testing/TemporaryFolder.h"
#include "tests/command/ChildProcess.h"

namespace imptable {
namespace {

TEST(Demo, RunsWhereAFolderOfTheSystemMayNotBeRead) {
  const TemporaryFolder folder{testing::TempDir()};
  for (const char* name : {"scripts", "resources", "path"}) {
    std::filesystem::create_directory(folder.path() + name);
  }
  std::filesystem::copy(IMPTABLE_TREE "/scripts/demo", folder.path() + "scripts/demo");
  std::filesystem::create_symlink(IMPTABLE_TREE "/resources/demo",
                                  folder.path() + "resources/demo");
  // Finds what there is, but fails at the end, as over a folder that this user may not read.
  folder.Write("path/find", "#!/bin/sh\n/usr/bin/find \"$@\"\necho 'no rights' >&2\nexit 1\n");
  std::filesystem::permissions(folder.path() + "path/find", std::filesystem::perms::owner_all);
  ChildProcess demo({folder.path() + "scripts/demo"}, ChildProcess::Output::kPipe,
                    {{"IMPTABLE_COMMAND", IMPTABLE_COMMAND},
                     {"PATH", folder.path() + "path:" + std::getenv("PATH")}});
  EXPECT_EQ(demo.Finish(), 0) << demo.output();
}

}  // namespace
}  // namespace imptable
