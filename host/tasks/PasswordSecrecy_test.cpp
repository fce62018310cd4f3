// Where a password is shown and where it isn't.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/testing/HostSession.h"
#include "tests/drivers/ScriptedDataSource.h"

namespace imptable {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::MatchesRegex;
using testing::Not;

constexpr char kOneLine[] = "imptable: [^\n]+\n";

class PasswordSecrecy : public testing::Test {
 protected:
  std::string Printed(const std::vector<std::string>& arguments, const std::string& input = {}) {
    const HostSession::Result result = session.Run(arguments, input);
    EXPECT_EQ(result.code, 0) << result.err;
    EXPECT_EQ(result.err, "");
    return result.out;
  }

  std::string Refused(const std::vector<std::string>& arguments, const std::string& input = {}) {
    const HostSession::Result result = session.Run(arguments, input);
    EXPECT_EQ(result.code, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_THAT(result.err, MatchesRegex(kOneLine));
    return result.err;
  }

  HostSession session;
};

TEST_F(PasswordSecrecy, IsHeldByGetUnlessThePasswordIsAskedFor) {
  Printed({"set", "S", "T", "Login=sa", "Password=topsecret"});
  EXPECT_EQ(Printed({"get", "S", "T", "Password"}), "******\n");
  EXPECT_EQ(Printed({"get", "S", "T", "pASSWORD"}), "******\n");
  EXPECT_EQ(Printed({"get", "S", "T", "--show-password", "Password"}), "topsecret\n");
  EXPECT_THAT(Printed({"get", "S", "T"}),
              AllOf(HasSubstr("\nLogin=sa\nPassword=******\n"), Not(HasSubstr("topsecret"))));
  EXPECT_THAT(Printed({"get", "S", "T", "--show-password"}), HasSubstr("\nPassword=topsecret\n"));
  EXPECT_THAT(session.Run({"get", "S", "T", "\\Password"}).out, Not(HasSubstr("topsecret")));
}

TEST_F(PasswordSecrecy, IsHeldByGetWhateverTypeThePasswordIsStoredAs) {
  for (const char* stored : {"dword:00001234", "hex(2):74,00,00,00", "hex(7):74,00,00,00,00,00",
                             "hex:74,6f,70", "\"t\""}) {
    Printed({"reg", "import", "-"},
            "Windows Registry Editor Version 5.00\n\n"
            "[HKLM\\SOFTWARE\\KALDO\\Scenarios\\S\\Taches\\T]\n\"password\"=" +
                std::string(stored) + '\n');
    EXPECT_EQ(Printed({"get", "S", "T"}), "password=******\n") << stored;
    EXPECT_NE(Printed({"get", "S", "T", "--show-password"}), "password=******\n") << stored;
  }
}

TEST_F(PasswordSecrecy, LetsAReferenceAndAMissingPasswordBeSeen) {
  Printed({"set", "S", "T", "Password=@PWD"});
  EXPECT_EQ(Printed({"get", "S", "T", "Password"}), "@PWD\n");
  Printed({"set", "S", "T", "Password="});
  EXPECT_EQ(Printed({"get", "S", "T", "Password"}), "\n");
}

TEST_F(PasswordSecrecy, IsHeldByVariableWhereATaskTakesItsPasswordFromOne) {
  Printed({"variable", "S", "PWD=topsecret"});
  Printed({"variable", "S", "FOLDER=/in"});
  EXPECT_EQ(Printed({"variable", "S", "PWD"}), "topsecret\n");
  Printed({"set", "S", "T", "Dir=@FOLDER"});
  Printed({"set", "S", "U", "Password=@pwd"});
  EXPECT_EQ(Printed({"variable", "S", "PWD"}), "******\n");
  EXPECT_EQ(Printed({"variable", "S"}), "PWD=******\nFOLDER=/in\n");
  EXPECT_EQ(Printed({"variable", "S", "PWD", "--show-password"}), "topsecret\n");
  EXPECT_EQ(Printed({"variable", "S", "--show-password"}), "PWD=topsecret\nFOLDER=/in\n");
}

TEST_F(PasswordSecrecy, IsKeptByAPasswordFromStandardInput) {
  Printed({"set", "S", "T", "Login=sa", "Password", "--stdin"}, "top=secret é \r\nnext line\n");
  EXPECT_EQ(Printed({"get", "S", "T", "Password", "--show-password"}), "top=secret é \n");
  EXPECT_EQ(Printed({"get", "S", "T", "Login"}), "sa\n");
  Printed({"set", "S", "T", "--stdin", "Password"}, "without end");
  EXPECT_EQ(Printed({"get", "S", "T", "Password", "--show-password"}), "without end\n");
  Printed({"set", "S", "T", "--stdin", "Password"}, "\n");
  EXPECT_EQ(Printed({"get", "S", "T", "Password"}), "\n");
  Printed({"variable", "S", "PWD", "--stdin"}, "top secret\n");
  EXPECT_EQ(Printed({"variable", "S", "PWD"}), "top secret\n");
}

TEST_F(PasswordSecrecy, WritesNothingWithoutAValueOnStandardInput) {
  EXPECT_THAT(Refused({"set", "S", "T", "Login=sa", "Password", "--stdin"}),
              HasSubstr("no value for \"Password\" on standard input"));
  EXPECT_THAT(Refused({"variable", "S", "PWD", "--stdin"}), HasSubstr("no value for \"PWD\""));
  EXPECT_FALSE(session.folder.Exists("registry.db"));
}

TEST_F(PasswordSecrecy, AsksForExactlyOneNameThatStandardInputGivesItsValue) {
  for (const std::vector<std::string>& names : {std::vector<std::string>{"Login=sa"},
                                                {"Login", "Password"},
                                                {"Login", "Mode=0", "Owner"}}) {
    std::vector<std::string> arguments{"set", "S", "T", "--stdin"};
    arguments.insert(arguments.end(), names.begin(), names.end());
    EXPECT_THAT(Refused(arguments, "x\n"), HasSubstr("give one name without \"=\""));
  }
  EXPECT_THAT(Refused({"set", "S", "T", "Pasword", "--stdin"}, "x\n"), HasSubstr("\"Pasword\""));
  EXPECT_THAT(Refused({"set", "S", "T", "Password"}, "x\n"), HasSubstr("NAME=VALUE"));
  EXPECT_THAT(Refused({"variable", "S", "--stdin"}, "x\n"), HasSubstr("give one name"));
  EXPECT_THAT(Refused({"variable", "S", "V=1", "--stdin"}, "x\n"), HasSubstr("give one name"));
  EXPECT_FALSE(session.folder.Exists("registry.db"));
}

TEST_F(PasswordSecrecy, IsKeptByWhatComplainsAboutTheCommandLine) {
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{"status", "S", "T", "Password=topsecret"},
        {"set", "S", "T", "Pasword=topsecret"},
        {"set", "S", "T", "Mode=0", "--Password=topsecret"},
        {"variable", "S", "PWD", "PWD=topsecret"}}) {
    EXPECT_THAT(Refused(arguments), Not(HasSubstr("topsecret")));
  }
}

