#include "platform/files/ProfileFileReader.h"

#include <array>
#include <optional>
#include <system_error>
#include <utility>

#include "platform/text/NameFolding.h"
#include "platform/text/Utf16.h"

namespace imptable {
namespace {

// \x1A, the end-of-file mark of old text editors, counts as a blank.
constexpr std::string_view kBlanks = " \t\v\f\x1A";
constexpr std::string_view kLineEnds = "\r\n";

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string_view Unquoted(std::string_view text) {
  const bool quoted = text.size() >= 2 && (text.front() == '"' || text.front() == '\'') &&
                      text.front() == text.back();
  return quoted ? text.substr(1, text.size() - 2) : text;
}

/// The text before its first NUL: that is as far as Windows' reader sees it.
std::string_view UpToNul(std::string_view text) { return text.substr(0, text.find('\0')); }

/// A name to look for. Case, and blanks around the name, don't matter.
class SoughtName {
 public:
  SoughtName(std::string_view name, const TextEncoding& encoding)
      : encoding_(encoding), folded_(Folded(Trimmed(name))) {}

  bool Is(std::string_view name) const { return Folded(UpToNul(Trimmed(name))) == folded_; }

 private:
  std::string Folded(std::string_view name) const { return FoldName(encoding_.ToUtf8(name)); }

  const TextEncoding& encoding_;
  std::string folded_;
};

/// @return the name of a section line; nullopt for any other line.
std::optional<std::string_view> SectionName(std::string_view line) {
  if (!line.starts_with('[')) return std::nullopt;
  const std::size_t end = line.rfind(']');
  if (end == std::string_view::npos) return std::nullopt;
  return line.substr(1, end - 1);
}

std::optional<std::string_view> FindValue(std::string_view text, const SoughtName& section,
                                          const SoughtName& key) {
  bool in_section = false;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find_first_of(kLineEnds), text.size());
    const std::string_view line = Trimmed(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.empty() || line.starts_with(';')) continue;
    if (const auto name = SectionName(line)) {
      if (in_section) return std::nullopt;  // only the first section of the name counts
      in_section = section.Is(*name);
      continue;
    }
    const std::size_t equals = line.find('=');
    if (!in_section || !key.Is(line.substr(0, equals))) continue;
    if (equals == std::string_view::npos) return std::nullopt;  // a key without a value
    return Unquoted(UpToNul(Trimmed(line.substr(equals + 1))));
  }
  return std::nullopt;
}

/// The bytes of a file in the code page. A byte order mark tells which encoding the file has;
/// without one, the file is in the code page already.
std::string InCodePage(std::string bytes, const TextEncoding& encoding) {
  const std::string_view text = bytes;
  if (text.starts_with("\xEF\xBB\xBF")) return encoding.FromUtf8(text.substr(3));
  if (text.starts_with("\xFF\xFE")) {
    return encoding.FromUtf8(Utf8OfUtf16(text.substr(2), ByteOrder::kLittleEndian));
  }
  if (text.starts_with("\xFE\xFF")) {
    return encoding.FromUtf8(Utf8OfUtf16(text.substr(2), ByteOrder::kBigEndian));
  }
  return bytes;
}

}  // namespace

std::string ProfileFileReader::ReadString(const std::string& path, std::string_view section,
                                          std::string_view key, std::string_view fallback,
                                          std::size_t most) const {
  std::error_code error;
  const auto file = files_.OpenForReading(path, error);
  if (error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory) {
    return std::string(fallback.substr(0, most));
  }
  if (error) throw std::system_error(error, path);
  std::string text;
  std::array<char, 4096> block{};
  while (const std::size_t got = file->Read(block.data(), block.size(), error)) {
    text.append(block.data(), got);
  }
  if (error) throw std::system_error(error, path);
  text = InCodePage(std::move(text), encoding_);
  const auto value = FindValue(text, {section, encoding_}, {key, encoding_});
  return std::string((value ? *value : fallback).substr(0, most));
}

}  // namespace imptable
