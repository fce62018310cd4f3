#include <gtest/gtest.h>

#include "platform/testing/ScopedVariable.h"
#include "platform/testing/TemporaryFolder.h"
#include "tests/drivers/ScriptedFolder.h"

namespace imptable {

struct ScriptedFolder::Place {
  explicit Place(Logging logging)
      : folder(testing::TempDir()),
        path(std::filesystem::path(folder.path()).parent_path()),
        user_sources("ODBCINI", path / "odbc.ini"),
        system_sources("ODBCSYSINI", path / "system"),
        early_script("SCRIPTED_DRIVER_EARLY_SCRIPT", path / kScript),
        early_log("SCRIPTED_DRIVER_EARLY_LOG",
                  logging == Logging::kOn ? (path / kLog).string() : std::string()) {}

  TemporaryFolder folder;
  std::filesystem::path path;
  ScopedVariable user_sources;
  ScopedVariable system_sources;
  ScopedVariable early_script;
  ScopedVariable early_log;
};

ScriptedFolder::ScriptedFolder(Logging logging) : place_(std::make_unique<Place>(logging)) {}
ScriptedFolder::~ScriptedFolder() = default;

const std::filesystem::path& ScriptedFolder::path() const { return place_->path; }

std::string ScriptedFolder::PathForDriver(std::string_view name) const {
  return (place_->path / name).string();
}

}  // namespace imptable
