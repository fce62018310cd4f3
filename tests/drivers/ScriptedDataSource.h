#ifndef TESTS_DRIVERS_SCRIPTEDDATASOURCE_H_
#define TESTS_DRIVERS_SCRIPTEDDATASOURCE_H_

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace imptable {

/// A data source of the scripted driver, known to the driver manager of this process as long as
/// this object lives. One at a time: it replaces the user's and the system's data sources.
///
/// The driver manager remembers for a while what it has read about a data source, so every data
/// source gets a name that this process hasn't used yet: ask for it with name().
class ScriptedDataSource {
 public:
  enum class Logging : std::uint8_t { kOn, kOff };

  /// @throws std::runtime_error when the folder can't be made.
  explicit ScriptedDataSource(Logging logging = Logging::kOn);
  ~ScriptedDataSource();
  ScriptedDataSource(const ScriptedDataSource&) = delete;
  ScriptedDataSource& operator=(const ScriptedDataSource&) = delete;

  const std::string& name() const { return name_; }
  /// Where the files are; removed with everything in it.
  const std::filesystem::path& folder() const { return folder_; }
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
  /// A variable of the process's environment, put back as it was.
  class Variable {
   public:
    Variable(const char* name, const std::string& value);
    ~Variable();
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

   private:
    const char* name_;
    std::optional<std::string> before_;
  };

  std::filesystem::path LogPath() const { return folder_ / "calls.log"; }
  std::filesystem::path ScriptPath() const { return folder_ / "script.txt"; }

  std::filesystem::path folder_;
  Variable user_sources_;
  Variable system_sources_;
  Variable early_script_;
  Variable early_log_;
  std::string name_;
};

}  // namespace imptable

#endif  // TESTS_DRIVERS_SCRIPTEDDATASOURCE_H_
