#include "host/registry/RegistryExportFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "host/registry/RegistryExportText.h"
#include "host/registry/RegistryRoots.h"
#include "platform/testing/PlainEncodings.h"
#include "platform/testing/TemporaryFolder.h"

namespace imptable {
namespace {

RegistryValue Text(const std::string& text) { return {RegistryType::kText, text + '\0'}; }

/// An export in UTF-8 with LF, for reading.
std::string Readable(const std::string& bytes) {
  EXPECT_TRUE(bytes.starts_with("\xFF\xFE"));
  const ConvertedText converted = Utf8FromUtf16(std::string_view(bytes).substr(2));
  EXPECT_TRUE(converted.complete);
  std::string text;
  for (std::size_t i = 0; i < converted.text.size(); ++i) {
    if (converted.text.compare(i, 2, "\r\n") != 0) text += converted.text[i];
  }
  return text;
}

class ExportWriting : public testing::Test {
 protected:
  void Set(const std::string& path, const std::string& name, const RegistryValue& value) {
    store_.Write({kHkeyLocalMachine, path}, name, value);
  }

  std::string Export(const std::string& path) {
    const auto bytes = WriteRegistryExport(store_, KeyPath{kHkeyLocalMachine, path});
    return bytes ? Readable(*bytes) : "no such key";
  }

