#include "tests/scenarios/ClientTask.h"

#include <utility>

#include "tests/scenarios/CommandUnderTest.h"
#include "tests/scenarios/LastingText.h"

namespace imptable {
namespace {

constexpr const char* kTask = R"(Windows Registry Editor Version 5.00

[HKEY_LOCAL_MACHINE\SOFTWARE\KALDO\Scenarios\S1\Taches\T1\Colonnes]
"1"="3"
"2"="1"

[HKEY_LOCAL_MACHINE\SOFTWARE\KALDO\Scenarios\S1\Taches\T1]
"Base Cible"="@SOURCE"
"Login"="@USER"
"Password"="@PASSWORD"
"Dir"="@FOLDER"
"Alias"="CLIENTS"
"Table"="client"
"FormatFile"=dword:00000001
"NombreColonnes"=dword:00000002
)";

}  // namespace

ClientTask::ClientTask(DatabaseKind kind, const std::string& values) : Workplace(kind) {
  database().Execute(
      "CREATE TABLE client (code INTEGER PRIMARY KEY, name VARCHAR(600) NOT NULL);\n");
  LoadTask(folder().Write("task.reg", kTask + values));
}

Invocation ClientTask::RunCommand(const std::vector<std::string>& options) const {
  std::vector<std::string> words{"--lang", "en", "run", "S1", "T1", "--report", "report.txt"};
  words.insert(words.end(), options.begin(), options.end());
  return Command(words);
}

void ClientTask::Write(const std::string& name, std::string_view bytes) const {
  folder().Write("run/" + name, bytes);
}

std::string ClientTask::Read(const std::string& name) const {
  std::string text = folder().Read("run/" + name);
  return TheCommand().is_windows() ? WithoutCarriageReturns(std::move(text)) : text;
}

std::string ClientTask::Status() const {
  const std::string text = OutputOf(Command({"status", "S1", "T1"}));
  return text.substr(0, text.find('\n'));
}

std::string ClientLines(int first, int last) {
  std::string lines;
  for (int code = first; code <= last; ++code) {
    lines += std::to_string(code) + ";name " + std::to_string(code) + '\n';
  }
  return lines;
}

}  // namespace imptable
