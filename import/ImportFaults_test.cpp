#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>

#include "tests/kit/ImportRun.h"
#include "tests/kit/SideFileLines.h"
#include "tests/kit/TextFile.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

const std::error_code kDiskFull = std::make_error_code(std::errc::no_space_on_device);

/// The report's error lines, in order.
std::vector<std::string> FaultLines(const ImportRun& run) {
  std::vector<std::string> texts;
  for (const WrittenLine& line : run.component.host.lines) {
    if (line.kind == ReportKind::kError) texts.push_back(line.text);
  }
  return texts;
}

/// What every fault inside the mode has in common: one line about it, the flags, the closing
/// lines, and nothing left open.
void ExpectFault(ImportRun& run, const std::string& text) {
  EXPECT_THAT(FaultLines(run), ElementsAre(" -->   Erreur lors du traitement - N° " + text));
  EXPECT_TRUE(run.component.module().run.error_reported);
  EXPECT_TRUE(run.component.module().run.pre_deletion_failed);
  EXPECT_EQ(run.OpenStatements(), 0);
  EXPECT_EQ(run.component.session().listener, &run.component.state.report);
  const std::string read = " ----->    " + std::to_string(run.progress().read) + " enreg(s) lu(s)";
  EXPECT_THAT(run.Report(), testing::Contains(read));
  EXPECT_EQ(run.Report().back(), " --------------- PROCEDURE TERMINEE ---------------");
}

std::size_t Closes(const ImportRun& run) {
  const auto& log = run.component.files.log();
  return static_cast<std::size_t>(std::count_if(
      log.begin(), log.end(), [](const std::string& line) { return line.starts_with("close "); }));
}

TEST(ImportFaults, TellThatTheSourceCannotBeRead) {
  ImportRun run;
  run.Source({"1;a"});
  run.component.files.Fail(FileOperation::kOpenRead, 1,
                           std::make_error_code(std::errc::permission_denied));
  EXPECT_EQ(run.Go(), 3);
  ExpectFault(run, "70 ,Permission refusée : " + run.folder.path() + "CLIENTS.CSV");
  EXPECT_THAT(run.Executed(), IsEmpty());
  EXPECT_THAT(run.source.LogLines("SQLColumns"), IsEmpty());
  EXPECT_THAT(run.Report(),
              testing::Contains("  -->   Traitement OK : 0 Enregistrement(s) copié(s)"));
}

TEST(ImportFaults, TellThatADirectoryIsInThePlaceOfTheSource) {
  ImportRun run;
  std::filesystem::create_directory(run.folder.path() + "CLIENTS.CSV");
  EXPECT_EQ(run.Go(), 3);
  ExpectFault(run,
              "75 ,Erreur d'accès au chemin ou au fichier : " + run.folder.path() + "CLIENTS.CSV");
}

