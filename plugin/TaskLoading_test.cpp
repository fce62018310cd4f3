#include "plugin/TaskLoading.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/kit/TestComponent.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The number that the registry stores for the value.
template <typename Value>
std::int16_t Number(Value value) {
  return static_cast<std::int16_t>(value);
}

class TaskLoading : public testing::Test {
 protected:
  TaskLoading() {
    component_.module().location = {kHkeyLocalMachine, "Tasks"};
    Set("Base Cible", "Source");
  }

  void Set(std::string_view name, std::string_view text) {
    component_.registry.SetText("Tasks\\T1", name, text);
  }
  void Set(std::string_view name, std::int32_t number) {
    component_.registry.SetNumber("Tasks\\T1", name, number);
  }
  RunState& Load() {
    TakeTask(component_.module(), OpenTask(component_.module(), "S1", "T1"));
    return run();
  }
  RunState& run() { return component_.module().run; }

  TestComponent component_;
};

TEST_F(TaskLoading, LooksUpVariablesInItsOrder) {
  for (const char* name : {"Base Cible", "Login", "Password", "Owner", "Table", "Alias", "Comment",
                           "Dir", "Cle/Index", "CodErr"}) {
    Set(name, std::string("@") + name);
    component_.host.variables[name] = std::string("value of ") + name;
  }
  const RunState& loaded = Load();
  EXPECT_THAT(component_.host.looked_up,
              ElementsAre("S1|Tasks|Base Cible", "S1|Tasks|Login", "S1|Tasks|Table",
                          "S1|Tasks|Password", "S1|Tasks|Owner", "S1|Tasks|Alias", "S1|Tasks|Dir",
                          "S1|Tasks|CodErr", "S1|Tasks|Cle/Index"));
  EXPECT_EQ(loaded.data_source, "value of Base Cible");
  EXPECT_EQ(loaded.login, "value of Login");
  EXPECT_EQ(loaded.password, "value of Password");
  EXPECT_EQ(loaded.owner, "value of Owner");
  EXPECT_EQ(loaded.table, "value of Table");
  EXPECT_EQ(loaded.alias, "value of Alias");
  EXPECT_EQ(loaded.directory, std::string("value of Dir") + SystemPathSeparator());
  EXPECT_EQ(loaded.key_or_index, "value of Cle/Index");
  EXPECT_EQ(loaded.error_code, "value of CodErr");
}

TEST_F(TaskLoading, LooksUpNothingElse) {
  for (const char* name : {"Comment", "DelimiteurFile"}) Set(name, "@A");
  Set("Table", " @A");
  Set("Owner", "A@");
  EXPECT_EQ(Load().delimiter, "@A");
  EXPECT_EQ(run().table, " @A");
  EXPECT_EQ(run().owner, "A@");
  EXPECT_THAT(component_.host.looked_up, IsEmpty());
}

TEST_F(TaskLoading, TakesTheErrorLimitForNoReference) {
  Set("Erreurs", "@A");
  EXPECT_THROW(Load(), RuntimeFault);
  EXPECT_THAT(component_.host.looked_up, IsEmpty());
}

TEST_F(TaskLoading, RefusesTheTaskForTheFirstVariableThatIsNotSet) {
  Set("Login", "@NONE");
  Set("Table", "@NOTHING");
  const RunState& loaded = Load();
  ASSERT_TRUE(loaded.refusal);
  EXPECT_EQ(loaded.refusal->setting, "Login");
  EXPECT_EQ(loaded.refusal->stored, "@NONE");
  EXPECT_EQ(loaded.refusal->variable, "NONE");
  EXPECT_EQ(loaded.table, "");
}

TEST_F(TaskLoading, TakesAVariableThatIsSetToNothingForItsValue) {
  Set("Password", "@EMPTY");
  component_.host.variables["EMPTY"] = "";
  EXPECT_FALSE(Load().refusal);
  EXPECT_EQ(run().password, "");
}

TEST_F(TaskLoading, RefusesATaskWithoutADataSource) {
  Set("Base Cible", "");
  ASSERT_TRUE(Load().refusal);
  EXPECT_EQ(run().refusal->setting, "Base Cible");
  EXPECT_EQ(run().refusal->variable, "");
  Set("Base Cible", "@EMPTY");
  component_.host.variables["EMPTY"] = "";
  ASSERT_TRUE(Load().refusal);
  EXPECT_EQ(run().refusal->stored, "@EMPTY");
}

