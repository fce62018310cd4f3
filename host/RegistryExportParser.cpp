#include <algorithm>
#include <utility>

#include "host/RegistryExportFile.h"
#include "host/RegistryExportText.h"

namespace imptable {
namespace {

using Action = RegistryEdit::Action;

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16Mark = "\xFF\xFE";
constexpr std::string_view kHeader5 = "Windows Registry Editor Version 5.00";
constexpr std::string_view kHeader4 = "REGEDIT4";

struct Fault {
  std::size_t line;
  std::string problem;
};

std::size_t LineEndsIn(std::string_view text) {
  std::size_t ends = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    ends += text[i] == '\n' || (text[i] == '\r' && text.substr(i + 1, 1) != "\n");
  }
  return ends;
}

bool IsBlank(char byte) { return byte == ' ' || byte == '\t'; }
bool IsLineEnd(char byte) { return byte == '\r' || byte == '\n'; }

std::optional<std::uint32_t> DigitValue(char byte) {
  if (byte >= '0' && byte <= '9') return static_cast<std::uint32_t>(byte - '0');
  if (byte >= 'a' && byte <= 'f') return static_cast<std::uint32_t>(byte - 'a' + 10);
  if (byte >= 'A' && byte <= 'F') return static_cast<std::uint32_t>(byte - 'A' + 10);
  return std::nullopt;
}

bool IsText(RegistryType type) {
  return type == RegistryType::kText || type == RegistryType::kExpandableText ||
         type == RegistryType::kMultiText;
}

/// The file as UTF-8 without byte order mark, and what its header says.
struct Source {
  std::string text;
  bool is_version_5 = true;
};

Source Decode(std::string_view bytes, const TextEncoding& encoding) {
  const auto checked = [](ConvertedText converted, const char* problem) {
    if (converted.complete) return std::move(converted.text);
    throw Fault{LineEndsIn(converted.text) + 1, problem};
  };
  if (bytes.empty()) throw Fault{1, "the file is empty; export it again"};
  if (bytes.starts_with("\xFE\xFF")) {
    throw Fault{1, "the file is in UTF-16 big endian; save it in UTF-16 little endian or UTF-8"};
  }
  Source source;
  if (bytes.starts_with(kUtf16Mark)) {
    source.text = checked(Utf8FromUtf16(bytes.substr(kUtf16Mark.size())),
                          "the text isn't valid UTF-16 (is the file cut off?); export it again");
  } else if (bytes.starts_with(kHeader4)) {
    source.is_version_5 = false;
    source.text = checked(Utf8FromAnsi(bytes, encoding),
                          "a character isn't in the system's code page; export the key again "
                          "as \"Windows Registry Editor Version 5.00\"");
  } else if (bytes.size() > 1 && bytes[1] == '\0') {
    throw Fault{1, "the byte order mark is missing; save the file in UTF-16 with one or in UTF-8"};
  } else {
    if (bytes.starts_with(kUtf8Mark)) bytes.remove_prefix(kUtf8Mark.size());
    source.text = checked(CheckedUtf8(bytes),
                          "the text isn't valid UTF-8; save the file in UTF-8 or in UTF-16 with "
                          "byte order mark");
  }
  const std::size_t nul = source.text.find('\0');
  if (nul != std::string::npos) {
    throw Fault{LineEndsIn(std::string_view(source.text).substr(0, nul)) + 1,
                "a NUL character; the file is damaged, export it again"};
  }
  return source;
}

class Parser {
 public:
  Parser(const Source& source, const TextEncoding& encoding)
      : text_(source.text), is_version_5_(source.is_version_5), encoding_(encoding) {}

  /// @throws Fault.
  std::vector<RegistryEdit> Parse() {
    ParseHeader();
    while (!AtEnd()) {
      SkipBlanks();
      if (!AtLineEnd() && Peek() != ';') {
        if (Peek() == '[') {
          ParseKey();
        } else {
          ParseValue();
        }
      }
      SkipComment();
      TakeLineEnd();
    }
    return std::move(edits_);
  }

