#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <ostream>
#include <string>
#include <vector>

#include "host/registry/RegistryExportFile.h"
#include "host/registry/RegistryExportText.h"
#include "platform/testing/PlainEncodings.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

const std::string kHeader = "Windows Registry Editor Version 5.00\n";
const std::string kKey = kHeader + "[HKLM\\K]\n";

std::string Utf16(const std::string& text) { return "\xFF\xFE" + Utf16FromUtf8(text); }

std::string Described(const RegistryEdit& edit) {
  static const std::map<RegistryEdit::Action, std::string> kActions = {
      {RegistryEdit::Action::kCreateKey, "key"},
      {RegistryEdit::Action::kDeleteTree, "delete"},
      {RegistryEdit::Action::kSetValue, "set"},
      {RegistryEdit::Action::kDeleteValue, "unset"}};
  std::string text = kActions.at(edit.action) + " " +
                     (edit.key.root == kHkeyLocalMachine ? "LM\\" : "CU\\") + edit.key.path;
  if (edit.action == RegistryEdit::Action::kDeleteValue) return text + "|" + edit.name;
  if (edit.action != RegistryEdit::Action::kSetValue) return text;
  text += "|" + edit.name + "|" + std::to_string(static_cast<std::uint32_t>(edit.value.type)) + "|";
  for (const char byte : edit.value.data) text += byte == '\0' ? '$' : byte;
  return text;
}

std::string ProblemOf(const RegistryExportError& error, Language language = Language::kEnglish) {
  const Utf8TextEncoding encoding;
  return HostTexts(language, encoding).Text(error.problem, error.arguments);
}

/// @return what the file would do, or its error, one line each.
std::vector<std::string> Read(const std::string& bytes,
                              const TextEncoding& encoding = Utf8TextEncoding()) {
  const auto parsed = ParseRegistryExport(bytes, "t.reg", encoding);
  if (const auto* error = std::get_if<RegistryExportError>(&parsed))
    return {"t.reg, line " + std::to_string(error->line) + ": " + ProblemOf(*error)};
  std::vector<std::string> lines;
  for (const RegistryEdit& edit : std::get<std::vector<RegistryEdit>>(parsed)) {
    lines.push_back(Described(edit));
  }
  return lines;
}

TEST(ExportReading, TakesKeysValuesAndDeletionsInTheirOrder) {
  const std::string file = kHeader +
                           "\n; a comment\n"
                           "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Tâche]\n"
                           "\"Dir\"=\"C:\\\\données\\\\\"\n"
                           "\"say \\\"oui\\\"\"=\"\\\"\\\\\\\"\"\n"
                           "@=\"default\"\n"
                           "\"Mode\"=dword:00000041\n"
                           "\"Gone\"=-\n"
                           "@=-\n"
                           "[-HKEY_CURRENT_USER\\Old]\n"
                           "[HKEY_CURRENT_USER]\n"
                           "\"\"=\"\"\n";
  const std::vector<std::string> expected = {"key LM\\SOFTWARE\\Tâche",
                                             "set LM\\SOFTWARE\\Tâche|Dir|1|C:\\données\\$",
                                             "set LM\\SOFTWARE\\Tâche|say \"oui\"|1|\"\\\"$",
                                             "set LM\\SOFTWARE\\Tâche||1|default$",
                                             "set LM\\SOFTWARE\\Tâche|Mode|4|A$$$",
                                             "unset LM\\SOFTWARE\\Tâche|Gone",
                                             "unset LM\\SOFTWARE\\Tâche|",
                                             "delete CU\\Old",
                                             "key CU\\",
                                             "set CU\\||1|$"};
  EXPECT_EQ(Read(file), expected);
  EXPECT_EQ(Read("\xEF\xBB\xBF" + file), expected);
  EXPECT_EQ(Read(Utf16(file)), expected);
}

TEST(ExportReading, TakesEveryLineEnd) {
  const std::vector<std::string> expected = {"key LM\\K", "set LM\\K|a|1|1$", "set LM\\K|b|3|$x"};
  const std::string file = kHeader + "\n[HKLM\\K]\n\"a\"=\"1\"\n\"b\"=hex:00,\\\n  78";
  for (const std::string_view end : {"\n", "\r\n", "\r"}) {
    std::string with_end;
    for (const char byte : file) {
      if (byte == '\n') {
        with_end += end;
      } else {
        with_end += byte;
      }
    }
    EXPECT_EQ(Read(with_end), expected);
  }
}

