#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "host/testing/HostSession.h"

namespace imptable {
namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::MatchesRegex;
using testing::StartsWith;

class TaskCommands : public testing::Test {
 protected:
  HostSession::Result Run(std::vector<std::string> arguments) {
    return session.Run(std::move(arguments));
  }

  /// The command must succeed. @return what it printed.
  std::string Printed(std::vector<std::string> arguments) {
    const HostSession::Result result = Run(std::move(arguments));
    EXPECT_EQ(result.code, 0) << result.err;
    EXPECT_EQ(result.err, "");
    return result.out;
  }

  /// The command must fail with this code, in one line and without a result.
  std::string Refused(int code, std::vector<std::string> arguments) {
    const HostSession::Result result = Run(std::move(arguments));
    EXPECT_EQ(result.code, code);
    EXPECT_EQ(result.out, "");
    EXPECT_THAT(result.err, MatchesRegex("imptable: [^\n]+\n"));
    return result.err;
  }

  HostSession session;
};

TEST_F(TaskCommands, ListScenariosAndTheirTasks) {
  Printed({"set", "Été", "B", "Mode=0"});
  Printed({"set", "Été", "a", "Mode=0"});
  Printed({"variable", "Empty", "V=1"});
  EXPECT_EQ(Printed({"list"}), "Empty\nÉté\n");
  EXPECT_EQ(Printed({"list", "été"}), "a\nB\n");
  EXPECT_EQ(Printed({"list", "Empty"}), "");
  EXPECT_THAT(Refused(3, {"list", "None"}), HasSubstr("\"None\""));
}

TEST_F(TaskCommands, ShowNoStatusOfATaskThatNeverRan) {
  Printed({"set", "S", "T", "Mode=0"});
  EXPECT_EQ(Printed({"status", "S", "T"}), "0\n\n");
}

TEST_F(TaskCommands, ShowTheStatusOfTheLastRun) {
  Printed({"set", "S", "T", "Etat=3", "ExecuteLe=04/03/26 05:06:07"});
  EXPECT_EQ(Printed({"status", "S", "T"}), "3\n04/03/26 05:06:07\n");
}

TEST_F(TaskCommands, DescribeATaskInOneFragmentAndALineFeed) {
  Printed({"set", "Été", "T", "Base Cible=compta", "Table=CLIENT", "Colonnes\\1=7,7,,/,",
           "NombreColonnes=1", "Comment=de nuit"});
  const std::string english = Printed({"describe", "été", "T"});
  EXPECT_THAT(
      english,
      AllOf(StartsWith("<table class=\"t\"><tr><td class=\"k\">T</td>"
                       "<td class=\"n\">Import Table</td>"),
            HasSubstr("<td class=\"i\">ODBC source</td><td class=\"j\">compta</td>"),
            HasSubstr("CLIENT"), HasSubstr("7,7,,/,"), HasSubstr("de nuit"), EndsWith("<hr>\n")));
  const auto french = HostSession::RunAsIs(
      {"--registry", session.registry(), "--lang", "fr", "describe", "Été", "T"});
  EXPECT_EQ(french.code, 0);
  EXPECT_THAT(french.out, HasSubstr("Importation Table"));
}

TEST_F(TaskCommands, ShowTheScenarioActionsThatTheTaskHas) {
  Printed({"set", "S", "T", "Mode=0"});
  EXPECT_EQ(Printed({"actions", "S", "T"}), "\n");
  const auto imported =
      session.Run({"reg", "import", "-"},
                  "REGEDIT4\n\n"
                  "[HKLM\\SOFTWARE\\KALDO\\Scenarios\\S\\Taches\\T\\Action\\Goto]\n"
                  "\"Dest\"=\"T9\"\n\"GVar\"=\"N\"\n\"Ope\"=\"3\"\n\"Value\"=\"10\"\n"
                  "[HKLM\\SOFTWARE\\KALDO\\Scenarios\\S\\Taches\\T\\Action\\OnErr]\n"
                  "\"Go\"=\"1\"\n\"Variable\"=\"V\"\n\"Valeur\"=\"7\"\n");
  ASSERT_EQ(imported.code, 0) << imported.err;
  EXPECT_EQ(Printed({"actions", "S", "T"}),
            "[OnErr]#Run scenario : True\r\n    Auto-Run : False\r\n    @V = 7#"
            "[Goto]#Goto T9\r\n    Check after execution : False\r\n    If @N >= 10#\n");
}

TEST_F(TaskCommands, AreCode4AndNameTheValueThatTheComponentCannotTake) {
  const std::string file =
      session.folder.Write("t.reg",
                           "REGEDIT4\n\n[HKLM\\SOFTWARE\\KALDO\\Scenarios\\S\\Taches\\T]\n"
                           "\"Etat\"=\"done\"\n\"Mode\"=\"99999\"\n");
  Printed({"reg", "import", file});
  EXPECT_EQ(Refused(4, {"status", "S", "T"}),
            "imptable: task \"T\": Type mismatch : \"Etat\" = \"done\": mend this value with "
            "\"imptable set\"\n");
  EXPECT_THAT(Refused(4, {"describe", "S", "T"}),
              AllOf(HasSubstr("\"Mode\" = \"99999\""), HasSubstr("\"imptable set\"")));
}

TEST_F(TaskCommands, TellNothingAboutATaskThatThereIsNot) {
  Printed({"set", "S", "T", "Mode=0"});
  for (const char* command : {"describe", "actions", "status", "get", "delete"}) {
    EXPECT_THAT(Refused(3, {command, "S", "U"}),
                HasSubstr("no task \"U\" in scenario \"S\": \"imptable list\" lists the tasks"));
    EXPECT_THAT(Refused(3, {command, "X", "T"}),
                HasSubstr("no scenario \"X\": \"imptable list\" lists the scenarios"));
  }
}

TEST_F(TaskCommands, DeleteATaskWithItsSubkeys) {
  Printed({"set", "S", "T", "Mode=0", "Colonnes\\1=1", "Champs\\1=A,,1"});
  Printed({"set", "S", "U", "Mode=0"});
  EXPECT_EQ(Printed({"delete", "S", "t"}), "");
  EXPECT_EQ(Printed({"list", "S"}), "U\n");
  EXPECT_THAT(Refused(3, {"delete", "S", "T"}), HasSubstr("no task \"T\" in scenario \"S\""));
  Printed({"set", "S", "T", "Mode=1"});
  EXPECT_THAT(Refused(3, {"get", "S", "T", "Colonnes\\1"}), HasSubstr("Colonnes\\1"));
}

TEST_F(TaskCommands, SetCreatesATaskAsTheDialogDoes) {
  EXPECT_EQ(Printed({"set", "S", "T", "base cible=db", "MODE=3"}), "");
  EXPECT_THAT(Printed({"get", "S", "T"}),
              MatchesRegex("Type=50\nEtat=0\n"
                           "CréeLe=[0-9]{2}/[0-9]{2}/[0-9]{2} [0-9]{2}:[0-9]{2}:[0-9]{2}\n"
                           "Base Cible=db\nMode=3\n"));
}

TEST_F(TaskCommands, SetStampsEachLaterChange) {
  Printed({"set", "S", "T", "Mode=0"});
  Printed({"set", "S", "T", "Mode=1"});
  EXPECT_THAT(Printed({"get", "S", "T", "ModifiéLe"}),
              MatchesRegex("[0-9]{2}/[0-9]{2}/[0-9]{2} [0-9]{2}:[0-9]{2}:[0-9]{2}\n"));
  EXPECT_EQ(Printed({"get", "S", "T", "Mode"}), "1\n");
}

TEST_F(TaskCommands, SetTakesTheUsersWordForTheValuesItWritesItself) {
  Printed({"set", "S", "T", "Etat=2", "CRÉELE=then"});
  EXPECT_EQ(Printed({"get", "S", "T", "Etat"}), "2\n");
  EXPECT_EQ(Printed({"get", "S", "T", "CréeLe"}), "then\n");
}

TEST_F(TaskCommands, SetWritesAllValuesOrNone) {
  EXPECT_THAT(Refused(2, {"set", "S", "T", "Mode=1", "Speed=2"}), HasSubstr("\"Speed\""));
  EXPECT_THAT(Refused(2, {"set", "S", "T", "Mode=1", "Null=yes"}), HasSubstr("\"Null\": \"yes\""));
  EXPECT_THAT(Refused(2, {"set", "S", "T", "Mode=1", "Null=2147483648"}), HasSubstr("\"Null\""));
  EXPECT_THAT(Refused(2, {"set", "S", "T", "Mode=1", "Null"}), HasSubstr("\"Null\""));
  EXPECT_THAT(Refused(2, {"set", "S", "T", "Colonnes\\01=1"}), HasSubstr("Colonnes\\01"));
  EXPECT_FALSE(session.folder.Exists("registry.db"));
}

TEST_F(TaskCommands, RefuseNamesThatNoKeyCanHave) {
  EXPECT_THAT(Refused(2, {"set", "", "T", "Mode=1"}), HasSubstr("wrong name"));
  EXPECT_THAT(Refused(2, {"set", "S", "a\\b", "Mode=1"}), HasSubstr("a\\b"));
  EXPECT_THAT(Refused(2, {"get", "a\\b", "T"}), HasSubstr("a\\b"));
  EXPECT_THAT(Refused(2, {"run", "S", ""}), HasSubstr("wrong name"));
  EXPECT_THAT(Refused(2, {"list", ""}), HasSubstr("wrong name"));
  EXPECT_THAT(Refused(2, {"variable", "S", "=x"}), HasSubstr("wrong name"));
}

TEST_F(TaskCommands, GetShowsValuesAsTheyWereFirstWrittenThenTheColumns) {
  Printed(
      {"set", "S", "T", "CréeLe=c", "Table=B", "Alias=A", "Colonnes\\2=7,1,,,", "Champs\\1=x,,y"});
  Printed({"set", "S", "T", "ModifiéLe=m", "Table=C", "Colonnes\\1=1", "Comment="});
  EXPECT_EQ(Printed({"get", "S", "T"}),
            "Type=50\nEtat=0\nCréeLe=c\nTable=C\nAlias=A\nModifiéLe=m\nComment=\n"
            "Colonnes\\1=1\nColonnes\\2=7,1,,,\nChamps\\1=x,,y\n");
}

TEST_F(TaskCommands, GetShowsOneBareValueWhateverItsCase) {
  Printed({"set", "S", "T", "Base Cible=a=b", "Colonnes\\1=7,1,,,"});
  EXPECT_EQ(Printed({"get", "S", "T", "BASE CIBLE"}), "a=b\n");
  EXPECT_EQ(Printed({"get", "s", "t", "colonnes\\1"}), "7,1,,,\n");
  EXPECT_THAT(Refused(3, {"get", "S", "T", "Login"}), HasSubstr("\"Login\""));
  EXPECT_THAT(Refused(3, {"get", "S", "T", "Champs\\1"}), HasSubstr("Champs\\1"));
}

TEST_F(TaskCommands, VariableListsShowsAndSetsVariables) {
  EXPECT_EQ(Printed({"variable", "S", "Dir=/a=b"}), "");
  EXPECT_EQ(Printed({"variable", "S", "Empty="}), "");
  EXPECT_EQ(Printed({"variable", "S", "DIR"}), "/a=b\n");
  EXPECT_EQ(Printed({"variable", "S", "Empty"}), "\n");
  EXPECT_EQ(Printed({"variable", "S"}), "Dir=/a=b\nEmpty=\n");
  EXPECT_THAT(Refused(3, {"variable", "S", "None"}), HasSubstr("\"None\""));
  EXPECT_THAT(Refused(3, {"variable", "X"}), HasSubstr("\"X\""));
  EXPECT_THAT(Refused(3, {"variable", "X", "Dir"}), HasSubstr("\"X\""));
}

TEST_F(TaskCommands, PutALineBreakInANameOnOneLineOfTheMessage) {
  Printed({"set", "S", "T", "Mode=0"});
  EXPECT_THAT(Refused(3, {"list", "a\nb"}), HasSubstr("\"a?b\""));
}

TEST_F(TaskCommands, PutNoControlCharacterOnTheTerminal) {
  Printed({"set", "S", "T", "Mode=0"});
  EXPECT_THAT(Refused(3, {"list",
                          "\x1B[2Ja\u009B2Jb\x9B"
                          "c\u00E9\u00A0"}),
              HasSubstr("\"?[2Ja?2Jb?c\u00E9\u00A0\""));
}

TEST(HostLanguage, IsTheOptionsElseTheRegistrysElseFrench) {
  HostSession session;
  const auto error = [&](std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"--registry", session.registry()});
    return HostSession::RunAsIs(arguments).err;
  };
  EXPECT_THAT(error({"list", "X"}), StartsWith("imptable: pas de fichier du registre"));
  EXPECT_EQ(session
                .Run({"reg", "import", "-"},
                     "REGEDIT4\n\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\KALDO\\Configuration]"
                     "\n\"Lang\"=-\n")
                .code,
            0);
  EXPECT_THAT(error({"list", "X"}), StartsWith("imptable: pas de scénario"));
  EXPECT_THAT(error({"--lang", "en", "list", "X"}), StartsWith("imptable: no scenario"));
  const auto imported =
      HostSession::RunAsIs({"--registry", session.registry(), "reg", "import", "-"},
                           "REGEDIT4\n\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\KALDO\\Configuration]"
                           "\n\"Lang\"=dword:00002710\n");
  ASSERT_EQ(imported.code, 0) << imported.err;
  EXPECT_THAT(error({"list", "X"}), StartsWith("imptable: no scenario"));
  EXPECT_THAT(error({"--lang", "fr", "list", "X"}), StartsWith("imptable: pas de scénario"));
  EXPECT_THAT(error({"nonsense"}), StartsWith("imptable: unknown command"));
}

