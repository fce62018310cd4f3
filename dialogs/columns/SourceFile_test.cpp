#include "dialogs/columns/SourceFile.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "import/source/FieldSplitting.h"
#include "import/target/RecordParser.h"
#include "platform/testing/TemporaryFolder.h"
#include "tests/kit/TestComponent.h"

namespace imptable {
namespace {

/// A folder with a source file, and the fields that name it.
class NamedSource {
 public:
  explicit NamedSource(
      std::unique_ptr<TextEncoding> code_page = std::make_unique<Utf8TextEncoding>())
      : component(std::move(code_page)), fields{folder.path(), "clients", false, ";"} {
    component.module().location = {kHkeyLocalMachine, "Taches"};
  }

  std::string Path() { return SourceFilePath(component.module(), "S1", fields); }
  std::optional<FileStart> Start() { return ReadFileStart(component.module(), "S1", fields); }
  std::string FirstLine(std::string_view bytes) {
    folder.Write("clients.csv", bytes);
    return Start().value().line;
  }

  TemporaryFolder folder;
  TestComponent component;
  SourceFields fields;
};

TEST(SourceFile, IsTheDirectoryTheAliasAndItsExtension) {
  NamedSource source;
  EXPECT_EQ(source.Path(), source.folder.path() + "clients.csv");
}

TEST(SourceFile, IsFoundWithoutRegardToCase) {
  NamedSource source;
  source.folder.Write("Clients.CSV", "a");
  EXPECT_EQ(source.Path(), source.folder.path() + "Clients.CSV");
  source.folder.Write("clients.csv", "b");
  EXPECT_EQ(source.Start().value().line, "b");
}

TEST(SourceFile, HasASeparatorAfterItsDirectory) {
  NamedSource source;
  source.fields.directory = "/data";
  EXPECT_EQ(source.Path(), std::string("/data") + SystemPathSeparator() + "clients.csv");
  source.fields.directory = "C:\\data\\";
  EXPECT_EQ(source.Path(), "C:\\data\\clients.csv");
}

TEST(SourceFile, IsNamedByTheAliasWithoutTheBlanksAroundIt) {
  NamedSource source;
  source.fields.alias = "  clients ";
  EXPECT_EQ(source.Path(), source.folder.path() + "clients.csv");
}

TEST(SourceFile, TakesTheValuesOfTheVariablesThatItsFieldsName) {
  NamedSource source;
  source.component.host.variables = {{"DIR", source.folder.path()}, {"NAME", "clients "}};
  source.fields.directory = "@DIR";
  source.fields.alias = "@NAME";
  EXPECT_EQ(source.Path(), source.folder.path() + "clients.csv");
  EXPECT_THAT(source.component.host.looked_up,
              testing::UnorderedElementsAre("S1|Taches|DIR", "S1|Taches|NAME"));
}

TEST(SourceFile, IsTheAliasItselfWhenThatIsTheCompleteName) {
  NamedSource source;
  source.fields.complete_name = true;
  source.fields.directory = "/elsewhere";
  source.fields.alias = " " + source.folder.Write("list.txt", "x;y") + " ";
  EXPECT_EQ(source.Start().value().line, "x;y");
}

TEST(SourceFile, IsTheOneThatIsImportedWhenACompleteNameLiesInTheDirectory) {
  NamedSource source;
  source.fields.complete_name = true;
  source.fields.alias = "LIST.txt";
  source.folder.Write("list.txt", "x;y");
  EXPECT_EQ(source.Path(), source.folder.path() + "list.txt");
  EXPECT_EQ(source.Start().value().line, "x;y");
}

TEST(SourceFile, IsTheOneThatIsImportedWhenTheAliasItselfNamesAnotherFile) {
  NamedSource source;
  source.fields.complete_name = true;
  source.fields.alias = source.folder.Write("list.txt", "by itself");
  const TemporaryFolder directory;
  std::filesystem::create_directories(directory.path() + source.folder.path());
  directory.Write(source.fields.alias, "imported");
  source.fields.directory = directory.path();
  EXPECT_EQ(source.Start().value().line, "imported");
}

TEST(SourceFile, IsNoneWithoutAnAlias) {
  NamedSource source;
  source.folder.Write(".csv", "x");
  for (const char* alias : {"", "   ", "@NOTHING"}) {
    source.fields.alias = alias;
    EXPECT_EQ(source.Path(), "") << alias;
    EXPECT_EQ(source.Start(), std::nullopt) << alias;
  }
}

TEST(SourceFile, MayBeMissing) {
  NamedSource source;
  EXPECT_EQ(source.Start(), std::nullopt);
  source.fields.directory = source.folder.Write("file", "x") + "/below";
  EXPECT_EQ(source.Start(), std::nullopt);
}

TEST(SourceFile, ShowsItsFirstLineWithoutItsEnd) {
  NamedSource source;
  EXPECT_EQ(source.FirstLine("a;b\nc"), "a;b");
  EXPECT_EQ(source.FirstLine("a;b\r\nc"), "a;b");
  EXPECT_EQ(source.FirstLine("a;b\rc"), "a;b");
  EXPECT_EQ(source.FirstLine("a;b"), "a;b");
  EXPECT_EQ(source.FirstLine("\na;b"), "");
  EXPECT_FALSE(source.Start().value().is_empty);
}

TEST(SourceFile, IsEmptyWithoutAByte) {
  NamedSource source;
  source.folder.Write("clients.csv", "");
  const FileStart start = source.Start().value();
  EXPECT_TRUE(start.is_empty);
  EXPECT_TRUE(start.is_complete);
}

TEST(SourceFile, LosesItsByteOrderMarkInAUtf8CodePageAlone) {
  NamedSource source;
  EXPECT_EQ(source.FirstLine("\xEF\xBB\xBFx;y\n"), "x;y");
  source.folder.Write("clients.csv", "\xEF\xBB\xBF");
  EXPECT_TRUE(source.Start().value().is_empty);
  NamedSource other(std::make_unique<Latin1TextEncoding>());
  EXPECT_EQ(other.FirstLine("\xEF\xBB\xBFx;y\n"), "\xEF\xBB\xBFx;y");
}

TEST(SourceFile, IsReadNoFurtherThanItsStartHoweverLongItIs) {
  NamedSource source;
  source.folder.Write("clients.csv", std::string(3 * kFileStartBytes, 'x'));
  const FileStart start = source.Start().value();
  EXPECT_EQ(start.line.size(), kFileStartBytes);
  EXPECT_FALSE(start.is_complete);
  std::size_t bytes = 0;
  for (const std::string& line : source.component.files.log()) {
    if (line.starts_with("read ")) bytes += std::stoul(line.substr(line.rfind(' ')));
  }
  EXPECT_EQ(bytes, kFileStartBytes + 1);
}

TEST(SourceFile, HasACompleteFirstLineWhenThatEndsWithinTheStart) {
  NamedSource source;
  const std::string line(kFileStartBytes - 1, 'x');
  for (const std::string& rest : {std::string("\n"), std::string("\nmore"), std::string("\rmore"),
                                  std::string("x"), std::string()}) {
    source.folder.Write("clients.csv", line + rest);
    EXPECT_TRUE(source.Start().value().is_complete) << rest;
  }
  source.folder.Write("clients.csv", line + "xx");
  EXPECT_FALSE(source.Start().value().is_complete);
  source.folder.Write("clients.csv", line + "x\n");
  EXPECT_FALSE(source.Start().value().is_complete);
}

FaultNumber FaultOf(NamedSource& source) {
  try {
    source.Start();
  } catch (const RuntimeFault& fault) {
    EXPECT_EQ(fault.detail(), source.folder.path() + "clients.csv");
    return fault.number();
  }
  ADD_FAILURE() << "no fault";
  return {};
}

TEST(SourceFile, IsAFaultWhenItCanNotBeRead) {
  NamedSource source;
  source.folder.Write("clients.csv", "a;b\n");
  source.component.files.Fail(FileOperation::kOpenRead, 1,
                              std::make_error_code(std::errc::permission_denied));
  EXPECT_EQ(FaultOf(source), FaultNumber::kPermissionDenied);
  source.component.files.Fail(FileOperation::kRead, 1, std::make_error_code(std::errc::io_error));
  EXPECT_EQ(FaultOf(source), FaultNumber::kDeviceError);
  source.folder.Write("clients.csv", std::string(2 * kFileStartBytes, 'x'));
  source.component.files.FailFrom(FileOperation::kRead, 2,
                                  std::make_error_code(std::errc::io_error));
  EXPECT_EQ(FaultOf(source), FaultNumber::kDeviceError);
}

TEST(SourceFile, IsAFaultWhenItIsADirectory) {
  NamedSource source;
  const TemporaryFolder inside(source.folder.path());
  source.fields.complete_name = true;
  source.fields.alias = inside.path().substr(0, inside.path().size() - 1);
  try {
    source.Start();
    FAIL() << "no fault";
  } catch (const RuntimeFault& fault) {
    EXPECT_EQ(fault.number(), FaultNumber::kPathAccessError);
  }
}

TEST(SourceFile, HasOneFieldMoreThanSeparators) {
  EXPECT_EQ(CountFields("a;b;;c", ";", true), 4U);
  EXPECT_EQ(CountFields("", ";", true), 1U);
  EXPECT_EQ(CountFields("a", ";", true), 1U);
  EXPECT_EQ(CountFields("a;", ";", true), 2U);
  EXPECT_EQ(CountFields(";;;", ";", true), 4U);
  EXPECT_EQ(CountFields("a;b", ",", true), 1U);
  EXPECT_EQ(CountFields("a;b", "", true), 2U);
  EXPECT_EQ(CountFields("a\tb\tc", "\t", true), 3U);
}

TEST(SourceFile, HasAsManyFieldsAsTheImportSplitsItsLineInto) {
  for (const std::string& separator : {std::string(";"), std::string(";;"), std::string(";a;"),
                                       std::string("é"), std::string("éé"), std::string("\xC3")}) {
    for (const std::string& line :
         {std::string(), std::string("a;b"), std::string(";;;;"), std::string(";a;a;b;;a;"),
          std::string("xéyéézééé"), std::string("\xC3\xC3\xA9")}) {
      for (const bool utf8 : {false, true}) {
        std::vector<std::string_view> fields;
        const std::size_t step = utf8 && separator.starts_with("é") ? 2 : 1;
        SplitDelimited(line, separator, step, 1000, fields);
        EXPECT_EQ(CountFields(line, separator, utf8), fields.size()) << line << " by " << separator;
      }
    }
  }
}

}  // namespace
}  // namespace imptable
