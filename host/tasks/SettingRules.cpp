#include "host/tasks/SettingRules.h"

#include <cstdint>
#include <string_view>
#include <vector>

#include "core/Blanks.h"
#include "core/ModuleCommun.h"
#include "core/NumberText.h"
#include "core/StoredValue.h"
#include "core/TaskSettings.h"
#include "host/HostError.h"
#include "host/tasks/ShownValue.h"
#include "import/layout/ColumnLayout.h"
#include "platform/text/CharacterCount.h"
#include "platform/text/NameFolding.h"

namespace imptable {
namespace {

/// A longer text can't be read back: the registry's readers have a buffer of one byte more.
constexpr std::size_t kLongestText = 65535;

constexpr std::int32_t kMostErrors = 32767;

[[noreturn]] void Refuse(HostText text, std::vector<std::string> arguments) {
  throw HostError(ExitCode::kUsage, text, std::move(arguments));
}

[[noreturn]] void RefuseNumber(const std::string& name, const std::string& text,
                               const NumberRange& range) {
  Refuse(HostText::kNotInRange,
         {name, text, std::to_string(range.least), std::to_string(range.most)});
}

std::int32_t CheckedNumber(const SettingPlace& place, const std::string& name,
                           const std::string& text) {
  const std::optional<std::int32_t> number = NumberFromText(text);
  if (!number || *number < place.range.least || *number > place.range.most) {
    RefuseNumber(name, text, place.range);
  }
  return *number;
}

/// The number as a run reads it from a text.
std::optional<std::int32_t> NumberOfARun(const std::string& text) {
  try {
    return AsInt32(text, {});
  } catch (const RuntimeFault&) {
    return std::nullopt;
  }
}

/// The message doesn't show the text, which may be a password.
void CheckBytes(const TextEncoding& encoding, const std::string& name, const std::string& text) {
  if (text.size() > kLongestText) {
    Refuse(HostText::kTextTooLong,
           {name, std::to_string(text.size()), std::to_string(kLongestText)});
  }
  if (text.find('\0') != std::string::npos || encoding.FromUtf8(encoding.ToUtf8(text)) != text) {
    Refuse(HostText::kNoText, {name});
  }
}

void CheckReference(const std::string& name, const std::string& text) {
  if (text == "@") Refuse(HostText::kReferenceWithoutName, {name});
}

bool IsWholeNumber(std::string_view text) { return ReadWholeNumber(text).has_value(); }

/// One value of "Colonnes", item by item.
void CheckColumn(const TextEncoding& encoding, std::optional<bool> fixed_width,
                 const std::string& name, const std::string& text) {
  const auto require = [&](bool holds, HostText complaint) {
    if (!holds) Refuse(complaint, {name, text});
  };
  const ColumnEntry entry(text);
  require(!entry.has_too_many_items(), HostText::kTooManyColumnItems);
  const auto type = entry.type();
  require(type.has_value(), HostText::kBadColumnType);
  const bool date = type == FileColumnType::kDate;
  require(!date || entry.date_style() != 0, HostText::kBadColumnStyle);
  require(!type || !MayImplyDecimals(*type) || entry.decimals().empty() ||
              IsWholeNumber(entry.decimals()),
          HostText::kBadColumnDecimals);
  require(entry.width().empty() || IsWholeNumber(entry.width()), HostText::kBadColumnWidth);
  require(!entry.width().empty() || date || fixed_width != true, HostText::kNoColumnWidth);
  require(!date || CountCharacters(entry.date_separator(), encoding.IsUtf8()) <= 1,
          HostText::kBadColumnSeparator);
  require(!date || entry.time_item().empty() || entry.time() != TimeCode::kNone,
          HostText::kBadColumnTime);
}

/// A word of "Champs" that a run takes for a constant because of its letters or its blanks.
std::optional<std::string_view> MisspeltOrigin(const TextEncoding& encoding,
                                               std::string_view origin) {
  const std::string folded = FoldName(encoding.ToUtf8(WithoutBlanks(origin)));
  if (folded == FoldName(kNullText) && origin != kNullText) return kNullText;
  if (folded == FoldName(kIgnoreMark) && !origin.ends_with(kIgnoreMark)) return kIgnoreMark;
  if (folded.starts_with(FoldName(kFieldOrigin)) && !origin.starts_with(kFieldOrigin)) {
    return "(Col)N";
  }
  return std::nullopt;
}

void CheckField(const TextEncoding& encoding, const std::string& name, const std::string& text) {
  const std::string origin = text.substr(text.rfind(',') + 1);
  CheckReference(name, origin);
  if (const auto meant = MisspeltOrigin(encoding, origin)) {
    Refuse(HostText::kMisspeltOrigin, {name, text, std::string(*meant)});
  }
  try {
    ParseColumnOrigin(text, name);
  } catch (const RuntimeFault&) {
    Refuse(HostText::kBadOrigin, {name, text});
  }
}

}  // namespace

RegistryValue SettingRules::Stored(const SettingPlace& place, const std::string& name,
                                   const std::string& text) const {
  if (place.type == RegistryType::kNumber) return NumberValue(CheckedNumber(place, name, text));
  CheckBytes(encoding, name, text);
  switch (place.text) {
    case SettingText::kAny:
      break;
    case SettingText::kReferable:
      CheckReference(name, text);
      break;
    case SettingText::kErrorCode:
      CheckReference(name, text);
      if (!text.empty() && !IsVariableReference(text) && !NumberOfARun(text)) {
        Refuse(HostText::kBadErrorCode, {name, text});
      }
      break;
    case SettingText::kErrorLimit: {
      if (text.empty()) break;
      const std::optional<std::int32_t> limit = NumberOfARun(text);
      if (!limit || *limit < 0 || *limit > kMostErrors) RefuseNumber(name, text, {0, kMostErrors});
      break;
    }
    case SettingText::kColumn:
      CheckColumn(encoding, fixed_width, name, text);
      break;
    case SettingText::kField:
      CheckField(encoding, name, text);
      break;
  }
  return TextValue(encoding.ToUtf8(text));
}

}  // namespace imptable
