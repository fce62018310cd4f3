#include <algorithm>
#include <utility>

#include "host/registry/KeyName.h"
#include "host/registry/RegistryExportFile.h"
#include "host/registry/RegistryExportText.h"
#include "host/registry/RegistryRoots.h"
#include "platform/registry/RegistryPath.h"
#include "platform/text/Utf16.h"

namespace imptable {
namespace {

using Action = RegistryEdit::Action;

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16Mark = "\xFF\xFE";
constexpr std::string_view kHeader5 = "Windows Registry Editor Version 5.00";
constexpr std::string_view kHeader4 = "REGEDIT4";

struct Fault {
  std::size_t line;
  HostText problem;
  std::vector<std::string> arguments;
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
  const auto checked = [](ConvertedText converted, HostText problem) {
    if (converted.complete) return std::move(converted.text);
    throw Fault{LineEndsIn(converted.text) + 1, problem, {}};
  };
  if (bytes.empty()) throw Fault{1, HostText::kExportEmpty, {}};
  if (bytes.starts_with("\xFE\xFF")) {
    throw Fault{1, HostText::kExportBigEndian, {}};
  }
  Source source;
  if (bytes.starts_with(kUtf16Mark)) {
    source.text =
        checked(Utf8FromUtf16(bytes.substr(kUtf16Mark.size())), HostText::kExportBadUtf16);
  } else if (bytes.starts_with(kHeader4)) {
    source.is_version_5 = false;
    source.text = checked(Utf8FromAnsi(bytes, encoding), HostText::kExportForeignCharacter);
  } else if (bytes.size() > 1 && bytes[1] == '\0') {
    throw Fault{1, HostText::kExportNoByteOrderMark, {}};
  } else {
    if (bytes.starts_with(kUtf8Mark)) bytes.remove_prefix(kUtf8Mark.size());
    source.text = checked(CheckedUtf8(bytes), HostText::kExportBadUtf8);
  }
  const std::size_t nul = source.text.find('\0');
  if (nul != std::string::npos) {
    throw Fault{LineEndsIn(std::string_view(source.text).substr(0, nul)) + 1,
                HostText::kExportNulCharacter,
                {}};
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

  [[noreturn]] void Fail(HostText problem, std::vector<std::string> arguments = {}) const {
    throw Fault{line_, problem, std::move(arguments)};
  }

  std::string_view RestOfLine() const {
    std::size_t end = position_;
    while (end < text_.size() && !IsLineEnd(text_[end])) ++end;
    return text_.substr(position_, end - position_);
  }

  void ExpectEndOfLine(HostText problem) {
    SkipBlanks();
    if (!AtLineEnd() && Peek() != ';') {
      Fail(problem);
    }
  }

  void ParseHeader() {
    const bool known = Take(is_version_5_ ? kHeader5 : kHeader4);
    SkipBlanks();
    if (!known || !AtLineEnd()) {
      Fail(HostText::kExportNoHeader);
    }
    TakeLineEnd();
  }

  void ParseKey() {
    const std::string_view rest = RestOfLine();
    const std::size_t close = rest.rfind(']');
    if (close == std::string_view::npos) Fail(HostText::kExportKeyNotClosed);
    std::string_view name = rest.substr(1, close - 1);
    position_ += close + 1;
    ExpectEndOfLine(HostText::kExportTextAfterKey);
    const bool deletion = name.starts_with('-');
    if (deletion) name.remove_prefix(1);
    key_ = KeyPathFromName(name);
    if (!key_) {
      const std::string_view root = name.substr(0, name.find('\\'));
      if (KeyPathFromName(root)) Fail(HostText::kExportEmptyKeyName);
      Fail(HostText::kExportUnknownRoot, {encoding_.FromUtf8(root)});
    }
    if (!deletion) CheckKeyNames(key_->path);
    if (deletion && key_->path.empty()) Fail(HostText::kExportRootDeletion);
    edits_.push_back({deletion ? Action::kDeleteTree : Action::kCreateKey, *key_, "", {}});
    if (deletion) key_.reset();
  }

  void CheckKeyNames(std::string_view path) const {
    const std::vector<std::string_view> names = PathParts(path);
    if (names.size() > kDeepestKey) {
      Fail(HostText::kExportTooDeep, {std::to_string(names.size()), std::to_string(kDeepestKey)});
    }
    for (const std::string_view name : names) CheckLength(name, kLongestKeyName);
  }

  void CheckLength(std::string_view name, std::size_t longest) const {
    const std::size_t length = Utf16Length(name);
    if (length > longest) {
      Fail(HostText::kExportLongName, {std::to_string(length), std::to_string(longest)});
    }
  }

  void ParseValue() {
    RegistryEdit edit;
    if (!Take("@")) {
      if (Peek() != '"') {
        Fail(HostText::kExportStrangeLine);
      }
      edit.name = ParseQuoted();
      CheckLength(edit.name, kLongestValueName);
    }
    if (!key_) Fail(HostText::kExportValueBeforeKey);
    edit.key = *key_;
    edit.action = Action::kSetValue;
    SkipBlanks();
    if (!Take("=")) Fail(HostText::kExportNoEqualSign);
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
      Fail(HostText::kExportUnknownKind);
    }
    ExpectEndOfLine(HostText::kExportTextAfterValue);
    edits_.push_back(std::move(edit));
  }

  std::string ParseQuoted() {
    const std::size_t first_line = line_;
    std::string text;
    ++position_;
    for (;;) {
      if (AtEnd()) throw Fault{first_line, HostText::kExportQuoteNotClosed, {}};
      if (Take("\"")) return text;
      if (IsLineEnd(Peek())) {
        const std::size_t start = position_;
        TakeLineEnd();
        text += text_.substr(start, position_ - start);
      } else if (Take("\\")) {
        if (AtEnd() || (Peek() != '\\' && Peek() != '"')) {
          Fail(HostText::kExportStrayBackslash);
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
    if (!number) Fail(HostText::kExportBadNumber);
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
      if (!number || !Take(")")) Fail(HostText::kExportBadType);
      type = static_cast<RegistryType>(*number);
    }
    if (!Take(":")) Fail(HostText::kExportNoColon);
    const std::size_t first_line = line_;
    const std::string bytes = ParseBytes();
    if (!IsText(type)) return {type, bytes};
    ConvertedText text = is_version_5_ ? Utf8FromUtf16(bytes) : Utf8FromAnsi(bytes, encoding_);
    if (text.complete) return {type, std::move(text.text)};
    throw Fault{first_line,
                is_version_5_ ? HostText::kExportBadUtf16Bytes : HostText::kExportForeignByte,
                {}};
  }

  std::string ParseBytes() {
    std::string bytes;
    ContinueLine();
    SkipBlanks();
    if (AtLineEnd() || Peek() == ';') return bytes;
    for (;;) {
      const auto byte = TakeHexDigits(2);
      if (!byte) Fail(HostText::kExportBadByte);
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
      if (!AtLineEnd()) Fail(HostText::kExportTextAfterBackslash);
      if (AtEnd()) Fail(HostText::kExportContinuedAtEnd);
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
    return RegistryExportError{std::string(origin), fault.line, fault.problem, fault.arguments};
  }
}

}  // namespace imptable
