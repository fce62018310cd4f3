#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "host/testing/HostSession.h"

namespace imptable {
namespace {

using testing::HasSubstr;
using testing::MatchesRegex;

constexpr char kExport[] =
    "REGEDIT4\r\n\r\n"
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\KALDO\\Scenarios\\S\\Taches\\T]\r\n"
    "\"Base Cible\"=\"db\"\r\n"
    "\"Mode\"=dword:00000003\r\n";

class RegistryFileCommands : public testing::Test {
 protected:
  std::string Path(const std::string& name) const { return session.folder.path() + name; }

  HostSession session;
};

TEST_F(RegistryFileCommands, ImportATaskThatCanThenBeShown) {
  const auto result = session.Run({"reg", "import", session.folder.Write("t.reg", kExport)});
  EXPECT_EQ(result.code, 0) << result.err;
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(session.Run({"get", "S", "T"}).out, "Base Cible=db\nMode=3\n");
}

TEST_F(RegistryFileCommands, ExportOverTheRegistryFileIsRefused) {
  ASSERT_EQ(session.Run({"reg", "import", "-"}, kExport).code, 0);
  std::filesystem::create_hard_link(session.registry(), Path("other.reg"));
  for (const std::string& path :
       {session.registry(), session.registry() + "-wal", Path("REGISTRY.DB"), Path("other.reg")}) {
    const auto result = session.Run({"reg", "export", path, "--utf8"});
    EXPECT_EQ(result.code, 2) << path;
    EXPECT_THAT(result.err, HasSubstr(path + " is the registry file"));
  }
  EXPECT_EQ(session.Run({"get", "S", "T", "Mode"}).out, "3\n");
}

TEST_F(RegistryFileCommands, ImportFromStandardInput) {
  EXPECT_EQ(session.Run({"reg", "import", "-"}, kExport).code, 0);
  EXPECT_EQ(session.Run({"get", "S", "T", "Mode"}).out, "3\n");
}

TEST_F(RegistryFileCommands, ImportNothingOfAFaultyFileAndNameItsLine) {
  const std::string path =
      session.folder.Write("t.reg", std::string(kExport) + "\"Null\"=dword:xyz\r\n");
  const auto result = session.Run({"reg", "import", path});
  EXPECT_EQ(result.code, 2);
  EXPECT_THAT(result.err, MatchesRegex("imptable: [^\n]+\n"));
  EXPECT_EQ(result.err,
            "imptable: " + path + ", line 6: a dword needs 1 to 8 hexadecimal digits\n");
  EXPECT_FALSE(session.folder.Exists("registry.db"));
  const auto french = HostSession::RunAsIs(
      {"--registry", session.registry(), "--lang", "fr", "reg", "import", path});
  EXPECT_EQ(french.err, "imptable: " + path +
                            ", ligne 6 : un dword s'écrit avec 1 à 8 chiffres hexadécimaux\n");
}

TEST_F(RegistryFileCommands, ImportNoFileThatIsMissingOrADirectory) {
  const auto missing = session.Run({"reg", "import", Path("none.reg")});
  EXPECT_EQ(missing.code, 3);
  EXPECT_THAT(missing.err, HasSubstr(Path("none.reg")));
  EXPECT_EQ(session.Run({"reg", "import", session.folder.path()}).code, 3);
}

TEST_F(RegistryFileCommands, ExportWhatAnImportTakesAgain) {
  session.Run({"reg", "import", "-"}, kExport);
  const auto result =
      session.Run({"reg", "export", Path("out.reg"), "HKLM\\SOFTWARE\\KALDO\\Scenarios\\s"});
  EXPECT_EQ(result.code, 0) << result.err;
  EXPECT_EQ(result.out, "");
  EXPECT_THAT(session.folder.Read("out.reg"), testing::StartsWith("\xFF\xFEW"));
  session.Run({"delete", "S", "T"});
  EXPECT_EQ(session.Run({"reg", "import", Path("out.reg")}).code, 0);
  EXPECT_EQ(session.Run({"get", "S", "T"}).out, "Base Cible=db\nMode=3\n");
}

TEST_F(RegistryFileCommands, ExportTheWholeRegistryToStandardOutput) {
  session.Run({"reg", "import", "-"}, kExport);
  const auto whole = session.Run({"reg", "export", "-"});
  EXPECT_EQ(whole.code, 0);
  HostSession other;
  EXPECT_EQ(other.Run({"reg", "import", "-"}, whole.out).code, 0);
  EXPECT_EQ(other.Run({"get", "S", "T", "Mode"}).out, "3\n");
}

TEST_F(RegistryFileCommands, ExportNoKeyThatIsMissingAndKeepTheOldFile) {
  session.Run({"reg", "import", "-"}, kExport);
  session.folder.Write("out.reg", "old");
  const auto missing = session.Run({"reg", "export", Path("out.reg"), "HKLM\\SOFTWARE\\None"});
  EXPECT_EQ(missing.code, 3);
  EXPECT_THAT(missing.err, HasSubstr("HKLM\\SOFTWARE\\None"));
  EXPECT_EQ(session.folder.Read("out.reg"), "old");
}

TEST_F(RegistryFileCommands, ExportNoKeyOfARootThatThereIsNot) {
  const auto unknown = session.Run({"reg", "export", Path("out.reg"), "HKCR\\x"});
  EXPECT_EQ(unknown.code, 2);
  EXPECT_THAT(unknown.err, HasSubstr("HKCR\\x"));
}

TEST_F(RegistryFileCommands, ExportToNoFileThatCannotBeWritten) {
  session.Run({"reg", "import", "-"}, kExport);
  const auto result = session.Run({"reg", "export", Path("none/out.reg")});
  EXPECT_EQ(result.code, 4);
  EXPECT_THAT(result.err, MatchesRegex("imptable: [^\n]+\n"));
  EXPECT_THAT(result.err, HasSubstr(Path("none/out.reg")));
}

TEST_F(RegistryFileCommands, ExportInUtf8WhenAskedTo) {
  session.Run({"reg", "import", "-"}, kExport);
  const auto text =
      session.Run({"reg", "export", "-", "HKLM\\SOFTWARE\\KALDO\\Scenarios", "--utf8"});
  EXPECT_EQ(text.code, 0);
  EXPECT_THAT(text.out, testing::StartsWith("Windows Registry Editor Version 5.00\r\n"));
  EXPECT_THAT(text.out, HasSubstr("\"Base Cible\"=\"db\"\r\n"));
  HostSession other;
  EXPECT_EQ(other.Run({"reg", "import", "-"}, text.out).code, 0);
  EXPECT_EQ(other.Run({"get", "S", "T"}).out, "Base Cible=db\nMode=3\n");
}

TEST_F(RegistryFileCommands, ImportLeavesColumnsInTheOrderOfTheirNumbers) {
  std::string text = "REGEDIT4\n\n[HKLM\\SOFTWARE\\KALDO\\Scenarios\\S\\Taches\\T\\champs]\n";
  for (const char* name : {"10", "2", "1", "x", "03"}) {
    text += '"' + std::string(name) + "\"=\"(Col)" + name + "\"\n";
  }
  text += "[HKLM\\SOFTWARE\\KALDO\\Scenarios\\S\\Taches\\T\\Other]\n\"2\"=\"b\"\n\"1\"=\"a\"\n";
  ASSERT_EQ(session.Run({"reg", "import", "-"}, text).code, 0);
  EXPECT_EQ(session.Run({"get", "S", "T"}).out,
            "Champs\\1=(Col)1\nChamps\\2=(Col)2\nChamps\\03=(Col)03\nChamps\\10=(Col)10\n"
            "Champs\\x=(Col)x\n");
  EXPECT_THAT(session.Run({"reg", "export", "-", "HKLM", "--utf8"}).out,
              HasSubstr("\"2\"=\"b\"\r\n\"1\"=\"a\"\r\n"));
}

TEST_F(RegistryFileCommands, ImportTakesNamesAndDepthsThatTheOtherPlatformHas) {
  const auto import = [&](const std::string& key, const std::string& name) {
    return session.Run({"reg", "import", "-"},
                       "REGEDIT4\n\n[HKLM\\" + key + "]\n\"" + name + "\"=\"x\"\n");
  };
  std::string deep = "k";
  for (int depth = 1; depth < 512; ++depth) deep += "\\k";
  EXPECT_EQ(import(std::string(255, 'a'), std::string(16383, 'v')).code, 0);
  EXPECT_EQ(import(deep, "v").code, 0);
  const auto long_key = import(std::string(256, 'b'), "v");
  EXPECT_EQ(long_key.code, 2);
  EXPECT_EQ(long_key.err,
            "imptable: -, line 3: a name of 256 characters; it has 255 at most, shorten it\n");
  EXPECT_EQ(import(deep + "\\k", "v").code, 2);
  EXPECT_EQ(import("c", std::string(16384, 'v')).code, 2);
  EXPECT_EQ(session.Run({"reg", "export", "-", "HKLM\\c"}).code, 3);
}

TEST_F(RegistryFileCommands, LeaveNothingBesideAnExport) {
  session.Run({"reg", "import", "-"}, kExport);
  session.Run({"reg", "export", Path("out.reg")});
  for (const auto& entry : std::filesystem::directory_iterator(session.folder.path())) {
    EXPECT_THAT(entry.path().filename().string(), MatchesRegex("registry.db.*|out.reg"));
  }
}

TEST(StandardOutput, ThatCannotBeWrittenIsCode4) {
  HostSession session;
  session.Run({"variable", "S", "V=1"});
  std::ostream closed(nullptr);
  std::ostringstream err;
  EXPECT_EQ(RunHost({"--registry", session.registry(), "--lang", "en", "list"}, closed, err), 4);
  EXPECT_THAT(err.str(), HasSubstr("standard output couldn't be written"));
}

}  // namespace
}  // namespace imptable
