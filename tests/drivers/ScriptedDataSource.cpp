#include "tests/drivers/ScriptedDataSource.h"

#include <fstream>
#include <system_error>

namespace imptable {
namespace {

std::string FreshName(const std::string& stem) {
  static int number = 0;
  return stem + std::to_string(++number);
}

}  // namespace

ScriptedDataSource::ScriptedDataSource(Logging logging) : folder_(logging) {
  std::filesystem::create_directory(folder() / "system");
  std::ofstream(folder() / "system" / "odbc.ini").close();
  std::ofstream(folder() / "system" / "odbcinst.ini", std::ios::binary)
      << "[Scripted]\nDriver=" << DriverPath() << '\n';
  Script("");
  Values values{{"Driver", DriverPath()},
                {"Script", folder_.PathForDriver(ScriptedFolder::kScript)}};
  if (logging == Logging::kOn) {
    values.emplace_back("Log", folder_.PathForDriver(ScriptedFolder::kLog));
  }
  name_ = Add("Scripted", values);
}

std::string ScriptedDataSource::DriverPath() { return SCRIPTED_DRIVER_PATH; }

void ScriptedDataSource::Script(std::string_view text) {
  std::ofstream(folder() / ScriptedFolder::kScript, std::ios::binary) << text;
}

std::vector<std::string> ScriptedDataSource::LogLines(std::string_view call) const {
  std::vector<std::string> lines;
  std::ifstream file(LogPath(), std::ios::binary);
  for (std::string line; std::getline(file, line);) {
    if (call.empty() || std::string_view(line).substr(0, line.find(' ')) == call) {
      lines.push_back(line);
    }
  }
  return lines;
}

// The driver appends, so a log that is cut short while it is open goes on from its new end.
void ScriptedDataSource::ClearLog() {
  std::error_code ignored;
  if (std::filesystem::exists(LogPath(), ignored)) std::filesystem::resize_file(LogPath(), 0);
}

std::string ScriptedDataSource::Add(const std::string& stem, const Values& values) {
  const std::string name = FreshName(stem);
  std::ofstream file(folder() / "odbc.ini", std::ios::app | std::ios::binary);
  file << '[' << name << "]\n";
  for (const auto& [key, value] : values) file << key << '=' << value << '\n';
  file << '\n';
  return name;
}

}  // namespace imptable
