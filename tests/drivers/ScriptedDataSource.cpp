#include "tests/drivers/ScriptedDataSource.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <fstream>
#include <stdexcept>
#include <system_error>

namespace imptable {
namespace {

std::filesystem::path FreshFolder() {
  std::string path = testing::TempDir() + "scripted_XXXXXX";
  if (mkdtemp(path.data()) == nullptr) throw std::runtime_error("no temporary folder " + path);
  std::filesystem::create_directory(path + "/system");
  std::ofstream(path + "/system/odbc.ini").close();
  std::ofstream(path + "/system/odbcinst.ini")
      << "[Scripted]\nDriver=" << ScriptedDataSource::DriverPath() << '\n';
  return path;
}

std::string FreshName(const std::string& stem) {
  static int number = 0;
  return stem + std::to_string(++number);
}

}  // namespace

ScriptedDataSource::Variable::Variable(const char* name, const std::string& value) : name_(name) {
  const char* before = getenv(name);
  if (before != nullptr) before_ = before;
  setenv(name, value.c_str(), 1);
}

ScriptedDataSource::Variable::~Variable() {
  if (before_) {
    setenv(name_, before_->c_str(), 1);
  } else {
    unsetenv(name_);
  }
}

ScriptedDataSource::ScriptedDataSource(Logging logging)
    : folder_(FreshFolder()),
      user_sources_("ODBCINI", folder_ / "odbc.ini"),
      system_sources_("ODBCSYSINI", folder_ / "system"),
      early_script_("SCRIPTED_DRIVER_EARLY_SCRIPT", ScriptPath()),
      early_log_("SCRIPTED_DRIVER_EARLY_LOG",
                 logging == Logging::kOn ? LogPath().string() : std::string()) {
  Script("");
  Values values{{"Driver", DriverPath()}, {"Script", ScriptPath()}};
  if (logging == Logging::kOn) values.emplace_back("Log", LogPath());
  name_ = Add("Scripted", values);
}

ScriptedDataSource::~ScriptedDataSource() {
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

std::string ScriptedDataSource::DriverPath() { return SCRIPTED_DRIVER_PATH; }

void ScriptedDataSource::Script(std::string_view text) {
  std::ofstream(ScriptPath(), std::ios::binary) << text;
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
  std::ofstream file(folder_ / "odbc.ini", std::ios::app | std::ios::binary);
  file << '[' << name << "]\n";
  for (const auto& [key, value] : values) file << key << '=' << value << '\n';
  file << '\n';
  return name;
}

}  // namespace imptable
