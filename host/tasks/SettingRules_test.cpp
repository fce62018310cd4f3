#include "host/tasks/SettingRules.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "core/StoredValue.h"
#include "host/HostError.h"
#include "host/testing/HostSession.h"
#include "import/layout/ColumnLayout.h"
#include "platform/testing/PlainEncodings.h"
#include "plugin/TaskLoading.h"
#include "tests/kit/TestComponent.h"

namespace imptable {
namespace {

using testing::HasSubstr;

/// The text of the refusal; empty when the value is taken.
std::string Refusal(const std::string& name, const std::string& text,
                    std::optional<bool> fixed_width = std::nullopt) {
  const Utf8TextEncoding encoding;
  try {
    SettingRules{encoding, fixed_width}.Stored(*FindSetting(name), name, text);
    return {};
  } catch (const HostError& error) {
    EXPECT_EQ(error.code(), ExitCode::kUsage);
    return HostTexts(Language::kEnglish, encoding).Text(error.text(), error.arguments());
  }
}

TEST(SettingRules, SayWhichNumbersAreAllowed) {
  EXPECT_EQ(Refusal("Mode", "5"), "\"Mode\": \"5\" isn't allowed: give a whole number from 0 to 4");
  EXPECT_EQ(Refusal("Suppression", "-1"),
            "\"Suppression\": \"-1\" isn't allowed: give a whole number from 0 to 2");
  EXPECT_THAT(Refusal("Erreurs", "32768"), HasSubstr("from 0 to 32767"));
  EXPECT_THAT(Refusal("Erreurs", "-1"), HasSubstr("from 0 to 32767"));
  EXPECT_THAT(Refusal("Erreurs", "@N"), HasSubstr("from 0 to 32767"));
  EXPECT_THAT(Refusal("Null", "2"), HasSubstr("from 0 to 1"));
  EXPECT_THAT(Refusal("NombreColonnes", "-1"), HasSubstr("from 0 to 32767"));
  EXPECT_THAT(Refusal("Etat", "9"), HasSubstr("from 0 to 3"));
  for (const char* limit : {"", "0", " 12 ", "32767", "1e3"}) {
    EXPECT_EQ(Refusal("Erreurs", limit), "") << limit;
  }
}

TEST(SettingRules, WantANameAfterTheSignOfAVariable) {
  for (const char* name : {"Base Cible", "Login", "Password", "Owner", "Table", "Alias", "Dir",
                           "Cle/Index", "CodErr"}) {
    EXPECT_EQ(Refusal(name, "@"), "\"" + std::string(name) +
                                      "\": \"@\" without a name: give @NAME, NAME being a variable "
                                      "of the scenario");
    EXPECT_EQ(Refusal(name, "@N"), "");
    EXPECT_EQ(Refusal(name, ""), "");
  }
  EXPECT_THAT(Refusal("Champs\\1", "A,,@"), HasSubstr("\"@\" without a name"));
  EXPECT_EQ(Refusal("Comment", "@"), "");
}

TEST(SettingRules, TakeAnErrorCodeThatIsANumberOrAVariable) {
  for (const char* code : {"1062", "-1", " 19 "}) EXPECT_EQ(Refusal("CodErr", code), "") << code;
  EXPECT_THAT(Refusal("CodErr", "dup"), HasSubstr("is no error code: give a whole number"));
  EXPECT_THAT(Refusal("CodErr", "99999999999"), HasSubstr("is no error code"));
}

TEST(SettingRules, TakeLayoutsThatARunUnderstandsAndSayWhichItemIsWrong) {
  for (const char* entry : {"1", "1,,12", "5,2", "5,2,10", "7,7,,/,1", "7,16", "7,1,,,", "8,,3",
                            "3,0,4", "7,7,10,.,0", "7,7,,é,"}) {
    EXPECT_EQ(Refusal("Colonnes\\1", entry), "") << entry;
  }
  const auto expect = [](const char* entry, const char* text) {
    EXPECT_THAT(Refusal("Colonnes\\1", entry), HasSubstr(text)) << entry;
  };
  for (const char* entry : {"", "0", "9", "x", "1x", " 1", "01"}) expect(entry, "the first item");
  for (const char* entry : {"7", "7,0", "7,17", "7,x", "7, 7", "7,07"}) {
    expect(entry, "a number from 1 to 16");
  }
  for (const char* entry : {"5,x", "3,-1", "6,2.5"}) expect(entry, "how many decimals");
  for (const char* entry : {"1,,x", "1,,-1", "5,2,x"}) expect(entry, "the third item is the width");
  expect("7,7,,//", "the fourth item of a date");
  for (const char* entry : {"7,7,,/,2", "7,7,,/,s"}) expect(entry, "the fifth item of a date");
  expect("7,7,,,,1", "five items at most");
}

TEST(SettingRules, WantAWidthWhereTheFileIsKnownToBeOfFixedWidth) {
  EXPECT_THAT(Refusal("Colonnes\\1", "1", true),
              HasSubstr("the width, the third item, is missing"));
  EXPECT_EQ(Refusal("Colonnes\\1", "7,7", true), "");
  EXPECT_EQ(Refusal("Colonnes\\1", "1", false), "");
  EXPECT_EQ(Refusal("Colonnes\\1", "1"), "");
  HostSession session;
  EXPECT_EQ(session.Run({"set", "S", "T", "Colonnes\\1=1"}).code, 0);
  EXPECT_EQ(session.Run({"set", "S", "T", "FormatFile=0", "Colonnes\\2=1"}).code, 2);
  EXPECT_EQ(session.Run({"set", "S", "T", "FormatFile=1", "Colonnes\\2=1"}).code, 0);
  EXPECT_EQ(session.Run({"set", "S", "T", "Colonnes\\3=1"}).code, 0);
  EXPECT_EQ(session.Run({"set", "S", "T", "FormatFile=0"}).code, 0);
  EXPECT_EQ(session.Run({"set", "S", "T", "Colonnes\\4=1"}).code, 2);
}

TEST(SettingRules, TakeOriginsThatARunUnderstandsAndNoneThatItWouldTakeForAConstant) {
  for (const char* origin : {"(Col)1", "NAME,12,0,(Col)32", "A,,Null", "A,,@V", "A,,constant", "",
                             "A,,Ignore", "A,,12Ignore", "(Col) 2", "null value"}) {
    EXPECT_EQ(Refusal("Champs\\1", origin), "") << origin;
  }
  for (const char* origin : {"(Col)", "(Col)x", "(Col)0", "A,,(Col)-1", "(Col)1 2"}) {
    EXPECT_THAT(Refusal("Champs\\1", origin), HasSubstr("followed by the number of a column"))
        << origin;
  }
  for (const char* origin : {"(col)2", "(COL)2", " (Col)2", "A,,(cOl)2"}) {
    EXPECT_THAT(Refusal("Champs\\1", origin),
                HasSubstr("would be a constant: write exactly (Col)N"))
        << origin;
  }
  for (const char* origin : {"null", "NULL", " Null", "Null "}) {
    EXPECT_THAT(Refusal("Champs\\1", origin), HasSubstr("write exactly Null")) << origin;
  }
  for (const char* origin : {"ignore", "A,,IGNORE", "Ignore "}) {
    EXPECT_THAT(Refusal("Champs\\1", origin), HasSubstr("write exactly Ignore")) << origin;
  }
}

TEST(SettingRules, TakeNoTextThatARunReadsAsAnotherOne) {
  EXPECT_EQ(Refusal("Comment", std::string(65535, 'x')), "");
  EXPECT_THAT(Refusal("Comment", std::string(65536, 'x')), HasSubstr("a run reads 65535 at most"));
  EXPECT_THAT(Refusal("Password", std::string("se\0cret", 7)), HasSubstr("a zero byte"));
  EXPECT_THAT(
      Refusal("Password",
              "s\xE9"
              "cret"),
      AllOf(HasSubstr("no text in the system's code page"), testing::Not(HasSubstr("cret"))));
}

/// Loads a task with this one value as a run does. @return false when the run refuses it.
bool RunTakes(const SettingPlace& place, const RegistryValue& value, bool fixed_width) {
  TestComponent component;
  component.state.commun.location = {kHkeyLocalMachine, "Tasks"};
  const KeyPath task{kHkeyLocalMachine, "Tasks\\T"};
  const KeyPath key =
      place.subkey.empty() ? task : KeyPath{task.root, task.path + '\\' + place.subkey};
  component.registry.Write(key, place.name, value);
  try {
    const OpenedTask run = OpenTask(component.state.commun, "S", "T");
    if (run.most_errors < 0 || run.most_errors > 32767) return false;
    if (!run.error_code.empty() && !run.error_code.starts_with('@')) {
      AsInt32(run.error_code, "CodErr");
    }
    if (place.text == SettingText::kColumn) ParseColumnLayout({*TextOf(value)}, fixed_width);
    if (place.text == SettingText::kField) ParseColumnOrigin(*TextOf(value), place.name);
    return true;
  } catch (const RuntimeFault&) {
    return false;
  }
}

/// A value that may or may not be right for any setting.
std::string RandomText(std::mt19937& random) {
  static const std::vector<std::string> kPieces{
      "",   "0",  "1",  "2", "3",     "4",     "5",     "7",      "9",          "12",
      "16", "17", "-",  "+", "32767", "8",     "65536", "1e2",    "1.5",        " ",
      ",",  ",",  ",,", "@", "V",     "(Col)", "Null",  "Ignore", "(col)",      "null",
      "/",  "ab", ";",  "é", "\t",    ".",     "(",     ")",      "99999999999"};
  std::string text;
  for (std::size_t count = random() % 5; count > 0; --count) {
    text += kPieces[random() % kPieces.size()];
  }
  return text;
}

/// Whether a run would accept the refused value, but do something else than was meant.
bool IsStricterThanARun(const SettingPlace& place, const std::string& refusal) {
  const bool choice = place.type == RegistryType::kNumber && place.name != "NombreColonnes";
  if (choice || place.text == SettingText::kColumn) {
    return true;
  }
  for (const char* reason : {"without a name", "would be a constant"}) {
    if (refusal.find(reason) != std::string::npos) return true;
  }
  return false;
}

TEST(SettingRules, TakeExactlyWhatARunTakes) {
  std::vector<std::string> names{"Colonnes\\1", "Champs\\1"};
  for (const char* name :
       {"Base Cible",     "Login",          "Password",   "Owner",    "Table",
        "Alias",          "Comment",        "Dir",        "Mode",     "Suppression",
        "Cle/Index",      "PrimKey",        "DupKey",     "CodErr",   "Erreurs",
        "RecErreurs",     "SiVide",         "SepDec",     "Null",     "Param",
        "NombreColonnes", "DelimiteurFile", "FormatFile", "UseAlias", "RecTrace"}) {
    names.emplace_back(name);
  }
  const Utf8TextEncoding encoding;
  std::mt19937 random(20261122);
  int taken = 0;
  int refused = 0;
  for (int round = 0; round < 20'000; ++round) {
    const std::string& name = names[random() % names.size()];
    const SettingPlace place = *FindSetting(name);
    const std::string text = RandomText(random);
    const bool fixed_width = random() % 2 == 0;
    SCOPED_TRACE(name + '=' + text);
    const std::string refusal = Refusal(name, text, fixed_width);
    if (refusal.empty()) {
      ++taken;
      const RegistryValue value = SettingRules{encoding, fixed_width}.Stored(place, name, text);
      ASSERT_TRUE(RunTakes(place, value, fixed_width));
      continue;
    }
    ++refused;
    if (IsStricterThanARun(place, refusal)) continue;
    const std::optional<std::int32_t> number =
        place.type == RegistryType::kNumber
            ? std::optional<std::int32_t>(std::strtol(text.c_str(), nullptr, 10))
            : std::nullopt;
    if (number && std::to_string(*number) != text) continue;  // no number can be stored for it
    ASSERT_FALSE(RunTakes(place, number ? NumberValue(*number) : TextValue(text), fixed_width))
        << refusal;
  }
  EXPECT_GT(taken, 5000);
  EXPECT_GT(refused, 3000);
}

}  // namespace
}  // namespace imptable
