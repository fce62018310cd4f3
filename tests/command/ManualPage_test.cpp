#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "host/CommandLine.h"
#include "tests/command/ChildProcess.h"

namespace imptable {
namespace {

const std::string kPage = IMPTABLE_TREE "/docs/imptable.1";

/// The page's text as a reader sees it, without the marks of the fonts.
std::string ReadPage() {
  ChildProcess reader(
      {"/usr/bin/groff", "-ww", "-Kutf8", "-man", "-Tascii", "-P-cbou", "-rLL=400n", kPage},
      ChildProcess::Output::kPipe, {{"LC_ALL", "C"}, {"GROFF_NO_SGR", "1"}});
  EXPECT_EQ(reader.Finish(), 0);
  return reader.output();
}

TEST(ManualPage, IsFormattedWithoutAWarning) {
  ChildProcess check({"/usr/bin/groff", "-ww", "-z", "-Kutf8", "-man", "-Tutf8", kPage},
                     ChildProcess::Output::kPipe, {{"LC_ALL", "C"}});
  EXPECT_EQ(check.Finish(), 0);
  EXPECT_EQ(check.output(), "");
}

TEST(ManualPage, NamesEveryCommandAndOption) {
  const std::string page = ReadPage();
  for (const CommandForm& form : CommandForms()) {
    if (!form.name.empty() && form.name != "reg") {
      EXPECT_THAT(page, testing::ContainsRegex("\n +" + form.name + "[ \n]"));
    }
    for (const std::string& option : form.options) {
      EXPECT_THAT(page, testing::ContainsRegex("[ [\n]" + option + "[], |\n]")) << form.name;
    }
  }
}

TEST(ManualPage, IsOfThisVersion) {
  std::ifstream file(kPage);
  const std::string source{std::istreambuf_iterator<char>(file), {}};
  EXPECT_THAT(source, testing::HasSubstr("\"imptable " IMPTABLE_VERSION "\""));
}

TEST(CommandForms, AreTheProgramItsCommandsAndTheirOptions) {
  std::vector<std::string> names;
  for (const CommandForm& form : CommandForms()) names.push_back(form.name);
  EXPECT_THAT(
      names, testing::IsSupersetOf({"", "run", "configure", "describe", "actions", "status", "list",
                                    "get", "set", "unset", "copy", "rename", "delete", "variable",
                                    "sources", "reg", "reg import", "reg export"}));
  EXPECT_THAT(CommandForms().front().options,
              testing::UnorderedElementsAre("--help", "-h", "--version", "--registry", "--lang"));
}

}  // namespace
}  // namespace imptable
