// Runs in a folder where somebody else has put links in place of the files that they write.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/kit/ImportRun.h"

namespace imptable {
namespace {

using testing::HasSubstr;

/// A folder whose files can be written, but not removed.
class PlantedLink : public testing::TestWithParam<const char*> {
 protected:
  PlantedLink() {
    run.Source({"1;a", "2;b"});
    run.component.files.FailFrom(FileOperation::kRemove, 1,
                                 std::make_error_code(std::errc::permission_denied));
    victim.Write("victim.txt", "kept\n");
    std::filesystem::create_symlink(victim.path() + "victim.txt", link);
  }

  ImportRun run;
  TemporaryFolder victim;
  const std::string link = run.folder.path() + "CLIENTS" + GetParam();
};

TEST_P(PlantedLink, EndsTheRunBeforeALineIsExecutedAndLeavesItsTargetAlone) {
  EXPECT_NE(run.Go(), 2);
  EXPECT_EQ(victim.Read("victim.txt"), "kept\n");
  EXPECT_TRUE(std::filesystem::is_symlink(link));
  EXPECT_THAT(run.Executed(), testing::IsEmpty());
  const std::optional<RuntimeFault>& fault = run.component.module().run.fault;
  ASSERT_TRUE(fault);
  EXPECT_EQ(run.component.module().FaultText(*fault),
            "Erreur d'accès au chemin ou au fichier : " + link +
                " : c'est un lien symbolique, qui n'est pas suivi : le supprimer");
}

INSTANTIATE_TEST_SUITE_P(InPlaceOf, PlantedLink, testing::Values(".ERR", ".LER", ".TRC"),
                         [](const auto& each) { return std::string(each.param + 1); });

TEST(PlantedLinks, AreRemovedWhereTheUserMayRemoveThem) {
  ImportRun run;
  TemporaryFolder victim;
  victim.Write("victim.txt", "kept\n");
  for (const char* extension : {".ERR", ".LER", ".TRC"}) {
    std::filesystem::create_symlink(victim.path() + "victim.txt",
                                    run.folder.path() + "CLIENTS" + extension);
  }
  run.Source({"1;a"});
  EXPECT_EQ(run.Go(), 2);
  EXPECT_EQ(victim.Read("victim.txt"), "kept\n");
  EXPECT_FALSE(std::filesystem::is_symlink(run.folder.path() + "CLIENTS.ERR"));
}

}  // namespace
}  // namespace imptable
