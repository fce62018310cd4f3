#include "tests/scenarios/Workplace.h"

#include <cstdlib>
#include <filesystem>
#include <regex>
#include <stdexcept>

namespace imptable {
namespace {

void ReplaceAll(std::string& text, const std::string& from, const std::string& to) {
  for (std::size_t at = text.find(from); at != std::string::npos;
       at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
}

std::string CommandPath() {
  const char* const other = std::getenv("IMPTABLE_COMMAND");
  return other != nullptr ? other : IMPTABLE_COMMAND_PATH;
}

}  // namespace

Workplace::Workplace(DatabaseKind kind)
    : database_(MakeDatabase(kind, folder_.path())),
      environment_{{"IMPTABLE_REGISTRY", folder_.path() + "registry.db"},
                   {"ODBCINI", folder_.path() + "odbc.ini"},
                   {"ODBCSYSINI", folder_.path()},
                   {"TZ", "UTC"},
                   {"LC_ALL", "C.UTF-8"}} {
  std::filesystem::create_directory(RunFolder());
  folder_.Write("odbcinst.ini", "");
  folder_.Write("odbc.ini", '[' + std::string(kSourceName) + "]\n" + database_->DataSource());
}

void Workplace::UseLocale(const std::string& input, const std::string& code_set) {
  const std::string name = input + '.' + code_set;
  OutputOf({.words = {"localedef", "-c", "--no-archive", "-i", input, "-f", code_set, "./" + name},
            .folder = folder_.path()});
  environment_["LOCPATH"] = folder_.path();
  environment_["LC_ALL"] = name;
}

void Workplace::LoadTask(const std::string& path) const {
  const std::string folder = RunFolder();
  OutputOf(Command({"reg", "import", path}));
  for (const auto& [name, value] : std::initializer_list<std::pair<std::string, std::string>>{
           {"SOURCE", kSourceName},
           {"FOLDER", folder.substr(0, folder.size() - 1)},
           {"USER", database_->user()},
           {"PASSWORD", database_->password()}}) {
    OutputOf(Command({"variable", "S1", name + '=' + value}));
  }
}

Invocation Workplace::Command(const std::vector<std::string>& words) const {
  Invocation invocation{
      .words = {CommandPath()}, .environment = environment_, .folder = folder_.path()};
  invocation.words.insert(invocation.words.end(), words.begin(), words.end());
  return invocation;
}

std::string Workplace::Lasting(std::string text) const {
  // Year first or last, as the locale has it, at the start of a line or of its mark-up's text.
  static const std::regex date(
      R"((^|\n|<strong>)\d{2,4}[-/.]\d{2}[-/.]\d{2,4} \d{2}:\d{2}:\d{2}(?= |\.\.\.\. ))");
  static const std::regex mariadb_versions(R"(\[ma-[0-9.]+\](\[[^\]]*\])?)");
  const std::string folder = RunFolder();
  ReplaceAll(text, folder.substr(0, folder.size() - 1), "{FOLDER}");
  ReplaceAll(text, kSourceName, "{SOURCE}");
  for (const auto& [from, to] : database_->PassingTexts()) ReplaceAll(text, from, to);
  text = std::regex_replace(text, date, "$1{DATE}");
  return std::regex_replace(text, mariadb_versions, "[{VERSIONS}]");
}

}  // namespace imptable
