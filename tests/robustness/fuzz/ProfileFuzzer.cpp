// Any bytes as an initialisation file.
#include <algorithm>
#include <string>

#include "platform/files/ProfileFileReader.h"
#include "platform/testing/PlainEncodings.h"
#include "tests/robustness/fuzz/FuzzInput.h"
#include "tests/robustness/fuzz/MemoryFiles.h"
#include "tests/robustness/fuzz/Property.h"
#include "tests/robustness/fuzz/SlowLines.h"

namespace imptable {
namespace {

constexpr std::size_t kAll = std::string::npos;
constexpr const char* kFallback = "<fallback>";

class Profile {
 public:
  Profile(const TextEncoding& encoding, std::string bytes) : reader_(files_, encoding) {
    files_.files["file"] = std::move(bytes);
  }

  std::string Read(std::string_view section, std::string_view key, std::size_t most = kAll) const {
    return reader_.ReadString("file", section, key, kFallback, most);
  }

 private:
  MemoryFiles files_;
  ProfileFileReader reader_;
};

bool SaysItsEncoding(std::string_view bytes) {
  return bytes.starts_with("\xEF\xBB\xBF") || bytes.starts_with("\xFF\xFE") ||
         bytes.starts_with("\xFE\xFF");
}

/// Makes a text that is a name or a value just as it stands: letters, with blanks only within.
std::string Plain(std::string_view text) {
  std::string plain;
  for (const char byte : text)
    plain += (byte & 0x1F) == 0 ? ' ' : static_cast<char>((byte & 0x0F) + 'a');
  return 'x' + plain + 'y';
}

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

std::string Stripped(std::string text) {
  constexpr const char* kBlanks = " \t\v\f\x1A";
  text.erase(0, std::min(text.find_first_not_of(kBlanks), text.size()));
  text.erase(text.find_last_not_of(kBlanks) + 1);
  return text;
}

std::string UpToNul(const std::string& text) { return text.substr(0, text.find('\0')); }

std::string SmallLetters(std::string text) {
  for (char& byte : text) {
    if (byte >= 'A' && byte <= 'Z') byte = static_cast<char>(byte - 'A' + 'a');
  }
  return text;
}

bool SameName(const std::string& name, const std::string& sought) {
  return SmallLetters(UpToNul(Stripped(name))) == SmallLetters(Stripped(sought));
}

/// The value in a text of ASCII alone, line by line.
std::string SlowRead(const std::string& bytes, const std::string& section, const std::string& key) {
  int sections = 0;
  bool inside = false;
  for (const SlowLine& each : SlowLines(bytes, false)) {
    const std::string line = Stripped(each.text);
    if (line.empty() || line[0] == ';') continue;
    if (line[0] == '[' && line.find(']') != std::string::npos) {
      inside = SameName(line.substr(1, line.rfind(']') - 1), section) && sections == 0;
      sections += inside ? 1 : 0;
      continue;
    }
    const std::size_t equals = line.find('=');
    if (!inside || !SameName(line.substr(0, equals), key)) continue;
    if (equals == std::string::npos) return kFallback;
    std::string value = UpToNul(Stripped(line.substr(equals + 1)));
    if (value.size() >= 2 && value.front() == value.back() &&
        (value.front() == '"' || value.front() == '\'')) {
      value = value.substr(1, value.size() - 2);
    }
    return value;
  }
  return kFallback;
}

void CheckProfile(FuzzInput input) {
  const Utf8TextEncoding utf8;
  const Latin1TextEncoding latin1;
  const TextEncoding& encoding = input.Flag() ? static_cast<const TextEncoding&>(utf8) : latin1;
  const std::size_t most = input.Byte();
  const std::string section(input.Upto('\n'));
  const std::string key(input.Upto('\n'));
  const std::string bytes(input.Rest());

  const Profile profile(encoding, bytes);
  const std::string value = profile.Read(section, key);
  Require(profile.Read(section, key, most) == value.substr(0, most),
          "a long value is cut, and nothing else");
  Require(profile.Read(' ' + section + '\t', "  " + key) == value,
          "blanks around names don't count");
  Require(value.find_first_of(std::string_view("\r\n\0", 3)) == std::string::npos,
          "a value is text of one line");

  if (IsAscii(bytes) && IsAscii(section) && IsAscii(key)) {
    Require(value == SlowRead(bytes, section, key), "a value is what a slow reader finds");
  }

  // Text before a section doesn't hide it, unless the text has a section of that name.
  const std::string own_section = Plain(section);
  const std::string own_key = Plain(key);
  const std::string own_value = Plain(std::string_view(bytes).substr(0, most));
  const bool hidden = profile.Read(own_section, own_key) != kFallback ||
                      bytes.find('[') != std::string::npos || SaysItsEncoding(bytes);
  if (hidden) return;
  const std::string written =
      bytes + "\n[" + own_section + "]\r\n" + own_key + " = " + own_value + "\r\n";
  Require(Profile(encoding, written).Read(own_section, own_key) == own_value,
          "a value that was written is read");
  Require(Profile(encoding, written + bytes).Read(own_section, own_key) == own_value,
          "the first value of the name counts");
}

}  // namespace
}  // namespace imptable

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  imptable::CheckProfile({data, size});
  return 0;
}
