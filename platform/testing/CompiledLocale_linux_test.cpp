#include "platform/testing/CompiledLocale_linux.h"

#include <gtest/gtest.h>
#include <langinfo.h>
#include <locale.h>

#include <string>

namespace imptable {
namespace {

TEST(CompiledLocale, IsFoundByItsNameWhileItLives) {
  std::string name;
  {
    const CompiledLocale compiled;
    name = compiled.name();
    const locale_t locale = newlocale(LC_ALL_MASK, name.c_str(), nullptr);
    ASSERT_NE(locale, nullptr);
    EXPECT_STREQ(nl_langinfo_l(CODESET, locale), "ISO-8859-1");
    EXPECT_STREQ(nl_langinfo_l(T_FMT, locale), "%Hh%Mm%S");
    freelocale(locale);
  }
  EXPECT_EQ(newlocale(LC_ALL_MASK, name.c_str(), nullptr), nullptr);
}

}  // namespace
}  // namespace imptable