TEST(HostLanguage, OfANewRegistryIsThatOfTheLocale) {
  for (const auto& [locale, value] :
       {std::pair("fr_FR.UTF-8", "0"), {"fr", "0"}, {"C", "10000"}, {"de_DE.UTF-8", "10000"}}) {
    const HostSession session;
    const ScopedVariable variable("LC_ALL", locale);
    const auto call = [&](std::vector<std::string> arguments) {
      arguments.insert(arguments.begin(), {"--registry", session.registry()});
      return HostSession::RunAsIs(arguments);
    };
    const bool french = std::string_view(value) == "0";
    EXPECT_THAT(call({"set", "S", "T", "Mode=9"}).err, HasSubstr(french ? "donner" : "give"));
    EXPECT_EQ(call({"set", "S", "T", "Mode=0"}).code, 0);
    EXPECT_THAT(call({"list", "X"}).err,
                StartsWith(french ? "imptable: pas de scénario" : "imptable: no scenario"))
        << locale;
    const auto text =
        call({"reg", "export", "-", "HKLM\\SOFTWARE\\KALDO\\Configuration", "--utf8"});
    EXPECT_THAT(text.out,
                HasSubstr(french ? "\"Lang\"=dword:00000000" : "\"Lang\"=dword:00002710"));
  }
}

