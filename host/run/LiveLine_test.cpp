#include "host/run/LiveLine.h"

#include <gtest/gtest.h>

#include <sstream>

#include "platform/testing/PlainEncodings.h"

namespace imptable {
namespace {

class FixedTerminal : public Terminal {
 public:
  explicit FixedTerminal(int columns) : columns_(columns) {}
  int Columns() const override { return columns_; }
  void Resize(int columns) { columns_ = columns; }

 private:
  int columns_;
};

class LiveLineOfARun : public testing::Test {
 protected:
  Utf8TextEncoding encoding;
  HostTexts french{Language::kFrench, encoding};
  HostTexts english{Language::kEnglish, encoding};
  RunProgress halfway{.read = 12345,
                      .lines = {{Outcome::kInserted, 12000},
                                {Outcome::kModified, 300},
                                {Outcome::kDeleted, 5},
                                {Outcome::kRejected, 40}},
                      .bytes_read = 500'000,
                      .bytes_in_file = 1'000'000};
};

TEST_F(LiveLineOfARun, TellsLinesRateShareAndTimeLeft) {
  EXPECT_EQ(LiveLineText(halfway, 100, 0, english),
            "12,345 read  12,305 written  40 rejected  123 lines/s  50%  1:40 left");
  EXPECT_EQ(LiveLineText(halfway, 100, 0, french),
            "12 345 lues  12 305 écrites  40 rejetées  123 lignes/s  50 %  reste 1:40");
}

TEST_F(LiveLineOfARun, TellsNoRateAndNoTimeBeforeAnyTimeHasPassed) {
  EXPECT_EQ(LiveLineText({.bytes_in_file = 10}, 0, 0, english),
            "0 read  0 written  0 rejected  0 lines/s  0%");
}

TEST_F(LiveLineOfARun, TellsNoShareOfAFileWhoseSizeIsUnknown) {
  EXPECT_EQ(LiveLineText({.read = 10}, 1, 0, english),
            "10 read  0 written  0 rejected  10 lines/s");
}

TEST_F(LiveLineOfARun, NeverTellsMoreThanTheWholeFile) {
  EXPECT_EQ(LiveLineText({.read = 1, .bytes_read = 20, .bytes_in_file = 10}, 1, 0, english),
            "1 read  0 written  0 rejected  1 lines/s  100%  0:00 left");
}

TEST_F(LiveLineOfARun, TellsHoursLeftButNoEternity) {
  const RunProgress slow{.read = 1, .bytes_read = 1, .bytes_in_file = 101};
  EXPECT_EQ(LiveLineText(slow, 40, 0, english),
            "1 read  0 written  0 rejected  0 lines/s  0%  1:06:40 left");
  EXPECT_EQ(LiveLineText(slow, 4000, 0, english), "1 read  0 written  0 rejected  0 lines/s  0%");
}

TEST_F(LiveLineOfARun, LeavesOutThePartsThatTheTerminalHasNoRoomFor) {
  const std::string whole = LiveLineText(halfway, 100, 0, french);
  EXPECT_EQ(LiveLineText(halfway, 100, 72, french), whole);
  EXPECT_EQ(LiveLineText(halfway, 100, 71, french),
            "12 345 lues  12 305 écrites  40 rejetées  123 lignes/s  50 %");
  EXPECT_EQ(LiveLineText(halfway, 100, 53, french), "12 345 lues  12 305 écrites  40 rejetées");
}

TEST_F(LiveLineOfARun, IsCutBetweenCharacters) {
  EXPECT_EQ(LiveLineText(halfway, 100, 21, french), "12 345 lues  12 305 é");
  EXPECT_EQ(LiveLineText(halfway, 100, 1, french), "1");
  const Latin1TextEncoding latin1;
  EXPECT_EQ(LiveLineText(halfway, 100, 21, HostTexts(Language::kFrench, latin1)),
            "12 345 lues  12 305 \xE9");
}

TEST_F(LiveLineOfARun, IsRedrawnInPlaceForTheWidthOfTheMomentAndRemovedOnce) {
  std::ostringstream out;
  FixedTerminal terminal(6);
  {
    LiveLine line(out, terminal, english);
    line.Draw({.read = 1}, 0);
    terminal.Resize(4);
    line.Draw({.read = 2}, 0);
    line.Remove();
  }
  EXPECT_EQ(out.str(), "\r\x1b[K1 read\r\x1b[1A\x1b[J2 re\r\x1b[K");
}

TEST_F(LiveLineOfARun, IsErasedWithAllTheRowsThatANarrowerTerminalWrappedItTo) {
  std::ostringstream out;
  FixedTerminal terminal(40);
  LiveLine line(out, terminal, french);
  line.Draw({.read = 1}, 0);
  const std::size_t drawn = out.str().size();
  const auto since = [&] { return out.str().substr(drawn); };
  terminal.Resize(12);
  line.Draw({.read = 2}, 0);
  // "1 lues  0 écrites  0 rejetées" has 29 characters: 12, 12 and 5.
  EXPECT_EQ(since(), "\r\x1b[2A\x1b[J2 lues  0 éc");
  terminal.Resize(6);
  line.Remove();
  EXPECT_EQ(since(), "\r\x1b[2A\x1b[J2 lues  0 éc\r\x1b[1A\x1b[J");
}

TEST_F(LiveLineOfARun, IsErasedAsOneRowOnATerminalThatGrewOrTellsNoWidth) {
  std::ostringstream out;
  FixedTerminal terminal(6);
  LiveLine line(out, terminal, english);
  line.Draw({.read = 1}, 0);
  terminal.Resize(0);
  line.Remove();
  EXPECT_EQ(out.str(), "\r\x1b[K1 read\r\x1b[K");
}

TEST_F(LiveLineOfARun, LeavesNothingBehindWhenItGoes) {
  std::ostringstream out;
  const FixedTerminal terminal(6);
  { LiveLine(out, terminal, english).Draw({.read = 1}, 0); }
  EXPECT_EQ(out.str(), "\r\x1b[K1 read\r\x1b[K");
}

}  // namespace
}  // namespace imptable
