#include "tests/command/ShownCommands.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <set>
#include <sstream>

#include "host/CommandLine.h"
#include "platform/testing/TemporaryFolder.h"
#include "tests/command/ChildProcess.h"

namespace imptable {
namespace {

/// Words of a page that stand for a name of the user's.
const std::vector<std::pair<std::string, std::string>> kPlaceholders{
    {"SCENARIO", "COMPTA"}, {"TASK", "CLIENTS"},      {"FILE", "compta.reg"},
    {"COMMAND", "run"},     {"NAME=VALUE", "Mode=0"}, {"KEY", "HKLM"}};

/// Each command's exit code in the prepared folder. There is no screen for the dialog.
const std::map<std::string, int> kCodes{
    {"run", 0},        {"configure", 4}, {"describe", 0}, {"actions", 0}, {"status", 0},
    {"list", 0},       {"get", 0},       {"set", 0},      {"unset", 0},   {"copy", 0},
    {"rename", 0},     {"delete", 0},    {"variable", 0}, {"sources", 0}, {"reg", 0},
    {"reg import", 0}, {"reg export", 0}};

/// Whether a letter, digit or underscore is at this place; false outside of the text.
bool IsPartOfAWord(const std::string& text, std::size_t place) {
  return place < text.size() &&
         (std::isalnum(static_cast<unsigned char>(text[place])) != 0 || text[place] == '_');
}

/// The text with each whole occurrence of a word or path replaced.
std::string Replaced(const std::string& text, const std::string& word, const std::string& with) {
  std::string replaced;
  std::size_t taken = 0;
  for (std::size_t at = 0; (at = text.find(word, at)) != std::string::npos; at += word.size()) {
    const bool whole = !IsPartOfAWord(text, at - 1) && !IsPartOfAWord(text, at + word.size());
    replaced += text.substr(taken, at - taken) + (whole ? with : word);
    taken = at + word.size();
  }
  return replaced + text.substr(taken);
}

/// The words of a command after the global options.
std::vector<std::string> WordsOf(const std::string& text) {
  std::istringstream in(text);
  std::vector<std::string> words;
  for (std::string word; in >> word;) words.push_back(word);
  words.erase(words.begin());
  while (words.size() > 1 && (words[0] == "--lang" || words[0] == "--registry")) {
    words.erase(words.begin(), words.begin() + 2);
  }
  return words;
}

bool IsOption(const std::string& word) { return word.starts_with("--"); }

const CommandForm* FormNamed(const std::vector<CommandForm>& forms, const std::string& name) {
  const auto found = std::find_if(forms.begin(), forms.end(),
                                  [&](const CommandForm& form) { return form.name == name; });
  return found == forms.end() ? nullptr : &*found;
}

/// A folder in which every command that a page shows finds what the page takes for granted: a data
/// source with a table, a file, and the tasks and variables of its examples.
class Surroundings {
 public:
  Surroundings() {
    std::filesystem::create_directory(folder_.path() + "in");
    std::filesystem::create_directory(folder_.path() + "bin");
    std::filesystem::create_symlink(IMPTABLE_COMMAND, folder_.path() + "bin/imptable");
    folder_.Write("odbcinst.ini", "[SQLite3]\nDriver=" SQLITE_ODBC_DRIVER "\n");
    const std::string section = "]\nDriver=SQLite3\nDatabase=" + folder_.path() + "shop.db\n";
    folder_.Write("odbc.ini", "[Shop" + section + "[compta" + section);
    MakeTable();
    folder_.Write("in/CLIENTS.CSV", "1001;Durand;15/11/2006\n1002;Garcia;03/01/2007\n");
    folder_.Write("compta.reg", Tasks());
    EXPECT_EQ(Run("imptable reg import compta.reg"), 0) << output_;
  }

  /// Leaves what a run leaves that rejected a line, and mends that line.
  void RejectAndMend(const std::string& scenario, const std::string& task) {
    folder_.Write("in/CLIENTS.CSV", "1001;Durand;15/11/2006\n1001;Garcia;03/01/2007\n");
    EXPECT_EQ(Run("imptable run " + scenario + ' ' + task), 1) << output_;
    folder_.Write("in/CLIENTS.LER", "1002;Garcia;03/01/2007\n");
  }

  /// @return the exit code.
  int Run(const std::string& command) {
    ChildProcess shell({"/bin/bash", "-c", "cd \"$HOME\" && printf 'secret\\n' | " + command},
                       ChildProcess::Output::kPipe,
                       {{"HOME", Home()},
                        {"PATH", folder_.path() + "bin:" + std::getenv("PATH")},
                        {"ODBCINI", folder_.path() + "odbc.ini"},
                        {"ODBCSYSINI", Home()},
                        {"LC_ALL", "C.UTF-8"},
                        {"XDG_DATA_HOME", ""},
                        {"IMPTABLE_REGISTRY", ""},
                        {"DISPLAY", ""},
                        {"WAYLAND_DISPLAY", ""}});
    const int code = shell.Finish();
    output_ = shell.output();
    return code;
  }

