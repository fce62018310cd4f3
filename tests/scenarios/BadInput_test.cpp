#include <gmock/gmock.h>

#include <algorithm>
#include <string>

#include "tests/scenarios/ClientTask.h"
#include "tests/scenarios/CommandUnderTest.h"

namespace imptable {
namespace {

using testing::HasSubstr;

constexpr std::size_t kLongLine = 100'000'000;

void ExpectOneErrorLine(const Ending& ending, int code, const std::string& about) {
  EXPECT_EQ(ending.code, code) << ending.out;
  EXPECT_TRUE(ending.err.starts_with("imptable: ")) << ending.err;
  EXPECT_EQ(std::count(ending.err.begin(), ending.err.end(), '\n'), 1) << ending.err;
  // The component doesn't tell its host the reason.
  if (!TheCommand().is_windows()) {
    EXPECT_THAT(ending.err, HasSubstr(about));
  }
}

TEST(BadInput, ASettingThatIsNoNumberEndsTheRunAndIsNamed) {
  for (const std::string name :
       {"Mode", "Suppression", "SiVide", "Erreurs", "RecErreurs", "NombreColonnes", "FormatFile"}) {
    SCOPED_TRACE(name);
    const ClientTask task(DatabaseKind::kSqlite, '"' + name + "\"=\"abc\"\n");
    task.Source("1;one\n");
    ExpectOneErrorLine(task.Run(), 4, name);
    EXPECT_EQ(task.Status(), "1");
    EXPECT_EQ(task.Rows("SELECT COUNT(*) FROM client"), "0\n");
    EXPECT_FALSE(task.Exists("CLIENTS.ERR"));
  }
}

TEST(BadInput, ASettingBeyondItsRangeEndsTheRunAndIsNamed) {
  const ClientTask task(DatabaseKind::kSqlite, "\"Mode\"=dword:00010000\n");
  task.Source("1;one\n");
  ExpectOneErrorLine(task.Run(), 4, "Mode");
  EXPECT_EQ(task.Rows("SELECT COUNT(*) FROM client"), "0\n");
}

TEST(BadInput, ATextInPlaceOfANumberCountsAsThatNumber) {
  const ClientTask task(DatabaseKind::kSqlite, "\"Mode\"=\"2\"\n");
  task.Source("1;one\n");
  EXPECT_EQ(task.Run().code, 0);
  EXPECT_EQ(task.Rows("SELECT COUNT(*) FROM client"), "0\n");
}

TEST(BadInput, ARegistryFileThatIsNoneIsNamedAndLeftAlone) {
  const ClientTask task(DatabaseKind::kSqlite);
  const std::string text = "This was never a registry file, nor a database of any other kind.\n";
  const std::string path = task.folder().Write("registry.db", text);
  task.Source("1;one\n");
  ExpectOneErrorLine(task.Run(), 4, path);
  EXPECT_EQ(task.folder().Read("registry.db"), text);
  EXPECT_EQ(task.Rows("SELECT COUNT(*) FROM client"), "0\n");
}

TEST(BadInput, ARegistryFileThatWasCutShortIsNamed) {
  const ClientTask task(DatabaseKind::kSqlite);
  const std::string whole = task.folder().Read("registry.db");
  const std::string path = task.folder().Write("registry.db", whole.substr(0, whole.size() / 2));
  task.Source("1;one\n");
  ExpectOneErrorLine(task.Run(), 4, path);
  EXPECT_EQ(task.Rows("SELECT COUNT(*) FROM client"), "0\n");
}

TEST(BadInput, AFaultyExportFileNamesItsLineAndChangesNothing) {
  const ClientTask task(DatabaseKind::kSqlite);
  const std::string before = OutputOf(task.Command({"get", "S1", "T1"}));
  const std::string head =
      "Windows Registry Editor Version 5.00\n\n"
      "[HKEY_LOCAL_MACHINE\\SOFTWARE\\KALDO\\Scenarios\\S1\\Taches\\T1]\n\"Table\"=\"other\"\n";
  for (const std::string line :
       {"\"Mode\"=dword:xyz", "\"Mode\"=", "Mode=1", "\"Mode", "[HKEY_", "\"Mode\"=hex(7):0"}) {
    SCOPED_TRACE(line);
    const std::string path = task.folder().Write("faulty.reg", head + line + '\n');
    ExpectOneErrorLine(task.Imptable({"--lang", "en", "reg", "import", path}), 2,
                       "faulty.reg, line 5: ");
    EXPECT_EQ(OutputOf(task.Command({"get", "S1", "T1"})), before);
  }
}

TEST(BadInput, AnExportFileThatIsNotThereIsNamed) {
  const ClientTask task(DatabaseKind::kSqlite);
  ExpectOneErrorLine(task.Imptable({"reg", "import", "nowhere.reg"}), 3, "nowhere.reg");
}

TEST(BadInput, AScenarioOrATaskThatIsNotThereIsNamedAndNothingIsDone) {
  const ClientTask task(DatabaseKind::kSqlite);
  ExpectOneErrorLine(task.Imptable({"run", "Nobody", "T1", "--report", "report.txt"}), 3, "Nobody");
  ExpectOneErrorLine(task.Imptable({"run", "S1", "T9", "--report", "report.txt"}), 3, "T9");
  EXPECT_FALSE(task.folder().Exists("report.txt"));
}

TEST(BadInput, AReportThatCannotBeWrittenIsNamedBeforeAnythingIsDone) {
  const ClientTask task(DatabaseKind::kSqlite);
  task.Source("1;one\n");
  const std::string report = task.folder().path() + "nowhere/report.txt";
  ExpectOneErrorLine(task.Imptable({"run", "S1", "T1", "--report", report}), 4, report);
  EXPECT_EQ(task.Rows("SELECT COUNT(*) FROM client"), "0\n");
}

TEST(BadInput, NulBytesGoToTheDriverAndNoLineIsLostForThem) {
  const ClientTask task(DatabaseKind::kSqlite);
  task.Source(std::string_view("1;a\0b\n2;\0\n\0003;x\n4;four\n", 22));
  ExpectOneErrorLine(task.Run(), 1, "1 line");
  EXPECT_THAT(task.Report(), HasSubstr(" 4 record(s) read"));
  EXPECT_EQ(task.Read("CLIENTS.LER"), std::string_view("\0003;x\n", 5));
  EXPECT_EQ(task.Rows("SELECT hex(name) FROM client WHERE code = 1"), "610062\n");
  EXPECT_EQ(task.Rows("SELECT hex(name) FROM client WHERE code = 2"), "00\n");
  EXPECT_EQ(task.Rows("SELECT name FROM client WHERE code = 4"), "four\n");
}

TEST(BadInput, AFileOfNothingButNulBytesIsOneLine) {
  const ClientTask task(DatabaseKind::kSqlite);
  task.Source(std::string(100000, '\0'));
  ExpectOneErrorLine(task.Run(), 1, "1 line");
  EXPECT_THAT(task.Report(), HasSubstr(" 1 record(s) read"));
  EXPECT_EQ(task.Read("CLIENTS.LER"), std::string(100000, '\0') + '\n');
}

TEST(BadInput, ALineOfAHundredMegabytesIsOneLine) {
  const ClientTask task(DatabaseKind::kSqlite);
  task.Source("1;one\n2;" + std::string(kLongLine, 'x') + "\n3;three\n");
  EXPECT_EQ(task.Run().code, 0);
  EXPECT_EQ(task.Rows("SELECT code, length(name) FROM client ORDER BY code"), "1|3\n2|500\n3|5\n");
}

TEST(BadInput, ARejectedLineOfAHundredMegabytesIsKeptWhole) {
  const ClientTask task(DatabaseKind::kSqlite);
  const std::string line = "2;" + std::string(kLongLine, ';');
  task.Source("1;one\n" + line + "\n3;three\n");
  ExpectOneErrorLine(task.Run(), 1, "1 line");
  EXPECT_TRUE(task.Read("CLIENTS.LER") == line + '\n');
  EXPECT_EQ(task.Rows("SELECT code FROM client ORDER BY code"), "1\n3\n");
}

TEST(BadInput, BytesThatAreNoTextAreCountedAndNotLost) {
  const ClientTask task(DatabaseKind::kSqlite);
  task.Source("1;\xff\xfe\xc3\n2;two\n");
  EXPECT_EQ(task.Run().code, 0);
  EXPECT_EQ(task.Rows("SELECT hex(name) FROM client ORDER BY code"), "FFFEC3\n74776F\n");
}

TEST(BadInput, NulBytesAreNoReasonToLoseOtherLines_on_postgresql) {
  const ClientTask task(DatabaseKind::kPostgresql);
  task.Source(std::string_view("1;a\0b\n2;two\n", 12));
  task.Run();
  EXPECT_THAT(task.Report(), HasSubstr(" 2 record(s) read"));
  EXPECT_EQ(task.Rows("SELECT name FROM client WHERE code = 2"), "two\n");
}

TEST(BadInput, BytesThatAreNoTextAreRejectedByADatabaseThatLooks_on_postgresql) {
  const ClientTask task(DatabaseKind::kPostgresql);
  task.Source("1;\xff\xfe\n2;two\n");
  ExpectOneErrorLine(task.Run(), 1, "1 line");
  EXPECT_EQ(task.Read("CLIENTS.LER"), "1;\xff\xfe\n");
  EXPECT_EQ(task.Rows("SELECT code, name FROM client"), "2|two\n");
}

}  // namespace
}  // namespace imptable
