#include "host/registry/RegistryExportFile.h"

#include <algorithm>
#include <utility>

#include "host/registry/RegistryExportText.h"
#include "host/registry/RegistryRoots.h"

namespace imptable {
namespace {

const std::string kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kLineEnd = "\r\n";

// A line of bytes that is folded here is at most 80 characters long, with its "\".
constexpr std::size_t kFoldingColumn = 77;

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char byte : text) {
    if (byte == '\\' || byte == '"') quoted += '\\';
    quoted += byte;
  }
  return quoted + '"';
}

/// @return the text when the registry editor reads it back unchanged from between quotes, else
/// nullopt.
std::optional<std::string_view> QuotableText(const RegistryValue& value) {
  if (value.type != RegistryType::kText || value.data.empty() || value.data.back() != '\0') {
    return std::nullopt;
  }
  const std::string_view text = std::string_view(value.data).substr(0, value.data.size() - 1);
  const bool plain = std::all_of(text.begin(), text.end(), [](char byte) {
    return static_cast<unsigned char>(byte) >= 0x20 || byte == '\t' || byte == '\r' || byte == '\n';
  });
  return plain ? std::optional(text) : std::nullopt;
}

std::string Hex(std::uint32_t number, int digits) {
  std::string text;
  for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4) {
    text += "0123456789abcdef"[number >> shift & 0xFU];
  }
  return text;
}

std::string TypeMark(RegistryType type) {
  if (type == RegistryType::kBinary) return "hex:";
  std::string digits = Hex(static_cast<std::uint32_t>(type), 8);
  digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size() - 1));
  return "hex(" + digits + "):";
}

/// @param column  the number of characters that the line has already.
std::string HexBytes(std::string_view bytes, std::size_t column) {
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    text += Hex(static_cast<unsigned char>(bytes[i]), 2);
    if (i + 1 == bytes.size()) break;
    text += ',';
    column += 3;
    if (column >= kFoldingColumn) {
      text += "\\\r\n  ";
      column = 2;
    }
  }
  return text;
}

std::size_t Characters(std::string_view utf8) { return Utf16FromUtf8(utf8).size() / 2; }

std::string ValueLine(const NamedValue& entry) {
  const RegistryValue& value = entry.value;
  std::string line = (entry.name.empty() ? "@" : Quoted(entry.name)) + "=";
  if (const auto text = QuotableText(value)) return line + Quoted(*text);
  if (value.type == RegistryType::kNumber && value.data.size() == 4) {
    std::uint32_t number = 0;
    for (std::size_t i = 4; i-- > 0;) {
      number = number << 8 | static_cast<unsigned char>(value.data[i]);
    }
    return line + "dword:" + Hex(number, 8);
  }
  line += TypeMark(value.type);
  const bool is_text = value.type == RegistryType::kText ||
                       value.type == RegistryType::kExpandableText ||
                       value.type == RegistryType::kMultiText;
  return line + HexBytes(is_text ? Utf16FromUtf8(value.data) : value.data, Characters(line));
}

}  // namespace

std::string RegistryExportOf(const std::vector<StoredKey>& keys, ExportEncoding encoding) {
  std::string text = "Windows Registry Editor Version 5.00";
  text += kLineEnd;
  text += kLineEnd;
  for (const StoredKey& stored : keys) {
    text += '[';
    text += RootName(stored.key.root);
    if (!stored.key.path.empty()) text += "\\" + stored.key.path;
    text += ']';
    text += kLineEnd;
    for (const NamedValue& value : stored.values) {
      text += ValueLine(value);
      text += kLineEnd;
    }
    text += kLineEnd;
  }
  return encoding == ExportEncoding::kUtf8 ? text : Utf16FromUtf8(kByteOrderMark + text);
}

std::optional<std::string> WriteRegistryExport(const RegistryStore& store,
                                               const std::optional<KeyPath>& key,
                                               ExportEncoding encoding) {
  std::vector<StoredKey> keys;
  if (key) {
    keys = store.Tree(*key);
    if (keys.empty()) return std::nullopt;
  } else {
    for (const RegistryRoot& root : kRegistryRoots) {
      for (StoredKey& stored : store.Tree({root.handle, ""})) keys.push_back(std::move(stored));
    }
  }
  return RegistryExportOf(keys, encoding);
}

}  // namespace imptable
