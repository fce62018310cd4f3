#include "host/SettingsTable.h"

#include <array>
#include <cstddef>

#include "host/ShownValue.h"
#include "platform/NameFolding.h"

namespace imptable {
namespace {

struct Setting {
  std::string_view name;
  RegistryType type;
};

// Names and types are what the component and the host read: never change.
constexpr auto kSettings = std::to_array<Setting>({
    {"Base Cible", RegistryType::kText},     {"Login", RegistryType::kText},
    {"Password", RegistryType::kText},       {"Owner", RegistryType::kText},
    {"Table", RegistryType::kText},          {"Alias", RegistryType::kText},
    {"Comment", RegistryType::kText},        {"Dir", RegistryType::kText},
    {"Mode", RegistryType::kNumber},         {"Suppression", RegistryType::kNumber},
    {"Cle/Index", RegistryType::kText},      {"PrimKey", RegistryType::kNumber},
    {"DupKey", RegistryType::kNumber},       {"CodErr", RegistryType::kText},
    {"Erreurs", RegistryType::kText},        {"RecErreurs", RegistryType::kNumber},
    {"FicErr", RegistryType::kNumber},       {"SiVide", RegistryType::kNumber},
    {"SepDec", RegistryType::kNumber},       {"Null", RegistryType::kNumber},
    {"Param", RegistryType::kNumber},        {"NombreColonnes", RegistryType::kNumber},
    {"DelimiteurFile", RegistryType::kText}, {"FormatFile", RegistryType::kNumber},
    {"UseAlias", RegistryType::kNumber},     {"RecTrace", RegistryType::kNumber},
    {"Etat", RegistryType::kNumber},         {"ExecuteLe", RegistryType::kText},
    {"CréeLe", RegistryType::kText},         {"ModifiéLe", RegistryType::kText},
    {"Type", RegistryType::kNumber},
});

constexpr std::array kColumnSubkeys{kColumnsSubkey, kFieldsSubkey};

bool IsColumnNumber(std::string_view text) {
  if (text.empty() || text.front() < '1' || text.front() > '9') return false;
  return NumberFromText(text).has_value();
}

}  // namespace

std::optional<SettingPlace> FindSetting(std::string_view name) {
  const std::string folded = FoldName(name);
  for (const Setting& setting : kSettings) {
    if (FoldName(setting.name) == folded) {
      return SettingPlace{"", std::string(setting.name), setting.type};
    }
  }
  const std::size_t separator = name.find('\\');
  if (separator == std::string_view::npos) return std::nullopt;
  const std::string folded_subkey = FoldName(name.substr(0, separator));
  const std::string_view number = name.substr(separator + 1);
  for (const std::string_view subkey : kColumnSubkeys) {
    if (FoldName(subkey) == folded_subkey && IsColumnNumber(number)) {
      return SettingPlace{std::string(subkey), std::string(number), RegistryType::kText};
    }
  }
  return std::nullopt;
}

std::string SettingNames() {
  std::string names;
  for (const Setting& setting : kSettings) {
    if (!names.empty()) names += ", ";
    names += setting.name;
  }
  return names;
}

}  // namespace imptable
