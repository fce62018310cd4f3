#include "host/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <string_view>

namespace imptable {
namespace {

constexpr std::string_view kProgram = "imptable";
constexpr std::array<std::string_view, 2> kGlobalOptions{"--registry", "--lang"};

/// The command's name and those of the groups that it is in.
std::string CommandPath(const CLI::App& app) {
  if (app.get_parent() == nullptr) return {};
  const std::string group = CommandPath(*app.get_parent());
  return group.empty() ? app.get_name() : group + ' ' + app.get_name();
}

/// How the command is called, for "... --help".
std::string Invocation(const CLI::App& app) {
  const std::string path = CommandPath(app);
  return path.empty() ? std::string(kProgram) : std::string(kProgram) + ' ' + path;
}

const CLI::App& ChosenCommand(const CLI::App& app) {
  const std::vector<CLI::App*> chosen = app.get_subcommands();
  return chosen.empty() ? app : ChosenCommand(*chosen.front());
}

bool LooksLikeOption(std::string_view argument) {
  return argument.size() > 1 && argument.front() == '-';
}

bool IsGlobalOption(std::string_view name) {
  return std::find(kGlobalOptions.begin(), kGlobalOptions.end(), name) != kGlobalOptions.end();
}

HostError UsageError(HostText text, const std::string& what, const CLI::App& command) {
  return {ExitCode::kUsage, text, {what, Invocation(command)}};
}

HostError LeftoverError(const std::string& argument, const CLI::App& command) {
  if (LooksLikeOption(argument)) {
    const std::string option = argument.substr(0, argument.find('='));
    return IsGlobalOption(option) ? UsageError(HostText::kMisplacedOption, option, command)
                                  : UsageError(HostText::kUnknownOption, option, command);
  }
  return command.get_require_subcommand_min() > 0
             ? UsageError(HostText::kUnknownCommand, argument, command)
             : UsageError(HostText::kTooManyArguments, argument.substr(0, argument.find('=')),
                          command);
}

/// The error of the first argument that no command takes; nullopt when there is none.
std::optional<HostError> FirstLeftover(const CLI::App& app) {
  const std::vector<std::string> left = app.remaining();
  if (!left.empty()) return LeftoverError(left.front(), app);
  const std::vector<CLI::App*> chosen = app.get_subcommands();
  return chosen.empty() ? std::nullopt : FirstLeftover(*chosen.front());
}

std::string WithoutWord(std::string text, std::string_view word) {
  const std::size_t at = text.find(word);
  return at == std::string::npos ? text : text.erase(at, word.size());
}

/// Says in the host's words what the parser found wrong.
HostError ErrorFor(const CLI::ParseError& error, const CLI::App& app) {
  if (std::optional<HostError> leftover = FirstLeftover(app)) return *leftover;
  const CLI::App& command = ChosenCommand(app);
  for (const CLI::Option* option : command.get_options()) {
    if (option->get_required() && option->count() == 0) {
      const std::string& shown = option->get_option_text();
      return UsageError(HostText::kMissingArgument, shown.empty() ? option->get_name() : shown,
                        command);
    }
  }
  if (command.get_require_subcommand_min() > 0 && command.get_subcommands().empty() &&
      dynamic_cast<const CLI::RequiredError*>(&error) != nullptr) {
    return UsageError(HostText::kMissingCommand, "", command);
  }
  const std::string reason = error.what();
  if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) != nullptr) {
    return UsageError(HostText::kMissingOptionValue, reason.substr(0, reason.find(':')), command);
  }
  if (dynamic_cast<const CLI::ExcludesError*>(&error) != nullptr) {
    return UsageError(HostText::kOptionsExclude, WithoutWord(reason, "excludes "), command);
  }
  for (const CLI::Option* option : command.get_options()) {
    const bool is_flag = option->get_expected_max() == 0;
    if (is_flag && option->count() > 0 && reason.find(option->get_name()) != std::string::npos) {
      return UsageError(HostText::kFlagWithValue, option->get_name(), command);
    }
  }
  return UsageError(HostText::kWrongUsage, reason, command);
}

CLI::App& AddCommand(CLI::App& app, const std::string& name) { return *app.add_subcommand(name); }

void AddTask(CLI::App& command, CommandRequest& request) {
  command.add_option("SCENARIO", request.scenario)->required();
  command.add_option("TASK", request.task)->required();
}

void TakeLast(CLI::Option* option) {
  option->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
}