TEST(HostRegistry, OfAnyLocaleBeginsWithThePointThatDriversExpect) {
  HostSession session;
  const ScopedVariable variable("LC_ALL", "fr_FR.UTF-8");
  EXPECT_EQ(session.Run({"set", "S", "T", "Mode=0"}).code, 0);
  EXPECT_THAT(
      session.Run({"reg", "export", "-", "HKCU", "--utf8"}).out,
      HasSubstr("[HKEY_CURRENT_USER\\Control Panel\\International]\r\n\"sDecimal\"=\".\"\r\n"));
}

TEST(HostHelp, GoesToStandardOutputInTheLanguageAskedFor) {
  const HostSession session;
  const auto help =
      HostSession::RunAsIs({"--registry", session.registry(), "--lang", "en", "get", "--help"});
  EXPECT_EQ(help.code, 0);
  EXPECT_EQ(help.err, "");
  EXPECT_THAT(help.out, EndsWith("Example: imptable get COMPTA CLIENTS \"Base Cible\"\n"));
  const auto french = HostSession::RunAsIs({"--registry", session.registry(), "--help"});
  EXPECT_THAT(french.out, StartsWith("imptable : importe"));
  EXPECT_FALSE(session.folder.Exists("registry.db"));
}

TEST(HostHelp, TellsTheVersion) {
  const auto version = HostSession::RunAsIs({"--version"});
  EXPECT_EQ(version.code, 0);
  EXPECT_EQ(version.out, "imptable " IMPTABLE_VERSION "\n");
}

