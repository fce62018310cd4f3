#include "host/run/ReportPath.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <filesystem>

#include "host/HostError.h"
#include "host/testing/HostSession.h"
#include "platform/testing/PlainEncodings.h"
#include "platform/testing/TemporaryFolder.h"
#include "tests/drivers/ScriptedDataSource.h"

namespace imptable {
namespace {

using testing::HasSubstr;

/// A run of CLIENTS.CSV in a folder of its own, with a registry in another one.
class ReportPath : public testing::Test {
 protected:
  ReportPath() {
    run.directory = folder.path();
    run.alias = "CLIENTS";
    std::filesystem::create_directory(folder.path() + "sub");
  }

  /// The text of the refusal; empty when the report may be written.
  std::string Refusal(const std::string& report, ReportName name = ReportName::kGiven) const {
    try {
      RequireReportOfItsOwn(report, name, FilesOfRun(run, registry.path() + "registry.db"), *files,
                            encoding);
      return {};
    } catch (const HostError& error) {
      EXPECT_EQ(error.code(), ExitCode::kUsage);
      return HostTexts(Language::kEnglish, encoding).Text(error.text(), error.arguments());
    }
  }

  std::string In(const std::string& name) const { return folder.path() + name; }

  Utf8TextEncoding encoding;
  std::unique_ptr<FileSystem> files = SystemFileSystem();
  TemporaryFolder folder;
  TemporaryFolder registry;
  RunState run;
};

TEST_F(ReportPath, MayBeAnyOtherFile) {
  for (const char* name : {"T.txt", "CLIENTS.txt", "CLIENTS", "sub/CLIENTS.CSV", "CLIENTS.CSV2"}) {
    EXPECT_EQ(Refusal(In(name)), "") << name;
  }
  EXPECT_EQ(Refusal("/dev/null"), "");
  EXPECT_EQ(Refusal("/nowhere/CLIENTS.CSV"), "");
}

TEST_F(ReportPath, IsNoneOfTheRunsFilesBeTheyThereOrNotAndWhateverTheirCase) {
  for (const char* extension :
       {".CSV", ".ERR", ".LER", ".TRC", ".LEB", ".TRB", ".REP", ".SUP", ".LCK"}) {
    for (const char* alias : {"CLIENTS", "clients", "Clients"}) {
      EXPECT_EQ(Refusal(In(std::string(alias) + extension)),
                "report " + In(std::string(alias) + extension) + ": it is a file of this run (" +
                    In(std::string("CLIENTS") + extension) + "): give another one with --report");
    }
    EXPECT_NE(Refusal(In(std::string("sub/../clients") + extension)), "") << extension;
  }
  folder.Write("clients.csv", "1;a\n");
  EXPECT_THAT(Refusal(In("Clients.csv")), HasSubstr(In("clients.csv")));
}

TEST_F(ReportPath, IsNoneOfTheRegistrysFiles) {
  for (const char* name : {"registry.db", "registry.db-wal", "registry.db-shm", "REGISTRY.DB"}) {
    EXPECT_NE(Refusal(registry.path() + name), "") << name;
  }
  EXPECT_EQ(Refusal(registry.path() + "registry.txt"), "");
}

TEST_F(ReportPath, IsNoneOfTheRunsFilesThroughALink) {
  folder.Write("CLIENTS.CSV", "1;a\n");
  std::filesystem::create_hard_link(In("CLIENTS.CSV"), In("sub/hard.txt"));
  std::filesystem::create_symlink("../CLIENTS.CSV", In("sub/soft.txt"));
  std::filesystem::create_symlink("soft.txt", In("sub/softer.txt"));
  std::filesystem::create_symlink("../clients.ERR", In("sub/dangling.txt"));
  std::filesystem::create_symlink(".", In("sub/here"));
  for (const char* name : {"sub/hard.txt", "sub/soft.txt", "sub/softer.txt", "sub/dangling.txt",
                           "sub/here/../CLIENTS.TRC"}) {
    EXPECT_NE(Refusal(In(name)), "") << name;
  }
  std::filesystem::create_symlink("nothing.txt", In("sub/elsewhere.txt"));
  EXPECT_EQ(Refusal(In("sub/elsewhere.txt")), "");
}

TEST_F(ReportPath, KnowsTheFullNameWithoutTheAliasesTrailingBlanks) {
  run.alias = "report.txt  ";
  run.full_file_name = Flag::kOn;
  EXPECT_NE(Refusal(In("report.txt")), "");
  EXPECT_NE(Refusal(In("REPORT.txt.ERR")), "");
  EXPECT_NE(Refusal(In("report.txt.REP.NEW")), "");
  EXPECT_EQ(Refusal(In("report.txt  .ERR")), "");
  EXPECT_EQ(Refusal(In("report.txt.CSV")), "");
}

TEST_F(ReportPath, IsNoNamedPipeAndThatNobodyNamedNoDevice) {
  ASSERT_EQ(mkfifo(In("T.txt").c_str(), 0600), 0);
  std::filesystem::create_symlink("/dev/null", In("NULL.txt"));
  const auto no_file = [](const std::string& path) {
    return "report " + path + ": it is no file (a pipe, a device): give another one with --report";
  };
  EXPECT_EQ(Refusal(In("T.txt")), no_file(In("T.txt")));
  EXPECT_EQ(Refusal(In("T.txt"), ReportName::kDefault), no_file(In("T.txt")));
  EXPECT_EQ(Refusal(In("NULL.txt")), "");
  EXPECT_EQ(Refusal(In("NULL.txt"), ReportName::kDefault), no_file(In("NULL.txt")));
}

TEST_F(ReportPath, MayBeTheOutputThatTheProcessGotThoughItIsAPipe) {
  std::array<int, 2> ends{};
  ASSERT_EQ(pipe(ends.data()), 0);
  EXPECT_EQ(Refusal("/dev/fd/" + std::to_string(ends[1])), "");
  close(ends[0]);
  close(ends[1]);
}

TEST(ReportOfARun, ThatWouldBeItsDataFileIsRefusedBeforeAnythingIsTouched) {
  ScriptedDataSource source;
  source.Script("column CODE 4 INTEGER 10 0 0\n");
  HostSession session;
  const std::string folder = session.folder.path();
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder);
  session.folder.Write("t.txt", "1\n");
  EXPECT_EQ(session
                .Run({"set", "S", "T", "Base Cible=" + source.name(), "Table=CLIENT",
                      "Dir=" + folder, "Alias=T.txt", "UseAlias=1", "FormatFile=1"})
                .code,
            0);
  const auto by_default = session.Run({"run", "S", "T"});
  const auto by_name = session.Run({"run", "S", "T", "--report", session.registry()});
  std::filesystem::current_path(before);
  EXPECT_EQ(by_default.code, 2);
  EXPECT_EQ(by_default.err, "imptable: report T.txt: it is a file of this run (" + folder +
                                "t.txt): give another one with --report\n");
  EXPECT_EQ(by_name.code, 2);
  EXPECT_EQ(session.folder.Read("t.txt"), "1\n");
  EXPECT_EQ(session.Run({"status", "S", "T"}).out, "0\n\n");
  EXPECT_TRUE(source.LogLines().empty());
}

}  // namespace
}  // namespace imptable
