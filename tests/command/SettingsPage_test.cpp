#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <sstream>
#include <string>

#include "core/SettingsTable.h"

namespace imptable {
namespace {

const std::string kPage = IMPTABLE_TREE "/docs/settings.md";

/// The rows "| `NAME` | TYPE | ..." of the page as "NAME TYPE".
std::set<std::string> RowsOfThePage() {
  std::ifstream page(kPage);
  std::set<std::string> rows;
  for (std::string line; std::getline(page, line);) {
    if (!line.starts_with("| `")) continue;
    const std::size_t name_end = line.find("` | ", 3);
    if (name_end == std::string::npos) continue;
    const std::size_t type_at = name_end + 4;
    rows.insert(line.substr(3, name_end - 3) + ' ' +
                line.substr(type_at, line.find(' ', type_at) - type_at));
  }
  return rows;
}

std::set<std::string> SettingsOfTheCommand() {
  std::set<std::string> settings;
  std::istringstream names(SettingNames());
  for (std::string name; std::getline(names >> std::ws, name, ',');) {
    const auto place = FindSetting(name);
    EXPECT_TRUE(place) << name;
    settings.insert(name + (place && place->type == RegistryType::kNumber ? " number" : " text"));
  }
  return settings;
}

TEST(SettingsPage, ListsEverySettingWithTheTypeThatTheCommandStores) {
  EXPECT_FALSE(SettingsOfTheCommand().empty());
  EXPECT_THAT(RowsOfThePage(), testing::ContainerEq(SettingsOfTheCommand()));
}

}  // namespace
}  // namespace imptable
