#include <gtest/gtest.h>

#include <limits>

#include "core/ModuleCommun.h"

namespace imptable {
namespace {

struct Reading {
  std::string_view text;
  std::int32_t number;
};

constexpr Reading kReadings[] = {
    {"0", 0},
    {"7", 7},
    {"-7", -7},
    {"+7", 7},
    {"7-", -7},
    {"(7)", -7},
    {"  12  ", 12},
    {"007", 7},
    {"-0", 0},
    {"2.4", 2},
    {"2.6", 3},
    {".5", 0},
    {"5.", 5},
    {"0.5", 0},
    {"1.5", 2},
    {"2.5", 2},
    {"-0.5", 0},
    {"-1.5", -2},
    {"-2.5", -2},
    {"0.05", 0},
    {"2.50", 2},
    {"2.4999999999999999999999", 2},
    {"2.5000000000000000000001", 3},
    {"1e3", 1000},
    {"25e-1", 2},
    {"15e-1", 2},
    {"700000e-5", 7},
    {"1e-999", 0},
    {"0e999", 0},
    {"32767", 32767},
    {"-32768", -32768},
    {"32767.4", 32767},
    {"-32768.5", -32768},
};

constexpr std::string_view kNoNumbers[] = {"",    " ",   "abc",  "1a",  "1 2", "--1", "+-1",
                                           "1,5", "0x1", "True", "nan", "inf", ".",   "-"};

FaultNumber FaultOf16(const SettingValue& value) {
  try {
    ADD_FAILURE() << AsText(value) << " gives " << AsInt16(value, "Mode");
  } catch (const RuntimeFault& fault) {
    EXPECT_EQ(fault.detail(), "\"Mode\" = \"" + AsText(value) + '"');
    return fault.number();
  }
  return {};
}

FaultNumber FaultOf32(const SettingValue& value) {
  try {
    ADD_FAILURE() << AsText(value) << " gives " << AsInt32(value, "Mode");
  } catch (const RuntimeFault& fault) {
    EXPECT_EQ(fault.detail(), "\"Mode\" = \"" + AsText(value) + '"');
    return fault.number();
  }
  return {};
}

TEST(SettingNumbers, ReadsATextAsADecimalNumberRoundedHalfToEven) {
  for (const Reading& reading : kReadings) {
    const SettingValue value = std::string(reading.text);
    EXPECT_EQ(AsInt16(value, "Mode"), reading.number) << reading.text;
    EXPECT_EQ(AsInt32(value, "Mode"), reading.number) << reading.text;
  }
}

TEST(SettingNumbers, TakesNoOtherTextForANumber) {
  for (const std::string_view text : kNoNumbers) {
    EXPECT_EQ(FaultOf16(std::string(text)), FaultNumber::kTypeMismatch) << text;
    EXPECT_EQ(FaultOf32(std::string(text)), FaultNumber::kTypeMismatch) << text;
  }
}

TEST(SettingNumbers, OverflowsOutside16Bits) {
  for (const std::int32_t number : {32768, -32769, std::numeric_limits<std::int32_t>::max(),
                                    std::numeric_limits<std::int32_t>::min()}) {
    EXPECT_EQ(FaultOf16(number), FaultNumber::kOverflow);
    EXPECT_EQ(FaultOf16(std::to_string(number)), FaultNumber::kOverflow);
    EXPECT_EQ(AsInt32(number, "Mode"), number);
    EXPECT_EQ(AsInt32(std::to_string(number), "Mode"), number);
  }
  EXPECT_EQ(FaultOf16("32767.5"), FaultNumber::kOverflow);
  EXPECT_EQ(AsInt16(32767, "Mode"), 32767);
  EXPECT_EQ(AsInt16(-32768, "Mode"), -32768);
}

TEST(SettingNumbers, OverflowsOutside32Bits) {
  for (const char* text : {"2147483648", "-2147483649", "2147483647.5", "1e18", "1e30", "1e999"}) {
    EXPECT_EQ(FaultOf32(text), FaultNumber::kOverflow) << text;
  }
}

TEST(SettingNumbers, ShowsANumberAsText) {
  EXPECT_EQ(AsText(-32769), "-32769");
  EXPECT_EQ(AsText(std::string(" a ")), " a ");
}

TEST(SettingNumbers, PutsABlankInPlaceOfThePlusSignOfACount) {
  EXPECT_EQ(SignedText(0), " 0");
  EXPECT_EQ(SignedText(12), " 12");
  EXPECT_EQ(SignedText(-12), "-12");
}

}  // namespace
}  // namespace imptable
