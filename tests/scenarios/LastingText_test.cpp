#include "tests/scenarios/LastingText.h"

#include <gtest/gtest.h>

namespace imptable {
namespace {

TEST(LastingText, LeavesOutTheDatesThatLinesBeginWithAndNoOther) {
  EXPECT_EQ(WithoutDatesAndVersions("2006-11-15 08:30:00 a\n15/11/2006 08:30:00.... b\n"),
            "{DATE} a\n{DATE}.... b\n");
  EXPECT_EQ(WithoutDatesAndVersions("1/5/2006 8:30:00 AM a\n11/15/2006 12:30:00 PM b\n"),
            "{DATE} a\n{DATE} b\n");
  EXPECT_EQ(WithoutDatesAndVersions("<strong>2006-11-15 08:30:00 a</strong><br>\n"),
            "<strong>{DATE} a</strong><br>\n");
  EXPECT_EQ(WithoutDatesAndVersions("<font color=\"#004080\"><strong>2006-11-15 08:30:00 a\n"),
            "<font color=\"#004080\"><strong>{DATE} a\n");
  const std::string others =
      "in 2006-11-15 08:30:00\n2006-11-15 08:30\n2006-1-15 08:30:00\n"
      "11/15/2006 8:30:00\n111/5/2006 8:30:00 AM\n\nx";
  EXPECT_EQ(WithoutDatesAndVersions(others), others);
}

TEST(LastingText, LeavesOutTheVersionsOfADriver) {
  EXPECT_EQ(WithoutDatesAndVersions("( 1) [ma-3.1.15][10.11.19-MariaDB]No\n[ma-3.1.15]No [x]\n"),
            "( 1) [{VERSIONS}]No\n[{VERSIONS}]No [x]\n");
}

TEST(LastingText, LeavesOutWhatAChainSaysOfItsSourceAndNothingElse) {
  EXPECT_EQ(WithoutSourceFigures("REP 2\nTASK T1\nSIZE 12\nTIME 2006-11-15T08:30:00Z\nHEAD ab\n"
                                 "TAIL cd\n000000011\nSIZE 3\nEND 00000001\nREAD\n"),
            "REP 2\nTASK T1\nSIZE {SIZE}\nTIME {TIME}\nHEAD {DIGEST}\nTAIL {DIGEST}\n"
            "000000011\nSIZE 3\nEND 00000001\nREAD\n");
  for (const char* const other : {"", "SIZE 12\n", "REP 1\nSIZE 12\n"}) {
    EXPECT_EQ(WithoutSourceFigures(other), other);
  }
}

TEST(LastingText, MissesTheCarriageReturnOfEveryReportLineThatHasNone) {
  const std::string line = "2006-11-15 08:30:00 a";
  EXPECT_TRUE(ReportLinesEndAsTheyShould(line + "\r\n" + line + "\r\n"));
  EXPECT_TRUE(ReportLinesEndAsTheyShould(line + "\nof a driver\r\n" + line + "\r\n"));
  EXPECT_FALSE(ReportLinesEndAsTheyShould(line + "\n" + line + "\r\n"));
  EXPECT_FALSE(ReportLinesEndAsTheyShould("a\n<strong>" + line + "\r\n"));
  EXPECT_FALSE(ReportLinesEndAsTheyShould(line + "\n"));
  EXPECT_FALSE(ReportLinesEndAsTheyShould(line));
}

}  // namespace
}  // namespace imptable
