#include "import/ledger/Ledger.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/kit/ImportRun.h"
#include "tests/kit/SideFileLines.h"
#include "tests/kit/TextFile.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// What was done to the files, by their names: the reading of blocks and the sizes are left out.
std::vector<std::string> Log(const ImportRun& run) {
  std::vector<std::string> log;
  for (std::string line : run.component.files.log()) {
    if (line.starts_with("read ")) continue;
    for (std::size_t at; (at = line.find(run.folder.path())) != std::string::npos;) {
      line.erase(at, run.folder.path().size());
    }
    if (line.starts_with("write ")) line.erase(line.rfind(' '));
    log.push_back(line);
  }
  return log;
}

TEST(SideFiles, AreOpenedWrittenAndClosedInTheirOrder) {
  ImportRun run;
  run.Source({"1;a", "2;b;x", "3;c"});
  run.Driver("on SQLExecute 2 return -1 diag 23000 1 \"no\"");
  EXPECT_EQ(run.Go(), 3);
  EXPECT_THAT(
      Log(run),
      ElementsAre("open read CLIENTS.CSV", "remove CLIENTS.ERR", "remove CLIENTS.TRC",
                  "remove CLIENTS.LER", "remove CLIENTS.REP.NEW", "remove CLIENTS.REP",
                  "open write CLIENTS.ERR", "open write CLIENTS.LER", "open write CLIENTS.TRC",
                  "open read CLIENTS.CSV", "open read CLIENTS.CSV", "open write CLIENTS.REP.NEW",
                  "write CLIENTS.REP.NEW", "flush CLIENTS.REP.NEW", "close CLIENTS.REP.NEW",
                  "replace CLIENTS.REP by CLIENTS.REP.NEW",
                  "write CLIENTS.TRC",                                            // done
                  "write CLIENTS.ERR", "write CLIENTS.LER", "write CLIENTS.TRC",  // bad
                  "write CLIENTS.ERR", "write CLIENTS.LER", "write CLIENTS.TRC",  // refused
                  "open append CLIENTS.REP", "write CLIENTS.REP", "close CLIENTS.REP",
                  "close CLIENTS.ERR", "close CLIENTS.LER", "close CLIENTS.TRC"));
}

TEST(SideFiles, OfAResumeAreCopiedBeforeTheyAreOpenedAnew) {
  ImportRun run;
  run.Source({"1;a", "2;b"});
  run.folder.Write("CLIENTS.TRC", "00000001000000000\n00000002100000001\n");
  run.folder.Write("CLIENTS.LER", "2;mended\n");
  EXPECT_EQ(run.Go(2), 2);
  auto log = Log(run);
  EXPECT_THAT(
      log,
      ElementsAre("open read CLIENTS.TRC", "open read CLIENTS.LER", "open read CLIENTS.CSV",
                  "open read CLIENTS.CSV", "open read CLIENTS.CSV", "open read CLIENTS.TRC",
                  "open read CLIENTS.LER", "open write CLIENTS.REP.NEW", "write CLIENTS.REP.NEW",
                  "flush CLIENTS.REP.NEW", "close CLIENTS.REP.NEW",
                  "replace CLIENTS.REP by CLIENTS.REP.NEW", "open read CLIENTS.REP",
                  "remove CLIENTS.ERR", "open write CLIENTS.ERR", "remove CLIENTS.LEB",
                  "remove CLIENTS.TRB", "open read CLIENTS.LER", "open write CLIENTS.LEB",
                  "write CLIENTS.LEB", "close CLIENTS.LEB", "open read CLIENTS.TRC",
                  "open write CLIENTS.TRB", "write CLIENTS.TRB", "close CLIENTS.TRB",
                  "open write CLIENTS.LER", "open write CLIENTS.TRC", "write CLIENTS.TRC",
                  "open append CLIENTS.REP", "write CLIENTS.REP", "close CLIENTS.REP",
                  "close CLIENTS.ERR", "close CLIENTS.LER", "close CLIENTS.TRC",
                  "open read CLIENTS.REP", "open read CLIENTS.REP", "open write CLIENTS.REP.NEW",
                  "write CLIENTS.REP.NEW", "flush CLIENTS.REP.NEW", "close CLIENTS.REP.NEW",
                  "replace CLIENTS.REP by CLIENTS.REP.NEW", "remove CLIENTS.TRC",
                  "remove CLIENTS.LER", "remove CLIENTS.REP.NEW", "remove CLIENTS.REP"));
}