  std::string Home() const { return folder_.path().substr(0, folder_.path().size() - 1); }
  const std::string& output() const { return output_; }

 private:
  void MakeTable() const {
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open((folder_.path() + "shop.db").c_str(), &database), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(database,
                           "CREATE TABLE CLIENT (CODE INTEGER PRIMARY KEY, NOM VARCHAR(30), "
                           "DEPUIS DATE)",
                           nullptr, nullptr, nullptr),
              SQLITE_OK);
    sqlite3_close(database);
  }

  /// The tasks that the pages name, all alike.
  std::string Tasks() const {
    std::string text = "Windows Registry Editor Version 5.00\n\n";
    const std::string scenarios = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\KALDO\\Scenarios\\";
    for (const char* task : {"Night\\Taches\\Clients", "COMPTA\\Taches\\CLIENTS", "S\\Taches\\T"}) {
      text += scenarios + task + "]\n\"Base Cible\"=\"Shop\"\n\"Table\"=\"CLIENT\"\n\"Dir\"=\"" +
              Home() +
              "/in\"\n\"Alias\"=\"CLIENTS\"\n\"FormatFile\"=dword:1\n\"NombreColonnes\"=dword:3\n" +
              scenarios + task + "\\Colonnes]\n\"1\"=\"4\"\n\"2\"=\"1\"\n\"3\"=\"7,7,,/,\"\n";
    }
    return text + scenarios + "COMPTA\\Variables]\n\"FOLDER\"=\"/var/compta\"\n";
  }

  TemporaryFolder folder_{testing::TempDir()};
  std::string output_;
};

/// The command as a reader of the page types it: with the reader's own names.
std::string Typed(const ShownCommand& shown, const std::string& name, const std::string& home) {
  std::string text = Replaced(shown.text, "/home/me", home);
  for (const auto& [word, own] : kPlaceholders) text = Replaced(text, word, own);
  if (!shown.mentioned) return text;
  const std::vector<std::string> words = WordsOf(text);
  const std::size_t length = name.find(' ') == std::string::npos ? 1 : 2;
  if (words.size() == length) return text + " --help";
  // A command with options alone is about the page's task.
  if (std::all_of(words.begin() + static_cast<std::ptrdiff_t>(length), words.end(), IsOption) &&
      words[length] != "--help") {
    text.insert(text.find(name) + name.size(), " Night Clients");
  }
  return text;
}

/// The command's name, "reg import" for example; empty for the program's own options.
std::string NameOf(const std::vector<CommandForm>& forms, const std::vector<std::string>& words) {
  if (words.empty() || IsOption(words.front())) return {};
  if (words.size() > 1 && FormNamed(forms, words[0] + ' ' + words[1]) != nullptr) {
    return words[0] + ' ' + words[1];
  }
  return words.front();
}

TEST(ShownCommands, AreFoundWhereUsersReadThem) {
  std::set<std::string> places;
  for (const ShownCommand& shown : ShownCommands()) places.insert(shown.place);
  EXPECT_THAT(places, testing::IsSupersetOf({"README.md", "settings.md", "resume.md", "imptable.1",
                                             "help of \"\"", "help of \"reg export\""}));
  EXPECT_GT(ShownCommands().size(), 50U);
}

TEST(ShownCommands, AllDoWhatIsSaidOfThem) {
  const std::vector<CommandForm> forms = CommandForms();
  std::set<std::string> done;
  for (const ShownCommand& shown : ShownCommands()) {
    SCOPED_TRACE(shown.place + ": " + shown.text);
    ASSERT_FALSE(shown.text.starts_with("imptable-config ")) << "a dialog by its own name";
    Surroundings surroundings;
    const std::string placed = Typed({shown.place, shown.text, false}, "", surroundings.Home());
    const std::string name = NameOf(forms, WordsOf(placed));
    ASSERT_NE(FormNamed(forms, name), nullptr) << "no such command";
    const std::string command = Typed(shown, name, surroundings.Home());
    if (!done.insert(Typed(shown, name, "HOME")).second) continue;
    const bool help = command.ends_with(" --help");
    ASSERT_TRUE(name.empty() || kCodes.contains(name)) << "this test doesn't know the command";
    const std::vector<std::string> words = WordsOf(command);
    const auto asks_for = [&](const char* option) {
      return std::find(words.begin(), words.end(), option) != words.end();
    };
    if (!help && (asks_for("--resume") || asks_for("--auto"))) {
      ASSERT_GT(words.size(), 2U);
      surroundings.RejectAndMend(words[1], words[2]);
    }
    const int code = surroundings.Run(command);
    EXPECT_EQ(code, help || name.empty() ? 0 : kCodes.at(name)) << surroundings.output();
    if (name == "sources" && !help) {
      EXPECT_EQ(surroundings.output(), "Shop\ncompta\n");
    }
  }
  EXPECT_GT(done.size(), 30U);
}

}  // namespace
}  // namespace imptable
