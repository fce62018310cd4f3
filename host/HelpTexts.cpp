#include "host/HelpTexts.h"

#include "core/SettingsTable.h"

namespace imptable {
namespace {

struct Help {
  std::string_view command;
  std::string_view french;
  std::string_view english;
};

constexpr Help kHelps[] = {
#define HELP_TEXT(command, french, english) {command, french, english},
#include "host/HelpTexts.inc"
#undef HELP_TEXT
};

/// The list of value names, broken into indented lines.
std::string IndentedSettingNames() {
  constexpr std::size_t kWidth = 72;
  std::string result;
  std::string line = " ";
  std::string_view rest;
  const std::string names = SettingNames();
  for (rest = names; !rest.empty();) {
    const std::size_t comma = rest.find(", ");
    const std::string_view name = rest.substr(0, comma);
    rest.remove_prefix(comma == std::string_view::npos ? rest.size() : comma + 2);
    if (line.size() + name.size() > kWidth) {
      result += line + '\n';
      line = " ";
    }
    line += ' ' + std::string(name) + (rest.empty() ? "" : ",");
  }
  return result + line + '\n';
}

}  // namespace

std::string HelpText(std::string_view command, Language language) {
  constexpr std::string_view kSettingNames = "%NAMES%\n";
  for (const Help& help : kHelps) {
    if (help.command != command) continue;
    std::string text(language == Language::kEnglish ? help.english : help.french);
    const std::size_t names = text.find(kSettingNames);
    if (names != std::string::npos) {
      text.replace(names, kSettingNames.size(), IndentedSettingNames());
    }
    return text;
  }
  return {};
}

}  // namespace imptable
