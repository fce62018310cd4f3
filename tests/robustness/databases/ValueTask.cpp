#include "tests/robustness/databases/ValueTask.h"

#include <cstdlib>
#include <sstream>
#include <stdexcept>

namespace imptable {
namespace {

constexpr ImportMode kModes[] = {ImportMode::kInsert, ImportMode::kUpdate,
                                 ImportMode::kUpdateInsert, ImportMode::kDelete};

std::string TaskName(ImportMode mode, bool by_value) {
  return std::string(NameOf(mode)) + (by_value ? "_by_value" : "_by_id");
}

std::string TaskText(ImportMode mode, bool by_value) {
  const std::string key =
      "[HKEY_LOCAL_MACHINE\\SOFTWARE\\KALDO\\Scenarios\\S1\\Taches\\" + TaskName(mode, by_value);
  std::string text = key + R"(]
"Base Cible"="@SOURCE"
"Login"="@USER"
"Password"="@PASSWORD"
"Dir"="@FOLDER"
"Alias"="VALUES"
"Table"="t"
"Erreurs"="32767"
"FormatFile"=dword:00000001
)";
  text += "\"Mode\"=dword:0000000" + std::to_string(static_cast<int>(mode)) + "\n\"Cle/Index\"=\"" +
          (by_value ? "v" : "id") + "\"\n";
  if (!by_value) return text + '\n';
  return text + "\"Param\"=dword:00000001\n\n" + key +
         "\\Champs]\n\"1\"=\"(Col)1\"\n\"2\"=\"(Col)2\"\n\"3\"=\"Ignore\"\n\n";
}

std::vector<std::string> LinesOf(const std::string& text) {
  std::istringstream stream(text);
  std::vector<std::string> lines;
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

}  // namespace

std::string_view NameOf(ImportMode mode) {
  switch (mode) {
    case ImportMode::kInsert:
      return "INSERT";
    case ImportMode::kUpdate:
      return "UPDATE";
    case ImportMode::kUpdateInsert:
      return "UPDATE_INSERT";
    case ImportMode::kDelete:
      return "DELETE";
  }
  return {};
}

ValueTask::ValueTask(DatabaseKind kind, const std::string& options) : Workplace(kind) {
  folder().Write("odbc.ini",
                 std::string("[") + kSourceName + "]\n" + database().DataSource() + options + '\n');
  std::string text = "Windows Registry Editor Version 5.00\n\n";
  for (const ImportMode mode : kModes) {
    for (const bool by_value : {false, true}) text += TaskText(mode, by_value);
  }
  LoadTask(folder().Write("tasks.reg", text));
}

RunResult ValueTask::Run(ImportMode mode, bool by_value,
                         const std::vector<std::string>& lines) const {
  std::string bytes;
  for (const std::string& line : lines) bytes += line + '\n';
  folder().Write("run/VALUES.CSV", bytes);
  const Ending ending = Finish(Command(
      {"--lang", "en", "run", "S1", TaskName(mode, by_value), "--report", "report.txt", "--json"}));
  RunResult result;
  result.code = ending.code;
  result.error_line = ending.err;
  for (const char* name : {"read", "inserted", "modified", "deleted", "errors"}) {
    const std::string field = '"' + std::string(name) + "\":";
    const std::size_t at = ending.out.find(field);
    if (at == std::string::npos) throw std::runtime_error(ending.err + ending.out);
    result.counts[name] = std::atol(ending.out.c_str() + at + field.size());
  }
  if (folder().Exists("run/VALUES.LER")) {
    result.rejected = LinesOf(folder().Read("run/VALUES.LER"));
  }
  return result;
}

std::set<long> ValueTask::Numbers(const std::string& query) const {
  std::set<long> numbers;
  for (const std::string& line : LinesOf(database().Rows(query + ";\n"))) {
    if (!numbers.insert(std::atol(line.c_str())).second) {
      throw std::runtime_error("twice: " + line);
    }
  }
  return numbers;
}

std::map<long, long> ValueTask::Pairs(const std::string& query) const {
  std::map<long, long> pairs;
  for (const std::string& line : LinesOf(database().Rows(query + ";\n"))) {
    pairs[std::atol(line.c_str())] = std::atol(line.c_str() + line.find('|') + 1);
  }
  return pairs;
}

}  // namespace imptable