void AddTaskCommands(CLI::App& app, CommandRequest& request) {
  CLI::App& run = AddCommand(app, "run");
  AddTask(run, request);
  CLI::Option* const resume = run.add_flag("--resume", request.resume);
  run.add_flag("--auto", request.automatic)->excludes(resume);
  run.add_flag("--changed-file", request.changed_file);
  run.add_flag("--require-file", request.require_file);
  TakeLast(run.add_option("--report", request.report));
  run.add_flag("--quiet", request.quiet);
  run.add_flag("--json", request.json);

  AddTask(AddCommand(app, "configure"), request);
  AddTask(AddCommand(app, "describe"), request);
  AddTask(AddCommand(app, "actions"), request);
  AddTask(AddCommand(app, "status"), request);
  AddCommand(app, "list").add_option("SCENARIO", request.name);

  CLI::App& get = AddCommand(app, "get");
  AddTask(get, request);
  get.add_option("NAME", request.name);
  get.add_flag("--show-password", request.show_password);

  CLI::App& set = AddCommand(app, "set");
  AddTask(set, request);
  set.add_option("ASSIGNMENT", request.assignments)->required()->option_text("NAME=VALUE");
  set.add_flag("--stdin", request.value_from_input);

  CLI::App& unset = AddCommand(app, "unset");
  AddTask(unset, request);
  unset.add_option("NAME", request.names)->required();

  for (const char* const name : {"copy", "rename"}) {
    CLI::App& command = AddCommand(app, name);
    AddTask(command, request);
    command.add_option("SCENARIO2", request.other_scenario)->required();
    command.add_option("TASK2", request.other_task)->required();
  }

  CLI::App& deletion = AddCommand(app, "delete");
  deletion.add_option("SCENARIO", request.scenario)->required();
  deletion.add_option("TASK", request.name);
  deletion.add_flag("--yes", request.yes);

  CLI::App& variable = AddCommand(app, "variable");
  variable.add_option("SCENARIO", request.scenario)->required();
  variable.add_option("NAME", request.name);
  variable.add_flag("--show-password", request.show_password);
  variable.add_flag("--stdin", request.value_from_input);
  variable.add_flag("--delete", request.remove);
}

void AddOtherCommands(CLI::App& app, CommandRequest& request) {
  AddCommand(app, "sources");

  CLI::App& reg = AddCommand(app, "reg");
  reg.require_subcommand(1);
  AddCommand(reg, "import").add_option("FILE", request.file)->required();
  CLI::App& reg_export = AddCommand(reg, "export");
  reg_export.add_option("FILE", request.file)->required();
  reg_export.add_option("KEY", request.key);
  reg_export.add_flag("--utf8", request.utf8);
}

/// All that the arguments can hold. The parser writes into the request; the global options stay
/// here.
struct Grammar {
  explicit Grammar(CommandRequest& request) {
    app.require_subcommand(1);
    app.set_version_flag("--version", IMPTABLE_VERSION);
    TakeLast(registry);
    TakeLast(language);
    AddTaskCommands(app, request);
    AddOtherCommands(app, request);
  }

  CLI::App app{"", std::string(kProgram)};
  CLI::Option* registry = app.add_option("--registry");
  CLI::Option* language = app.add_option("--lang");
};

void AddForms(const CLI::App& app, std::vector<CommandForm>& forms) {
  CommandForm form{CommandPath(app), {}};
  for (const CLI::Option* option : app.get_options()) {
    for (const std::string& name : option->get_lnames()) form.options.push_back("--" + name);
    for (const std::string& name : option->get_snames()) form.options.push_back('-' + name);
  }
  forms.push_back(std::move(form));
  for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; })) {
    AddForms(*command, forms);
  }
}

}  // namespace

std::vector<CommandForm> CommandForms() {
  CommandRequest request;
  const Grammar grammar(request);
  std::vector<CommandForm> forms;
  AddForms(grammar.app, forms);
  return forms;
}

CommandLine ParseCommandLine(const std::vector<std::string>& arguments) {
  CommandLine line;
  Grammar grammar(line.request);
  CLI::App& app = grammar.app;

  try {
    app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
  } catch (const CLI::CallForVersion&) {
    line.outcome = CommandLine::Outcome::kVersion;
  } catch (const CLI::CallForHelp&) {
    line.outcome = CommandLine::Outcome::kHelp;
  } catch (const CLI::ParseError& error) {
    line.error = ErrorFor(error, app);
  }

  line.request.command = CommandPath(ChosenCommand(app));
  if (!grammar.registry->results().empty()) line.registry = grammar.registry->results().back();
  if (!grammar.language->results().empty()) {
    const std::string language = grammar.language->results().back();
    line.language = LanguageNamed(language);
    if (!line.language && !line.error) {
      line.error = HostError(ExitCode::kUsage, HostText::kUnknownLanguage, {language});
    }
  }
  // The parser splits an argument in brackets into a list. Such an argument is never a value's
  // name.
  for (const auto* const list : {&line.request.assignments, &line.request.names}) {
    for (const std::string& name : *list) {
      if (line.error) break;
      if (std::find(arguments.begin(), arguments.end(), name) == arguments.end()) {
        line.error = HostError(ExitCode::kUsage, HostText::kUnknownSetting,
                               {name.substr(0, name.find('='))});
      }
    }
  }
  const CommandRequest& request = line.request;
  if (!line.error && request.changed_file && !request.resume && !request.automatic) {
    line.error =
        HostError(ExitCode::kUsage, HostText::kNeedsResume, {"--changed-file", "imptable run"});
  }
  line.request.registry = line.registry;
  // After an error of the parser, its result doesn't tell whether --json was given.
  if (line.error && request.command == "run" &&
      std::find(arguments.begin(), arguments.end(), "--json") != arguments.end()) {
    line.request.json = true;
  }
  if (line.error) line.outcome = CommandLine::Outcome::kError;
  return line;
}

}  // namespace imptable
