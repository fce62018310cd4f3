#include <algorithm>
#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/opinions/AccessLayer.h"
#include "tests/opinions/Draws.h"
#include "tests/opinions/Opinions.h"
#include "tests/opinions/Printed.h"
#include "tests/opinions/System.h"

namespace imptable {
namespace {

using namespace std::string_view_literals;

constexpr int kRounds = 160;
constexpr int kStepsOfARound = 40;

const KeyPath kPlace{kHkeyCurrentUser, "Software\\ImptableOpinions"};

// Wine orders keys by their lower-case forms, Windows and we by their upper-case ones: no key here
// begins with what lies between "Z" and "a", or with "\xFF".
constexpr std::string_view kKeys[] = {"",
                                      "Task",
                                      "TASK",
                                      "task\\",
                                      "Task\\A\\B",
                                      "task\\a",
                                      "Task\\A.b",
                                      "\\Task\\\\A",
                                      "Task 1",
                                      " Task",
                                      "Task ",
                                      "Task.1",
                                      "10",
                                      "9",
                                      "Z",
                                      "z\\deep\\deeper\\deepest",
                                      "\xC9t\xE9",
                                      "\xE9T\xC9\\z",
                                      "\x8Cuvre",
                                      "\x9Cuvre\\z",
                                      "stra\xDF",
                                      "STRA\xDF\\\xE0",
                                      "No\xEBl/?*<>|",
                                      "Colonnes"};
constexpr std::string_view kNames[] = {"",
                                       "Table",
                                       "TABLE",
                                       " Table",
                                       "Table ",
                                       "Modifi\xE9Le",
                                       "MODIFI\xC9LE",
                                       "Cle/Index",
                                       "a.b",
                                       "A\\B",
                                       "1",
                                       "10",
                                       "2",
                                       "_",
                                       "Z",
                                       "\x80 \xFF"};
// Bytes 81, 8D, 8F, 90 and 9D are no characters of code page 1252.
constexpr std::string_view kTexts[] = {"",  "x",   "D:\\Data\\", "\xE9t\xE9 \x80", "100",   "-1",
                                       " ", "Non", "@PWD",       "a\0b"sv,         "\0b"sv, "\r\n"};
constexpr RegistryType kTypes[] = {RegistryType::kNone,           RegistryType::kText,
                                   RegistryType::kExpandableText, RegistryType::kBinary,
                                   RegistryType::kNumber,         RegistryType::kMultiText};
constexpr std::size_t kLengths[] = {200, 1023, 65'534, 65'535, 65'536, 65'537, 100'000};

bool IsText(RegistryType type) {
  return type == RegistryType::kText || type == RegistryType::kExpandableText ||
         type == RegistryType::kMultiText;
}

std::string Shown(const SettingValue& value) {
  if (const auto* number = std::get_if<std::int32_t>(&value)) return std::to_string(*number);
  return Printed(std::get<std::string>(value));
}

std::string Shown(const std::optional<RegistryValue>& value) {
  if (!value) return "nothing";
  return std::to_string(static_cast<std::uint32_t>(value->type)) + ' ' + Printed(value->data);
}

std::string Shown(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += Printed(name) + ' ';
  return text;
}

/// Wine lists values by name. Windows and we list them in the order in which they were first
/// written.
std::vector<std::string> Sorted(std::vector<std::string> names) {
  std::sort(names.begin(), names.end());
  return names;
}

std::string Bytes(Draws& draws) {
  std::string bytes;
  switch (draws.Below(6)) {
    case 0:
      return std::string("\x02\x01\0\x80", 4).substr(0, draws.Below(5));
    case 1:
      for (std::size_t left = draws.Below(20); left > 0; --left) {
        bytes += static_cast<char>(draws.Below(0x80));
      }
      return bytes;
    case 2:
      bytes += draws.Of(kTexts);
      bytes += '\0';
      bytes += draws.Of(kTexts);
      return bytes + '\0';
    case 3:
      return std::string(draws.Of(kLengths), 'x');
    default:
      return std::string(draws.Of(kTexts));
  }
}

/// Every text has its terminator: the 8-bit functions of Windows add a missing one, and we don't.
RegistryValue Value(Draws& draws) {
  const RegistryType type = draws.Of(kTypes);
  std::string data = Bytes(draws);
  if (IsText(type)) data += '\0';
  return {type, std::move(data)};
}

/// Does things at random to a few keys and values, and writes each with its result.
class Round {
 public:
  Round(AccessLayer& layer, Draws& draws) : layer_(layer), draws_(draws) {
    for (int i = 0; i < 5; ++i) {
      keys_.emplace_back(draws.Of(kKeys));
      names_.emplace_back(draws.Of(kNames));
    }
  }

  void Step(std::ostream& out) {
    const std::string key = draws_.Of(keys_);
    const std::string name = draws_.Of(names_);
    const KeyPath path{kPlace.root, kPlace.path + '\\' + key};
    const std::string place = Printed(key) + ' ' + Printed(name);
    switch (draws_.Below(12)) {
      case 0:
      case 1: {
        const std::string text(draws_.Of(kTexts));
        out << "WriteText " << place << ' ' << Printed(text) << " -> "
            << layer_.module.WriteText(key, name, text);
        break;
      }
      case 2: {
        const auto number = static_cast<std::int32_t>(draws_.Below(7)) - 3;
        out << "WriteNumber " << place << ' ' << number << " -> "
            << layer_.module.WriteNumber(key, name, number);
        break;
      }
      case 3:
      case 4: {
        const RegistryValue value = Value(draws_);
        out << "Write " << place << ' ' << Shown(value) << " -> "
            << layer_.registry.Write(path, name, value);
        break;
      }
      case 5:
        out << "ValueNames " << Printed(key) << " -> "
            << Shown(Sorted(layer_.module.ValueNames(key)));
        break;
      case 6:
        out << "SubkeyNames " << Printed(key) << " -> " << Shown(layer_.module.SubkeyNames(key));
        break;
      case 7:
        Delete(key, path, out);
        break;
      case 8:
      case 9:
        out << "Read " << place << " -> " << Shown(layer_.registry.Read(path, name));
        break;
      default:
        out << "ReadValue " << place << " -> "
            << Shown(layer_.module.ReadValue(key, name, std::string("<fallback>")));
    }
    out << '\n';
  }

 private:
  void Delete(const std::string& key, const KeyPath& path, std::ostream& out) {
    if (draws_.OneIn(2)) {
      out << "DeleteKey " << Printed(key) << " -> " << layer_.registry.DeleteKey(path);
      return;
    }
    const std::string parent = draws_.OneIn(2) ? "" : draws_.Of(keys_);
    out << "DeleteTree " << Printed(parent) << ' ' << Printed(key) << " -> "
        << layer_.module.DeleteKey(parent, key);
  }

  AccessLayer& layer_;
  Draws& draws_;
  std::vector<std::string> keys_;
  std::vector<std::string> names_;
};

}  // namespace

void AskRegistry(const std::string& folder, std::ostream& out) {
  WithOwnRegistry(folder, [&](Registry& registry) {
    AccessLayer layer(registry);
    const auto clear = [&] {
      layer.module.location = {kPlace.root, "Software"};
      layer.module.DeleteKey("", "ImptableOpinions");
      layer.module.location = kPlace;
    };
    Draws draws(202);
    for (int number = 1; number <= kRounds; ++number) {
      clear();
      Round round(layer, draws);
      for (int step = 0; step < kStepsOfARound; ++step) {
        out << "registry " << number << ' ';
        round.Step(out);
      }
    }
    clear();
  });
}

}  // namespace imptable
