#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "core/SettingsTable.h"
#include "host/CommandLine.h"
#include "platform/testing/TemporaryFolder.h"
#include "tests/command/ChildProcess.h"

namespace imptable {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::UnorderedElementsAre;

const std::string kScript = IMPTABLE_TREE "/resources/completion/imptable";

/// $1 is the folder, $2 the script, the rest the words.
constexpr std::string_view kComplete =
    "cd \"$1\" && source \"$2\" && shift 2 && COMP_WORDS=(\"$@\") && COMP_CWORD=$(($# - 1)) && "
    "{ _imptable; for reply in \"${COMPREPLY[@]}\"; do printf '%s\\n' \"$reply\"; done; }";

class Completion : public testing::Test {
 protected:
  static int Quietly(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), IMPTABLE_COMMAND);
    return ChildProcess(arguments, ChildProcess::Output::kPipe).Finish();
  }

  void Command(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"--registry", folder.path() + "registry.db"});
    ASSERT_EQ(Quietly(std::move(arguments)), 0);
  }

  void FillRegistry() {
    Command({"set", "Night", "Clients", "Base Cible=x", "Dir=/in"});
    Command({"set", "Night", "Bank Orders", "Mode=0"});
    Command({"set", "Next month", "Other", "Mode=0"});
    Command({"variable", "Night", "FOLDER=/in"});
  }

  /// What a real bash offers after these words. The words are split as bash splits them: quotes and
  /// backslashes are kept, "=" is a word of its own.
  std::vector<std::string> Offered(std::vector<std::string> words) {
    words.insert(words.begin(), IMPTABLE_COMMAND);
    std::vector<std::string> arguments{"/bin/bash", "--norc",      "-c",   std::string(kComplete),
                                       "bash",      folder.path(), kScript};
    arguments.insert(arguments.end(), words.begin(), words.end());
    ChildProcess bash(arguments, ChildProcess::Output::kPipe,
                      {{"IMPTABLE_REGISTRY", folder.path() + "registry.db"},
                       {"LC_ALL", "C.UTF-8"},
                       {"HOME", Home()}});
    bash.Finish();
    std::vector<std::string> offered;
    std::istringstream lines(bash.output());
    for (std::string line; std::getline(lines, line);) offered.push_back(line);
    return offered;
  }

  std::string Home() const { return folder.path().substr(0, folder.path().size() - 1); }

  TemporaryFolder folder{testing::TempDir()};
};

TEST_F(Completion, IsBoundToTheCommandsName) {
  ChildProcess bash(
      {"/bin/bash", "--norc", "-c", "source \"$1\" && complete -p imptable", "bash", kScript},
      ChildProcess::Output::kPipe);
  EXPECT_EQ(bash.Finish(), 0);
  EXPECT_EQ(bash.output(), "complete -F _imptable imptable\n");
}

TEST_F(Completion, OffersEveryCommandAndEveryOptionThatTheParserKnows) {
  for (const CommandForm& form : CommandForms()) {
    std::vector<std::string> words;
    std::istringstream parts(form.name);
    for (std::string part; parts >> part;) words.push_back(part);
    std::vector<std::string> before = words;
    before.emplace_back("-");
    const std::vector<std::string> options = Offered(before);
    for (const std::string& option : form.options) {
      if (option != "-h") {
        EXPECT_THAT(options, Contains(option)) << form.name;
      }
    }
    if (words.empty()) continue;
    before = words;
    before.back().pop_back();
    EXPECT_THAT(Offered(before), Contains(words.back()));
  }
}

TEST_F(Completion, OffersOnlyWhatBeginsAsTyped) {
  EXPECT_THAT(Offered({"de"}), UnorderedElementsAre("describe", "delete"));
  EXPECT_THAT(Offered({"--lang", "e"}), ElementsAre("en"));
  EXPECT_THAT(Offered({"--lang", "=", "f"}), ElementsAre("fr"));
  EXPECT_THAT(Offered({"--lang", "en", "reg", ""}), ElementsAre("import", "export"));
  EXPECT_THAT(Offered({"sources", ""}), IsEmpty());
}

