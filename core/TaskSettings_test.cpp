#include "core/TaskSettings.h"

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

class TaskSettings : public testing::Test {
 protected:
  TaskSettings() { component_.module().location = {kHkeyLocalMachine, "Tasks"}; }

  void Set(std::string_view name, std::string_view text) {
    component_.registry.SetText("Tasks\\T1", name, text);
  }
  void Set(std::string_view name, std::int32_t number) {
    component_.registry.SetNumber("Tasks\\T1", name, number);
  }
  ImportSettings Load() { return LoadSettings(component_.module(), "T1"); }

  FaultNumber LoadingFault() {
    try {
      Load();
    } catch (const RuntimeFault& fault) {
      return fault.number();
    }
    return {};
  }

  TestComponent component_;
};

void ExpectDefaults(const ImportSettings& settings) {
  EXPECT_EQ(settings.error_limit, "100");
  EXPECT_EQ(Number(settings.record_errors), 1);
  EXPECT_EQ(settings.delimiter, ";");
  for (const std::string& text :
       {settings.data_source, settings.login, settings.password, settings.owner, settings.alias,
        settings.comment, settings.directory, settings.key_or_index, settings.error_code}) {
    EXPECT_EQ(text, "");
  }
  for (const std::int16_t number :
       {Number(settings.mode), Number(settings.deletion), Number(settings.primary_key),
        Number(settings.duplicate_key), Number(settings.empty_file_policy),
        Number(settings.separator_option), Number(settings.null_option),
        Number(settings.parameter_option), settings.column_count, Number(settings.file_format),
        Number(settings.full_file_name)}) {
    EXPECT_EQ(number, 0);
  }
  EXPECT_THAT(settings.column_layout, IsEmpty());
}

constexpr std::string_view kTextNames[] = {"Base Cible", "Login",   "Password", "Owner",
                                           "Table",      "Alias",   "Comment",  "Dir",
                                           "Cle/Index",  "Erreurs", "CodErr",   "DelimiteurFile"};
constexpr std::string_view kNumberNames[] = {
    "Mode", "PrimKey", "Suppression", "SiVide",         "RecErreurs", "SepDec",
    "Null", "Param",   "DupKey",      "NombreColonnes", "FormatFile", "UseAlias"};

TEST_F(TaskSettings, LoadATaskThatDoesNotExistAsDefaults) {
  const ImportSettings settings = Load();
  ExpectDefaults(settings);
  EXPECT_EQ(settings.table, "");
}

TEST_F(TaskSettings, TakeTheirDefaultsWhenOnlyTheTableIsSet) {
  Set("Table", "CLIENT");
  const ImportSettings settings = Load();
  ExpectDefaults(settings);
  EXPECT_EQ(settings.table, "CLIENT");
}

TEST_F(TaskSettings, TakeTheirDefaultsForEmptyAndUnreadableValues) {
  for (const std::string_view name : kTextNames) Set(name, "");
  for (const std::string_view name : kNumberNames) Set(name, "");
  ExpectDefaults(Load());
  const KeyPath key{kHkeyLocalMachine, "Tasks\\T1"};
  for (const std::string_view name : kNumberNames) {
    component_.registry.Write(key, name, {RegistryType::kBinary, "\x01"});
  }
  for (const std::string_view name : kTextNames) {
    component_.registry.Write(key, name, {RegistryType::kText, std::string(70000, 'x')});
  }
  ExpectDefaults(Load());
}

TEST_F(TaskSettings, AreReadInTheirOrderOnceEach) {
  Set("NombreColonnes", 2);
  Load();
  EXPECT_THAT(
      component_.registry.reads(),
      ElementsAre("Tasks\\T1|Base Cible", "Tasks\\T1|Login", "Tasks\\T1|Password",
                  "Tasks\\T1|Owner", "Tasks\\T1|Table", "Tasks\\T1|Alias", "Tasks\\T1|Comment",
                  "Tasks\\T1|Dir", "Tasks\\T1|Mode", "Tasks\\T1|Cle/Index", "Tasks\\T1|PrimKey",
                  "Tasks\\T1|Suppression", "Tasks\\T1|SiVide", "Tasks\\T1|Erreurs",
                  "Tasks\\T1|RecErreurs", "Tasks\\T1|SepDec", "Tasks\\T1|Null",
                  "Tasks\\T1|NombreColonnes", "Tasks\\T1|DelimiteurFile", "Tasks\\T1|FormatFile",
                  "Tasks\\T1\\Colonnes|1", "Tasks\\T1\\Colonnes|2", "Tasks\\T1|Param",
                  "Tasks\\T1|DupKey", "Tasks\\T1|CodErr", "Tasks\\T1|UseAlias"));
}

