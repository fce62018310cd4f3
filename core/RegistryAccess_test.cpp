#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/kit/TestComponent.h"

namespace imptable {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RegistryAccess : public testing::Test {
 protected:
  RegistryAccess() { module_.location = {kHkeyLocalMachine, "Tasks"}; }

  void Store(RegistryType type, std::string data) {
    registry_.Write({kHkeyLocalMachine, "Tasks\\T1"}, "V", {type, std::move(data)});
  }
  SettingValue Read() { return module_.ReadValue("T1", "V", "default"); }
  std::optional<RegistryValue> Stored() {
    return registry_.Read({kHkeyLocalMachine, "Tasks\\T1"}, "V");
  }

  TestComponent component_;
  MemoryRegistry& registry_ = component_.registry;
  ModuleCommun& module_ = component_.module();
};

TEST_F(RegistryAccess, ReadsTheTextTypesAsText) {
  for (const RegistryType type :
       {RegistryType::kText, RegistryType::kExpandableText, RegistryType::kMultiText}) {
    Store(type, std::string("%A% text \0", 10));
    EXPECT_EQ(Read(), SettingValue("%A% text "));
    Store(type, "unterminated");
    EXPECT_EQ(Read(), SettingValue("unterminated"));
  }
}

TEST_F(RegistryAccess, ReadsAMultiTextWhole) {
  Store(RegistryType::kMultiText, std::string("one\0two\0\0", 9));
  EXPECT_EQ(Read(), SettingValue(std::string("one\0two", 7)));
}

TEST_F(RegistryAccess, ReadsANumberAs32BitsWithSign) {
  Store(RegistryType::kNumber, std::string("\x01\x02\x03\x04", 4));
  EXPECT_EQ(Read(), SettingValue(0x04030201));
  Store(RegistryType::kNumber, std::string("\xff\xff\xff\xff", 4));
  EXPECT_EQ(Read(), SettingValue(-1));
  Store(RegistryType::kNumber, std::string(4, '\0'));
  EXPECT_EQ(Read(), SettingValue(0));
}

TEST_F(RegistryAccess, GivesTheDefaultForWhatIsAbsentEmptyOrUnreadable) {
  EXPECT_EQ(Read(), SettingValue("default")) << "no key";
  registry_.SetText("Tasks\\T1", "Other", "x");
  EXPECT_EQ(Read(), SettingValue("default")) << "no value";
  for (const RegistryType type :
       {RegistryType::kText, RegistryType::kExpandableText, RegistryType::kMultiText,
        RegistryType::kNumber, RegistryType::kBinary}) {
    Store(type, "");
    EXPECT_EQ(Read(), SettingValue("default")) << "no data";
  }
  for (const RegistryType type :
       {RegistryType::kText, RegistryType::kExpandableText, RegistryType::kMultiText}) {
    Store(type, std::string(2, '\0'));
    EXPECT_EQ(Read(), SettingValue("default")) << "an empty text";
  }
  Store(RegistryType::kBinary, "abcd");
  EXPECT_EQ(Read(), SettingValue("default")) << "neither text nor number";
  Store(RegistryType::kNone, "abcd");
  EXPECT_EQ(Read(), SettingValue("default")) << "no type";
  Store(RegistryType::kNumber, "ab");
  EXPECT_EQ(Read(), SettingValue("default")) << "half a number";
}

TEST_F(RegistryAccess, ReadsUpTo65536BytesOfAValue) {
  Store(RegistryType::kText, std::string(65535, 'x') + '\0');
  EXPECT_EQ(Read(), SettingValue(std::string(65535, 'x')));
  Store(RegistryType::kText, std::string(65536, 'x') + '\0');
  EXPECT_EQ(Read(), SettingValue("default"));
}

TEST_F(RegistryAccess, GivesTheDefaultUnchangedWhateverItIs) {
  EXPECT_EQ(module_.ReadValue("T1", "V"), SettingValue(""));
  EXPECT_EQ(module_.ReadValue("T1", "V", 7), SettingValue(7));
}

TEST_F(RegistryAccess, IsRelativeToTheCurrentLocation) {
  registry_.SetText("Elsewhere\\T1\\Colonnes", "1", "a");
  registry_.SetText({kHkeyCurrentUser, "Mine\\T1\\Colonnes"}, "1", "b");
  EXPECT_EQ(module_.ReadValue("T1\\Colonnes", "1"), SettingValue(""));
  module_.location = {kHkeyLocalMachine, "Elsewhere"};
  EXPECT_EQ(module_.ReadValue("T1\\Colonnes", "1"), SettingValue("a"));
  module_.location = {kHkeyCurrentUser, "Mine"};
  EXPECT_EQ(module_.ReadValue("T1\\Colonnes", "1"), SettingValue("b"));
  module_.WriteText("T2", "Dir", "d");
  EXPECT_EQ(registry_.Text({kHkeyCurrentUser, "Mine\\T2"}, "Dir"), "d");
}

TEST_F(RegistryAccess, FaultsWhenTheRegistryAsAWholeCannotBeRead) {
  registry_.FailReadsFrom(1);
  try {
    Read();
    FAIL() << "a damaged registry passes for an empty one";
  } catch (const RuntimeFault& fault) {
    EXPECT_EQ(fault.number(), FaultNumber::kDeviceError);
    EXPECT_EQ(fault.detail(), "the registry can't be read");
  }
}

TEST_F(RegistryAccess, WritesATextWithItsTerminator) {
  EXPECT_EQ(module_.WriteText("T1", "V", "abc"), kRegistryOk);
  EXPECT_EQ(Stored(), (RegistryValue{RegistryType::kText, std::string("abc\0", 4)}));
}

TEST_F(RegistryAccess, WritesAnEmptyTextAsOneByteThatReadsBackAsTheDefault) {
  EXPECT_EQ(module_.WriteText("T1", "V", ""), kRegistryOk);
  EXPECT_EQ(Stored(), (RegistryValue{RegistryType::kText, std::string(1, '\0')}));
  EXPECT_EQ(Read(), SettingValue("default"));
}

TEST_F(RegistryAccess, WritesANumberAsFourBytesLowestFirst) {
  EXPECT_EQ(module_.WriteNumber("T1", "V", 0x04030201), kRegistryOk);
  EXPECT_EQ(Stored(), (RegistryValue{RegistryType::kNumber, "\x01\x02\x03\x04"}));
  EXPECT_EQ(module_.WriteNumber("T1", "V", -2), kRegistryOk);
  EXPECT_EQ(Stored(), (RegistryValue{RegistryType::kNumber, "\xfe\xff\xff\xff"}));
  EXPECT_EQ(Read(), SettingValue(-2));
}

TEST_F(RegistryAccess, CreatesTheKeyThatItWritesTo) {
  EXPECT_FALSE(registry_.HasKey("Tasks"));
  module_.WriteNumber("T1\\Sub", "V", 1);
  EXPECT_EQ(registry_.Number("Tasks\\T1\\Sub", "V"), 1);
}

TEST_F(RegistryAccess, ReturnsTheResultCodeOfAWriteThatFails) {
  registry_.FailWrites(kRegistryAccessDenied);
  EXPECT_EQ(module_.WriteText("T1", "V", "abc"), kRegistryAccessDenied);
  EXPECT_EQ(module_.WriteNumber("T1", "V", 1), kRegistryAccessDenied);
  EXPECT_FALSE(registry_.HasKey("Tasks"));
}

TEST_F(RegistryAccess, DeletesAKeyWithAllThatIsBelowIt) {
  registry_.SetText("Tasks\\T1", "Table", "x");
  registry_.SetText("Tasks\\T1\\Action\\1\\Deep", "Type", "x");
  registry_.SetText("Tasks\\T1\\Action\\2", "Type", "x");
  registry_.SetText("Tasks\\T1\\Colonnes", "1", "x");
  registry_.SetText("Tasks\\T10", "Table", "x");
  EXPECT_EQ(module_.DeleteKey("", "T1"), kRegistryOk);
  EXPECT_FALSE(registry_.HasKey("Tasks\\T1"));
  EXPECT_TRUE(registry_.HasKey("Tasks\\T10"));
}

TEST_F(RegistryAccess, DeletesASubkeyOnly) {
  registry_.SetText("Tasks\\T1\\Colonnes", "1", "x");
  registry_.SetText("Tasks\\T1\\Champs", "1", "x");
  EXPECT_EQ(module_.DeleteKey("T1", "Colonnes"), kRegistryOk);
  EXPECT_THAT(module_.SubkeyNames("T1"), ElementsAre("Champs"));
}

TEST_F(RegistryAccess, SaysThatAKeyToDeleteIsMissing) {
  EXPECT_EQ(module_.DeleteKey("T1", "Colonnes"), kRegistryNotFound);
}

TEST_F(RegistryAccess, ListsValuesAsFirstWrittenAndSubkeysByName) {
  for (const char* name : {"2", "10", "1", "b", "A"}) {
    module_.WriteText("T1\\Champs", name, "x");
    module_.WriteText(std::string("T1\\Champs\\") + name, "V", "x");
  }
  module_.WriteText("T1\\Champs", "10", "y");
  EXPECT_THAT(module_.ValueNames("T1\\Champs"), ElementsAre("2", "10", "1", "b", "A"));
  EXPECT_THAT(module_.SubkeyNames("T1\\Champs"), ElementsAre("1", "10", "2", "A", "b"));
  EXPECT_THAT(module_.ValueNames("T2"), IsEmpty());
  EXPECT_THAT(module_.SubkeyNames("T2"), IsEmpty());
}

}  // namespace
}  // namespace imptable
