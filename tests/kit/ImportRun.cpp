#include "tests/kit/ImportRun.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

namespace imptable {

ImportRun::ImportRun() : folder(testing::TempDir()) {
  script_ =
      "column CODE 4 INTEGER 10 0 0\n"
      "column NOM 12 VARCHAR 30 0 1\n";
  Set("Base Cible", source.name());
  Set("Table", "CLIENT");
  Set("Alias", "CLIENTS");
  Set("Dir", folder.path());
  Set("FormatFile", 1);
}

void ImportRun::Driver(std::string_view line) {
  script_ += line;
  script_ += '\n';
}

void ImportRun::Set(std::string_view name, std::string_view text) {
  component.registry.SetText(kTaskPath, name, text);
}

void ImportRun::Set(std::string_view name, std::int32_t number) {
  component.registry.SetNumber(kTaskPath, name, number);
}

void ImportRun::Columns(const std::vector<std::string>& entries) {
  Set("NombreColonnes", static_cast<std::int32_t>(entries.size()));
  for (std::size_t n = 0; n < entries.size(); ++n) {
    component.registry.SetText(std::string(kTaskPath) + "\\Colonnes", std::to_string(n + 1),
                               entries[n]);
  }
}

void ImportRun::Assign(const std::vector<std::string>& values) {
  Set("Param", 1);
  for (std::size_t n = 0; n < values.size(); ++n) {
    component.registry.SetText(std::string(kTaskPath) + "\\Champs", std::to_string(n + 1),
                               values[n]);
  }
}

void ImportRun::Source(const std::vector<std::string>& lines) {
  std::string bytes;
  for (const std::string& line : lines) bytes += line + '\n';
  folder.Write("CLIENTS.CSV", bytes);
}

std::int32_t ImportRun::Go(std::int16_t request) {
  return GoBy([request](ImpTable& task) { task.Run(request); });
}

std::int32_t ImportRun::GoBy(const std::function<void(ImpTable&)>& start) {
  source.Script(script_);
  source.ClearLog();
  component.host.lines.clear();
  ImpTable task(component.state, &events);
  task.InitializeProperties("T1", "S1", component.module().language_offset);
  task.SetReportFilePath(folder.path() + "report.txt");
  start(task);
  return task.GetStatus();
}

std::vector<std::string> ImportRun::Lines(const std::string& name,
                                          std::string_view line_end) const {
  if (!folder.Exists(name)) return {"<none>"};
  const std::string bytes = folder.Read(name);
  std::vector<std::string> lines;
  std::string_view rest = bytes;
  while (!rest.empty()) {
    const std::size_t end = rest.find(line_end);
    if (end == std::string_view::npos) {
      lines.push_back(std::string(rest) + "<torn>");
      break;
    }
    lines.emplace_back(rest.substr(0, end));
    rest.remove_prefix(end + line_end.size());
  }
  return lines;
}

std::vector<std::string> ImportRun::FileNames() const {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::int64_t ImportRun::OpenStatements() const {
  std::int64_t open = 0;
  for (const std::string& line : source.LogLines()) {
    if (line.starts_with("SQLAllocStmt") && line.ends_with(" = 0")) ++open;
    if (line.starts_with("SQLFreeStmt DROP") && line.ends_with(" = 0")) --open;
  }
  return open;
}

std::vector<std::string> ImportRun::Executed() const {
  constexpr std::string_view kCall = "SQLExecute ";
  std::vector<std::string> executed;
  for (const std::string& line : source.LogLines("SQLExecute")) {
    executed.push_back(line.substr(kCall.size(), line.rfind(" = ") - kCall.size()));
  }
  return executed;
}

}  // namespace imptable