 private:
  bool AtEnd() const { return position_ == text_.size(); }
  bool AtLineEnd() const { return AtEnd() || IsLineEnd(Peek()); }
  char Peek() const { return text_[position_]; }

  bool Take(std::string_view expected) {
    if (!text_.substr(position_).starts_with(expected)) return false;
    position_ += expected.size();
    return true;
  }

  void SkipBlanks() {
    while (!AtEnd() && IsBlank(Peek())) ++position_;
  }

  void SkipComment() {
    SkipBlanks();
    if (AtEnd() || Peek() != ';') return;
    while (!AtLineEnd()) ++position_;
  }

  void TakeLineEnd() {
    if (AtEnd()) return;
    if (!Take("\r\n")) ++position_;
    ++line_;
  }

  [[noreturn]] void Fail(std::string problem) const { throw Fault{line_, std::move(problem)}; }

  std::string_view RestOfLine() const {
    std::size_t end = position_;
    while (end < text_.size() && !IsLineEnd(text_[end])) ++end;
    return text_.substr(position_, end - position_);
  }

  void ExpectEndOfLine(const std::string& what) {
    SkipBlanks();
    if (!AtLineEnd() && Peek() != ';') {
      Fail("unexpected text after " + what + "; put each value on a line of its own");
    }
  }

  void ParseHeader() {
    const bool known = Take(is_version_5_ ? kHeader5 : kHeader4);
    SkipBlanks();
    if (!known || !AtLineEnd()) {
      Fail("the first line is neither \"" + std::string(kHeader5) + "\" nor \"" +
           std::string(kHeader4) + "\" (in 8-bit); is this a registry export file?");
    }
    TakeLineEnd();
  }

  void ParseKey() {
    const std::string_view rest = RestOfLine();
    const std::size_t close = rest.rfind(']');
    if (close == std::string_view::npos) Fail("the \"]\" after the key's name is missing");
    std::string_view name = rest.substr(1, close - 1);
    position_ += close + 1;
    ExpectEndOfLine("the \"]\"");
    const bool deletion = name.starts_with('-');
    if (deletion) name.remove_prefix(1);
    key_ = KeyPathFromName(name);
    if (!key_) {
      const std::string_view root = name.substr(0, name.find('\\'));
      if (KeyPathFromName(root)) Fail("an empty key name; write one \"\\\" between two names");
      Fail("unknown root \"" + std::string(root) +
           "\"; there are HKEY_LOCAL_MACHINE and HKEY_CURRENT_USER");
    }
    if (deletion && key_->path.empty()) Fail("a root can't be deleted; name a key below it");
    edits_.push_back({deletion ? Action::kDeleteTree : Action::kCreateKey, *key_, "", {}});
    if (deletion) key_.reset();
  }

  void ParseValue() {
    RegistryEdit edit;
    if (!Take("@")) {
      if (Peek() != '"') {
        Fail("neither a key, nor a value, nor a comment; a value is \"name\"=... or @=...");
      }
      edit.name = ParseQuoted();
    }
    if (!key_) Fail("a value before any key; put a line [root\\key] before it");
    edit.key = *key_;
    edit.action = Action::kSetValue;
    SkipBlanks();
    if (!Take("=")) Fail("the \"=\" after the value's name is missing");
    SkipBlanks();
    if (Take("-")) {
      edit.action = Action::kDeleteValue;
    } else if (!AtEnd() && Peek() == '"') {
      edit.value = {RegistryType::kText, ParseQuoted() + '\0'};
    } else if (Take("dword:")) {
      edit.value = {RegistryType::kNumber, ParseNumber()};
    } else if (Take("hex")) {
      edit.value = ParseHex();
    } else {
      Fail("unknown kind of value; write \"text\", dword:, hex: or hex(type):");
    }
    ExpectEndOfLine("the value");
    edits_.push_back(std::move(edit));
  }