TEST_F(TaskSettings, GoEachToItsOwnField) {
  for (const std::string_view name : kTextNames) Set(name, std::string("<") + std::string(name));
  std::int32_t number = 10;
  for (const std::string_view name : kNumberNames) {
    if (name != "NombreColonnes") Set(name, ++number);
  }
  const ImportSettings settings = Load();
  EXPECT_EQ(settings.data_source, "<Base Cible");
  EXPECT_EQ(settings.login, "<Login");
  EXPECT_EQ(settings.password, "<Password");
  EXPECT_EQ(settings.owner, "<Owner");
  EXPECT_EQ(settings.table, "<Table");
  EXPECT_EQ(settings.alias, "<Alias");
  EXPECT_EQ(settings.comment, "<Comment");
  EXPECT_EQ(settings.directory, "<Dir");
  EXPECT_EQ(settings.key_or_index, "<Cle/Index");
  EXPECT_EQ(settings.error_limit, "<Erreurs");
  EXPECT_EQ(settings.error_code, "<CodErr");
  EXPECT_EQ(settings.delimiter, "<DelimiteurFile");
  EXPECT_EQ(Number(settings.mode), 11);
  EXPECT_EQ(Number(settings.primary_key), 12);
  EXPECT_EQ(Number(settings.deletion), 13);
  EXPECT_EQ(Number(settings.empty_file_policy), 14);
  EXPECT_EQ(Number(settings.record_errors), 15);
  EXPECT_EQ(Number(settings.separator_option), 16);
  EXPECT_EQ(Number(settings.null_option), 17);
  EXPECT_EQ(Number(settings.parameter_option), 18);
  EXPECT_EQ(Number(settings.duplicate_key), 19);
  EXPECT_EQ(Number(settings.file_format), 20);
  EXPECT_EQ(Number(settings.full_file_name), 21);
}

TEST_F(TaskSettings, KeepTheBlanksOfATextAndAZeroThatIsNotTheDefault) {
  Set("Alias", " CLIENTS  ");
  Set("DelimiteurFile", " ");
  Set("RecErreurs", 0);
  const ImportSettings settings = Load();
  EXPECT_EQ(settings.alias, " CLIENTS  ");
  EXPECT_EQ(settings.delimiter, " ");
  EXPECT_EQ(Number(settings.record_errors), 0);
}

TEST_F(TaskSettings, TakeANumberWhereATextIsExpectedAndATextWhereANumberIs) {
  Set("Table", 12);
  Set("Erreurs", 5);
  Set("Mode", " 3 ");
  Set("NombreColonnes", "1");
  component_.registry.SetNumber("Tasks\\T1\\Colonnes", "1", 99);
  const ImportSettings settings = Load();
  EXPECT_EQ(settings.table, "12");
  EXPECT_EQ(settings.error_limit, "5");
  EXPECT_EQ(Number(settings.mode), 3);
  EXPECT_THAT(settings.column_layout, ElementsAre("99"));
}

TEST_F(TaskSettings, FailToLoadWhenANumberIsNone) {
  for (const std::string_view name : kNumberNames) {
    Set(name, "many");
    EXPECT_EQ(LoadingFault(), FaultNumber::kTypeMismatch) << name;
    Set(name, "");
  }
}

TEST_F(TaskSettings, FailToLoadWhenANumberDoesNotFit16Bits) {
  for (const std::string_view name : kNumberNames) {
    Set(name, 32768);
    EXPECT_EQ(LoadingFault(), FaultNumber::kOverflow) << name;
    Set(name, "-32769");
    EXPECT_EQ(LoadingFault(), FaultNumber::kOverflow) << name;
    Set(name, "");
  }
}

TEST_F(TaskSettings, DoNotConvertTheErrorLimit) {
  Set("Erreurs", "as many as you like");
  EXPECT_EQ(Load().error_limit, "as many as you like");
}

