#include "core/SettingsTable.h"

#include <array>
#include <cstddef>
#include <type_traits>

#include "core/NumberText.h"
#include "platform/text/NameFolding.h"

namespace imptable {
namespace {

constexpr std::int32_t kMostColumns = 32767;  // what a run can count

/// Of a member that is a number or an enumeration.
template <auto member>
constexpr NumberMember Of() {
  return {
      [](const ImportSettings& settings) { return static_cast<std::int16_t>(settings.*member); },
      [](ImportSettings& settings, std::int16_t number) {
        using Value = std::remove_reference_t<decltype(settings.*member)>;
        settings.*member = static_cast<Value>(number);
      }};
}

constexpr auto kSettings = std::to_array<Setting>({
#define TEXT_SETTING(id, name, member, text, fallback, whose)                              \
  {SettingId::id,           name, RegistryType::kText, SettingText::text, {}, fallback, 0, \
   &ImportSettings::member, {},   SettingOrigin::whose},
#define NUMBER_SETTING(id, name, type, member, least, most, fallback, whose)                      \
  {SettingId::id, name,    RegistryType::kNumber,         SettingText::kAny,   {least, most}, "", \
   fallback,      nullptr, Of<&ImportSettings::member>(), SettingOrigin::whose},
#define TEXT_ENTRY(id, name) \
  {SettingId::id, name, RegistryType::kText, SettingText::kAny, {}, "", 0, nullptr, {}, {}},
#define NUMBER_ENTRY(id, name, least, most) \
  {SettingId::id,                           \
   name,                                    \
   RegistryType::kNumber,                   \
   SettingText::kAny,                       \
   {least, most},                           \
   "",                                      \
   0,                                       \
   nullptr,                                 \
   {},                                      \
   {}},
#include "core/Settings.inc"
#undef TEXT_SETTING
#undef NUMBER_SETTING
#undef TEXT_ENTRY
#undef NUMBER_ENTRY
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

const Setting& SettingOf(SettingId id) { return kSettings[static_cast<std::size_t>(id)]; }

std::span<const Setting> Settings() { return kSettings; }

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
