#include "host/CommandLine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/testing/PlainEncodings.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// The error in English; empty when there is none.
std::string ErrorOf(const std::vector<std::string>& arguments) {
  const CommandLine line = ParseCommandLine(arguments);
  if (!line.error) return {};
  EXPECT_EQ(line.outcome, CommandLine::Outcome::kError);
  EXPECT_EQ(line.error->code(), ExitCode::kUsage);
  const Utf8TextEncoding encoding;
  return HostTexts(Language::kEnglish, encoding).Text(line.error->text(), line.error->arguments());
}

TEST(CommandLine, TakesTheOptionsOfARunInAnyPlaceAfterTheCommand) {
  const CommandLine line = ParseCommandLine({"--registry", "r.db", "--lang", "en", "run",
                                             "--resume", "S", "--report=x.htm", "T", "--json"});
  EXPECT_EQ(line.outcome, CommandLine::Outcome::kCommand);
  EXPECT_EQ(line.registry, "r.db");
  EXPECT_EQ(line.language, Language::kEnglish);
  EXPECT_EQ(line.request.command, "run");
  EXPECT_EQ(line.request.scenario, "S");
  EXPECT_EQ(line.request.task, "T");
  EXPECT_EQ(line.request.report, "x.htm");
  EXPECT_TRUE(line.request.resume);
  EXPECT_TRUE(line.request.json);
  EXPECT_FALSE(line.request.quiet);
}

TEST(CommandLine, LeavesWhatIsNotGivenUnset) {
  const CommandLine line = ParseCommandLine({"list"});
  EXPECT_EQ(line.outcome, CommandLine::Outcome::kCommand);
  EXPECT_FALSE(line.registry);
  EXPECT_FALSE(line.language);
  EXPECT_FALSE(line.request.name);
}

TEST(CommandLine, TakesNamesOfCommandsAsNamesOfScenariosAndTasks) {
  const CommandLine run = ParseCommandLine({"run", "list", "run"});
  EXPECT_EQ(run.outcome, CommandLine::Outcome::kCommand);
  EXPECT_EQ(run.request.command, "run");
  EXPECT_EQ(run.request.scenario, "list");
  EXPECT_EQ(run.request.task, "run");
  const CommandLine import = ParseCommandLine({"reg", "import", "export"});
  EXPECT_EQ(import.request.command, "reg import");
  EXPECT_EQ(import.request.file, "export");
}

TEST(CommandLine, TakesANameThatLooksLikeAnOptionAfterTwoDashes) {
  const CommandLine line = ParseCommandLine({"list", "--", "-x"});
  EXPECT_EQ(line.outcome, CommandLine::Outcome::kCommand);
  EXPECT_EQ(line.request.name, "-x");
}

TEST(CommandLine, TakesADashForAFile) {
  EXPECT_EQ(ParseCommandLine({"reg", "export", "-", "HKLM\\SOFTWARE"}).request.file, "-");
}

TEST(CommandLine, KeepsAssignmentsAsTheyAreWritten) {
  const CommandLine line =
      ParseCommandLine({"set", "S", "T", "Base Cible=a=b", "Comment=", "Login=[x,y]", "Owner={}"});
  EXPECT_EQ(line.outcome, CommandLine::Outcome::kCommand);
  EXPECT_THAT(line.request.assignments,
              ElementsAre("Base Cible=a=b", "Comment=", "Login=[x,y]", "Owner={}"));
}

TEST(CommandLine, RefusesABracketedListOfAssignmentsWithoutShowingValues) {
  const std::string error = ErrorOf({"set", "S", "T", "[Password=secret]"});
  EXPECT_THAT(error, HasSubstr("unknown value name"));
  EXPECT_THAT(error, Not(HasSubstr("secret")));
}

TEST(CommandLine, TakesTheLastOfARepeatedOption) {
  const CommandLine line = ParseCommandLine({"run", "S", "T", "--report", "a", "--report", "b"});
  EXPECT_EQ(line.request.report, "b");
}

TEST(CommandLine, NamesAnUnknownCommand) {
  EXPECT_EQ(ErrorOf({"import"}), "unknown command \"import\": see \"imptable --help\"");
  EXPECT_EQ(ErrorOf({"reg", "list"}), "unknown command \"list\": see \"imptable reg --help\"");
}