TEST(ExportReading, PassesOverBlanksAndComments) {
  EXPECT_THAT(Read("Windows Registry Editor Version 5.00  \n"
                   " \t\n"
                   "  [HKLM\\K]\t; c\n"
                   "\t\"a\" = \"1\" ; c\n"
                   "  @ =\tdword: 1 \n"
                   "\"c\"=hex: 41 , 42,\\ \n\t 43 ; c\n"
                   "  ;\"d\"=\"x\"\n"
                   "\"e\"=- ; c"),
              ElementsAre("key LM\\K", "set LM\\K|a|1|1$", "set LM\\K||4|\x01$$$",
                          "set LM\\K|c|3|ABC", "unset LM\\K|e"));
}

TEST(ExportReading, KeepsTheLineBreaksOfATextOverSeveralLines) {
  EXPECT_THAT(
      Read(kKey + "\"a\"=\"one\r\ntwo\n; three\n[four]\r\"\n\"b\"=\"x\""),
      ElementsAre("key LM\\K", "set LM\\K|a|1|one\r\ntwo\n; three\n[four]\r$", "set LM\\K|b|1|x$"));
}

TEST(ExportReading, TakesTheBytesOfEveryType) {
  EXPECT_THAT(
      Read(kKey + "\"a\"=hex:\n"
                  "\"b\"=hex(0):1,A,\\\n  0a\n"
                  "\"c\"=hex(1):e9,00,00,00\n"
                  "\"d\"=hex(2):3d,d8,00,de,00,00\n"
                  "\"e\"=hex(7):61,00,00,00,\\\n"
                  "  62,00,00,00,\\\r\n"
                  "  00,00\n"
                  "\"f\"=hex(4):41,42,43,44\n"
                  "\"g\"=hex(b):31,32,33,34,35,36,37,38\n"
                  "\"h\"=hex(ffffffff):\\\n  41\n"
                  "\"i\"=hex(1):61,00"),
      ElementsAre("key LM\\K", "set LM\\K|a|3|", "set LM\\K|b|0|\x01\n\n", "set LM\\K|c|1|é$",
                  "set LM\\K|d|2|😀$", "set LM\\K|e|7|a$b$$", "set LM\\K|f|4|ABCD",
                  "set LM\\K|g|11|12345678", "set LM\\K|h|4294967295|A", "set LM\\K|i|1|a"));
}

TEST(ExportReading, TakesTheOldFormatInTheCodePage) {
  const std::string file =
      "REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE\\T\xE2"
      "che]\r\n\"Cr\xE9"
      "eLe\"=\"\xE9t\xE9\"\r\n\"b\"=hex(2):25,e9,00\r\n\"c\"=hex(7):61,00,\\\r\n  00\r\n"
      "\"d\"=hex:e9\r\n";
  EXPECT_THAT(Read(file, Latin1TextEncoding()),
              ElementsAre("key LM\\Tâche", "set LM\\Tâche|CréeLe|1|été$", "set LM\\Tâche|b|2|%é$",
                          "set LM\\Tâche|c|7|a$$", "set LM\\Tâche|d|3|\xE9"));
  EXPECT_THAT(Read("REGEDIT4\n[HKLM\\é]\n\"a\"=\"\xEF\xBF\xBD\""),
              ElementsAre("key LM\\é", "set LM\\é|a|1|\xEF\xBF\xBD$"));
}

TEST(ExportReading, TakesTheOldFormatOfAWesternWindowsMachineInAUtf8Locale) {
  EXPECT_THAT(Read("REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE\\T]\r\n\"Cr\xE9"
                   "eLe\"=\"\x80 5\"\r\n\"b\"=hex(2):e9,00\r\n",
                   Utf8TextEncoding()),
              ElementsAre("key LM\\T", "set LM\\T|CréeLe|1|€ 5$", "set LM\\T|b|2|é$"));
}

TEST(ExportReading, TakesAFileThatDoesNothing) {
  EXPECT_THAT(Read("REGEDIT4"), IsEmpty());
  EXPECT_THAT(Read(Utf16(kHeader)), IsEmpty());
}

TEST(ExportReading, LetsAKeysNameHoldBrackets) {
  EXPECT_THAT(Read(kHeader + "[HKLM\\a[1]]\n[HKLM\\b]c]"),
              ElementsAre("key LM\\a[1]", "key LM\\b]c"));
}

struct Damage {
  std::string bytes;
  std::size_t line;
  std::string hint;
};

void PrintTo(const Damage& damage, std::ostream* out) {
  *out << "line " << damage.line << ", " << damage.hint;
}

class ExportDamage : public testing::TestWithParam<Damage> {};

