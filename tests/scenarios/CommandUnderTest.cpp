#include "tests/scenarios/CommandUnderTest.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace imptable {
namespace {

/// In the small system that Wine runs in.
constexpr const char* kWindowsSqliteDriver = "/usr/lib/i386-linux-gnu/odbc/libsqlite3odbc.so";

CommandUnderTest FromEnvironment() {
  const char* const command = std::getenv("IMPTABLE_COMMAND");
  const char* const system = std::getenv("IMPTABLE_COMMAND_SYSTEM");
  return {command != nullptr ? command : IMPTABLE_COMMAND_PATH,
          system != nullptr && system == std::string("windows")};
}

}  // namespace

CommandUnderTest::CommandUnderTest(std::string path, bool is_windows)
    : path_(std::move(path)), is_windows_(is_windows) {}

Environment CommandUnderTest::Surroundings() const {
  Environment environment;
  if (!is_windows_) return environment;
  for (const char* const name : {"IMPTABLE_CACHE", "IMPTABLE_WINEPREFIX", "WINEDEBUG"}) {
    const char* const value = std::getenv(name);
    if (value != nullptr) environment[name] = value;
  }
  return environment;
}

std::string CommandUnderTest::Spelt(std::string path) const {
  if (!is_windows_) return path;
  std::replace(path.begin(), path.end(), '/', '\\');
  return "Z:" + path;
}

std::string CommandUnderTest::SqliteDriver() const {
  return is_windows_ ? kWindowsSqliteDriver : SQLITE_ODBC_DRIVER;
}

const CommandUnderTest& TheCommand() {
  static const CommandUnderTest command = FromEnvironment();
  return command;
}

}  // namespace imptable