  TemporaryFolder folder_;
  RegistryStore store_{folder_.path() + "registry.db"};
};

TEST_F(ExportWriting, IsWhatTheRegistryEditorWrites) {
  Set("Tâches\\b", "Dir", Text("C:\\données\\"));
  Set("Tâches\\b", "Quote", Text("say \"oui\""));
  Set("Tâches\\b", "", Text("default"));
  Set("Tâches\\b", "Mode", {RegistryType::kNumber, std::string("\xEF\xBE\xAD\xDE", 4)});
  Set("Tâches\\b", "A\\\"B", Text(""));
  Set("Tâches\\b", "Bytes", {RegistryType::kBinary, std::string("\0\xFF", 2)});
  Set("Tâches\\b", "Short", {RegistryType::kNumber, "x"});
  Set("Tâches\\b", "Path", {RegistryType::kExpandableText, std::string("%é\0", 4)});
  Set("Tâches\\b", "List", {RegistryType::kMultiText, std::string("a\0\0", 3)});
  Set("Tâches\\b", "None", {RegistryType::kNone, ""});
  Set("Tâches\\b", "Long", {static_cast<RegistryType>(11), "12345678"});
  Set("Tâches\\A\\sub", "Lines", Text("one\r\ntwo\tend"));
  Set("Tâches\\A\\sub", "Nul", {RegistryType::kText, std::string("a\0b\0", 4)});
  Set("Tâches\\A\\sub", "Open", {RegistryType::kText, "a"});
  Set("Tâches\\A\\sub", "Bell", Text("\a"));

  EXPECT_EQ(Export("tâches"), R"(Windows Registry Editor Version 5.00

[HKEY_LOCAL_MACHINE\Tâches]

[HKEY_LOCAL_MACHINE\Tâches\A]

[HKEY_LOCAL_MACHINE\Tâches\A\sub]
"Lines"="one
two	end"
"Nul"=hex(1):61,00,00,00,62,00,00,00
"Open"=hex(1):61,00
"Bell"=hex(1):07,00,00,00

[HKEY_LOCAL_MACHINE\Tâches\b]
"Dir"="C:\\données\\"
"Quote"="say \"oui\""
@="default"
"Mode"=dword:deadbeef
"A\\\"B"=""
"Bytes"=hex:00,ff
"Short"=hex(4):78
"Path"=hex(2):25,00,e9,00,00,00
"List"=hex(7):61,00,00,00,00,00
"None"=hex(0):
"Long"=hex(b):31,32,33,34,35,36,37,38

)");
}

TEST_F(ExportWriting, FoldsBytesBeforeTheEightiethColumn) {
  Set("K", "FailureActions", {RegistryType::kBinary, std::string(45, '\0')});
  Set("K", "ImagePath", {RegistryType::kExpandableText, std::string(10, 'a')});
  Set("K", "Répertoire", {RegistryType::kBinary, std::string(20, '\0')});
  Set("K", std::string(90, 'n'), {RegistryType::kBinary, std::string(2, '\0')});
  EXPECT_EQ(Export("K"), R"(Windows Registry Editor Version 5.00

[HKEY_LOCAL_MACHINE\K]
"FailureActions"=hex:00,00,00,00,00,00,00,00,00,00,00,00,00,00,00,00,00,00,00,\
  00,00,00,00,00,00,00,00,00,00,00,00,00,00,00,00,00,00,00,00,00,00,00,00,00,\
  00
"ImagePath"=hex(2):61,00,61,00,61,00,61,00,61,00,61,00,61,00,61,00,61,00,61,00
"Répertoire"=hex:00,00,00,00,00,00,00,00,00,00,00,00,00,00,00,00,00,00,00,00
")" + std::string(90, 'n') +
                             R"("=hex:00,\
  00

)");
}

TEST_F(ExportWriting, TakesTheWholeRegistryWhenNoKeyIsNamed) {
  Set("K", "v", Text("x"));
  EXPECT_EQ(Readable(*WriteRegistryExport(store_, std::nullopt)),
            R"(Windows Registry Editor Version 5.00

[HKEY_CURRENT_USER]

[HKEY_LOCAL_MACHINE]

[HKEY_LOCAL_MACHINE\K]
"v"="x"

)");
}

TEST_F(ExportWriting, EndsLinesWithCrLf) {
  Set("K", "v", Text("x"));
  const std::string bytes = *WriteRegistryExport(store_, KeyPath{kHkeyLocalMachine, "K"});
  EXPECT_EQ(bytes, "\xFF\xFE" + Utf16FromUtf8("Windows Registry Editor Version 5.00\r\n\r\n"
                                              "[HKEY_LOCAL_MACHINE\\K]\r\n\"v\"=\"x\"\r\n\r\n"));
}

TEST_F(ExportWriting, HasNothingToSayAboutAKeyThatIsAbsent) {
  EXPECT_EQ(WriteRegistryExport(store_, KeyPath{kHkeyLocalMachine, "absent"}), std::nullopt);
}

TEST(KeyNames, StartWithARootInItsLongOrShortForm) {
  for (const char* name : {"HKEY_LOCAL_MACHINE\\A\\b c", "HKLM\\A\\b c", "hklm\\A\\b c"}) {
    const auto key = KeyPathFromName(name);
    ASSERT_TRUE(key) << name;
    EXPECT_EQ(key->root, kHkeyLocalMachine);
    EXPECT_EQ(key->path, "A\\b c");
  }
  EXPECT_EQ(KeyPathFromName("HKCU")->root, kHkeyCurrentUser);
  EXPECT_EQ(KeyPathFromName("HKCU")->path, "");
  for (const char* name :
       {"", "A", "HKCR\\A", "HKLM\\", "HKLM\\\\A", "HKLM\\A\\", "HKLM\\A\\\\B"}) {
    EXPECT_FALSE(KeyPathFromName(name)) << name;
  }
}

/// A store with random keys and values, odd ones included.
void FillAtRandom(RegistryStore& store, std::mt19937& random) {
  static const std::vector<std::string> kPieces = {
      "a",
      "B",
      "é",
      "É",
      "日",
      "😀",
      "\\",
      "\"",
      " ",
      "]",
      "[",
      ";",
      "=",
      "@",
      "-",
      "\t",
      "\r\n",
      "\n",
      "\r",
      std::string(1, '\0'),
      "\x01",
      "\x7F",
      "\xEF\xBF\xBD",
      "dword:",
      ",\\",
      "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx"};
  const auto below = [&](std::size_t limit) { return random() % limit; };
  const auto text = [&](std::size_t most, bool with_controls, bool with_backslash) {
    std::string result;
    for (std::size_t i = below(most + 1); i > 0; --i) {
      const std::string& piece = kPieces[below(kPieces.size())];
      const bool control = static_cast<unsigned char>(piece[0]) < 0x20;
      if ((control && !with_controls) || (piece.ends_with('\\') && !with_backslash)) continue;
      result += piece;
    }
    return result;
  };
  std::vector<KeyPath> keys = {{kHkeyLocalMachine, ""}, {kHkeyCurrentUser, ""}};
  std::vector<RegistryEdit> edits;
  for (std::size_t i = below(8); i > 0; --i) {
    KeyPath key = keys[below(keys.size())];
    key.path += (key.path.empty() ? "k" : "\\k") + text(3, false, false);
    keys.push_back(key);
    edits.push_back({RegistryEdit::Action::kCreateKey, key, "", {}});
    for (std::size_t v = below(7); v > 0; --v) {
      static constexpr std::uint32_t kTypes[] = {0, 1, 1, 1, 2, 3, 4, 4, 5, 7, 11, 0xFFFFFFFF};
      RegistryValue value{static_cast<RegistryType>(kTypes[below(12)]), ""};
      switch (static_cast<std::uint32_t>(value.type)) {
        case 1:
        case 2:
        case 7:
          value.data = text(12, true, true);
          if (below(4) != 0) value.data += '\0';
          break;
        default:
          for (std::size_t n = below(3) == 0 ? below(90) : 4; n > 0; --n) {
            value.data += static_cast<char>(random());
          }
      }
      edits.push_back({RegistryEdit::Action::kSetValue, key, text(4, false, true), value});
    }
  }
  store.Apply(edits);
}

TEST(ExportFiles, GiveTheSameRegistryAndTheSameBytesWhenReadBack) {
  const Utf8TextEncoding encoding;
  std::size_t longest = 0;
  for (unsigned seed = 1; seed <= 250; ++seed) {
    SCOPED_TRACE(seed);
    TemporaryFolder folder;
    std::mt19937 random(seed);
    RegistryStore first(folder.path() + "first.db");
    FillAtRandom(first, random);
    for (const ExportEncoding form : {ExportEncoding::kUtf16, ExportEncoding::kUtf8}) {
      const std::string bytes = *WriteRegistryExport(first, std::nullopt, form);
      longest = std::max(longest, bytes.size());
      const auto parsed = ParseRegistryExport(bytes, "export.reg", encoding);
      ASSERT_TRUE(std::holds_alternative<std::vector<RegistryEdit>>(parsed))
          << "line " << std::get<RegistryExportError>(parsed).line;
      TemporaryFolder other;
      RegistryStore second(other.path() + "second.db");
      second.Apply(std::get<std::vector<RegistryEdit>>(parsed));
      ASSERT_EQ(*WriteRegistryExport(second, std::nullopt, form), bytes);
      for (const StoredKey& key : first.Tree({kHkeyLocalMachine, ""})) {
        ASSERT_EQ(second.Values(key.key), key.values);
      }
    }
  }
  EXPECT_GT(longest, 5000U);
}

TEST_F(ExportWriting, InUtf8IsTheSameTextWithoutAByteOrderMark) {
  Set("Tâches", "Dir", Text("C:\\données\\"));
  Set("Tâches", "Path", {RegistryType::kExpandableText, std::string("%é\0", 4)});
  const KeyPath key{kHkeyLocalMachine, "Tâches"};
  const std::string text = *WriteRegistryExport(store_, key, ExportEncoding::kUtf8);
  EXPECT_EQ(text,
            "Windows Registry Editor Version 5.00\r\n\r\n[HKEY_LOCAL_MACHINE\\Tâches]\r\n"
            "\"Dir\"=\"C:\\\\données\\\\\"\r\n\"Path\"=hex(2):25,00,e9,00,00,00\r\n\r\n");
  EXPECT_EQ("\xFF\xFE" + Utf16FromUtf8(text), *WriteRegistryExport(store_, key));
}

}  // namespace
}  // namespace imptable