TEST(HostUsage, IsCode2InOneLineAndTouchesNothing) {
  HostSession session;
  const auto result = session.Run({"run", "S"});
  EXPECT_EQ(result.code, 2);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err, "imptable: TASK is missing: see \"imptable run --help\"\n");
  EXPECT_FALSE(session.folder.Exists("registry.db"));
}

TEST(HostRegistry, IsCreatedForItsOwnerOnly) {
  HostSession session;
  EXPECT_EQ(session.Run({"variable", "S", "V=1"}).code, 0);
  struct stat status {};
  ASSERT_EQ(stat(session.registry().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777, 0600U);
}

TEST(HostRegistry, ThatIsNotThereIsCode3ForEveryCommandThatMakesNone) {
  HostSession session;
  for (const std::vector<std::string>& command :
       std::vector<std::vector<std::string>>{{"run", "S", "T"},
                                             {"describe", "S", "T"},
                                             {"actions", "S", "T"},
                                             {"status", "S", "T"},
                                             {"list"},
                                             {"list", "S"},
                                             {"get", "S", "T"},
                                             {"get", "S", "T", "Mode"},
                                             {"unset", "S", "T", "Mode"},
                                             {"copy", "S", "T", "S", "U"},
                                             {"rename", "S", "T", "S", "U"},
                                             {"delete", "S", "T"},
                                             {"delete", "S", "--yes"},
                                             {"variable", "S"},
                                             {"variable", "S", "V"},
                                             {"variable", "S", "V", "--delete"},
                                             {"reg", "export", "-"},
                                             {"reg", "export", "-", "HKLM"}}) {
    const auto result = session.Run(command);
    EXPECT_EQ(result.code, 3) << command.front();
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err,
              "imptable: no registry file \"" + session.registry() +
                  "\": make it with \"imptable set\" or \"imptable reg import\", or name "
                  "another one with --registry\n");
  }
  EXPECT_TRUE(std::filesystem::is_empty(session.folder.path()));
}

