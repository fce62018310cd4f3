#include <gtest/gtest.h>

#include <string>

#include "tests/kit/ScriptedSession.h"

namespace imptable {
namespace {

const KeyPath kInternational{kHkeyCurrentUser, "Control Panel\\International"};

TEST(SystemDecimalSeparator, IsTheUsersOwn) {
  ScriptedSession session;
  session.component.registry.SetText(kInternational, "sDecimal", ",");
  session.odbc().ReadSystemDecimalSeparator();
  EXPECT_EQ(session.odbc().system_decimal_separator, ",");
}

TEST(SystemDecimalSeparator, StaysAsItWasWhenThereIsNone) {
  ScriptedSession session;
  session.component.registry.SetText(kInternational, "sDecimal", ",");
  session.odbc().ReadSystemDecimalSeparator();
  EXPECT_EQ(session.component.registry.DeleteKey(kInternational), kRegistryOk);
  session.odbc().ReadSystemDecimalSeparator();
  EXPECT_EQ(session.odbc().system_decimal_separator, ",");
}

TEST(SystemDecimalSeparator, IsNotLookedForElsewhere) {
  ScriptedSession session;
  session.component.registry.SetText("Control Panel\\International", "sDecimal", ",");
  session.component.registry.SetText(kInternational, "sThousand", " ");
  session.odbc().system_decimal_separator = "'";
  session.odbc().ReadSystemDecimalSeparator();
  EXPECT_EQ(session.odbc().system_decimal_separator, "'");
}

TEST(SystemDecimalSeparator, MayHaveSeveralCharacters) {
  ScriptedSession session;
  session.component.registry.SetText(kInternational, "sDecimal", "::");
  session.odbc().ReadSystemDecimalSeparator();
  EXPECT_EQ(session.odbc().system_decimal_separator, "::");
}

TEST(SystemDecimalSeparator, StaysAsItWasWhenTheValueHasNoByteAtAll) {
  ScriptedSession session;
  EXPECT_EQ(session.component.registry.Write(kInternational, "sDecimal", {RegistryType::kText, ""}),
            kRegistryOk);
  session.odbc().system_decimal_separator = ",";
  session.odbc().ReadSystemDecimalSeparator();
  EXPECT_EQ(session.odbc().system_decimal_separator, ",");
}

TEST(SystemDecimalSeparator, MustFitIn255BytesWithItsTerminator) {
  ScriptedSession session;
  const std::string longest(254, ',');
  session.component.registry.SetText(kInternational, "sDecimal", longest);
  session.odbc().ReadSystemDecimalSeparator();
  EXPECT_EQ(session.odbc().system_decimal_separator, longest);
  session.component.registry.SetText(kInternational, "sDecimal", std::string(255, '.'));
  session.odbc().ReadSystemDecimalSeparator();
  EXPECT_EQ(session.odbc().system_decimal_separator, longest);
}

}  // namespace
}  // namespace imptable
