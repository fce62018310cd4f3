#include <gtest/gtest.h>

#include <string>

#include "tests/kit/TestComponent.h"

namespace imptable {
namespace {

const KeyPath kInternational{kHkeyCurrentUser, "Control Panel\\International"};

TEST(DecimalSeparator, IsTheUsersOwn) {
  TestComponent component;
  component.registry.SetText(kInternational, "sDecimal", ",");
  component.module().ReadDecimalSeparator();
  EXPECT_EQ(component.module().run.decimal_separator, ",");
}

TEST(DecimalSeparator, StaysAsItWasWhenThereIsNone) {
  TestComponent component;
  component.registry.SetText(kInternational, "sDecimal", ",");
  component.module().ReadDecimalSeparator();
  EXPECT_EQ(component.registry.DeleteKey(kInternational), kRegistryOk);
  component.module().ReadDecimalSeparator();
  EXPECT_EQ(component.module().run.decimal_separator, ",");
}

TEST(DecimalSeparator, IsNotLookedForElsewhere) {
  TestComponent component;
  component.registry.SetText("Control Panel\\International", "sDecimal", ",");
  component.registry.SetText(kInternational, "sThousand", " ");
  component.module().run.decimal_separator = "'";
  component.module().ReadDecimalSeparator();
  EXPECT_EQ(component.module().run.decimal_separator, "'");
}

TEST(DecimalSeparator, MayHaveSeveralCharacters) {
  TestComponent component;
  component.registry.SetText(kInternational, "sDecimal", "::");
  component.module().ReadDecimalSeparator();
  EXPECT_EQ(component.module().run.decimal_separator, "::");
}

TEST(DecimalSeparator, StaysAsItWasWhenTheValueHasNoByteAtAll) {
  TestComponent component;
  EXPECT_EQ(component.registry.Write(kInternational, "sDecimal", {RegistryType::kText, ""}),
            kRegistryOk);
  component.module().run.decimal_separator = ",";
  component.module().ReadDecimalSeparator();
  EXPECT_EQ(component.module().run.decimal_separator, ",");
}

TEST(DecimalSeparator, MustFitIn255BytesWithItsTerminator) {
  TestComponent component;
  const std::string longest(254, ',');
  component.registry.SetText(kInternational, "sDecimal", longest);
  component.module().ReadDecimalSeparator();
  EXPECT_EQ(component.module().run.decimal_separator, longest);
  component.registry.SetText(kInternational, "sDecimal", std::string(255, '.'));
  component.module().ReadDecimalSeparator();
  EXPECT_EQ(component.module().run.decimal_separator, longest);
}

}  // namespace
}  // namespace imptable
