#include "host/run/RunWarnings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

#include "platform/testing/PlainEncodings.h"
#include "platform/testing/TemporaryFolder.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class RunWarningsOfATask : public testing::Test {
 protected:
  RunWarningsOfATask() {
    task.alias = "CLIENTS";
    task.directory = folder.path();
    task.file_format = FileFormat::kDelimited;
  }

  std::vector<std::string> Warnings() const {
    return RunWarnings(task, false, *files, HostTexts(Language::kEnglish, encoding));
  }

  OpenedTask task;
  TemporaryFolder folder{testing::TempDir()};
  std::unique_ptr<FileSystem> files = SystemFileSystem();
  Utf8TextEncoding encoding;
};

TEST_F(RunWarningsOfATask, SayNothingOfOneThatDoesWhatItSays) {
  task.column_layout = {"1", "7,7,,/,", "7,16,,-,1"};
  folder.Write("CLIENTS.SUP", "");
  for (const auto mode : std::to_array<std::int16_t>({0, 1, 3, 4})) {
    for (const auto deletion : std::to_array<std::int16_t>({0, 1, 2})) {
      task.mode = static_cast<ImportMode>(mode);
      task.deletion = static_cast<Deletion>(deletion);
      EXPECT_THAT(Warnings(), IsEmpty()) << mode << ' ' << deletion;
    }
  }
}

TEST_F(RunWarningsOfATask, NameAModeThatImportsNothing) {
  for (const auto mode : std::to_array<std::int16_t>({2, 5, -1, 32767})) {
    task.mode = static_cast<ImportMode>(mode);
    EXPECT_THAT(Warnings(),
                ElementsAre(HasSubstr("\"Mode\" = " + std::to_string(mode) + " imports nothing")));
  }
}

TEST_F(RunWarningsOfATask, NameADeletionThatThereIsNot) {
  for (const auto deletion : std::to_array<std::int16_t>({3, -1})) {
    task.deletion = static_cast<Deletion>(deletion);
    EXPECT_THAT(Warnings(), ElementsAre(HasSubstr("\"Suppression\" = " + std::to_string(deletion) +
                                                  " deletes nothing")));
  }
}

TEST_F(RunWarningsOfATask, NameTheMissingFileOfASelectiveDeletion) {
  task.deletion = Deletion::kSelective;
  EXPECT_THAT(Warnings(), ElementsAre(HasSubstr("no file " + folder.path() + "CLIENTS.SUP")));
}

TEST_F(RunWarningsOfATask, NameEachColumnWithoutADateStyle) {
  task.column_layout = {"7,17,,/,", "7,7,,/,", "7,,,/,", "7,0"};
  EXPECT_THAT(Warnings(), ElementsAre(HasSubstr("\"Colonnes\\1\" = \"7,17,,/,\""),
                                      HasSubstr("\"Colonnes\\3\""), HasSubstr("\"Colonnes\\4\"")));
}

TEST_F(RunWarningsOfATask, NameAnOriginWhoseVariableIsNotSet) {
  task.scenario = "S";
  task.unset_origins = {{"Champs\\2", "NOM,12,@SITE", "SITE"}};
  EXPECT_THAT(Warnings(), ElementsAre("\"Champs\\2\" = \"NOM,12,@SITE\", but scenario \"S\" has no "
                                      "variable \"SITE\": the column is left null"));
}

TEST_F(RunWarningsOfATask, LeaveALayoutThatCannotBeUnderstoodToTheRun) {
  task.column_layout = {"5,x"};
  EXPECT_THAT(Warnings(), IsEmpty());
}

}  // namespace
}  // namespace imptable