TEST(ImportFaults, TellThatTheSourceFailsInItsMiddle) {
  ImportRun run;
  std::vector<std::string> lines(20'000, "1;" + std::string(20, 'a'));
  run.Source(lines);
  // The first sixteen reads find out which source it is.
  run.component.files.Fail(FileOperation::kRead, 18, std::make_error_code(std::errc::io_error));
  EXPECT_EQ(run.Go(), 3);
  ExpectFault(run,
              "57 ,Erreur d'entrée/sortie du périphérique : " + run.folder.path() + "CLIENTS.CSV");
  const std::size_t whole = (std::size_t{256} << 10U) / (lines[0].size() + 1);
  EXPECT_EQ(run.progress().lines[Outcome::kInserted], static_cast<std::int64_t>(whole));
  EXPECT_THAT(run.Trace(), SizeIs(whole)) << "what was done before is on record";
  EXPECT_EQ(Closes(run), 4U);
}

TEST(ImportFaults, TellThatTheSourceBecameShorterAndImportNoTornLine) {
  // Cut after a whole line, within a line, and to nothing.
  for (const std::size_t size : {10U, 13U, 0U}) {
    SCOPED_TRACE(size);
    ImportRun run;
    run.Source({"1;aa", "2;bb", "3;cc", "4;dd"});
    const std::string path = run.folder.path() + "CLIENTS.CSV";
    int milestones = 0;
    run.events.listener = [&](const std::string& event) {
      // The third milestone lies between the look at the file and its first line.
      if (event == "Progress" && ++milestones == 3) std::filesystem::resize_file(path, size);
    };
    EXPECT_EQ(run.Go(), 3);
    ExpectFault(run, "62 ,Fin de fichier inattendue, le fichier est devenu plus court : " + path);
    EXPECT_EQ(run.progress().lines[Outcome::kInserted], size / 5);
    EXPECT_THAT(run.Executed(), SizeIs(size / 5));
    EXPECT_THAT(run.Trace(), SizeIs(size / 5));
  }
}

TEST(ImportFaults, ReadASourceThatBecameLongerToItsEnd) {
  ImportRun run;
  run.Source({"1;aa"});
  int milestones = 0;
  run.events.listener = [&](const std::string& event) {
    if (event == "Progress" && ++milestones == 3) run.Source({"1;aa", "2;bb"});
  };
  EXPECT_EQ(run.Go(), 2);
  EXPECT_EQ(run.progress().lines[Outcome::kInserted], 2);
}

TEST(ImportFaults, TellThatTooManyFilesAreOpen) {
  ImportRun run;
  run.Source({"1;a"});
  run.component.files.Fail(FileOperation::kOpenWrite, 2,
                           std::make_error_code(std::errc::too_many_files_open));
  EXPECT_EQ(run.Go(), 3);
  ExpectFault(run, "67 ,Trop de fichiers ouverts : " + run.folder.path() + "CLIENTS.LER");
}

TEST(ImportFaults, TellWhichSideFileCannotBeOpened) {
  const std::array<const char*, 3> names{"CLIENTS.ERR", "CLIENTS.LER", "CLIENTS.TRC"};
  for (std::size_t n = 0; n < names.size(); ++n) {
    ImportRun run;
    run.Source({"1;a"});
    run.component.files.Fail(FileOperation::kOpenWrite, static_cast<int>(n) + 1, kDiskFull);
    EXPECT_EQ(run.Go(), 3);
    ExpectFault(run, "61 ,Disque plein : " + run.folder.path() + names[n]);
    EXPECT_THAT(run.Executed(), IsEmpty());
    EXPECT_EQ(Closes(run), n) << "those opened before are closed";
  }
}

TEST(ImportFaults, TellThatTheDiskIsFullAtEachWriteOfEachSideFile) {
  // The writes: state of the chain; trace of line 1; diagnostic, line and trace of line 2 (not
  // parsed); diagnostic, line and trace of line 3 (refused); trace of line 4.
  struct Case {
    int write;
    const char* file;
    std::int64_t read;
    std::int64_t inserted;
    std::int64_t errors;
    std::size_t traced;
  };
  for (const Case& each : {Case{1, "CLIENTS.REP.NEW", 0, 0, 0, 0},
                           {2, "CLIENTS.TRC", 1, 0, 0, 0},
                           {3, "CLIENTS.ERR", 2, 1, 0, 1},
                           {4, "CLIENTS.LER", 2, 1, 1, 1},
                           {5, "CLIENTS.TRC", 2, 1, 1, 1},
                           {6, "CLIENTS.ERR", 3, 1, 1, 2},
                           {7, "CLIENTS.LER", 3, 1, 2, 2},
                           {8, "CLIENTS.TRC", 3, 1, 2, 2},
                           {9, "CLIENTS.TRC", 4, 1, 2, 3}}) {
    SCOPED_TRACE(each.write);
    ImportRun run;
    run.Source({"1;a", "2;b;x", "3;c", "4;d", "5;e"});
    run.Driver("on SQLExecute 2 return -1 diag 23000 1 \"refused\"");
    run.component.files.FailFrom(FileOperation::kWrite, each.write, kDiskFull);
    EXPECT_EQ(run.Go(), 3);
    ExpectFault(run, "61 ,Disque plein : " + run.folder.path() + each.file);
    EXPECT_EQ(run.progress().read, each.read);
    EXPECT_EQ(run.progress().lines[Outcome::kInserted], each.inserted);
    EXPECT_EQ(run.progress().lines[Outcome::kRejected], each.errors);
    EXPECT_THAT(run.Trace(), SizeIs(each.traced));
    EXPECT_EQ(Closes(run), each.write == 1 ? 3U : 4U);
  }
}

TEST(ImportFaults, LeaveFilesThatAResumeGoesOnFrom) {
  // The diagnostic, the line and the trace of line 2: without the trace the line counts as not
  // done.
  for (const int write : {5, 6, 7}) {
    SCOPED_TRACE(write);
    ImportRun run;
    run.Source({"1;a;x", "2;b;x", "3;c"});
    run.component.files.Fail(FileOperation::kWrite, write, kDiskFull);
    EXPECT_EQ(run.Go(), 3);
    EXPECT_THAT(run.Trace(), ElementsAre(Rejected(1)));
    const std::string rejected = run.folder.Read("CLIENTS.LER");
    EXPECT_EQ(rejected, write == 7 ? TextFile({"1;a;x", "2;b;x"}) : TextFile({"1;a;x"}));
    run.folder.Write("CLIENTS.LER", "1;mended\n" + rejected.substr(rejected.find('\n') + 1));
    EXPECT_EQ(run.Go(2), 3);
    EXPECT_THAT(run.Executed(), ElementsAre("1='1' 2='mended'", "1='3' 2='c'"));
    EXPECT_THAT(run.Rejected(), ElementsAre("2;b;x"));
  }
}

TEST(ImportFaults, TellWhichSideFileCannotBeClosed) {
  const std::array<const char*, 3> names{"CLIENTS.ERR", "CLIENTS.LER", "CLIENTS.TRC"};
  for (std::size_t n = 0; n < names.size(); ++n) {
    ImportRun run;
    run.Source({"1;a"});
    // The chain's file is closed before: once at its beginning and once when it is marked.
    run.component.files.Fail(FileOperation::kClose, static_cast<int>(n) + 3, kDiskFull);
    EXPECT_EQ(run.Go(), 3) << names[n];
    ExpectFault(run, "61 ,Disque plein : " + run.folder.path() + names[n]);
    EXPECT_EQ(Closes(run), 5U) << "the others are closed all the same";
  }
}

TEST(ImportFaults, TellOfTheFirstOfSeveralFilesThatCannotBeClosed) {
  ImportRun run;
  run.Source({"1;a"});
  run.component.files.FailFrom(FileOperation::kClose, 2, kDiskFull);
  EXPECT_EQ(run.Go(), 3);
  ExpectFault(run, "61 ,Disque plein : " + run.folder.path() + "CLIENTS.ERR");
}

TEST(ImportFaults, TellThatAResumeCannotKeepWhatTheEarlierRunLeftAndLeaveItAlone) {
  struct Case {
    FileOperation operation;
    int nth;
    const char* file;
  };
  for (const Case& each : {Case{FileOperation::kOpenRead, 6, "CLIENTS.TRC"},
                           {FileOperation::kOpenRead, 7, "CLIENTS.LER"},
                           {FileOperation::kOpenWrite, 1, "CLIENTS.REP.NEW"},
                           {FileOperation::kWrite, 1, "CLIENTS.REP.NEW"},
                           {FileOperation::kFlush, 1, "CLIENTS.REP.NEW"},
                           {FileOperation::kClose, 1, "CLIENTS.REP.NEW"},
                           {FileOperation::kReplace, 1, "CLIENTS.REP"},
                           {FileOperation::kOpenRead, 8, "CLIENTS.REP"},
                           {FileOperation::kOpenRead, 9, "CLIENTS.LER"},
                           {FileOperation::kOpenWrite, 3, "CLIENTS.LEB"},
                           {FileOperation::kWrite, 2, "CLIENTS.LEB"},
                           {FileOperation::kClose, 2, "CLIENTS.LEB"},
                           {FileOperation::kOpenRead, 10, "CLIENTS.TRC"},
                           {FileOperation::kOpenWrite, 4, "CLIENTS.TRB"},
                           {FileOperation::kWrite, 3, "CLIENTS.TRB"},
                           {FileOperation::kClose, 3, "CLIENTS.TRB"}}) {
    SCOPED_TRACE(std::string(each.file) + " " + std::to_string(each.nth));
    ImportRun run;
    run.Source({"1;a", "2;b"});
    run.folder.Write("CLIENTS.TRC", TextFile({Done(1), Rejected(2)}));
    run.folder.Write("CLIENTS.LER", TextFile({"2;mended"}));
    run.component.files.Fail(each.operation, each.nth, kDiskFull);
    EXPECT_EQ(run.Go(2), 3);
    ExpectFault(run, "61 ,Disque plein : " + run.folder.path() + each.file);
    EXPECT_THAT(run.Executed(), IsEmpty());
    EXPECT_THAT(run.Trace(), ElementsAre(Done(1), Rejected(2)));
    EXPECT_THAT(run.Rejected(), ElementsAre("2;mended"));
  }
}

TEST(ImportFaults, EndARunThatCannotLookAtWhatItIsToResume) {
  for (const int opening : {1, 2}) {
    ImportRun run;
    run.Source({"1;a", "2;b"});
    run.folder.Write("CLIENTS.TRC", TextFile({Done(1), Rejected(2)}));
    run.folder.Write("CLIENTS.LER", TextFile({"2;mended"}));
    run.folder.Write("CLIENTS.ERR", "why\n");
    run.component.files.Fail(FileOperation::kOpenRead, opening, kDiskFull);
    EXPECT_EQ(run.Go(2), 1);
    EXPECT_THAT(FaultLines(run),
                ElementsAre(" -->   Erreur lors du traitement - N° 61 ,Disque plein : " +
                            run.folder.path() + (opening == 1 ? "CLIENTS.TRC" : "CLIENTS.LER")));
    EXPECT_EQ(run.folder.Read("CLIENTS.ERR"), "why\n") << "nothing is touched";
    EXPECT_THAT(run.Rejected(), ElementsAre("2;mended"));
  }
}

TEST(ImportFaults, DoNotIncludeOldCopiesThatCannotBeDeleted) {
  ImportRun run;
  run.Source({"1;a", "2;b"});
  run.folder.Write("CLIENTS.TRC", "00000001000000000\n00000002100000001\n");
  run.folder.Write("CLIENTS.LER", "2;mended\n");
  run.component.files.FailFrom(FileOperation::kRemove, 1,
                               std::make_error_code(std::errc::permission_denied));
  EXPECT_EQ(run.Go(2), 2);
  EXPECT_THAT(run.Executed(), ElementsAre("1='2' 2='mended'"));
}

TEST(ImportFaults, SayInEnglishWhatFailed) {
  ImportRun run;
  run.component.registry.SetNumber("SOFTWARE\\KALDO\\Configuration", "Lang", kEnglishOffset);
  run.Source({"1;a"});
  run.component.files.FailFrom(FileOperation::kWrite, 2, kDiskFull);
  EXPECT_EQ(run.Go(), 3);
  EXPECT_THAT(FaultLines(run), ElementsAre(" -->   Error during processing - N° 61 ,Disk full : " +
                                           run.folder.path() + "CLIENTS.TRC"));
}

}  // namespace
}  // namespace imptable
