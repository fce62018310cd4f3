#include "dialogs/columns/TypeMenu.h"

#include <array>

namespace imptable {
namespace {

// In the order of TypeEntry. The first caption comes from the catalogue instead.
constexpr std::array<std::string_view, 10> kCaptions{
    "",
    "Byte (0 .. 256)",
    "Integer (-32 767 .. +32 767 )",
    "Long (-2 147 483 647 .. +2 147 483 647)",
    "Single (-3,402823E38 .. 3,402823E38) 32 bit",
    "Double (-1,79769313486232E308 .. +1,79769313486232E308) 64 bit",
    "Date...",
    "Boolean",
    "Longueur",
    "Nombre de décimal"};

bool HasDecimals(FileColumnType type) {
  return type == FileColumnType::kSingle || type == FileColumnType::kDouble;
}

bool HasFreeLength(FileColumnType type) {
  return type != FileColumnType::kDate && type != FileColumnType::kBoolean;
}

}  // namespace

TypeMenuState TypeMenuFor(FileColumnType type, bool fixed_width) {
  TypeMenuState menu;
  menu.decimal_enabled = HasDecimals(type);
  menu.length_visible = fixed_width;
  menu.length_enabled = fixed_width && HasFreeLength(type);
  menu.line_visible = menu.length_enabled;
  return menu;
}

std::string TypeMenuCaption(const ModuleCommun& module, TypeEntry entry) {
  if (entry == TypeEntry::kTexte) return module.MessageText(Message::kText);
  return module.platform.encoding.FromUtf8(kCaptions[static_cast<std::size_t>(entry)]);
}

std::string FileColumnTypeText(const ModuleCommun& module, FileColumnType type) {
  switch (type) {
    case FileColumnType::kText:
      return module.MessageText(Message::kText);
    case FileColumnType::kByte:
      return "Byte";
    case FileColumnType::kInteger:
      return "Integer";
    case FileColumnType::kLong:
      return "Long";
    case FileColumnType::kSingle:
      return "Single";
    case FileColumnType::kDouble:
      return "Double";
    case FileColumnType::kDate:
      return "Date";
    case FileColumnType::kBoolean:
      return "Boolean";
  }
  return {};
}

}  // namespace imptable
