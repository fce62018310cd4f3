// Under Wine, the driver manager and the driver are Linux's and see the environment that the
// process was started with, whatever the program sets later: tests/win32/unit-tests makes the
// folder and names it there.
#include <cstdlib>
#include <stdexcept>
#include <system_error>

#include "tests/drivers/ScriptedFolder.h"

namespace imptable {
namespace {

std::string FolderOfThisProcess() {
  const char* folder = std::getenv("SCRIPTED_DRIVER_FOLDER");
  if (folder == nullptr) throw std::runtime_error("not run by tests/win32/unit-tests");
  return folder;
}

}  // namespace

struct ScriptedFolder::Place {
  ~Place() { Clear(); }

  void Clear() const {
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator(path, ignored)) {
      std::filesystem::remove_all(entry.path(), ignored);
    }
  }

  std::string path_for_driver = FolderOfThisProcess();
  std::filesystem::path path = "Z:" + path_for_driver;
};

ScriptedFolder::ScriptedFolder(Logging /*logging*/) : place_(std::make_unique<Place>()) {
  place_->Clear();
}
ScriptedFolder::~ScriptedFolder() = default;

const std::filesystem::path& ScriptedFolder::path() const { return place_->path; }

std::string ScriptedFolder::PathForDriver(std::string_view name) const {
  return place_->path_for_driver + '/' + std::string(name);
}

}  // namespace imptable