  std::string ParseQuoted() {
    const std::size_t first_line = line_;
    std::string text;
    ++position_;
    for (;;) {
      if (AtEnd()) throw Fault{first_line, "the closing quote is missing; is the file cut off?"};
      if (Take("\"")) return text;
      if (IsLineEnd(Peek())) {
        const std::size_t start = position_;
        TakeLineEnd();
        text += text_.substr(start, position_ - start);
      } else if (Take("\\")) {
        if (AtEnd() || (Peek() != '\\' && Peek() != '"')) {
          Fail("\"\\\" before something else than \"\\\" or a quote; write \"\\\\\" for a \"\\\"");
        }
        text += text_[position_++];
      } else {
        text += text_[position_++];
      }
    }
  }

  /// Hexadecimal digits as far as they go.
  /// @return nullopt when there are none or more than `most`.
  std::optional<std::uint32_t> TakeHexDigits(std::size_t most) {
    std::uint32_t number = 0;
    std::size_t digits = 0;
    for (; !AtEnd() && DigitValue(Peek()); ++position_, ++digits) {
      number = number << 4 | *DigitValue(Peek());
    }
    return digits == 0 || digits > most ? std::nullopt : std::optional(number);
  }

  std::string ParseNumber() {
    SkipBlanks();
    const auto number = TakeHexDigits(8);
    if (!number) Fail("a dword needs 1 to 8 hexadecimal digits");
    std::string data;
    for (unsigned shift = 0; shift < 32; shift += 8) {
      data += static_cast<char>(*number >> shift & 0xFFU);
    }
    return data;
  }

  RegistryValue ParseHex() {
    auto type = RegistryType::kBinary;
    if (Take("(")) {
      const auto number = TakeHexDigits(8);
      if (!number || !Take(")")) Fail("the type is wrong; write it as in hex(2):");
      type = static_cast<RegistryType>(*number);
    }
    if (!Take(":")) Fail("the \":\" after hex is missing");
    const std::size_t first_line = line_;
    const std::string bytes = ParseBytes();
    if (!IsText(type)) return {type, bytes};
    ConvertedText text = is_version_5_ ? Utf8FromUtf16(bytes) : Utf8FromAnsi(bytes, encoding_);
    if (text.complete) return {type, std::move(text.text)};
    throw Fault{first_line, is_version_5_
                                ? "the bytes aren't valid UTF-16; a text takes two for a character"
                                : "a byte isn't in the system's code page; export the key again "
                                  "as \"Windows Registry Editor Version 5.00\""};
  }

  std::string ParseBytes() {
    std::string bytes;
    ContinueLine();
    SkipBlanks();
    if (AtLineEnd() || Peek() == ';') return bytes;
    for (;;) {
      const auto byte = TakeHexDigits(2);
      if (!byte) Fail("a byte needs 1 or 2 hexadecimal digits; is the file cut off?");
      bytes += static_cast<char>(*byte);
      ContinueLine();
      if (!Take(",")) return bytes;
      ContinueLine();
    }
  }

  /// Passes over blanks and, after a "\" at the end of a line, over the line's end.
  void ContinueLine() {
    SkipBlanks();
    while (!AtEnd() && Peek() == '\\') {
      ++position_;
      SkipBlanks();
      if (!AtLineEnd()) Fail("text after the \"\\\" that continues the line");
      if (AtEnd()) Fail("the line is continued, but the file ends; is it cut off?");
      TakeLineEnd();
      SkipBlanks();
    }
  }

  std::string_view text_;
  bool is_version_5_;
  const TextEncoding& encoding_;
  std::size_t position_ = 0;
  std::size_t line_ = 1;
  std::optional<KeyPath> key_;
  std::vector<RegistryEdit> edits_;
};

}  // namespace

std::variant<std::vector<RegistryEdit>, RegistryExportError> ParseRegistryExport(
    std::string_view bytes, std::string_view origin, const TextEncoding& encoding) {
  try {
    const Source source = Decode(bytes, encoding);
    return Parser(source, encoding).Parse();
  } catch (const Fault& fault) {
    return RegistryExportError{std::string(origin), fault.line, fault.problem};
  }
}

}  // namespace imptable
