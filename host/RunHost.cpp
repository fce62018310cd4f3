#include "host/RunHost.h"

#include <unistd.h>

#include <array>
#include <exception>
#include <sstream>
#include <string_view>

#include "host/CommandLine.h"
#include "host/Commands.h"
#include "host/HelpTexts.h"
#include "host/HostError.h"
#include "host/registry/RegistryFailureText.h"
#include "host/registry/RegistryLocation.h"
#include "host/run/RunSummary.h"

namespace imptable {
namespace {

constexpr auto kCommands = std::to_array<HostCommand>({
    {"run", RunTask},
    {"configure", StartConfiguration, true},
    {"describe", PrintDescription},
    {"actions", PrintActions},
    {"status", ShowStatus},
    {"list", ListNames},
    {"get", GetSettings},
    {"set", SetSettings, true},
    {"unset", UnsetSettings},
    {"copy", CopyTask},
    {"rename", RenameTask},
    {"delete", DeleteKeys},
    {"variable", HandleVariables, true},
    {"reg import", ImportRegistry, true},
    {"reg export", ExportRegistry},
});

constexpr auto kPlainCommands = std::to_array<PlainCommand>({{"sources", ListSources}});

bool IsThere(const std::string& path) { return access(path.c_str(), F_OK) == 0; }

/// The language of messages before or without a command. Never creates a registry file. Ignores a
/// faulty one: commands report that.
Language LanguageWithoutCommand(const CommandLine& line) {
  if (line.language) return *line.language;
  try {
    const std::string path = RegistryFilePath(line.registry);
    if (access(path.c_str(), R_OK) != 0) return Language::kFrench;
    return LanguageIn(RegistryStore(path));
  } catch (const std::exception&) {
    return Language::kFrench;
  }
}

/// One invocation. Its errors are in the user's language as soon as that is known.
class Invocation {
 public:
  Invocation(const CommandLine& line, const HostConsole& console, const HostProgram& program)
      : line_(line),
        console_(console),
        program_(program),
        language_(line.language.value_or(Language::kFrench)) {}

  ExitCode CarryOut() {
    try {
      return Attempt();
    } catch (const HostError& error) {
      return Fail(error.code(), Texts().Text(error.text(), error.arguments()));
    } catch (const RuntimeFault& fault) {
      return Fail(ExitCode::kFault, FaultText(fault));
    } catch (const RegistryFileError& error) {
      return Fail(ExitCode::kFault, RegistryFailureText(error, Texts()));
    } catch (const std::exception& error) {
      return Fail(ExitCode::kFault, Texts().Text(HostText::kUnexpected, {error.what()}));
    }
  }

 private:
  HostTexts Texts() const { return {language_, *encoding_}; }

  /// A type mismatch or an overflow comes from a value of the task, which the user can mend.
  std::string FaultText(const RuntimeFault& fault) const {
    const std::string text = DescribeFault(fault, OffsetOf(language_), *encoding_);
    const bool is_value =
        fault.number() == FaultNumber::kTypeMismatch || fault.number() == FaultNumber::kOverflow;
    return is_value && !line_.request.task.empty()
               ? Texts().Text(HostText::kFaultyValue, {line_.request.task, text})
               : Texts().Text(HostText::kUnexpected, {text});
  }

  ExitCode Fail(ExitCode code, const std::string& text) {
    PrintErrorLine(console_.err, text);
    const CommandRequest& request = line_.request;
    if (request.command == "run" && request.json) {
      console_.out << RefusalJson(request, code, text, *encoding_) << std::flush;
    }
    return code;
  }

  ExitCode Attempt() {
    switch (line_.outcome) {
      case CommandLine::Outcome::kError:
        language_ = LanguageWithoutCommand(line_);
        throw HostError(*line_.error);
      case CommandLine::Outcome::kHelp:
        language_ = LanguageWithoutCommand(line_);
        console_.out << encoding_->FromUtf8(HelpText(line_.request.command, language_));
        return Flushed(ExitCode::kDone);
      case CommandLine::Outcome::kVersion:
        console_.out << "imptable " IMPTABLE_VERSION "\n";
        return Flushed(ExitCode::kDone);
      case CommandLine::Outcome::kCommand:
        break;
    }
    for (const PlainCommand& command : program_.plain_commands) {
      if (command.name != line_.request.command) continue;
      language_ = LanguageWithoutCommand(line_);
      return Flushed(command.carry_out(Texts(), console_));
    }
    for (const HostCommand& command : program_.commands) {
      if (command.name == line_.request.command) return Flushed(CarryOutOnRegistry(command));
    }
    throw HostError(ExitCode::kUsage, HostText::kUnknownCommand,
                    {line_.request.command, "imptable"});
  }

  ExitCode CarryOutOnRegistry(const HostCommand& command) {
    const std::string path = RegistryFilePath(line_.registry);
    std::optional<Language> language = line_.language;
    // A command that makes the registry speaks the language that the new registry gets.
    if (!language && command.makes_registry && !IsThere(path)) language = LanguageOfLocale();
    HostContext context(path, language, console_.err, program_.windows);
    language_ = context.texts.language();
    return command.carry_out(context, line_.request, console_);
  }

  /// Output that can't be written turns success into a fault, but not for a run: its import is done
  /// all the same.
  ExitCode Flushed(ExitCode code) {
    if (console_.out.flush()) return code;
    PrintErrorLine(console_.err, Texts().Text(HostText::kCannotWriteOutput));
    const bool is_run =
        line_.outcome == CommandLine::Outcome::kCommand && line_.request.command == "run";
    return code == ExitCode::kDone && !is_run ? ExitCode::kFault : code;
  }

  const CommandLine& line_;
  const HostConsole& console_;
  const HostProgram& program_;
  const std::unique_ptr<TextEncoding> encoding_ = SystemTextEncoding();
  Language language_;
};

}  // namespace

HostProgram CommandProgram() { return {kCommands, kPlainCommands}; }

int RunHost(const std::vector<std::string>& arguments, const HostConsole& console,
            const HostProgram& program) {
  const CommandLine line = ParseCommandLine(arguments);
  return static_cast<int>(Invocation(line, console, program).CarryOut());
}

int RunHost(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
  std::istringstream nothing;
  return RunHost(arguments, {nothing, out, err});
}

}  // namespace imptable
