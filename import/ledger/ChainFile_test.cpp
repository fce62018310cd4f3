#include "import/ledger/ChainFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "core/RuntimeFault.h"
#include "platform/testing/MemoryFile.h"
#include "platform/testing/TemporaryFolder.h"
#include "tests/kit/TextFile.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

ChainReader ReaderOf(const std::string& bytes) {
  return ChainReader(std::make_unique<LineReader>(MemoryFile::Of(bytes), "T.REP", false), "T.REP");
}

ChainIdentity Identity() {
  return {.scenario = "Night",
          .task = "Clients",
          .data_source = "Shop",
          .owner = "",
          .table = "CLIENT",
          .source = {.path = "/in/T.CSV",
                     .size = 3072,
                     .modified = 1163579400,
                     .head = "ba78",
                     .tail = "16bf"}};
}

const std::vector<std::string> kIdentity{"REP 2",
                                         "SCENARIO Night",
                                         "TASK Clients",
                                         "DATABASE Shop",
                                         "OWNER ",
                                         "TABLE CLIENT",
                                         "SOURCE /in/T.CSV",
                                         "SIZE 3072",
                                         "TIME 2006-11-15T08:30:00Z",
                                         "HEAD ba78",
                                         "TAIL 16bf"};

/// A chain of this version that goes on with these lines, in the system's line ends.
std::string WithIdentity(std::vector<std::string> lines) {
  lines.insert(lines.begin(), kIdentity.begin(), kIdentity.end());
  return TextFile(lines);
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

TEST(ChainFile, SaysWhoseChainItIs) {
  ChainReader reader = ReaderOf(WithIdentity({"END 00000003"}));
  EXPECT_EQ(reader.identity(), Identity());
  EXPECT_FALSE(reader.Next());
  EXPECT_EQ(reader.reached(), 3);
  EXPECT_FALSE(reader.is_first());
  EXPECT_EQ(ReaderOf("REP 1\nEND 00000000\n").identity(), std::nullopt);
}

TEST(ChainFile, OfARunThatIsTheFirstHoldsTheIdentityAlone) {
  ChainReader reader = ReaderOf(WithIdentity({"FIRST"}));
  EXPECT_FALSE(reader.Next());
  EXPECT_TRUE(reader.is_first());
  EXPECT_EQ(reader.reached(), 0);
}

struct Ending {
  std::string text;
  ChainMark mark;
};

TEST(ChainFile, SaysHowItsLastRunEnded) {
  for (const char* const state : {"FIRST", "END 00000003"}) {
    const std::string chain = WithIdentity({state});
    for (const Ending& ending :
         {Ending{"", ChainMark::kNone}, Ending{TextFile({"READ"}), ChainMark::kRead},
          Ending{TextFile({"STOP"}), ChainMark::kStopped}, Ending{"READ", ChainMark::kNone},
          Ending{"REA", ChainMark::kNone}, Ending{"S", ChainMark::kNone}}) {
      ChainReader reader = ReaderOf(chain + ending.text);
      EXPECT_FALSE(reader.Next());
      EXPECT_EQ(reader.mark(), ending.mark) << state << ", " << ending.text;
    }
  }
}

TEST(ChainFile, IsToldFromAnotherFileByItsFirstLetters) {
  for (const char* const own : {"", "R", "REP ", "VO", "VOID"}) EXPECT_TRUE(MayBeChain(own)) << own;
  for (const char* const other : {"1;a;", "Repo", "REPO", "\n", "VOI\n"}) {
    EXPECT_FALSE(MayBeChain(other)) << other;
  }
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

INSTANTIATE_TEST_SUITE_P(
    AtEachPlace, DamagedChain,
    testing::Values(Damage{"", "1"}, Damage{"REP 3\nEND 00000000\n", "1"}, Damage{"VOID", "1"},
                    Damage{"REP 1", "1"}, Damage{"REP 1\n", "2"}, Damage{"REP 1\n000000021\n", "3"},
                    Damage{"REP 1\n000000021\ncut", "3"},
                    Damage{"REP 1\n000000022\nEND 00000003\n", "2"},
                    Damage{"REP 1\n00000021\nEND 00000003\n", "2"},
                    Damage{"REP 1\n-00000021\nEND 00000003\n", "2"},
                    Damage{"REP 1\n\nEND 00000003\n", "2"},
                    Damage{"REP 1\n000000000\nEND 00000003\n", "2"},
                    Damage{"REP 1\n000000030\n000000030\nEND 00000003\n", "3"},
                    Damage{"REP 1\n000000050\nEND 00000003\n", "3"}, Damage{"REP 1\nEND 3\n", "2"},
                    Damage{"REP 1\nEND 00000003", "2"}, Damage{"REP 1\nEND 00000003\nmore\n", "3"},
                    Damage{"REP 1\nEND 00000003\nREAD\n", "3"}, Damage{"REP 1\nFIRST\n", "2"}));

TEST(DamagedIdentity, IsRefusedWithItsPlace) {
  const auto place = [](const std::string& bytes) -> std::string {
    try {
      Content(ReaderOf(bytes));
      return "none";
    } catch (const RuntimeFault& fault) {
      EXPECT_EQ(fault.number(), FaultNumber::kInvalidFileFormat);
      return fault.detail();
    }
  };
  for (std::size_t at = 1; at < kIdentity.size(); ++at) {
    std::vector<std::string> lines = kIdentity;
    lines[at] = 'X' + lines[at];
    lines.emplace_back("END 00000003");
    EXPECT_EQ(place(TextFile(lines)), "T.REP, " + std::to_string(at + 1));
    lines.resize(at);
    EXPECT_EQ(place(TextFile(lines)), "T.REP, " + std::to_string(at + 1)) << "cut off";
  }
  for (const char* const size : {"SIZE ", "SIZE 1x", "SIZE -1"}) {
    std::vector<std::string> lines = kIdentity;
    lines[7] = size;
    EXPECT_EQ(place(TextFile(lines)), "T.REP, 8") << size;
  }
  for (const char* const time :
       {"TIME ", "TIME 2006-11-15 08:30:00Z", "TIME 2006-13-15T08:30:00Z"}) {
    std::vector<std::string> lines = kIdentity;
    lines[8] = time;
    EXPECT_EQ(place(TextFile(lines)), "T.REP, 9") << time;
  }
  EXPECT_EQ(place(WithIdentity({"FIRST", "more"})), "T.REP, 13");
  EXPECT_EQ(place(WithIdentity({"END 00000003", "READ", "more"})), "T.REP, 14");
  EXPECT_EQ(place(WithIdentity({"000000021", "2;b", "FIRST"})), "T.REP, 14");
}

TEST(ChainWriter, WritesWhatTheReaderReads) {
  const TemporaryFolder folder;
  const auto files = SystemFileSystem();
  const std::string path = folder.path() + "T.REP";
  const std::string huge(200'000, 'x');
  std::vector<std::string> expected;
  {
    RunFile file = RunFile::Create(*files, path);
    ChainWriter writer(file, Identity());
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
  ChainWriter writer(file, Identity());
  writer.Add({2, "2;b"});
  writer.Add({5, std::nullopt});
  EXPECT_THAT(folder.Read("T.REP"), IsEmpty());
  writer.End(7);
  EXPECT_EQ(folder.Read("T.REP"), WithIdentity({"000000021", "2;b", "000000050", "END 00000007"}));
}

}  // namespace
}  // namespace imptable