TEST(CommandLine, AsksForACommandWhenThereIsNone) {
  EXPECT_EQ(ErrorOf({}), "a command is missing: see \"imptable --help\"");
  EXPECT_EQ(ErrorOf({"reg"}), "a command is missing: see \"imptable reg --help\"");
}

TEST(CommandLine, NamesAnUnknownOptionWithoutItsValue) {
  EXPECT_EQ(ErrorOf({"run", "S", "T", "--password=secret"}),
            "unknown option \"--password\": see \"imptable run --help\"");
  EXPECT_EQ(ErrorOf({"run", "--fast"}), "unknown option \"--fast\": see \"imptable run --help\"");
}

TEST(CommandLine, SaysThatGlobalOptionsGoBeforeTheCommand) {
  EXPECT_EQ(ErrorOf({"list", "--lang", "en"}),
            "the option \"--lang\" goes before the command: see \"imptable list --help\"");
}

TEST(CommandLine, NamesTheMissingArgument) {
  EXPECT_EQ(ErrorOf({"run"}), "SCENARIO is missing: see \"imptable run --help\"");
  EXPECT_EQ(ErrorOf({"run", "S"}), "TASK is missing: see \"imptable run --help\"");
  EXPECT_EQ(ErrorOf({"set", "S", "T"}), "NAME=VALUE is missing: see \"imptable set --help\"");
  EXPECT_EQ(ErrorOf({"reg", "export"}), "FILE is missing: see \"imptable reg export --help\"");
}

TEST(CommandLine, NamesAnArgumentTooMany) {
  EXPECT_EQ(ErrorOf({"status", "S", "T", "U"}),
            "unexpected argument \"U\": see \"imptable status --help\"");
  EXPECT_EQ(ErrorOf({"sources", "x"}),
            "unexpected argument \"x\": see \"imptable sources --help\"");
}

TEST(CommandLine, NamesAnOptionWithoutItsValue) {
  EXPECT_EQ(ErrorOf({"run", "S", "T", "--report"}),
            "the option \"--report\" needs a value: see \"imptable run --help\"");
  EXPECT_EQ(ErrorOf({"--registry"}),
            "the option \"--registry\" needs a value: see \"imptable --help\"");
}

TEST(CommandLine, NamesAFlagWithAValueThatItCannotTake) {
  EXPECT_EQ(ErrorOf({"run", "S", "T", "--resume", "--json=maybe"}),
            "the option \"--json\" takes no value: see \"imptable run --help\"");
}

TEST(CommandLine, NamesOptionsThatExcludeEachOther) {
  EXPECT_EQ(
      ErrorOf({"run", "S", "T", "--resume", "--auto"}),
      "only one of the options \"--resume --auto\" can be given: see \"imptable run --help\"");
}

TEST(CommandLine, RefusesALanguageThatThereIsNot) {
  EXPECT_EQ(ErrorOf({"--lang", "de", "list"}), "--lang: unknown language \"de\": give fr or en");
}

TEST(CommandLine, KeepsTheLanguageThatAnErrorIsToBeToldIn) {
  const CommandLine line = ParseCommandLine({"--lang", "en", "run"});
  EXPECT_EQ(line.outcome, CommandLine::Outcome::kError);
  EXPECT_EQ(line.language, Language::kEnglish);
}

TEST(CommandLine, KnowsWhichCommandHelpIsAskedFor) {
  const CommandLine program = ParseCommandLine({"--help"});
  EXPECT_EQ(program.outcome, CommandLine::Outcome::kHelp);
  EXPECT_EQ(program.request.command, "");
  const CommandLine command = ParseCommandLine({"reg", "import", "-h"});
  EXPECT_EQ(command.outcome, CommandLine::Outcome::kHelp);
  EXPECT_EQ(command.request.command, "reg import");
}

TEST(CommandLine, KnowsThatTheVersionIsAskedFor) {
  EXPECT_EQ(ParseCommandLine({"--version"}).outcome, CommandLine::Outcome::kVersion);
}

}  // namespace
}  // namespace imptable
