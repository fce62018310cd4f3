#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/testing/RegistryPlace.h"

namespace imptable {
namespace {

TEST(RegistriesOnLinux, KeepTheOrderInWhichValuesWereFirstWritten) {
  for (const auto make : {PlaceInMemory, PlaceInTheSystem}) {
    const auto place = make();
    for (const char* name : {"z", "", "A", "m", "A", "z", "10", "9"}) {
      place->registry().Write(place->Key("K"), name, {RegistryType::kText, "x"});
    }
    EXPECT_THAT(place->registry().ValueNames(place->Key("K")),
                testing::ElementsAre("z", "", "A", "m", "10", "9"));
  }
}

TEST(RegistriesOnLinux, ListSubkeysByTheirNamesInUpperCase) {
  for (const auto make : {PlaceInMemory, PlaceInTheSystem}) {
    const auto place = make();
    for (const char* name : {"b", "Z", "_", "9"}) {
      place->registry().Write(place->Key(name), "v", {RegistryType::kText, "x"});
    }
    EXPECT_THAT(place->registry().SubkeyNames(place->Key("")),
                testing::ElementsAre("9", "b", "Z", "_"));
  }
}

TEST(RegistriesOnLinux, KeepATextWithoutATerminator) {
  for (const auto make : {PlaceInMemory, PlaceInTheSystem}) {
    const auto place = make();
    const RegistryValue text{RegistryType::kText, "no terminator"};
    place->registry().Write(place->Key("K"), "v", text);
    EXPECT_EQ(place->registry().Read(place->Key("K"), "v"), text);
  }
}

}  // namespace
}  // namespace imptable
