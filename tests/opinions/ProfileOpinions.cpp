#include <fstream>
#include <iterator>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "tests/opinions/Draws.h"
#include "tests/opinions/Opinions.h"
#include "tests/opinions/Printed.h"
#include "tests/opinions/System.h"

namespace imptable {
namespace {

using namespace std::string_view_literals;

constexpr int kFiles = 1000;
constexpr int kQueriesOfAFile = 8;

// No query has an empty name, or a key that begins like a comment: Windows would find lines before
// the first section, or comments.
constexpr std::string_view kSections[] = {"Table01",    "Table02", "Table20", "Table010",
                                          "T\xE9l\xE9", "a]b",     "a b",     "[Table01"};
constexpr std::string_view kKeys[] = {"01", "02", "10", "1", "Cl\xE9", "a b", "[x", "'01'"};
constexpr std::string_view kBlanks[] = {"",  "",   "",   "",     "",   "",   "",
                                        " ", "  ", "\t", " \t ", "\v", "\f", "\x1A"};
// "Non" is what the component passes. No fallback ends with a blank or a quote, because Windows may
// take those away.
constexpr std::string_view kFallbacks[] = {"Non", "Non", "", " Non", "N\"on", "\xE9"};
constexpr std::string_view kPieces[] = {
    "CODE,1,9",  "NOM,'A','M'", "Non",  "Nonce,1,2", "DATE_CDE,2006-01-01,2006-06-30",
    "\"",        "'",           "\"\"", "''",        " ",
    "\t",        "=",           ";",    "a",         "[b]",
    "\xE9t\xE9", "\x80\x9C",    "\x01", "\x7F",      "\0"sv,
    "\x1A",      "\xA0",        ","};
constexpr std::string_view kLineEnds[] = {"\r\n", "\n", "\r", "\n\r", "\r\r\n", "\n\n"};

/// Changes only letters of ASCII: unlike Windows, Wine tells the cases of other letters apart here.
std::string InOtherCase(std::string_view name, Draws& draws) {
  std::string text;
  for (const char c : name) {
    const bool is_letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    text += is_letter && draws.OneIn(2) ? static_cast<char>(c ^ 0x20) : c;
  }
  return text;
}

std::string BlanksAround(const std::string& text, Draws& draws) {
  const std::string_view before = draws.Of(kBlanks);
  const std::string_view after = draws.Of(kBlanks);
  return std::string(before).append(text).append(after);
}

std::string Value(Draws& draws) {
  std::string text;
  for (std::size_t left = draws.Below(4); left > 0; --left) text += draws.Of(kPieces);
  if (draws.OneIn(25)) text += std::string(240 + draws.Below(40), 'x');
  if (draws.OneIn(500)) text += std::string(60'000 + draws.Below(10'000), 'y');
  switch (draws.Below(8)) {
    case 0:
      return '"' + text + '"';
    case 1:
      return '\'' + text + '\'';
    case 2:
      return '"' + text;
    case 3:
      return text + '\'';
    default:
      return text;
  }
}

/// The text in another encoding, behind its mark. Leaves out the characters that Latin-1 and code
/// page 1252 read differently.
template <typename Encode>
std::string Marked(std::string mark, std::string_view text, Encode encode) {
  for (const char c : text) {
    const auto character = static_cast<unsigned char>(c);
    if (character < 0x80 || character > 0x9F) mark += encode(character);
  }
  return mark;
}

std::string Utf8Of(unsigned char character) {
  if (character < 0x80) return {static_cast<char>(character)};
  return {static_cast<char>(0xC0 | character >> 6), static_cast<char>(0x80 | (character & 0x3F))};
}

std::string InSomeEncoding(std::string text, Draws& draws) {
  switch (draws.Below(30)) {
    case 0:
      return "\xEF\xBB\xBF" + text;
    case 1:
      return Marked("\xEF\xBB\xBF", text, Utf8Of);
    case 2:
      return Marked("\xFF\xFE", text, [](unsigned char c) {
        return std::string{static_cast<char>(c), '\0'};
      });
    case 3:
      return Marked("\xFE\xFF", text, [](unsigned char c) {
        return std::string{'\0', static_cast<char>(c)};
      });
    default:
      return text;
  }
}

/// A file of lines about a few names, and what may be asked of it.
class Sample {
 public:
  explicit Sample(Draws& draws) : draws_(draws) {
    for (int i = 0; i < 2; ++i) {
      sections_.push_back(draws.Of(kSections));
      keys_.push_back(draws.Of(kKeys));
    }
  }

  std::string Section() { return Name(sections_); }
  std::string Key() { return Name(keys_); }

  std::string File() {
    std::string text;
    const std::size_t ends = draws_.Below(2 * std::size(kLineEnds));
    for (std::size_t left = draws_.Below(25); left > 0; --left) {
      text += BlanksAround(Line(), draws_);
      if (left == 1 && draws_.OneIn(3)) break;
      text += ends < std::size(kLineEnds) ? kLineEnds[ends] : draws_.Of(kLineEnds);
    }
    return InSomeEncoding(text, draws_);
  }

 private:
  std::string Name(const std::vector<std::string_view>& names) {
    const std::string_view name = draws_.Of(names);
    return BlanksAround(draws_.OneIn(4) ? InOtherCase(name, draws_) : std::string(name), draws_);
  }

  std::string Line() {
    switch (draws_.Below(14)) {
      case 0:
      case 1:
        return '[' + Section() + ']';
      case 2: {
        const std::string header = '[' + Section() + ']';
        return header + Value(draws_);
      }
      case 3:
        return '[' + Section();
      case 4:
        return ';' + Value(draws_);
      case 5:
        return "";
      case 6:
        return Value(draws_);
      case 7:
        return Key();
      default: {
        const std::string before = Key() + '=';
        return before + BlanksAround(Value(draws_), draws_);
      }
    }
  }

  Draws& draws_;
  std::vector<std::string_view> sections_;
  std::vector<std::string_view> keys_;
};

void Save(const std::string& path, const std::string& bytes) {
  std::ofstream file;
  file.exceptions(std::ios::failbit | std::ios::badbit);
  file.open(path, std::ios::binary);
  file << bytes;
  file.close();
}

}  // namespace

void AskForProfileStrings(const std::string& folder, std::ostream& out) {
  Draws draws(321);
  for (int number = 1; number <= kFiles; ++number) {
    // Wine keeps what it has read of a file until the file's time changes: each case gets another
    // file.
    const std::string path = folder + "FILE" + std::to_string(number) + ".SUP";
    Sample sample(draws);
    std::string shown = "(no file)";
    if (!draws.OneIn(40)) {
      const std::string bytes = sample.File();
      Save(path, bytes);
      shown = Printed(bytes);
    }
    for (int i = 0; i < kQueriesOfAFile; ++i) {
      const std::string section = sample.Section();
      const std::string key = sample.Key();
      const std::string_view fallback = draws.Of(kFallbacks);
      const std::size_t most = draws.OneIn(2) ? 254 : draws.Below(20);
      out << "profile " << number << ' ' << shown << ' ' << Printed(section) << ' ' << Printed(key)
          << ' ' << Printed(fallback) << ' ' << most << " -> "
          << Printed(ReadProfileString(path, section, key, fallback, most)) << '\n';
    }
  }
}

}  // namespace imptable
