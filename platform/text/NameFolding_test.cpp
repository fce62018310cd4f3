#include "platform/text/NameFolding.h"

#include <gtest/gtest.h>

#include <clocale>
#include <string>
#include <thread>
#include <vector>

namespace imptable {
namespace {

TEST(NameFolding, MakesNamesThatDifferOnlyInCaseEqual) {
  EXPECT_EQ(FoldName("Base Cible"), FoldName("BASE cible"));
  EXPECT_EQ(FoldName("CréeLe"), FoldName("CRÉELE"));
  EXPECT_EQ(FoldName("straße"), FoldName("STRAßE"));
  EXPECT_EQ(FoldName("αβγ-жиз"), FoldName("ΑΒΓ-ЖИЗ"));
  EXPECT_EQ(FoldName("𐐨"), FoldName("𐐀"));  // beyond U+FFFF
}

TEST(NameFolding, KeepsNamesApartThatDifferInMoreThanCase) {
  EXPECT_NE(FoldName("CreeLe"), FoldName("CréeLe"));
  EXPECT_NE(FoldName("straße"), FoldName("strasse"));
  EXPECT_NE(FoldName("a"), FoldName("a "));
}

TEST(NameFolding, IsUpperCase) {
  EXPECT_EQ(FoldName("az AZ 09 _[`{@"), "AZ AZ 09 _[`{@");
  EXPECT_EQ(FoldName("été ÿ œ"), "ÉTÉ Ÿ Œ");
  EXPECT_EQ(FoldName("ﬀ日€😀"), "ﬀ日€😀");
  EXPECT_EQ(FoldName(""), "");
}

TEST(NameFolding, KeepsBytesThatAreNoValidUtf8) {
  const std::vector<std::string> invalid = {
      "\x80",         "\xBF\xBF",         "\xC3",
      "\xE9t\xE9",    "\xE2\x82",         "\xC0\xAF",
      "\xE0\x80\xAF", "\xFF\xFE",         "\xF5\x80\x80\x80",
      "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xF0\x8F\xBF\xBF",
  };
  for (const std::string& bytes : invalid) {
    std::string expected = bytes;
    for (char& byte : expected) {
      if (byte == 't') byte = 'T';
    }
    EXPECT_EQ(FoldName(bytes), expected) << testing::PrintToString(bytes);
    EXPECT_EQ(FoldName("é" + bytes + "b"), "É" + expected + "B") << testing::PrintToString(bytes);
  }
}

TEST(NameFolding, KeepsNulBytes) {
  EXPECT_EQ(FoldName(std::string("a\0é", 4)), std::string("A\0É", 4));
}

TEST(NameFolding, IsStable) {
  for (const char* name : {"CréeLe", "ǆ", "ſ", "ı", "K"}) {
    EXPECT_EQ(FoldName(FoldName(name)), FoldName(name)) << name;
  }
}

TEST(NameFolding, DoesNotDependOnTheLocale) {
  const std::string before = FoldName("éı");
  const std::string kept = std::setlocale(LC_ALL, nullptr);
  int locales = 0;
  for (const char* name : {"C", "C.UTF-8", "French_France.1252"}) {
    if (std::setlocale(LC_ALL, name) == nullptr) continue;
    ++locales;
    EXPECT_EQ(FoldName("éı"), before) << name;
  }
  EXPECT_EQ(locales, 2) << "each system has C and one of the others";
  std::setlocale(LC_ALL, kept.c_str());
}

TEST(NameFolding, ServesSeveralThreads) {
  std::vector<std::string> folded(4);
  {
    std::vector<std::thread> threads;
    for (std::string& result : folded) {
      threads.emplace_back([&result] { result = FoldName("créele"); });
    }
    for (std::thread& thread : threads) thread.join();
  }
  EXPECT_EQ(folded, std::vector<std::string>(4, "CRÉELE"));
}

}  // namespace
}  // namespace imptable