TEST(SideFiles, HaveEachTraceLineWrittenBeforeTheNextLineIsTaken) {
  ImportRun run;
  run.Source({"1;a", "2;b;x", "3;c"});
  std::vector<std::size_t> traced;
  for (int yield = 1; yield < 50; ++yield) {
    run.component.message_loop.AtYield(yield, [&] {
      const auto lines = static_cast<std::size_t>(run.progress().read);
      if (lines > traced.size()) traced.push_back(run.Trace().size());
    });
  }
  EXPECT_EQ(run.Go(), 3);
  EXPECT_THAT(traced, ElementsAre(1U, 2U, 3U));
}

TEST(SideFiles, AreOnlyTheErrorFileWithoutTheResumeOption) {
  ImportRun run;
  run.Set("RecErreurs", 0);
  run.Source({"1;a", "2;b;x", "3;c"});
  run.Driver("on SQLExecute 2 return -1 diag 23000 1 \"no\"");
  EXPECT_EQ(run.Go(), 3);
  EXPECT_THAT(run.Rejected(), ElementsAre("<none>"));
  EXPECT_THAT(run.Trace(), ElementsAre("<none>"));
  EXPECT_THAT(run.Errors(), SizeIs(2));
  EXPECT_EQ(run.progress().lines[Outcome::kRejected], 2);
  EXPECT_EQ(run.progress().lines[Outcome::kInserted], 1);
}

TEST(SideFiles, StartEmptyInEachRun) {
  ImportRun run;
  run.Source({"1;a;x"});
  for (const char* name : {"CLIENTS.ERR", "CLIENTS.LER", "CLIENTS.TRC"}) {
    run.folder.Write(name, "of yesterday\n");
  }
  run.component.files.FailFrom(FileOperation::kRemove, 1,
                               std::make_error_code(std::errc::permission_denied));
  EXPECT_EQ(run.Go(), 3);
  EXPECT_THAT(run.Errors(), SizeIs(1));
  EXPECT_THAT(run.Rejected(), ElementsAre("1;a;x"));
  EXPECT_THAT(run.Trace(), ElementsAre(Rejected(1)));
}

TEST(SideFiles, KeepARejectedLineAsItWasRead) {
  ImportRun run;
  const std::string odd("2;\0 \xE9\t\"b\";x ", 13);
  run.folder.Write("CLIENTS.CSV", "1;a\r\n" + odd + "\r\n");
  EXPECT_EQ(run.Go(), 3);
  EXPECT_EQ(run.folder.Read("CLIENTS.LER"), TextFile({odd}));
}

TEST(SideFiles, KeepARejectedLineThatIsTooLongToBeCopied) {
  for (const std::size_t bytes :
       {std::size_t{65'535}, std::size_t{65'536}, std::size_t{65'537}, std::size_t{1'000'000}}) {
    ImportRun run;
    const std::string line = "1;2;" + std::string(bytes - 4, 'x');
    run.Source({line});
    EXPECT_EQ(run.Go(), 3);
    EXPECT_TRUE(run.folder.Read("CLIENTS.LER") == TextFile({line})) << bytes;
  }
}

TEST(SideFiles, TakeTheFailuresOfTheDataSourceOnlyWhileTheImportRuns) {
  ImportRun run;
  run.Source({"1;a"});
  run.Go();
  EXPECT_EQ(run.component.session().listener, &run.component.state.report);
}

}  // namespace
}  // namespace imptable