TEST_F(TaskLoading, ReadsTheAssignmentsInTheOrderOfTheRegistryWithTheirVariables) {
  Set("Param", 1);
  const std::string fields = "Tasks\\T1\\Champs";
  component_.registry.SetText(fields, "2", "NOM,12,@NAME");
  component_.registry.SetText(fields, "1", "CODE,4,(Col)1");
  component_.host.variables["NAME"] = "Anne";
  const RunState& loaded = Load();
  ASSERT_EQ(loaded.assignments.size(), 2U);
  EXPECT_EQ(loaded.assignments[0].name, "2");
  EXPECT_EQ(loaded.assignments[1].value, "CODE,4,(Col)1");
  EXPECT_THAT(loaded.variables, ElementsAre(testing::Pair("NAME", "Anne")));
  EXPECT_FALSE(loaded.refusal);
}

TEST_F(TaskLoading, NotesTheOriginsWhoseVariableIsNotSet) {
  Set("Param", 1);
  component_.registry.SetText("Tasks\\T1\\Champs", "1", "CODE,4,@NONE");
  component_.registry.SetText("Tasks\\T1\\Champs", "2", "CODE,4,@NONE");
  EXPECT_FALSE(Load().refusal);
  ASSERT_EQ(run().unset_origins.size(), 2U);
  EXPECT_EQ(run().unset_origins[1].setting, "Champs\\2");
  EXPECT_EQ(run().unset_origins[1].stored, "CODE,4,@NONE");
  EXPECT_EQ(run().unset_origins[1].variable, "NONE");
  Set("Param", 0);
  EXPECT_TRUE(Load().unset_origins.empty());
}

TEST_F(TaskLoading, LooksUpAReferenceOnce) {
  Set("Table", "@A");
  component_.host.variables = {{"A", "@B"}, {"B", "x"}};
  EXPECT_EQ(Load().table, "@B");
}

TEST_F(TaskLoading, KeepsTheNameOfAVariableAsItIs) {
  Set("Table", "@ a b@ ");
  Set("Owner", "@");
  component_.host.variables = {{" a b@ ", ""}, {"", ""}};
  Load();
  EXPECT_THAT(component_.host.looked_up, ElementsAre("S1|Tasks| a b@ ", "S1|Tasks|"));
}

TEST_F(TaskLoading, EndsTheDirectoryWithASeparator) {
  const std::string separator(1, SystemPathSeparator());
  for (const std::string none : {"/data", "", "/data "}) {
    Set("Dir", none);
    EXPECT_EQ(Load().directory, none + separator);
  }
  for (const std::string& ended : {"data" + separator, separator, std::string("C:\\data\\")}) {
    Set("Dir", ended);
    EXPECT_EQ(Load().directory, ended);
  }
}

TEST_F(TaskLoading, EndsTheDirectoryThatAVariableNamesToo) {
  Set("Dir", "@D");
  component_.host.variables["D"] = "/data";
  EXPECT_EQ(Load().directory, std::string("/data") + SystemPathSeparator());
}

TEST_F(TaskLoading, MakesTheErrorLimitANumberOf32Bits) {
  EXPECT_EQ(Load().most_errors, 100);
  Set("Erreurs", "70000");
  EXPECT_EQ(Load().most_errors, 70000);
  Set("Erreurs", " -1 ");
  EXPECT_EQ(Load().most_errors, -1);
  for (const char* text : {"none", "2147483648"}) {
    Set("Erreurs", text);
    EXPECT_THROW(Load(), RuntimeFault) << text;
  }
}

TEST_F(TaskLoading, CopiesEverySettingToItsPlace) {
  std::int32_t number = 10;
  for (const char* name : {"Mode", "Suppression", "RecErreurs", "SiVide", "SepDec", "Null", "Param",
                           "UseAlias", "FormatFile", "PrimKey", "DupKey", "RecTrace"}) {
    Set(name, ++number);
  }
  Set("Alias", "CLIENTS  ");
  Set("DelimiteurFile", "|");
  Set("NombreColonnes", 2);
  component_.registry.SetText("Tasks\\T1\\Colonnes", "2", "second");
  const RunState& loaded = Load();
  EXPECT_EQ(Number(loaded.mode), 11);
  EXPECT_EQ(Number(loaded.deletion), 12);
  EXPECT_EQ(Number(loaded.record_errors), 13);
  EXPECT_EQ(Number(loaded.empty_file_policy), 14);
  EXPECT_EQ(Number(loaded.separator_option), 15);
  EXPECT_EQ(Number(loaded.null_option), 16);
  EXPECT_EQ(Number(loaded.parameter_option), 17);
  EXPECT_EQ(Number(loaded.full_file_name), 18);
  EXPECT_EQ(Number(loaded.file_format), 19);
  EXPECT_EQ(Number(loaded.primary_key), 20);
  EXPECT_EQ(Number(loaded.duplicate_key), 21);
  EXPECT_EQ(loaded.alias, "CLIENTS  ");
  EXPECT_EQ(loaded.delimiter, "|");
  EXPECT_THAT(loaded.column_layout, ElementsAre("", "second"));
  EXPECT_EQ(Number(loaded.trace_option), 22);
}

}  // namespace
}  // namespace imptable
