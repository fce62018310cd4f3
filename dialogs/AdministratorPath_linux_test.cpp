#include <gtest/gtest.h>

#include <filesystem>

#include "dialogs/AdministratorPath.h"
#include "platform/testing/ScopedVariable.h"
#include "platform/testing/TemporaryFolder.h"

namespace imptable {
namespace {

class OdbcAdministratorPath : public testing::Test {
 protected:
  /// Makes a program file, which can be run only when `executable`.
  std::string Program(const std::string& name, bool executable = true) {
    folder_.Write(name, "#!/bin/sh\n");
    const std::filesystem::path path = folder_.path() + name;
    std::filesystem::permissions(
        path, executable ? std::filesystem::perms::owner_all : std::filesystem::perms::owner_read);
    return path;
  }

  TemporaryFolder folder_{testing::TempDir()};
  const std::string search_path_ =
      "/nowhere::" + folder_.path().substr(0, folder_.path().size() - 1);
};

TEST_F(OdbcAdministratorPath, IsTheUsualProgramOnTheSearchPath) {
  const std::string program = Program("ODBCManageDataSourcesQ4");
  const ScopedVariable none("IMPTABLE_ODBC_ADMIN", "");
  const ScopedVariable path("PATH", search_path_.c_str());
  EXPECT_EQ(AdministratorPath(), program);
}

TEST_F(OdbcAdministratorPath, IsTheProgramThatIsConfiguredByNameOrByPath) {
  Program("ODBCManageDataSourcesQ4");
  const std::string program = Program("own");
  const ScopedVariable path("PATH", search_path_.c_str());
  {
    const ScopedVariable by_name("IMPTABLE_ODBC_ADMIN", "own");
    EXPECT_EQ(AdministratorPath(), program);
  }
  const ScopedVariable by_path("IMPTABLE_ODBC_ADMIN", program.c_str());
  const ScopedVariable no_path("PATH", "");
  EXPECT_EQ(AdministratorPath(), program);
}

TEST_F(OdbcAdministratorPath, IsEmptyWhereThereIsNoSuchProgram) {
  Program("ODBCManageDataSourcesQ4", false);
  const ScopedVariable path("PATH", search_path_.c_str());
  for (const std::string& configured :
       {std::string(), std::string("own"), folder_.path() + "own", folder_.path()}) {
    const ScopedVariable variable("IMPTABLE_ODBC_ADMIN", configured.c_str());
    EXPECT_EQ(AdministratorPath(), "") << configured;
  }
}

}  // namespace
}  // namespace imptable
