#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <exception>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "platform/registry/RegistryStore.h"
#include "platform/testing/TemporaryFolder.h"

namespace imptable {
namespace {

constexpr int kProcesses = 8;
constexpr int kWrites = 200;

RegistryValue Text(const std::string& text) { return {RegistryType::kText, text + '\0'}; }

/// Lets all processes go at once, each with its number.
/// @return how many of them failed.
int FailuresAmong(int processes, const std::function<void(int)>& body) {
  int gate[2];
  EXPECT_EQ(pipe(gate), 0);
  std::vector<pid_t> children;
  for (int number = 0; number < processes; ++number) {
    const pid_t child = fork();
    if (child == 0) {
      close(gate[1]);
      char byte;
      if (read(gate[0], &byte, 1) != 0) _exit(2);
      try {
        body(number);
      } catch (const std::exception& error) {
        const std::string line = std::string(error.what()) + "\n";
        _exit(write(STDERR_FILENO, line.data(), line.size()) < 0 ? 3 : 1);
      }
      _exit(0);
    }
    children.push_back(child);
  }
  close(gate[0]);
  close(gate[1]);
  int failures = 0;
  for (const pid_t child : children) {
    int status = -1;
    waitpid(child, &status, 0);
    failures += !WIFEXITED(status) || WEXITSTATUS(status) != 0;
  }
  return failures;
}

const KeyPath kFirstKey{kHkeyCurrentUser, "First"};

std::vector<RegistryEdit> FirstEdits(const std::string& name) {
  return {{RegistryEdit::Action::kSetValue, kFirstKey, name, Text(name)}};
}

TEST(RegistrySharing, LosesNoWriteOfProcessesThatCreateTheFileTogether) {
  TemporaryFolder folder;
  const std::string path = folder.path() + "new/registry.db";
  EXPECT_EQ(FailuresAmong(kProcesses,
                          [&](int process) {
                            RegistryStore store(path, FirstEdits("1"));
                            const std::string own = std::to_string(process);
                            for (int i = 0; i < kWrites; ++i) {
                              const std::string name = own + "-" + std::to_string(i);
                              store.Write({kHkeyLocalMachine, "Own\\" + own}, name, Text(name));
                              store.Write({kHkeyLocalMachine, "Common"}, name, Text(name));
                              store.Write({kHkeyLocalMachine, "Common"}, "same", Text(name));
                            }
                          }),
            0);

  RegistryStore store(path);
  EXPECT_EQ(store.Read(kFirstKey, "1"), Text("1"));
  const auto common = store.ValueNames({kHkeyLocalMachine, "Common"});
  EXPECT_EQ(common.size(), static_cast<std::size_t>(kProcesses * kWrites + 1));
  EXPECT_EQ(std::set<std::string>(common.begin(), common.end()).size(), common.size());
  EXPECT_EQ(store.SubkeyNames({kHkeyLocalMachine, "Own"}).size(),
            static_cast<std::size_t>(kProcesses));
  for (int process = 0; process < kProcesses; ++process) {
    const std::string own = std::to_string(process);
    std::vector<std::string> expected;
    for (int i = 0; i < kWrites; ++i) expected.push_back(own + "-" + std::to_string(i));
    EXPECT_EQ(store.ValueNames({kHkeyLocalMachine, "Own\\" + own}), expected);
  }
}

TEST(RegistrySharing, CreatesOneFileHoweverManyProcessesOpenItFirst) {
  for (int round = 0; round < 20; ++round) {
    TemporaryFolder folder;
    const std::string path = folder.path() + "registry.db";
    EXPECT_EQ(FailuresAmong(kProcesses,
                            [&](int process) {
                              RegistryStore(path, FirstEdits(std::to_string(process)))
                                  .Write({kHkeyLocalMachine, "K"}, std::to_string(process),
                                         Text("x"));
                            }),
              0);
    RegistryStore store(path);
    EXPECT_EQ(store.ValueNames({kHkeyLocalMachine, "K"}).size(),
              static_cast<std::size_t>(kProcesses));
    EXPECT_EQ(store.Values(kFirstKey).size(), 1U);
  }
}

TEST(RegistrySharing, ShowsReadersAllOfAnAppliedListOrNone) {
  TemporaryFolder folder;
  const std::string path = folder.path() + "registry.db";
  EXPECT_EQ(FailuresAmong(4,
                          [&](int process) {
                            RegistryStore store(path);
                            for (int i = 0; i < 100; ++i) {
                              const RegistryValue mark = Text(std::to_string(process * 1000 + i));
                              if (process < 2) {
                                using Action = RegistryEdit::Action;
                                store.Apply({
                                    {Action::kDeleteTree, {kHkeyLocalMachine, "T"}, "", {}},
                                    {Action::kSetValue, {kHkeyLocalMachine, "T\\A"}, "v", mark},
                                    {Action::kSetValue, {kHkeyLocalMachine, "T\\B"}, "v", mark},
                                });
                                continue;
                              }
                              const auto tree = store.Tree({kHkeyLocalMachine, "T"});
                              if (tree.empty()) continue;
                              if (tree.size() != 3 || tree[1].values != tree[2].values) {
                                throw std::runtime_error("half an applied list was seen");
                              }
                            }
                          }),
            0);
}

TEST(RegistrySharing, KeepsTheCommittedWritesOfAProcessThatWasKilled) {
  TemporaryFolder folder;
  const std::string path = folder.path() + "registry.db";
  const pid_t child = fork();
  if (child == 0) {
    RegistryStore store(path);
    for (int i = 0; i < 50; ++i) {
      store.Write({kHkeyLocalMachine, "K"}, std::to_string(i), Text("x"));
    }
    kill(getpid(), SIGKILL);
  }
  int status = 0;
  waitpid(child, &status, 0);
  ASSERT_TRUE(WIFSIGNALED(status));
  EXPECT_EQ(RegistryStore(path).ValueNames({kHkeyLocalMachine, "K"}).size(), 50U);
}

}  // namespace
}  // namespace imptable
