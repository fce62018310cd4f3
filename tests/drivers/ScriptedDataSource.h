#ifndef TESTS_DRIVERS_SCRIPTEDDATASOURCE_H_
#define TESTS_DRIVERS_SCRIPTEDDATASOURCE_H_

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/drivers/ScriptedFolder.h"

namespace imptable {

/// A data source of the scripted driver, known to the driver manager of this process as long as
/// this object lives. One at a time: it replaces the user's and the system's data sources.
///
/// The driver manager remembers for a while what it has read about a data source, so every data
/// source gets a name that this process hasn't used yet: ask for it with name().
class ScriptedDataSource {
 public:
  using Logging = ScriptedFolder::Logging;

  /// @throws std::exception when the folder can't be made.
  explicit ScriptedDataSource(Logging logging = Logging::kOn);

  const std::string& name() const { return name_; }
  /// Where the files are; removed with everything in it.
  const std::filesystem::path& folder() const { return folder_.path(); }
  /// The path of a file in it, for the keys of a data source.
  std::string PathForDriver(std::string_view name) const { return folder_.PathForDriver(name); }
  /// Path of the driver, to Add more data sources of it with scripts of their own.
  static std::string DriverPath();

  /// Replaces the script. It is read when a connection is made.
  void Script(std::string_view text);
  /// What the driver was asked, oldest first: all of it, or only the lines of one call.
  std::vector<std::string> LogLines(std::string_view call = {}) const;
  void ClearLog();

  using Values = std::vector<std::pair<std::string, std::string>>;
  /// Adds a data source of any driver.
  /// @param values  keys of its section, "Driver" among them with the path of the library
  /// @return its name: `stem` and a number
  std::string Add(const std::string& stem, const Values& values);

 private:
  std::filesystem::path LogPath() const { return folder() / ScriptedFolder::kLog; }

  ScriptedFolder folder_;
  std::string name_;
};

}  // namespace imptable

#endif  // TESTS_DRIVERS_SCRIPTEDDATASOURCE_H_
