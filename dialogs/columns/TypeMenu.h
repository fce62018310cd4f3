#ifndef DIALOGS_COLUMNS_TYPE_MENU_H_
#define DIALOGS_COLUMNS_TYPE_MENU_H_

#include <cstdint>
#include <string>

#include "core/ModuleCommun.h"
#include "import/layout/ColumnLayout.h"

namespace imptable {

/// The entries of the menu `types` that do something, in their order. kByte to kDouble stand in the
/// submenu "Numérique" (message 93); the line MenuLigne stands before kLongueur.
enum class TypeEntry : std::uint8_t {
  kTexte,
  kByte,
  kInteger,
  kLong,
  kSingle,
  kDouble,
  kDate,
  kBoolean,
  kLongueur,
  kDecimal,
};

/// The menu's entries that come and go; the others are always there.
struct TypeMenuState {
  bool decimal_enabled = false;  // MenuDecimal
  bool length_visible = false;   // MenuLongeur
  bool length_enabled = false;
  bool line_visible = false;  // MenuLigne

  bool operator==(const TypeMenuState&) const = default;
};

/// The menu for a row of this type.
TypeMenuState TypeMenuFor(FileColumnType type, bool fixed_width);

/// The caption of an entry, in the code page: the catalogue's for kTexte, else the same in both
/// languages.
std::string TypeMenuCaption(const ModuleCommun& module, TypeEntry entry);

/// A type as Grid1 shows it.
std::string FileColumnTypeText(const ModuleCommun& module, FileColumnType type);

}  // namespace imptable

#endif  // DIALOGS_COLUMNS_TYPE_MENU_H_
