#ifndef TESTS_DRIVERS_SCRIPTEDFOLDER_H_
#define TESTS_DRIVERS_SCRIPTEDFOLDER_H_

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

namespace imptable {

/// The folder whose odbc.ini and odbcinst.ini the driver manager of this process reads while this
/// object lives, and whose script.txt and calls.log the scripted driver uses before it knows its
/// data source. Empty at first; goes, with all that is in it, when its owner does.
class ScriptedFolder {
 public:
  enum class Logging : std::uint8_t { kOn, kOff };

  /// @throws std::exception when the folder can't be made or isn't known.
  explicit ScriptedFolder(Logging logging);
  ~ScriptedFolder();
  ScriptedFolder(const ScriptedFolder&) = delete;
  ScriptedFolder& operator=(const ScriptedFolder&) = delete;

  /// As this program names it.
  const std::filesystem::path& path() const;

  /// The path of a file in it as the driver manager and the driver name it: under Wine, too, both
  /// belong to Linux.
  std::string PathForDriver(std::string_view name) const;

  static constexpr std::string_view kScript = "script.txt";
  static constexpr std::string_view kLog = "calls.log";

 private:
  struct Place;
  std::unique_ptr<Place> place_;
};

}  // namespace imptable

#endif  // TESTS_DRIVERS_SCRIPTEDFOLDER_H_
