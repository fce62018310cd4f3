#include "core/SettingsTable.h"

#include <array>
#include <cstddef>
#include <type_traits>

#include "core/NumberText.h"
#include "platform/text/NameFolding.h"

namespace imptable {
namespace {

constexpr NumberRange kOnOrOff{0, 1};
constexpr std::int32_t kMostColumns = 32767;  // the most that a run can count

using Texts = std::string ImportSettings::*;
using S = ImportSettings;

constexpr Setting Text(SettingId id, std::string_view name, Texts member,
                       SettingText text = SettingText::kReferable,
                       std::string_view default_text = "") {
  return {.id = id,
          .name = name,
          .type = RegistryType::kText,
          .text = text,
          .range = {},
          .default_text = default_text,
          .text_member = member,
          .number_member = {}};
}

constexpr Setting Number(SettingId id, std::string_view name, NumberMember member,
                         NumberRange range = kOnOrOff, std::int16_t default_number = 0) {
  return {.id = id,
          .name = name,
          .type = RegistryType::kNumber,
          .range = range,
          .default_text = {},
          .default_number = default_number,
          .number_member = member};
}

/// Access to a member that is a number or an enumeration.
template <auto member>
constexpr NumberMember Of() {
  return {
      [](const ImportSettings& settings) { return static_cast<std::int16_t>(settings.*member); },
      [](ImportSettings& settings, std::int16_t number) {
        using Value = std::remove_reference_t<decltype(settings.*member)>;
        settings.*member = static_cast<Value>(number);
      }};
}

constexpr SettingText kAny = SettingText::kAny;

// Names and types are what the component and the host read: never change.
constexpr auto kSettings = std::to_array<Setting>({
    Text(SettingId::kDataSource, "Base Cible", &S::data_source),
    Text(SettingId::kLogin, "Login", &S::login),
    Text(SettingId::kPassword, "Password", &S::password),
    Text(SettingId::kOwner, "Owner", &S::owner),
    Text(SettingId::kTable, "Table", &S::table),
    Text(SettingId::kAlias, "Alias", &S::alias),
    Text(SettingId::kComment, "Comment", &S::comment, kAny),
    Text(SettingId::kDirectory, "Dir", &S::directory),
    Number(SettingId::kMode, "Mode", Of<&S::mode>(), {0, 4}),
    Number(SettingId::kDeletion, "Suppression", Of<&S::deletion>(), {0, 2}),
    Text(SettingId::kKeyOrIndex, "Cle/Index", &S::key_or_index),
    Number(SettingId::kPrimaryKey, "PrimKey", Of<&S::primary_key>()),
    Number(SettingId::kDuplicateKey, "DupKey", Of<&S::duplicate_key>()),
    Text(SettingId::kErrorCode, "CodErr", &S::error_code, SettingText::kErrorCode),
    Text(SettingId::kErrorLimit, "Erreurs", &S::error_limit, SettingText::kErrorLimit, "100"),
    Number(SettingId::kRecordErrors, "RecErreurs", Of<&S::record_errors>(), kOnOrOff, 1),
    Number(SettingId::kErrorFile, "FicErr", {}),
    Number(SettingId::kEmptyFilePolicy, "SiVide", Of<&S::empty_file_policy>()),
    Number(SettingId::kSeparatorOption, "SepDec", Of<&S::separator_option>()),
    Number(SettingId::kNullOption, "Null", Of<&S::null_option>()),
    Number(SettingId::kParameterOption, "Param", Of<&S::parameter_option>()),
    Number(SettingId::kColumnCount, "NombreColonnes", Of<&S::column_count>(), {0, kMostColumns}),
    Text(SettingId::kDelimiter, "DelimiteurFile", &S::delimiter, kAny, ";"),
    Number(SettingId::kFileFormat, "FormatFile", Of<&S::file_format>()),
    Number(SettingId::kFullFileName, "UseAlias", Of<&S::full_file_name>()),
    Number(SettingId::kTraceOption, "RecTrace", Of<&S::trace_option>()),
    Number(SettingId::kStatus, "Etat", {}, {0, 3}),
    Text(SettingId::kEnded, "ExecuteLe", nullptr, kAny),
    Text(SettingId::kCreated, "CréeLe", nullptr, kAny),
    Text(SettingId::kModified, "ModifiéLe", nullptr, kAny),
    Number(SettingId::kType, "Type", {}, {}),
});

constexpr bool EachStandsAtItsId() {
  for (std::size_t i = 0; i < kSettings.size(); ++i) {
    if (kSettings[i].id != static_cast<SettingId>(i)) return false;
  }
  return true;
}
static_assert(EachStandsAtItsId());
static_assert(kSettings.back().id == SettingId::kType);

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
