#include "platform/testing/ScopedVariable.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace imptable {
namespace {

constexpr const char* kName = "IMPTABLE_SCOPED_VARIABLE";

TEST(ScopedVariable, PutsTheFormerValueBack) {
  ASSERT_EQ(std::getenv(kName), nullptr);
  {
    const ScopedVariable outer(kName, "outer");
    {
      const ScopedVariable inner(kName, "inner");
      EXPECT_STREQ(std::getenv(kName), "inner");
    }
    EXPECT_STREQ(std::getenv(kName), "outer");
  }
  EXPECT_EQ(std::getenv(kName), nullptr);
}

}  // namespace
}  // namespace imptable
