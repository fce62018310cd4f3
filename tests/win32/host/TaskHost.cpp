// A scenario host for tests: drives the registered component as a script would, and takes the
// words of the command that scenarios are written for.
//
//   TaskHost [--registry NAME] [--lang fr|en] COMMAND
//
//   reg import FILE | variable SCENARIO NAME=VALUE | set SCENARIO TASK NAME=VALUE ...
//   run SCENARIO TASK [--resume] [--report FILE]    prints the seconds that it took
//   status SCENARIO TASK
//   forget    deletes every registry that --registry or IMPTABLE_REGISTRY ever named
//
// Without either of these it works on the machine's registry. IMPTABLE_DECIMAL is the user's
// decimal separator in a new one.

#include <fcntl.h>
#include <io.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>

#include "core/NumberText.h"
#include "core/SettingsTable.h"
#include "core/StoredValue.h"
#include "host/registry/RegistryExportFile.h"
#include "host/tasks/Assignment.h"
#include "host/tasks/ShownValue.h"
#include "platform/text/TextEncoding.h"
#include "platform/windows/Windows_win32.h"
#include "plugin/ScenarioKeys.h"
#include "tests/win32/host/EventCounter.h"
#include "tests/win32/host/Failure.h"
#include "tests/win32/host/LateBoundTask.h"
#include "tests/win32/host/OwnRegistry.h"
#include "tests/win32/host/ResumeForecast.h"
#include "tests/win32/host/WideText.h"

