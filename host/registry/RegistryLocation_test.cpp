#include "host/registry/RegistryLocation.h"

#include <gtest/gtest.h>

#include <map>

#include "host/HostError.h"

namespace imptable {
namespace {

using Environment = std::map<std::string, std::string>;

std::string Path(std::optional<std::string> option, const Environment& environment,
                 const std::string& home_of_user = "/users/u") {
  return RegistryFilePath({std::move(option),
                           [&](const char* name) -> std::optional<std::string> {
                             const auto found = environment.find(name);
                             if (found == environment.end()) return std::nullopt;
                             return found->second;
                           },
                           [&] { return home_of_user; }});
}

TEST(RegistryLocation, GoesFromTheOptionToTheHomeFolder) {
  Environment all{{"IMPTABLE_REGISTRY", "/e/r.db"}, {"XDG_DATA_HOME", "/d"}, {"HOME", "/h"}};
  EXPECT_EQ(Path("o.db", all), "o.db");
  EXPECT_EQ(Path({}, all), "/e/r.db");
  all.erase("IMPTABLE_REGISTRY");
  EXPECT_EQ(Path({}, all), "/d/imptable/registry.db");
  all.erase("XDG_DATA_HOME");
  EXPECT_EQ(Path({}, all), "/h/.local/share/imptable/registry.db");
  all.erase("HOME");
  EXPECT_EQ(Path({}, all), "/users/u/.local/share/imptable/registry.db");
}

TEST(RegistryLocation, TakesAnEmptyVariableForAnUnsetOne) {
  EXPECT_EQ(Path({}, {{"IMPTABLE_REGISTRY", ""}, {"XDG_DATA_HOME", ""}, {"HOME", ""}}),
            "/users/u/.local/share/imptable/registry.db");
}

TEST(RegistryLocation, PassesOverARelativeDataFolder) {
  EXPECT_EQ(Path({}, {{"XDG_DATA_HOME", "data"}, {"HOME", "/h"}}),
            "/h/.local/share/imptable/registry.db");
}

Language LocaleLanguage(const Environment& environment) {
  return LanguageOfLocale([&](const char* name) -> std::optional<std::string> {
    const auto found = environment.find(name);
    if (found == environment.end()) return std::nullopt;
    return found->second;
  });
}

TEST(LocaleLanguage, IsFrenchForFrenchLocalesAndEnglishForAllOthers) {
  EXPECT_EQ(LocaleLanguage({}), Language::kEnglish);
  EXPECT_EQ(LocaleLanguage({{"LANG", "fr_FR.UTF-8"}}), Language::kFrench);
  EXPECT_EQ(LocaleLanguage({{"LANG", "fr"}}), Language::kFrench);
  EXPECT_EQ(LocaleLanguage({{"LANG", "de_CH.UTF-8"}}), Language::kEnglish);
  EXPECT_EQ(LocaleLanguage({{"LANG", "fr_FR"}, {"LC_MESSAGES", "en_US"}}), Language::kEnglish);
  EXPECT_EQ(LocaleLanguage({{"LC_ALL", "fr_CA"}, {"LC_MESSAGES", "en_US"}}), Language::kFrench);
  EXPECT_EQ(LocaleLanguage({{"LC_ALL", ""}, {"LANG", "fr_BE"}}), Language::kFrench);
}

TEST(RegistryLocation, IsAnErrorForAUserWithoutAHome) { EXPECT_THROW(Path({}, {}, ""), HostError); }

}  // namespace
}  // namespace imptable