TEST(HostRegistry, IsNotNeededForTheDataSources) {
  HostSession session;
  const ScopedVariable sources("ODBCINI", session.folder.Write("odbc.ini", "[Shop]\nDriver=x\n"));
  const ScopedVariable system("ODBCSYSINI", session.folder.path());
  EXPECT_EQ(session.Run({"sources"}).out, "Shop\n");
  EXPECT_FALSE(session.folder.Exists("registry.db"));
}

TEST(HostRegistry, ThatCannotBeUsedIsCode4AndNamed) {
  HostSession session;
  session.folder.Write("registry.db", "this is no registry file at all");
  for (const std::vector<std::string>& command :
       {std::vector<std::string>{"list"}, {"run", "S", "T"}, {"set", "S", "T", "Mode=0"}}) {
    const auto result = session.Run(command);
    EXPECT_EQ(result.code, 4);
    EXPECT_THAT(result.err, MatchesRegex("imptable: [^\n]+\n"));
    EXPECT_THAT(result.err, HasSubstr("registry file \"" + session.registry() + '"'));
  }
  EXPECT_THAT(
      HostSession::RunAsIs({"--registry", session.registry(), "list"}).err,
      AllOf(HasSubstr("le fichier du registre \"" + session.registry() + "\" n'en est pas un"),
            HasSubstr("en donner un autre")));
  EXPECT_EQ(session.folder.Read("registry.db"), "this is no registry file at all");
}

}  // namespace
}  // namespace imptable
