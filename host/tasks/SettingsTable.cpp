#include "host/tasks/SettingsTable.h"

#include <array>
#include <cstddef>

#include "host/tasks/ShownValue.h"
#include "platform/text/NameFolding.h"

namespace imptable {
namespace {

struct Setting {
  std::string_view name;
  RegistryType type;
  SettingText text;
  NumberRange range;
};

constexpr Setting Text(std::string_view name, SettingText text) {
  return {name, RegistryType::kText, text, {}};
}

constexpr Setting Number(std::string_view name, NumberRange range) {
  return {name, RegistryType::kNumber, SettingText::kAny, range};
}

constexpr NumberRange kAnyNumber{};
constexpr NumberRange kFlag{0, 1};
constexpr std::int32_t kMostColumns = 32767;  // what a run can count

// Names and types are what the component and the host read: never change.
constexpr auto kSettings = std::to_array<Setting>({
    Text("Base Cible", SettingText::kReferable),
    Text("Login", SettingText::kReferable),
    Text("Password", SettingText::kReferable),
    Text("Owner", SettingText::kReferable),
    Text("Table", SettingText::kReferable),
    Text("Alias", SettingText::kReferable),
    Text("Comment", SettingText::kAny),
    Text("Dir", SettingText::kReferable),
    Number("Mode", {0, 4}),
    Number("Suppression", {0, 2}),
    Text("Cle/Index", SettingText::kReferable),
    Number("PrimKey", kFlag),
    Number("DupKey", kFlag),
    Text("CodErr", SettingText::kErrorCode),
    Text("Erreurs", SettingText::kErrorLimit),
    Number("RecErreurs", kFlag),
    Number("FicErr", kFlag),
    Number("SiVide", kFlag),
    Number("SepDec", kFlag),
    Number("Null", kFlag),
    Number("Param", kFlag),
    Number("NombreColonnes", {0, kMostColumns}),
    Text("DelimiteurFile", SettingText::kAny),
    Number("FormatFile", kFlag),
    Number("UseAlias", kFlag),
    Number("RecTrace", kFlag),
    Number("Etat", {0, 3}),
    Text("ExecuteLe", SettingText::kAny),
    Text("CréeLe", SettingText::kAny),
    Text("ModifiéLe", SettingText::kAny),
    Number("Type", kAnyNumber),
});

/// A subkey with one text per column.
struct ColumnSubkey {
  std::string_view name;
  SettingText text;
};

constexpr std::array<ColumnSubkey, 2> kColumnSubkeys{
    {{kColumnsSubkey, SettingText::kColumn}, {kFieldsSubkey, SettingText::kField}}};

bool IsColumnNumber(std::string_view text) {
  if (text.empty() || text.front() < '1' || text.front() > '9') return false;
  const std::optional<std::int32_t> number = NumberFromText(text);
  return number && *number <= kMostColumns;
}

}  // namespace

std::optional<SettingPlace> FindSetting(std::string_view name) {
  const std::string folded = FoldName(name);
  for (const Setting& setting : kSettings) {
    if (FoldName(setting.name) == folded) {
      return SettingPlace{"", std::string(setting.name), setting.type, setting.text, setting.range};
    }
  }
  const std::size_t separator = name.find('\\');
  if (separator == std::string_view::npos) return std::nullopt;
  const std::string folded_subkey = FoldName(name.substr(0, separator));
  const std::string_view number = name.substr(separator + 1);
  for (const ColumnSubkey& subkey : kColumnSubkeys) {
    if (FoldName(subkey.name) == folded_subkey && IsColumnNumber(number)) {
      return SettingPlace{
          std::string(subkey.name), std::string(number), RegistryType::kText, subkey.text, {}};
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
