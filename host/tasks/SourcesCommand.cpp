#include <cstdlib>
#include <string>

#include "host/Commands.h"
#include "host/tasks/SourceHint.h"
#include "odbc/DriverList.h"
#include "odbc/OdbcSession.h"

namespace imptable {
namespace {

std::string EnvironmentVariable(const char* name, const char* otherwise) {
  const char* const value = std::getenv(name);
  return value == nullptr || *value == '\0' ? otherwise : value;
}

}  // namespace

ExitCode ListSources(const HostTexts& texts, const HostConsole& console) {
  bool found = false;
  ListDataSources([&](const std::string& name) {
    found = true;
    console.out << name << '\n';
  });
  if (found) return ExitCode::kDone;
  // Several lines, unlike an error: the example needs its line breaks.
  console.err << "imptable: "
              << WithoutControls(
                     SourceHint(InstalledDrivers(), EnvironmentVariable("ODBCINI", "~/.odbc.ini"),
                                EnvironmentVariable("HOME", "/home/me"), texts),
                     LineEnds::kStay)
              << '\n';
  return ExitCode::kDone;
}

}  // namespace imptable
