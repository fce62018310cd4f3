#include "tests/scenarios/Workplace.h"

#include <filesystem>
#include <stdexcept>
#include <string_view>

#include "tests/scenarios/CommandUnderTest.h"
#include "tests/scenarios/LastingText.h"

namespace imptable {
Workplace::Workplace(DatabaseKind kind)
    : database_(MakeDatabase(kind, folder_.path())), environment_(TheCommand().Surroundings()) {
  environment_["IMPTABLE_REGISTRY"] = folder_.path() + "registry.db";
  environment_["ODBCINI"] = folder_.path() + "odbc.ini";
  environment_["ODBCSYSINI"] = folder_.path();
  environment_["TZ"] = "UTC";
  if (TheCommand().is_windows()) {
    environment_["LC_ALL"] = "C.UTF-8";
  } else {
    // A new registry gets the language of the locale, which needn't be installed for that.
    environment_["LANG"] = "fr_FR.UTF-8";
    environment_["LC_CTYPE"] = "C.UTF-8";
  }
#ifdef __SANITIZE_ADDRESS__
  // SQLite's driver loads and closes this library. What the library still holds then looks like a
  // leak, so keep it loaded.
  environment_["LD_PRELOAD"] = "libodbcinst.so.2";
  environment_["ASAN_OPTIONS"] = "verify_asan_link_order=0";
  // The C library never frees the folders in LOCPATH, nor PostgreSQL's driver a refused statement.
  environment_["LSAN_OPTIONS"] = "print_suppressions=0:suppressions=" +
                                 folder_.Write("leaks", "leak:argz_add_sep\nleak:psqlodbca.so\n");
#endif
  std::filesystem::create_directory(RunFolder());
  folder_.Write("odbcinst.ini", "");
  std::string sources = "[";
  sources.append(kSourceName).append("]\n").append(database_->DataSource());
  folder_.Write("odbc.ini", sources);
}

void Workplace::UseLocale(const std::string& input, const std::string& code_set) {
  const std::string name = input + '.' + code_set;
  OutputOf({.words = {"localedef", "-c", "--no-archive", "-i", input, "-f", code_set, "./" + name},
            .folder = folder_.path()});
  environment_["LOCPATH"] = folder_.path();
  environment_["LC_ALL"] = name;
}

void Workplace::LoadTask(const std::string& path) const {
  OutputOf(Command({"reg", "import", path}));
  for (const auto& [name, value] : std::initializer_list<std::pair<std::string, std::string>>{
           {"SOURCE", kSourceName},
           {"FOLDER", TheCommand().Spelt(RunFolderName())},
           {"USER", database_->user()},
           {"PASSWORD", database_->password()}}) {
    std::string assignment = name;
    OutputOf(Command({"variable", "S1", assignment.append("=").append(value)}));
  }
}

Invocation Workplace::Command(const std::vector<std::string>& words) const {
  Invocation invocation{
      .words = {TheCommand().path()}, .environment = environment_, .folder = folder_.path()};
  invocation.words.insert(invocation.words.end(), words.begin(), words.end());
  return invocation;
}

Invocation Workplace::Typed(const std::string& command) const {
  constexpr std::string_view kName = "imptable";
  if (!command.starts_with(kName)) throw std::invalid_argument("No command: " + command);
  return {.words = {"sh", "-c", TheCommand().path() + command.substr(kName.size())},
          .environment = environment_,
          .folder = folder_.path()};
}

std::string Workplace::Lasting(std::string text) const {
  const std::string folder = TheCommand().Spelt(RunFolderName());
  ReplaceAll(text, TheCommand().Spelt(RunFolder()), "{FOLDER}/");
  ReplaceAll(text, folder, "{FOLDER}");
  ReplaceAll(text, kSourceName, "{SOURCE}");
  for (const auto& [from, to] : database_->PassingTexts()) ReplaceAll(text, from, to);
  return WithoutSourceFigures(WithoutDatesAndVersions(text));
}

}  // namespace imptable
