#include "import/ChainFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "platform/testing/MemoryFile.h"
#include "platform/testing/TemporaryFolder.h"
#include "plugin/core/RuntimeFault.h"
#include "tests/kit/TextFile.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

ChainReader ReaderOf(const std::string& bytes) {
  return ChainReader(std::make_unique<LineReader>(MemoryFile::Of(bytes), "T.REP", false), "T.REP");
}

/// Each entry as "NUMBER TEXT", or "NUMBER -" without a text; at last "END NUMBER".
std::vector<std::string> Content(ChainReader reader) {
  std::vector<std::string> content;
  while (const auto entry = reader.Next()) {
    content.push_back(std::to_string(entry->line_number) + ' ' +
                      std::string(entry->text.value_or("-")));
  }
  content.push_back("END " + std::to_string(reader.reached()));
  return content;
}

TEST(ChainFile, HoldsRejectedLinesAndHowFarTheChainCame) {
  EXPECT_THAT(Content(ReaderOf("REP 1\n000000021\n2;b;x\n000000050\n000000071\n\n"
                               "12345678901\n1\nEND 1234567891\n")),
              ElementsAre("2 2;b;x", "5 -", "7 ", "1234567890 1", "END 1234567891"));
  EXPECT_THAT(Content(ReaderOf("REP 1\nEND 00000000\n")), ElementsAre("END 0"));
}

TEST(ChainFile, ReadsTheOtherSystemsLineEnds) {
  EXPECT_THAT(Content(ReaderOf("REP 1\r\n000000021\r\nx\r\nEND 00000003\r\n")),
              ElementsAre("2 x", "END 3"));
}

TEST(ChainFile, SaysThatAChainIsOver) {
  ChainReader reader = ReaderOf(VoidChainText());
  EXPECT_TRUE(reader.is_void());
  EXPECT_FALSE(reader.Next());
  EXPECT_EQ(reader.reached(), 0);
  EXPECT_FALSE(ReaderOf("REP 1\nEND 00000000\n").is_void());
}

struct Damage {
  const char* bytes;
  const char* place;
};

class DamagedChain : public testing::TestWithParam<Damage> {};

TEST_P(DamagedChain, IsRefusedWithItsPlace) {
  try {
    Content(ReaderOf(GetParam().bytes));
    FAIL() << "the damage was passed over";
  } catch (const RuntimeFault& fault) {
    EXPECT_EQ(fault.number(), FaultNumber::kInvalidFileFormat);
    EXPECT_EQ(fault.detail(), std::string("T.REP, ") + GetParam().place);
  }
}

INSTANTIATE_TEST_SUITE_P(AtEachPlace, DamagedChain,
                         testing::Values(Damage{"", "1"}, Damage{"REP 2\nEND 00000000\n", "1"},
                                         Damage{"VOID", "1"}, Damage{"REP 1", "1"},
                                         Damage{"REP 1\n", "2"}, Damage{"REP 1\n000000021\n", "3"},
                                         Damage{"REP 1\n000000021\ncut", "3"},
                                         Damage{"REP 1\n000000022\nEND 00000003\n", "2"},
                                         Damage{"REP 1\n00000021\nEND 00000003\n", "2"},
                                         Damage{"REP 1\n-00000021\nEND 00000003\n", "2"},
                                         Damage{"REP 1\n\nEND 00000003\n", "2"},
                                         Damage{"REP 1\n000000000\nEND 00000003\n", "2"},
                                         Damage{"REP 1\n000000030\n000000030\nEND 00000003\n", "3"},
                                         Damage{"REP 1\n000000050\nEND 00000003\n", "3"},
                                         Damage{"REP 1\nEND 3\n", "2"},
                                         Damage{"REP 1\nEND 00000003", "2"},
                                         Damage{"REP 1\nEND 00000003\nmore\n", "3"}));

TEST(ChainWriter, WritesWhatTheReaderReads) {
  const TemporaryFolder folder;
  const auto files = SystemFileSystem();
  const std::string path = folder.path() + "T.REP";
  const std::string huge(200'000, 'x');
  std::vector<std::string> expected;
  {
    RunFile file = RunFile::Create(*files, path);
    ChainWriter writer(file);
    for (std::int32_t line = 1; line <= 3000; ++line) {
      const bool own = line % 3 != 0;
      const std::string text = line == 1000 ? huge : "text of " + std::to_string(line);
      writer.Add({line, own ? std::optional<std::string_view>(text) : std::nullopt});
      expected.push_back(std::to_string(line) + ' ' + (own ? text : "-"));
    }
    writer.End(4000);
    file.Close();
  }
  expected.emplace_back("END 4000");
  EXPECT_EQ(Content(ReaderOf(folder.Read("T.REP"))), expected);
}

TEST(ChainWriter, WritesTextThatAPersonCanRead) {
  const TemporaryFolder folder;
  const auto files = SystemFileSystem();
  RunFile file = RunFile::Create(*files, folder.path() + "T.REP");
  ChainWriter writer(file);
  writer.Add({2, "2;b"});
  writer.Add({5, std::nullopt});
  EXPECT_THAT(folder.Read("T.REP"), IsEmpty());
  writer.End(7);
  EXPECT_EQ(folder.Read("T.REP"),
            TextFile({"REP 1", "000000021", "2;b", "000000050", "END 00000007"}));
}

}  // namespace
}  // namespace imptable
