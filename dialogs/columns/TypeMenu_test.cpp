#include "dialogs/columns/TypeMenu.h"

#include <gmock/gmock.h>

#include <set>

#include "tests/kit/TestComponent.h"

namespace imptable {
namespace {

constexpr std::array<FileColumnType, 8> kTypes{FileColumnType::kText,    FileColumnType::kByte,
                                               FileColumnType::kInteger, FileColumnType::kLong,
                                               FileColumnType::kSingle,  FileColumnType::kDouble,
                                               FileColumnType::kDate,    FileColumnType::kBoolean};

TEST(TypeMenu, OffersDecimalsForSingleAndDoubleAlone) {
  const std::set<FileColumnType> with{FileColumnType::kSingle, FileColumnType::kDouble};
  for (const FileColumnType type : kTypes) {
    for (const bool fixed : {false, true}) {
      EXPECT_EQ(TypeMenuFor(type, fixed).decimal_enabled, with.contains(type))
          << static_cast<int>(type);
    }
  }
}

TEST(TypeMenu, OffersALengthInAFixedWidthFileForAllButDatesAndBooleans) {
  const std::set<FileColumnType> without{FileColumnType::kDate, FileColumnType::kBoolean};
  for (const FileColumnType type : kTypes) {
    const TypeMenuState menu = TypeMenuFor(type, true);
    EXPECT_TRUE(menu.length_visible);
    EXPECT_EQ(menu.length_enabled, !without.contains(type)) << static_cast<int>(type);
    EXPECT_EQ(menu.line_visible, menu.length_enabled) << static_cast<int>(type);
  }
}

TEST(TypeMenu, WithdrawsTheLengthInADelimitedFile) {
  for (const FileColumnType type : kTypes) {
    const TypeMenuState menu = TypeMenuFor(type, false);
    EXPECT_FALSE(menu.length_visible || menu.length_enabled || menu.line_visible)
        << static_cast<int>(type);
  }
}

TEST(TypeMenu, TakesOnlyTheTextsCaptionFromTheCatalogue) {
  TestComponent component;
  ModuleCommun& module = component.module();
  const auto caption = [&](TypeEntry entry) { return TypeMenuCaption(module, entry); };
  for (const std::int32_t language : {kFrenchOffset, kEnglishOffset}) {
    module.language_offset = language;
    EXPECT_EQ(caption(TypeEntry::kByte), "Byte (0 .. 256)");
    EXPECT_EQ(caption(TypeEntry::kInteger), "Integer (-32 767 .. +32 767 )");
    EXPECT_EQ(caption(TypeEntry::kLong), "Long (-2 147 483 647 .. +2 147 483 647)");
    EXPECT_EQ(caption(TypeEntry::kSingle), "Single (-3,402823E38 .. 3,402823E38) 32 bit");
    EXPECT_EQ(caption(TypeEntry::kDouble),
              "Double (-1,79769313486232E308 .. +1,79769313486232E308) 64 bit");
    EXPECT_EQ(caption(TypeEntry::kDate), "Date...");
    EXPECT_EQ(caption(TypeEntry::kBoolean), "Boolean");
    EXPECT_EQ(caption(TypeEntry::kLongueur), "Longueur");
    EXPECT_EQ(caption(TypeEntry::kDecimal), "Nombre de décimal");
    EXPECT_EQ(caption(TypeEntry::kTexte), language == kFrenchOffset ? "Texte" : "Text");
  }
}

TEST(TypeMenu, WritesItsCaptionsInTheCodePage) {
  TestComponent component(std::make_unique<Latin1TextEncoding>());
  EXPECT_EQ(TypeMenuCaption(component.module(), TypeEntry::kDecimal),
            "Nombre de d\xE9"
            "cimal");
}

TEST(TypeMenu, NamesEachTypeAsTheGridShowsIt) {
  TestComponent component;
  std::vector<std::string> names;
  for (const FileColumnType type : kTypes) {
    names.push_back(FileColumnTypeText(component.module(), type));
  }
  EXPECT_THAT(names, ::testing::ElementsAre("Texte", "Byte", "Integer", "Long", "Single", "Double",
                                            "Date", "Boolean"));
  component.module().language_offset = kEnglishOffset;
  EXPECT_EQ(FileColumnTypeText(component.module(), FileColumnType::kText), "Text");
}

}  // namespace
}  // namespace imptable
