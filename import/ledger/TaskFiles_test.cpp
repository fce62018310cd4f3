#include "import/ledger/TaskFiles.h"

#include <gtest/gtest.h>

namespace imptable {
namespace {

TEST(TaskFiles, NamesTheSourceAfterTheAliasUnlessItsNameIsComplete) {
  RunState run;
  run.directory = "/data/";
  run.alias = "CLIENTS";
  EXPECT_EQ(DataFilePath(run), "/data/CLIENTS.CSV");
  run.alias = "clients.txt";
  EXPECT_EQ(DataFilePath(run), "/data/clients.txt.CSV");
  run.full_file_name = Flag::kOn;
  EXPECT_EQ(DataFilePath(run), "/data/clients.txt");
}

TEST(TaskFiles, AddsTheSideFilesExtensionToTheWholeName) {
  RunState run;
  run.directory = "/data/";
  run.alias = "clients.txt";
  EXPECT_EQ(SideFilePath(run, kErrorExtension), "/data/clients.txt.ERR");
  EXPECT_EQ(SideFilePath(run, kRejectedExtension), "/data/clients.txt.LER");
  EXPECT_EQ(SideFilePath(run, kTraceExtension), "/data/clients.txt.TRC");
  EXPECT_EQ(SideFilePath(run, kRejectedCopyExtension), "/data/clients.txt.LEB");
  EXPECT_EQ(SideFilePath(run, kTraceCopyExtension), "/data/clients.txt.TRB");
  EXPECT_EQ(SideFilePath(run, kSelectionExtension), "/data/clients.txt.SUP");
}

TEST(TaskFiles, RemovesTheAliasesTrailingBlanksOnly) {
  RunState run;
  run.directory = "/data/";
  run.alias = " MY CLIENTS  ";
  EXPECT_EQ(DataFilePath(run), "/data/ MY CLIENTS.CSV");
  EXPECT_EQ(SideFilePath(run, kErrorExtension), "/data/ MY CLIENTS.ERR");
  run.alias = "   ";
  EXPECT_EQ(SideFilePath(run, kErrorExtension), "/data/.ERR");
}

}  // namespace
}  // namespace imptable
