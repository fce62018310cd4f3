#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <stdexcept>
#include <thread>

#include "tests/dialogs/ClientTask.h"
#include "tests/dialogs/DialogPlace.h"
#include "tests/dialogs/Languages.h"
#include "tests/scenarios/ChildProcess.h"

namespace imptable {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

/// Goes on when a window of this title has the keyboard.
void WaitForWindow(const std::string& title) {
  RunProgram({"timeout", "20", "xdotool", "search", "--sync", "--onlyvisible", "--name",
              '^' + title + '$', "windowfocus", "--sync"});
}

/// Goes on when there are two windows of this title, a dialog and a box over it.
void WaitForBox(const std::string& title) {
  for (int tries = 0; tries < 200; ++tries) {
    const std::string found = OutputOf(
        {.words = {"bash", "-c",
                   "xdotool search --onlyvisible --name '^" + title + "$' 2>/dev/null || true"},
         .environment = {{"DISPLAY", std::getenv("DISPLAY")}, {"PATH", std::getenv("PATH")}}});
    if (std::count(found.begin(), found.end(), '\n') > 1) return;
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
  }
  ADD_FAILURE() << "no box";
}

/// The dialogs as a user starts them, by their own program or by the command.
struct Start {
  const char* program;
  std::vector<std::string> command;  // words between the options and the task
};

class Program : public testing::TestWithParam<Start> {
 protected:
  Program() { SetUpClientTask(place_); }

  /// @param options  before the task's names.
  /// @param variables  of the environment of this process that are handed on.
  Ending Run(const std::vector<std::string>& options, const std::vector<const char*>& variables,
             const std::function<void()>& acts) {
    Environment environment{{"IMPTABLE_REGISTRY", place_.folder.path() + "registry.db"},
                            {"LC_ALL", "C.UTF-8"}};
    for (const char* const name : variables) {
      if (const char* const value = std::getenv(name)) environment[name] = value;
    }
    std::vector<std::string> words{GetParam().program};
    words.insert(words.end(), options.begin(), options.end());
    words.insert(words.end(), GetParam().command.begin(), GetParam().command.end());
    words.insert(words.end(), {"S1", "T1"});
    ChildProcess program({.words = words, .environment = environment});
    acts();
    return program.Wait();
  }

  Ending OnScreen(const std::vector<std::string>& options, const std::function<void()>& acts) {
    return Run(options,
               {"DISPLAY", "GDK_BACKEND", "NO_AT_BRIDGE", "GTK_THEME", "GSETTINGS_BACKEND",
                "ODBCINI", "ODBCSYSINI", "LSAN_OPTIONS"},
               acts);
  }

  DialogPlace place_{kClientTable, Language::kEnglish};
};

TEST_P(Program, EndsWithOneWhenTheDialogIsCancelledAndPrintsNothing) {
  const Ending ending = OnScreen({"--lang", "en"}, [] {
    WaitForWindow("Import Table");
    RunProgram({"xdotool", "key", "Tab", "Tab", "x", "Escape"});
  });
  EXPECT_EQ(ending.code, 1);
  EXPECT_EQ(ending.out, "");
  EXPECT_EQ(ending.err, "");
  EXPECT_EQ(place_.Imptable({"get", "S1", "T1", "Login"}), "anna\n");
}

TEST_P(Program, AsksWhetherToGoOnWithoutAUserName) {
  const Ending ending = OnScreen({"--lang", "fr"}, [] {
    WaitForWindow("Importation Table");
    RunProgram({"xdotool", "key", "Tab", "Tab", "ctrl+a", "BackSpace", "alt+v"});
    WaitForBox("Importation Table");
    RunProgram({"xdotool", "key", "Return"});
  });
  EXPECT_EQ(ending.code, 0);
  EXPECT_EQ(ending.err, "");
  EXPECT_EQ(place_.Imptable({"get", "S1", "T1", "Login"}), "\n");
}

TEST_P(Program, EndsWithZeroWhenTheTaskIsSavedAndPrintsNothing) {
  const Ending ending = OnScreen({"--lang", "fr"}, [] {
    WaitForWindow("Importation Table");
    RunProgram({"xdotool", "key", "Tab", "Tab", "ctrl+a", "b", "o", "b", "alt+v"});
  });
  EXPECT_EQ(ending.code, 0);
  EXPECT_EQ(ending.out, "");
  EXPECT_EQ(ending.err, "");
  EXPECT_EQ(place_.Imptable({"get", "S1", "T1", "Login"}), "bob\n");
}

TEST_P(Program, EndsWithZeroWhenTheTaskWasAppliedBeforeItWasCancelled) {
  const Ending ending = OnScreen({"--lang", "fr"}, [&] {
    WaitForWindow("Importation Table");
    RunProgram({"xdotool", "key", "Tab", "Tab", "ctrl+a", "b", "o", "b", "alt+p"});
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (place_.Imptable({"get", "S1", "T1", "Login"}) != "bob\n") {
      if (std::chrono::steady_clock::now() > end) throw std::runtime_error("Apply doesn't save");
    }
    RunProgram({"xdotool", "key", "Escape"});
  });
  EXPECT_EQ(ending.code, 0);
}

TEST_P(Program, SaysThatThereIsNoScreen) {
  const auto nothing = [] {};
  const Ending french = Run({"--lang", "fr"}, {}, nothing);
  EXPECT_EQ(french.code, 4);
  EXPECT_EQ(french.out, "");
  EXPECT_THAT(french.err,
              AllOf(StartsWith("imptable: "), HasSubstr("écran"), testing::EndsWith("\n")));
  EXPECT_THAT(Run({"--lang", "en"}, {}, nothing).err,
              AllOf(StartsWith("imptable: "), HasSubstr("screen")));
}

const Start kItself{IMPTABLE_CONFIG_PATH, {}};
const Start kByTheCommand{IMPTABLE_COMMAND_PATH, {"configure"}};

INSTANTIATE_TEST_SUITE_P(Started, Program, testing::Values(kItself, kByTheCommand),
                         [](const auto& start) {
                           return std::string(start.param.command.empty() ? "Itself" : "ByCommand");
                         });

}  // namespace
}  // namespace imptable