TEST_F(Completion, OffersScenariosAndTheTasksOfTheChosenOne) {
  FillRegistry();
  for (const std::string command : {"run", "configure", "describe", "actions", "status", "get",
                                    "set", "unset", "copy", "rename", "delete"}) {
    EXPECT_THAT(Offered({command, ""}), UnorderedElementsAre("Night", "Next\\ month")) << command;
    EXPECT_THAT(Offered({command, "Night", ""}), UnorderedElementsAre("Clients", "Bank\\ Orders"))
        << command;
    EXPECT_THAT(Offered({command, "Next\\ month", "O"}), ElementsAre("Other")) << command;
  }
  EXPECT_THAT(Offered({"list", "Ni"}), ElementsAre("Night"));
  EXPECT_THAT(Offered({"copy", "Night", "Clients", "Ne"}), ElementsAre("Next\\ month"));
  EXPECT_THAT(Offered({"rename", "Night", "Clients", "Night", ""}), IsEmpty());
  EXPECT_THAT(Offered({"unset", "Night", "Clients", "Base\\ Cible", "D"}), ElementsAre("Dir"));
  EXPECT_THAT(Offered({"list", "Night", ""}), IsEmpty());
  EXPECT_THAT(Offered({"run", "None", ""}), IsEmpty());
  EXPECT_THAT(Offered({"run", "Night", "Clients", ""}), IsEmpty());
  EXPECT_THAT(Offered({"run", "--report", "x", "Night", "--json", "C"}), ElementsAre("Clients"));
}

TEST_F(Completion, KeepsTheQuotesThatTheUserBegan) {
  FillRegistry();
  EXPECT_THAT(Offered({"run", "\"Next"}), ElementsAre("Next month"));
  EXPECT_THAT(Offered({"run", "'Next month'", ""}), ElementsAre("Other"));
  EXPECT_THAT(Offered({"run", "Next\\ m"}), ElementsAre("Next\\ month"));
}

TEST_F(Completion, TakesNamesFromTheRegistryFileThatIsGiven) {
  FillRegistry();
  const std::string other = folder.path() + "other file.db";
  ASSERT_EQ(Quietly({"--registry", other, "set", "Elsewhere", "T", "Mode=0"}), 0);
  EXPECT_THAT(Offered({"--registry", "'" + other + "'", "run", ""}), ElementsAre("Elsewhere"));
  EXPECT_THAT(Offered({"--registry", "=", "\"" + other + "\"", "list", ""}),
              ElementsAre("Elsewhere"));
  EXPECT_THAT(Offered({"--registry", "~/other\\ file.db", "list", ""}), ElementsAre("Elsewhere"));
}

TEST_F(Completion, OffersTheValuesThatATaskHasAndThoseThatCanBeSet) {
  FillRegistry();
  EXPECT_THAT(Offered({"get", "Night", "Clients", ""}),
              UnorderedElementsAre("Type", "Etat", "CréeLe", "Base\\ Cible", "Dir"));
  std::vector<std::string> names;
  for (const std::string& offered : Offered({"set", "Night", "Clients", "\""})) {
    if (offered.back() == '\\') continue;
    names.push_back(offered.substr(0, offered.size() - 1));
    EXPECT_EQ(offered.back(), '=');
  }
  std::string joined;
  for (const std::string& name : names) joined += (joined.empty() ? "" : ", ") + name;
  EXPECT_EQ(joined, SettingNames());
  EXPECT_THAT(Offered({"set", "Night", "Clients", "Mode", "=", "3", "Base"}),
              ElementsAre("Base\\ Cible="));
  EXPECT_THAT(Offered({"set", "Night", "Clients", "Col"}), ElementsAre("Colonnes\\\\"));
  EXPECT_THAT(Offered({"set", "Night", "Clients", "'Ch"}), ElementsAre("Champs\\"));
  EXPECT_THAT(Offered({"set", "Night", "Clients", "Mode", "="}), IsEmpty());
  EXPECT_THAT(Offered({"set", "Night", "Clients", "Mode", "=", "B"}), IsEmpty());
  EXPECT_THAT(Offered({"variable", "Night", ""}), ElementsAre("FOLDER"));
}

TEST_F(Completion, OffersFilesWhereFilesAreWanted) {
  folder.Write("a b.reg", "");
  folder.Write("c.txt", "");
  EXPECT_THAT(Offered({"reg", "import", ""}), UnorderedElementsAre("a b.reg", "c.txt"));
  EXPECT_THAT(Offered({"reg", "export", "c"}), ElementsAre("c.txt"));
  EXPECT_THAT(Offered({"run", "S", "T", "--report", "c"}), ElementsAre("c.txt"));
  EXPECT_THAT(Offered({"run", "S", "T", "--report", "="}), IsSupersetOf({"a b.reg", "c.txt"}));
  EXPECT_THAT(Offered({"--registry", "a\\ "}), ElementsAre("a b.reg"));
  EXPECT_THAT(Offered({"--registry", "~/c"}), ElementsAre(folder.path() + "c.txt"));
}

}  // namespace
}  // namespace imptable
