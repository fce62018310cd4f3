#include "platform/ProfileFileReader.h"

#include <array>
#include <optional>

#include "platform/NameFolding.h"

namespace imptable {
namespace {

// The end-of-file mark of old text editors is one of them.
constexpr std::string_view kBlanks = " \t\v\f\x1A";
constexpr std::string_view kLineEnds = "\r\n";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

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

bool SameName(std::string_view left, std::string_view right) {
  return left == right || FoldName(left) == FoldName(right);
}

/// @return the name of a section line; nullopt for any other line.
std::optional<std::string_view> SectionName(std::string_view line) {
  if (!line.starts_with('[')) return std::nullopt;
  const std::size_t end = line.rfind(']');
  if (end == std::string_view::npos) return std::nullopt;
  return Trimmed(line.substr(1, end - 1));
}

std::optional<std::string_view> FindValue(std::string_view text, std::string_view section,
                                          std::string_view key) {
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  bool in_section = false;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find_first_of(kLineEnds), text.size());
    const std::string_view line = Trimmed(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.empty() || line.starts_with(';')) continue;
    if (const auto name = SectionName(line)) {
      if (in_section) return std::nullopt;  // only the first section of the name counts
      in_section = SameName(*name, section);
      continue;
    }
    const std::size_t equals = line.find('=');
    if (!in_section || equals == std::string_view::npos) continue;
    if (SameName(Trimmed(line.substr(0, equals)), key)) {
      return Unquoted(Trimmed(line.substr(equals + 1)));
    }
  }
  return std::nullopt;
}

}  // namespace

std::string ProfileFileReader::ReadString(const std::string& path, std::string_view section,
                                          std::string_view key, std::string_view fallback,
                                          std::size_t most) const {
  std::error_code error;
  const auto file = files_.OpenForReading(path, error);
  if (!file) return std::string(fallback.substr(0, most));
  std::string text;
  std::array<char, 4096> block{};
  while (const std::size_t got = file->Read(block.data(), block.size(), error)) {
    text.append(block.data(), got);
  }
  const auto value = FindValue(text, section, key);
  return std::string((error || !value ? fallback : *value).substr(0, most));
}

}  // namespace imptable
