#include "core/SettingsTable.h"

#include <array>
#include <cstddef>

#include "core/WholeNumber.h"
#include "platform/text/NameFolding.h"

namespace imptable {
namespace {

constexpr NumberRange kFlag{0, 1};
constexpr std::int32_t kMostColumns = 32767;  // what a run can count

using Texts = std::string ImportSettings::*;
using Numbers = std::int16_t ImportSettings::*;
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
          .text_member = member};
}

constexpr Setting Number(SettingId id, std::string_view name, Numbers member,
                         NumberRange range = kFlag, std::int16_t default_number = 0) {
  return {.id = id,
          .name = name,
          .type = RegistryType::kNumber,
          .range = range,
          .default_text = {},
          .default_number = default_number,
          .number_member = member};
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
    Number(SettingId::kMode, "Mode", &S::mode, {0, 4}),
    Number(SettingId::kDeletionMode, "Suppression", &S::deletion_mode, {0, 2}),
    Text(SettingId::kKeyOrIndex, "Cle/Index", &S::key_or_index),
    Number(SettingId::kPrimaryKey, "PrimKey", &S::primary_key),
    Number(SettingId::kDuplicateKey, "DupKey", &S::duplicate_key),
    Text(SettingId::kErrorCode, "CodErr", &S::error_code, SettingText::kErrorCode),
    Text(SettingId::kErrorLimit, "Erreurs", &S::error_limit, SettingText::kErrorLimit, "100"),
    Number(SettingId::kRecordErrors, "RecErreurs", &S::record_errors, kFlag, 1),
    Number(SettingId::kErrorFile, "FicErr", nullptr),
    Number(SettingId::kEmptyFilePolicy, "SiVide", &S::empty_file_policy),
    Number(SettingId::kSeparatorOption, "SepDec", &S::separator_option),
    Number(SettingId::kNullOption, "Null", &S::null_option),
    Number(SettingId::kParameterOption, "Param", &S::parameter_option),
    Number(SettingId::kColumnCount, "NombreColonnes", &S::column_count, {0, kMostColumns}),
    Text(SettingId::kDelimiter, "DelimiteurFile", &S::delimiter, kAny, ";"),
    Number(SettingId::kDelimited, "FormatFile", &S::delimited),
    Number(SettingId::kFullFileName, "UseAlias", &S::full_file_name),
    Number(SettingId::kTraceOption, "RecTrace", &S::trace_option),
    Number(SettingId::kStatus, "Etat", nullptr, {0, 3}),
    Text(SettingId::kEnded, "ExecuteLe", nullptr, kAny),
    Text(SettingId::kCreated, "CréeLe", nullptr, kAny),
    Text(SettingId::kModified, "ModifiéLe", nullptr, kAny),
    Number(SettingId::kType, "Type", nullptr, {}),
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