namespace imptable {
namespace {

using Words = std::vector<std::string>;

constexpr const wchar_t* kClass = L"SQLTImpT.ImpTable";

// What the host says and hears; never change.
constexpr std::int16_t kFreshRequest = 1;
constexpr std::int16_t kResumeRequest = 2;
constexpr std::int32_t kSucceeded = 2;
constexpr std::int32_t kFailed = 3;

struct Request {
  std::optional<std::string> registry;
  std::optional<std::int32_t> language;  ///< without it the registry's
  Words words;
};

[[noreturn]] void WrongUsage(const std::string& about) {
  throw Failure(ExitCode::kUsage, "wrong usage: " + about);
}

/// Takes an option with its value out of the words.
std::optional<std::string> TakeOption(Words& words, const std::string& name) {
  const auto option = std::find(words.begin(), words.end(), name);
  if (option == words.end()) return std::nullopt;
  if (option + 1 == words.end()) WrongUsage(name + " without a value");
  std::string value = *(option + 1);
  words.erase(option, option + 2);
  return value;
}

Request RequestFrom(Words words) {
  Request request;
  request.registry = TakeOption(words, "--registry");
  if (const char* const name = std::getenv("IMPTABLE_REGISTRY"); !request.registry && name) {
    request.registry = name;
  }
  if (const auto language = TakeOption(words, "--lang")) {
    if (*language != "fr" && *language != "en") WrongUsage("--lang " + *language);
    request.language = *language == "en" ? 10000 : 0;
  }
  if (words.empty()) WrongUsage("no command");
  request.words = std::move(words);
  return request;
}

void ChooseRegistry(const Request& request) {
  if (!request.registry) return;
  const char* const decimal = std::getenv("IMPTABLE_DECIMAL");
  UseOwnRegistry(*request.registry, decimal == nullptr ? "." : decimal);
}

void RequireTask(const std::string& scenario, const std::string& task) {
  if (KeyExists(TaskKey(scenario, task))) return;
  throw Failure(ExitCode::kMissing, "scenario " + scenario + " has no task " + task);
}

Assignment Assigned(const std::string& text) {
  const std::optional<Assignment> assignment = AssignmentFrom(text);
  if (!assignment) WrongUsage(text + " is no NAME=VALUE");
  return *assignment;
}

void ImportFile(const std::string& path) {
  std::ifstream file(std::filesystem::path(Wide(path)), std::ios::binary);
  if (!file) throw Failure(ExitCode::kMissing, "can't read " + path);
  const std::string bytes(std::istreambuf_iterator<char>(file), {});
  const auto parsed = ParseRegistryExport(bytes, path, *SystemTextEncoding());
  if (const auto* error = std::get_if<RegistryExportError>(&parsed)) {
    throw Failure(ExitCode::kUsage, path + ", line " + std::to_string(error->line));
  }
  Apply(std::get<std::vector<RegistryEdit>>(parsed));
}

RegistryEdit SetEdit(const KeyPath& key, const std::string& name, RegistryValue value) {
  return {RegistryEdit::Action::kSetValue, key, name, std::move(value)};
}

void SetVariable(const std::string& scenario, const std::string& text) {
  const Assignment variable = Assigned(text);
  Apply({SetEdit(VariablesKey(scenario), variable.name, TextValue(variable.value))});
}

RegistryEdit EditFor(const KeyPath& task, const std::string& text) {
  const Assignment assignment = Assigned(text);
  const std::optional<SettingPlace> place = FindSetting(assignment.name);
  if (!place) WrongUsage("no setting " + assignment.name);
  const KeyPath key = place->subkey.empty() ? task : Subkey(task, place->subkey);
  if (place->type != RegistryType::kNumber) {
    return SetEdit(key, place->name, TextValue(assignment.value));
  }
  const std::optional<std::int32_t> number = NumberFromText(assignment.value);
  if (!number) WrongUsage(text + " is no number");
  return SetEdit(key, place->name, NumberValue(*number));
}

void ShowStatus(const std::string& scenario, const std::string& task) {
  RequireTask(scenario, task);
  const KeyPath key = TaskKey(scenario, task);
  const std::string status = ReadShown(key, "Etat");
  std::cout << (status.empty() ? "0" : status) << '\n' << ReadShown(key, "ExecuteLe") << '\n';
}

/// Tells the object its task, in one of a host's two ways: all at once, or member by member, which
/// leaves the language as it is.
void Describe(LateBoundTask& object, const Request& request, const std::string& scenario,
              const std::string& task) {
  if (request.language) {
    object.Call("InitializeProperties", {task, scenario, *request.language});
    return;
  }
  object.Call("SetName", {task});
  object.Call("SetScenario", {scenario});
  object.Call("SetRegistryRoot", {kHkeyLocalMachine});
  object.Call("SetRegistrySubKey", {TasksKey(scenario).path});
}

ExitCode Outcome(std::int32_t status, const std::string& task, const std::string& report) {
  if (status == kSucceeded) return ExitCode::kDone;
  if (status == kFailed) {
    throw Failure(ExitCode::kRunFailed, "task " + task + " failed or had errors, see " + report);
  }
  throw Failure(ExitCode::kFault, "task " + task + " stopped with status " +
                                      std::to_string(status) + ", see " + report);
}

ExitCode Run(const Request& request, Words words) {
  const std::optional<std::string> named_report = TakeOption(words, "--report");
  const bool resume = std::erase(words, "--resume") > 0;
  if (words.size() != 3) WrongUsage("run SCENARIO TASK [--resume] [--report FILE]");
  const std::string& scenario = words[1];
  const std::string& task = words[2];
  const std::string report = named_report.value_or(task + ".txt");

  LateBoundTask object(kClass);
  ChooseRegistry(request);
  RequireTask(scenario, task);
  if (const auto trace = TraceThatAResumeWouldLose(scenario, task); resume && trace) {
    throw Failure(ExitCode::kMissing, "nothing to resume for task " + task + ", but " + *trace +
                                          " holds lines: run it without --resume");
  }
  object.Create();
  const EventCounter events(object.object());
  Describe(object, request, scenario, task);
  object.Call("SetReportFilePath", {report});
  const auto start = std::chrono::steady_clock::now();
  object.Put("Run", resume ? kResumeRequest : kFreshRequest);
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
  std::cout << taken.count() << '\n';
  if (events.complete() != 1 || events.progress() < 1 || events.others() != 0) {
    throw Failure(ExitCode::kFault, "events: Complete " + std::to_string(events.complete()) +
                                        ", Progress " + std::to_string(events.progress()) +
                                        ", others " + std::to_string(events.others()));
  }
  return Outcome(object.Number("GetStatus"), task, report);
}

ExitCode CarryOut(const Request& request) {
  const Words& words = request.words;
  if (words[0] == "run") return Run(request, words);
  if (words[0] == "forget") {
    ForgetOwnRegistries();
    return ExitCode::kDone;
  }
  ChooseRegistry(request);
  if (words.size() == 3 && words[0] == "reg" && words[1] == "import") {
    ImportFile(words[2]);
  } else if (words.size() == 3 && words[0] == "variable") {
    SetVariable(words[1], words[2]);
  } else if (words.size() == 3 && words[0] == "status") {
    ShowStatus(words[1], words[2]);
  } else if (words.size() > 3 && words[0] == "set") {
    std::vector<RegistryEdit> edits;
    for (auto word = words.begin() + 3; word != words.end(); ++word) {
      edits.push_back(EditFor(TaskKey(words[1], words[2]), *word));
    }
    Apply(edits);
  } else {
    WrongUsage(words[0]);
  }
  return ExitCode::kDone;
}

Words CommandLineWords() {
  int count = 0;
  wchar_t** const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
  Words words;
  for (int i = 1; i < count; ++i) words.push_back(Narrow(arguments[i]));
  LocalFree(arguments);
  return words;
}

}  // namespace
}  // namespace imptable

int main() {
  // Writes line feeds unchanged, like the command.
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stderr), _O_BINARY);
  CoInitialize(nullptr);
  imptable::ExitCode code = imptable::ExitCode::kFault;
  try {
    code = CarryOut(imptable::RequestFrom(imptable::CommandLineWords()));
  } catch (const imptable::Failure& failure) {
    std::cerr << "imptable: " << failure.what() << '\n';
    code = failure.code();
  } catch (const std::exception& error) {
    std::cerr << "imptable: " << error.what() << '\n';
  }
  CoUninitialize();
  std::cout.flush();
  return static_cast<int>(code);
}