TEST_P(ExportDamage, IsReportedWithItsLineAndWhatToDo) {
  const auto parsed = ParseRegistryExport(GetParam().bytes, "folder/t.reg", Utf8TextEncoding());
  ASSERT_TRUE(std::holds_alternative<RegistryExportError>(parsed));
  const auto& error = std::get<RegistryExportError>(parsed);
  EXPECT_EQ(error.origin, "folder/t.reg");
  EXPECT_EQ(error.line, GetParam().line) << ProblemOf(error);
  EXPECT_THAT(ProblemOf(error), HasSubstr(GetParam().hint));
  EXPECT_THAT(ProblemOf(error), Not(HasSubstr("\n")));
  EXPECT_NE(ProblemOf(error, Language::kFrench), ProblemOf(error));
}

INSTANTIATE_TEST_SUITE_P(
    Headers, ExportDamage,
    testing::Values(Damage{"", 1, "empty"}, Damage{"\n" + kKey, 1, "first line"},
                    Damage{"[HKLM\\K]\n", 1, "first line"},
                    Damage{"Windows Registry Editor Version 6.00\n", 1, "first line"},
                    Damage{"Windows Registry Editor Version 5.000\n", 1, "first line"},
                    Damage{"REGEDIT5\n", 1, "first line"}, Damage{"REGEDIT4 x\n", 1, "first line"},
                    Damage{Utf16("REGEDIT4\n"), 1, "in 8-bit"},
                    Damage{"\xEF\xBB\xBFREGEDIT4\n", 1, "in 8-bit"},
                    Damage{"\xFF\xFE", 1, "first line"},
                    Damage{"\xFE\xFF" + std::string("\0W", 2), 1, "big endian"},
                    Damage{Utf16FromUtf8(kKey), 1, "byte order mark"},
                    Damage{std::string("SQLite format 3\0", 16), 1, "NUL"}));

INSTANTIATE_TEST_SUITE_P(
    Characters, ExportDamage,
    testing::Values(Damage{Utf16(kKey) + "x", 3, "cut off"},
                    Damage{Utf16(kKey + "\"a\"=\"1\"\r\n").substr(0, 97), 3, "cut off"},
                    Damage{Utf16(kKey + "\"a\"=\"") + std::string("\x00\xD8", 2), 3, "UTF-16"},
                    Damage{Utf16(kKey) + std::string("\x00\xDC", 2), 3, "UTF-16"},
                    Damage{Utf16(kKey) + std::string("\x00\xD8\x41\x00", 4), 3, "UTF-16"},
                    Damage{kKey + "\n\"a\"=\"\xE9\"\n", 4, "UTF-8"},
                    Damage{kKey + std::string("\"a\"=\"\0\"\n", 8), 3, "NUL"},
                    Damage{"REGEDIT4\r\n\r\n[HKLM\\T\xE2\x81]\r\n", 3, "code page"},
                    Damage{"REGEDIT4\n[HKLM\\K]\n\"a\"=hex(2):81,00\n", 3, "code page"}));

INSTANTIATE_TEST_SUITE_P(
    Keys, ExportDamage,
    testing::Values(Damage{kHeader + "[HKLM\\K\n", 2, "\"]\""},
                    Damage{kHeader + "\r[HKLM\\K\r]\r", 3, "\"]\""},
                    Damage{kHeader + "[HKLM\\K] x\n", 2, "unexpected text"},
                    Damage{kHeader + "[]\n", 2, "unknown root \"\""},
                    Damage{kHeader + "[-]\n", 2, "unknown root"},
                    Damage{kHeader + "[HKEY_CLASSES_ROOT\\.csv]\n", 2, "\"HKEY_CLASSES_ROOT\""},
                    Damage{kHeader + "[-HKEY_USERS\\a]\n", 2, "\"HKEY_USERS\""},
                    Damage{kHeader + "[K]\n", 2, "HKEY_LOCAL_MACHINE and HKEY_CURRENT_USER"},
                    Damage{kHeader + "[HKLM\\\\K]\n", 2, "empty key name"},
                    Damage{kHeader + "[HKLM\\K\\]\n", 2, "empty key name"},
                    Damage{kHeader + "[HKLM\\]\n", 2, "empty key name"},
                    Damage{kHeader + "[-HKLM]\n", 2, "root can't be deleted"}));

