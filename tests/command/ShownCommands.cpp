#include "tests/command/ShownCommands.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string_view>
#include <utility>

#include "host/CommandLine.h"
#include "host/HelpTexts.h"

namespace imptable {
namespace {

std::vector<std::string> LinesOf(std::istream& in) {
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

std::string WithoutBlanksBefore(const std::string& line) {
  return line.substr(std::min(line.find_first_not_of(' '), line.size()));
}

bool IsCommand(std::string_view text) {
  return text.starts_with("imptable ") || text.starts_with("imptable-config ");
}

/// The command that begins in this line, with the lines that follow a "\" at a line's end.
std::string Joined(const std::vector<std::string>& lines, std::size_t at) {
  std::string text = WithoutBlanksBefore(lines[at]);
  while (text.ends_with('\\') && at + 1 < lines.size()) {
    text.pop_back();
    text += WithoutBlanksBefore(lines[++at]);
  }
  return text;
}

/// The lines of code of a page, and what stands between backquotes in its sentences.
void AddPage(const std::filesystem::path& page, std::vector<ShownCommand>& commands) {
  std::ifstream file(page);
  const std::vector<std::string> lines = LinesOf(file);
  std::string sentences;
  bool fenced = false;
  for (std::size_t at = 0; at < lines.size(); ++at) {
    const std::string line = WithoutBlanksBefore(lines[at]);
    const bool is_code = fenced || lines[at].starts_with("    ");
    if (line.starts_with("```")) {
      fenced = !fenced;
    } else if (is_code && IsCommand(line)) {
      commands.push_back({page.filename(), Joined(lines, at), false});
    } else {
      sentences += line + ' ';
    }
  }
  for (std::size_t open = sentences.find('`'); open != std::string::npos;) {
    const std::size_t close = sentences.find('`', open + 1);
    if (close == std::string::npos) break;
    const std::string code = sentences.substr(open + 1, close - open - 1);
    if (IsCommand(code)) commands.push_back({page.filename(), code, true});
    open = sentences.find('`', close + 1);
  }
}

/// A line of the manual page as a reader sees it.
std::string Shown(std::string line) {
  constexpr std::pair<std::string_view, std::string_view> kMarks[] = {
      {"\\(aq", "'"}, {"\\-", "-"}, {"\\e", "\\"}};
  for (const auto& [mark, character] : kMarks) {
    for (std::size_t at = line.find(mark); at != std::string::npos;
         at = line.find(mark, at + character.size())) {
      line.replace(at, mark.size(), character);
    }
  }
  return line;
}

/// The commands in the manual page's blocks of code, and those in bold within its sentences.
void AddManualPage(const std::filesystem::path& page, std::vector<ShownCommand>& commands) {
  std::ifstream file(page);
  std::vector<std::string> lines = LinesOf(file);
  bool as_it_stands = false;
  for (std::string& line : lines) line = Shown(line);
  for (std::size_t at = 0; at < lines.size(); ++at) {
    const std::string& line = lines[at];
    if (line == ".nf" || line == ".fi") as_it_stands = line == ".nf";
    if (as_it_stands && IsCommand(line)) {
      commands.push_back({page.filename(), Joined(lines, at), false});
    }
    if (line.starts_with(".B ") && IsCommand(line.substr(3))) {
      commands.push_back({page.filename(), line.substr(3), true});
    }
  }
}

/// The examples at the end of a help text.
void AddHelp(const std::string& command, Language language, std::vector<ShownCommand>& commands) {
  const std::string help = HelpText(command, language);
  for (const std::string_view mark : {"Example: ", "Exemple : "}) {
    const std::size_t examples = help.find(mark);
    if (examples == std::string::npos) continue;
    std::istringstream rest(help.substr(examples + mark.size()));
    for (const std::string& line : LinesOf(rest)) {
      commands.push_back({"help of \"" + command + '"', WithoutBlanksBefore(line), false});
    }
  }
}

}  // namespace

std::vector<ShownCommand> ShownCommands() {
  const std::filesystem::path tree = IMPTABLE_TREE;
  std::vector<ShownCommand> commands;
  AddPage(tree / "README.md", commands);
  std::vector<std::filesystem::path> pages;
  for (const auto& entry : std::filesystem::directory_iterator(tree / "docs")) {
    if (entry.path().extension() == ".md") pages.push_back(entry.path());
  }
  std::sort(pages.begin(), pages.end());
  for (const std::filesystem::path& page : pages) AddPage(page, commands);
  AddManualPage(tree / "docs/imptable.1", commands);
  for (const CommandForm& form : CommandForms()) {
    for (const Language language : {Language::kFrench, Language::kEnglish}) {
      AddHelp(form.name, language, commands);
    }
  }
  return commands;
}

}  // namespace imptable
