#include "host/HostTexts.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

#include "host/HelpTexts.h"
#include "platform/testing/PlainEncodings.h"

namespace imptable {
namespace {

struct Pair {
  std::string french;
  std::string english;
};

const Pair kPairs[] = {
#define HOST_TEXT(name, french, english) {french, english},
#include "host/HostTexts.inc"
#undef HOST_TEXT
};

constexpr std::array kHelpedCommands{"",       "run",        "configure", "describe", "actions",
                                     "status", "list",       "get",       "set",      "unset",
                                     "copy",   "rename",     "delete",    "variable", "sources",
                                     "reg",    "reg import", "reg export"};

bool Holds(const std::string& text, char number) {
  return text.find(std::string("%") + number) != std::string::npos;
}

TEST(HostTexts, FillInTheSameThingsInBothLanguages) {
  for (const Pair& pair : kPairs) {
    for (char number = '1'; number <= '4'; ++number) {
      EXPECT_EQ(Holds(pair.french, number), Holds(pair.english, number)) << pair.english;
    }
  }
}

TEST(HostTexts, PutTheArgumentsInTheirPlacesAsTheyAre) {
  const Utf8TextEncoding encoding;
  const HostTexts texts(Language::kEnglish, encoding);
  EXPECT_EQ(texts.Text(HostText::kNoTask, {"%2", "S"}),
            "no task \"%2\" in scenario \"S\": \"imptable list\" lists the tasks");
}

TEST(HostTexts, ComeInTheSystemsCodePage) {
  const Latin1TextEncoding encoding;
  const HostTexts texts(Language::kFrench, encoding);
  EXPECT_EQ(texts.Text(HostText::kOutcomeDone), "Termin\xE9");
}

TEST(HostTexts, PartThousandsInTheMannerOfTheLanguage) {
  const Utf8TextEncoding encoding;
  const HostTexts french(Language::kFrench, encoding);
  const HostTexts english(Language::kEnglish, encoding);
  EXPECT_EQ(english.Number(0), "0");
  EXPECT_EQ(english.Number(999), "999");
  EXPECT_EQ(english.Number(1000), "1,000");
  EXPECT_EQ(english.Number(12345678), "12,345,678");
  EXPECT_EQ(english.Number(-123456), "-123,456");
  EXPECT_EQ(french.Number(12345678), "12 345 678");
  EXPECT_EQ(english.Decimal(1234.06), "1,234.1");
  EXPECT_EQ(french.Decimal(0.04), "0,0");
  EXPECT_EQ(french.Decimal(9.96), "10,0");
}

TEST(HelpText, HoldsAnExampleForEveryCommandInBothLanguages) {
  for (const char* command : kHelpedCommands) {
    const std::string call = std::string("imptable") + (*command == '\0' ? "" : " ") + command;
    const std::string english = HelpText(command, Language::kEnglish);
    const std::string french = HelpText(command, Language::kFrench);
    EXPECT_NE(english.find("Usage: " + call), std::string::npos) << command;
    EXPECT_NE(english.find("Example: " + call), std::string::npos) << command;
    EXPECT_NE(french.find("Usage : " + call), std::string::npos) << command;
    EXPECT_NE(french.find("Exemple : " + call), std::string::npos) << command;
  }
}

TEST(HelpText, NamesEveryOption) {
  for (const Language language : {Language::kFrench, Language::kEnglish}) {
    const std::string program = HelpText("", language);
    for (const char* option : {"--registry FILE", "--lang fr|en", "--help", "--version"}) {
      EXPECT_NE(program.find(option), std::string::npos) << option;
    }
    const std::string run = HelpText("run", language);
    for (const char* option : {"--resume", "--report FILE", "--quiet", "--json"}) {
      EXPECT_NE(run.find(option), std::string::npos) << option;
    }
    const std::string variable = HelpText("variable", language);
    for (const char* option : {"--stdin", "--show-password"}) {
      EXPECT_NE(variable.find(option), std::string::npos) << option;
    }
    EXPECT_NE(HelpText("set", language).find("--stdin"), std::string::npos);
    EXPECT_NE(HelpText("get", language).find("--show-password"), std::string::npos);
    EXPECT_NE(variable.find("--delete"), std::string::npos);
    EXPECT_NE(HelpText("delete", language).find("--yes"), std::string::npos);
    EXPECT_NE(HelpText("reg export", language).find("--utf8"), std::string::npos);
  }
}

TEST(HelpText, ListsTheValueNamesThatCanBeSet) {
  const std::string help = HelpText("set", Language::kFrench);
  EXPECT_NE(help.find("Base Cible, Login"), std::string::npos);
  EXPECT_NE(help.find("RecTrace"), std::string::npos);
  EXPECT_NE(help.find("Type\n"), std::string::npos);
  EXPECT_EQ(help.find("%NAMES%"), std::string::npos);
}

TEST(HelpText, FitsATerminalOf84Columns) {
  for (const char* command : kHelpedCommands) {
    for (const Language language : {Language::kFrench, Language::kEnglish}) {
      const std::string help = HelpText(command, language);
      std::size_t width = 0;
      for (const char byte : help) {
        const bool starts_character = (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
        width = byte == '\n' ? 0 : width + (starts_character ? 1 : 0);
        ASSERT_LE(width, 84U) << command;
      }
    }
  }
}

}  // namespace
}  // namespace imptable