INSTANTIATE_TEST_SUITE_P(
    Values, ExportDamage,
    testing::Values(Damage{kHeader + "\n\"a\"=\"1\"\n", 3, "before any key"},
                    Damage{kHeader + "@=\"1\"\n", 2, "before any key"},
                    Damage{kHeader + "[-HKLM\\K]\n\"a\"=\"1\"\n", 3, "before any key"},
                    Damage{kKey + "a=\"1\"\n", 3, "\"name\"="},
                    Damage{kKey + "x\n", 3, "neither a key"}, Damage{kKey + "\"a\"\n", 3, "\"=\""},
                    Damage{kKey + "\"a\":\"1\"\n", 3, "\"=\""},
                    Damage{kKey + "\"a\"=\n", 3, "unknown kind"},
                    Damage{kKey + "\"a\"", 3, "\"=\""}, Damage{kKey + "\"a\"=", 3, "unknown kind"},
                    Damage{kKey + "\"a\"=1\n", 3, "unknown kind"},
                    Damage{kKey + "\"a\"=qword:1\n", 3, "unknown kind"},
                    Damage{kKey + "\"a\"=\"1\n\"b\"=\"2\"\n", 4, "unexpected text"},
                    Damage{kKey + "\"a\"=\"1\n\n\n", 3, "closing quote"},
                    Damage{kKey + "\"b\"=\"1\r\n2\"\r\n\"a", 5, "closing quote"},
                    Damage{kKey + "\"a\"=\"1\" \"2\"\n", 3, "unexpected text"},
                    Damage{kKey + "\"a\"=\"C:\\data\"\n", 3, "write \"\\\\\""},
                    Damage{kKey + "\"a\"=\"C:\\\n", 3, "write \"\\\\\""},
                    Damage{kKey + "\"a\"=\"C:\\", 3, "write \"\\\\\""},
                    Damage{kKey + "\"a\"=--\n", 3, "unexpected text"}));

INSTANTIATE_TEST_SUITE_P(
    Numbers, ExportDamage,
    testing::Values(
        Damage{kKey + "\"a\"=dword:\n", 3, "dword"},
        Damage{kKey + "\"a\"=dword:123456789\n", 3, "dword"},
        Damage{kKey + "\"a\"=dword:0000000g\n", 3, "unexpected text"},
        Damage{kKey + "\"a\"=dword:x\n", 3, "dword"}, Damage{kKey + "\"a\"=dword:-1\n", 3, "dword"},
        Damage{kKey + "\"a\"=dword", 3, "unknown kind"}, Damage{kKey + "\"a\"=hex\n", 3, "\":\""},
        Damage{kKey + "\"a\"=hex(:00\n", 3, "type"}, Damage{kKey + "\"a\"=hex(2:00\n", 3, "type"},
        Damage{kKey + "\"a\"=hex():00\n", 3, "type"},
        Damage{kKey + "\"a\"=hex(123456789):00\n", 3, "type"},
        Damage{kKey + "\"a\"=hex:0g\n", 3, "unexpected text"},
        Damage{kKey + "\"a\"=hex:000\n", 3, "1 or 2"},
        Damage{kKey + "\"a\"=hex:00,\n", 3, "1 or 2"},
        Damage{kKey + "\"a\"=hex:00,,00\n", 3, "1 or 2"},
        Damage{kKey + "\"a\"=hex:00 00\n", 3, "unexpected text"},
        Damage{kKey + "\"a\"=hex:00,\\\n  00,\\\n  zz\n", 5, "1 or 2"},
        Damage{kKey + "\"a\"=hex:00,\\\n  00,\\\n\n\"b\"=\"x\"\n", 5, "1 or 2"},
        Damage{kKey + "\"a\"=hex:00,\\\n  00,\\\n", 5, "1 or 2"},
        Damage{kKey + "\"a\"=hex:00,\\\n  00,\\", 4, "cut off"},
        Damage{kKey + "\"a\"=hex:00,\\ x\n00\n", 3, "continues the line"},
        Damage{kKey + "\n\"a\"=hex(1):00,\\\n  00,00\n", 4, "two for a character"},
        Damage{kKey + "\"a\"=hex(7):00,d8\n", 3, "two for a character"}));

TEST(ExportReading, OfAFileThatWasCutOffAnywhereNeverInventsAnything) {
  const std::string whole =
      Utf16(kKey +
            "\"a\"=\"one\\\\two\r\nthree\"\r\n\"b\"=hex(2):61,00,\\\r\n  00,00\r\n"
            "\"c\"=dword:00000000\r\n[-HKCU\\Old]\r\n");
  const std::vector<std::string> edits = Read(whole);
  ASSERT_EQ(edits.size(), 5U);
  std::size_t refused = 0;
  for (std::size_t size = 0; size < whole.size(); ++size) {
    SCOPED_TRACE(size);
    const std::vector<std::string> read = Read(whole.substr(0, size));
    if (read.size() == 1 && read[0].starts_with("t.reg, line ")) {
      ++refused;
      continue;
    }
    // Only the last edit may differ: nobody notices a digit or a byte that is missing at its end.
    ASSERT_LE(read.size(), edits.size());
    for (std::size_t i = 0; i < read.size(); ++i) {
      if (i + 1 < read.size()) {
        EXPECT_EQ(read[i], edits[i]);
      } else {
        EXPECT_EQ(read[i].substr(0, 6), edits[i].substr(0, 6));
      }
    }
  }
  EXPECT_GT(refused, whole.size() * 3 / 4);
}

}  // namespace
}  // namespace imptable