TEST_F(TaskSettings, LoadWithDefaultsInPlaceOfFaultyNumbersForWhoeverCanMendThem) {
  Set("Mode", "often");
  Set("Table", "CLIENT");
  Set("NombreColonnes", -2);
  Set("RecErreurs", "40000");
  Set("UseAlias", 1);
  std::vector<RuntimeFault> faults;
  const ImportSettings settings = LoadSettings(component_.module(), "T1", faults);
  std::vector<std::string> details;
  for (const RuntimeFault& fault : faults) details.push_back(fault.detail());
  EXPECT_THAT(details, ElementsAre("\"Mode\" = \"often\"", "\"RecErreurs\" = \"40000\"",
                                   "\"NombreColonnes\" = \"-2\""));
  EXPECT_EQ(Number(settings.mode), 0);
  EXPECT_EQ(Number(settings.record_errors), 1);
  EXPECT_EQ(settings.column_count, 0);
  EXPECT_EQ(settings.table, "CLIENT");
  EXPECT_EQ(Number(settings.full_file_name), 1);
}

TEST_F(TaskSettings, FailToLoadFromARegistryThatCantBeReadEvenForWhoeverCouldMendThem) {
  component_.registry.FailReadsFrom(3);
  std::vector<RuntimeFault> faults;
  EXPECT_THROW(LoadSettings(component_.module(), "T1", faults), RuntimeFault);
}

TEST_F(TaskSettings, HoldOneLayoutEntryAColumnAndAnEmptyOneForEachThatIsMissing) {
  Set("NombreColonnes", 11);
  for (const char* name : {"1", "3", "03", "10", "11", "12"}) {
    component_.registry.SetText("Tasks\\T1\\Colonnes", name, std::string("entry ") + name);
  }
  EXPECT_THAT(Load().column_layout, ElementsAre("entry 1", "", "entry 3", "", "", "", "", "", "",
                                                "entry 10", "entry 11"));
}

TEST_F(TaskSettings, ReadNoLayoutWithoutColumns) {
  component_.registry.SetText("Tasks\\T1\\Colonnes", "1", "entry");
  EXPECT_THAT(Load().column_layout, IsEmpty());
  for (const std::string& read : component_.registry.reads()) {
    EXPECT_THAT(read, testing::Not(testing::HasSubstr("Colonnes|")));
  }
}

TEST_F(TaskSettings, HoldAsManyColumnsAs16BitsCanCount) {
  Set("NombreColonnes", 32767);
  component_.registry.SetText("Tasks\\T1\\Colonnes", "32767", "last");
  const ImportSettings settings = Load();
  ASSERT_EQ(settings.column_layout.size(), 32767U);
  EXPECT_EQ(settings.column_layout.back(), "last");
}

TEST_F(TaskSettings, FailToLoadWithLessThanNoColumns) {
  Set("NombreColonnes", -1);
  EXPECT_EQ(LoadingFault(), FaultNumber::kIndexOutOfRange);
}

TEST_F(TaskSettings, KeepAPasswordAndAReferenceAsTheyAreStored) {
  Set("Password", "pa ss@;");
  EXPECT_EQ(Load().password, "pa ss@;");
  Set("Password", "@PWD");
  EXPECT_EQ(Load().password, "@PWD");
  EXPECT_EQ(TransformPassword("any ; text"), "any ; text");
}

TEST_F(TaskSettings, TakeATextForAReferenceByItsFirstCharacter) {
  EXPECT_TRUE(IsVariableReference("@PWD"));
  EXPECT_TRUE(IsVariableReference("@"));
  EXPECT_FALSE(IsVariableReference(""));
  EXPECT_FALSE(IsVariableReference(" @PWD"));
  EXPECT_FALSE(IsVariableReference("PWD@"));
}

TEST_F(TaskSettings, AreReadAfreshEachTime) {
  Set("Table", "ONE");
  EXPECT_EQ(Load().table, "ONE");
  Set("Table", "TWO");
  EXPECT_EQ(Load().table, "TWO");
}

TEST_F(TaskSettings, FailToLoadWhenTheRegistryCannotBeReadHalfway) {
  component_.registry.FailReadsFrom(10);
  EXPECT_EQ(LoadingFault(), FaultNumber::kDeviceError);
}

}  // namespace
}  // namespace imptable