TEST_F(PasswordSecrecy, IsGivenUpByAnExportAlone) {
  Printed({"set", "S", "T", "Login=sa", "Password=topsecret"});
  EXPECT_THAT(Printed({"describe", "S", "T"}), AllOf(HasSubstr("sa"), Not(HasSubstr("topsecret"))));
  EXPECT_THAT(Printed({"actions", "S", "T"}), Not(HasSubstr("topsecret")));
  const std::string wide(Printed({"reg", "export", "-"}));
  std::string text;
  for (const char byte : wide) {
    if (byte != '\0') text += byte;
  }
  EXPECT_THAT(text, HasSubstr("\"Password\"=\"topsecret\""));
}

/// A task whose driver repeats the connection string in whatever it says.
class TalkativeDriver : public PasswordSecrecy {
 protected:
  /// @return everything that a run printed and wrote.
  std::string AllOfARun(const std::string& behaviour, const std::vector<std::string>& options) {
    source.Script("column CODE 4 INTEGER 10 0 0\ncolumn NOM 12 VARCHAR 30 0 1\n" + behaviour +
                  " diag 28000 7 \"UID=sa;PWD=topsecret;\"\n");
    Printed({"set", "S", "T", "Base Cible=" + source.name(), "Table=CLIENT", "Alias=CLIENTS",
             "Dir=" + session.folder.path(), "FormatFile=1", "Login=sa", "Password=@PWD"});
    Printed({"variable", "S", "PWD=topsecret"});
    session.folder.Write("CLIENTS.CSV", "1;a\n2;b\n");
    std::vector<std::string> arguments{"run", "S", "T", "--report",
                                       session.folder.path() + "report.txt"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    const HostSession::Result result = session.Run(arguments);
    EXPECT_EQ(result.code, 1);
    std::string all = result.out + result.err;
    for (const char* name : {"report.txt", "CLIENTS.ERR", "CLIENTS.LER", "CLIENTS.TRC"}) {
      if (session.folder.Exists(name)) all += session.folder.Read(name);
    }
    return all;
  }

  ScriptedDataSource source;
};

TEST_F(TalkativeDriver, FindsNoListenerWhereverItFails) {
  for (const char* call : {"SQLDriverConnect", "SQLGetInfo", "SQLColumns", "SQLPrepare",
                           "SQLBindParameter", "SQLExecute 2"}) {
    for (const char* option : {"--json", "--quiet"}) {
      const std::string all = AllOfARun("on " + std::string(call) + " return -1", {option});
      EXPECT_THAT(all, AllOf(HasSubstr("UID=sa;PWD=******;"), Not(HasSubstr("topsecret")))) << call;
    }
  }
}

}  // namespace
}  // namespace imptable
