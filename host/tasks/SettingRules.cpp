#include "host/tasks/SettingRules.h"

#include <cstdint>
#include <string_view>
#include <vector>

#include "core/Blanks.h"
#include "core/ModuleCommun.h"
#include "core/StoredValue.h"
#include "core/TaskSettings.h"
#include "core/WholeNumber.h"
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
constexpr std::size_t kMostColumnItems = 5;
constexpr std::string_view kFieldOrigin = "(Col)";
constexpr std::string_view kNullOrigin = "Null";
constexpr std::string_view kIgnoreMark = "Ignore";

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

std::vector<std::string_view> Items(std::string_view list) {
  std::vector<std::string_view> items;
  for (;;) {
    const std::size_t comma = list.find(',');
    items.push_back(list.substr(0, comma));
    if (comma == std::string_view::npos) return items;
    list.remove_prefix(comma + 1);
  }
}

bool IsOneOf(std::string_view text, int least, int most) {
  for (int number = least; number <= most; ++number) {
    if (text == std::to_string(number)) return true;
  }
  return false;
}

bool IsWholeNumber(std::string_view text) {
  text = WithoutBlanks(text);
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos &&
         NumberFromText(text).has_value();
}

/// One entry of "Colonnes", item by item.
class ColumnEntry {
 public:
  ColumnEntry(const std::string& name, const std::string& text)
      : name_(name), text_(text), items_(Items(text)) {}

  void Check(const TextEncoding& encoding, std::optional<bool> fixed_width) const {
    if (items_.size() > kMostColumnItems) Fail(HostText::kTooManyColumnItems);
    if (!IsOneOf(Item(1), 1, 8)) Fail(HostText::kBadColumnType);
    const auto type = static_cast<FileColumnType>(Item(1).front() - '0');
    const bool date = type == FileColumnType::kDate;
    const bool number = type == FileColumnType::kInteger || type == FileColumnType::kSingle ||
                        type == FileColumnType::kDouble;
    if (date && !IsOneOf(Item(2), 1, static_cast<int>(kDateStyles.size()))) {
      Fail(HostText::kBadColumnStyle);
    }
    if (number && !Item(2).empty() && !IsWholeNumber(Item(2))) Fail(HostText::kBadColumnDecimals);
    if (!Item(3).empty() && !IsWholeNumber(Item(3))) Fail(HostText::kBadColumnWidth);
    if (Item(3).empty() && !date && fixed_width == true) Fail(HostText::kNoColumnWidth);
    if (date && CountCharacters(Item(4), encoding.IsUtf8()) > 1)
      Fail(HostText::kBadColumnSeparator);
    if (date && !Item(5).empty() && !IsOneOf(Item(5), 0, 1)) Fail(HostText::kBadColumnTime);
  }

 private:
  /// From 1; empty past the end.
  std::string_view Item(std::size_t number) const {
    return number <= items_.size() ? items_[number - 1] : std::string_view();
  }

  [[noreturn]] void Fail(HostText text) const { Refuse(text, {name_, text_}); }

  const std::string& name_;
  const std::string& text_;
  std::vector<std::string_view> items_;
};

/// A word of "Champs" that a run takes for a constant because of its letters or its blanks.
std::optional<std::string_view> MisspeltOrigin(const TextEncoding& encoding,
                                               std::string_view origin) {
  const std::string folded = FoldName(encoding.ToUtf8(WithoutBlanks(origin)));
  if (folded == FoldName(kNullOrigin) && origin != kNullOrigin) return kNullOrigin;
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
      ColumnEntry(name, text).Check(encoding, fixed_width);
      break;
    case SettingText::kField:
      CheckField(encoding, name, text);
      break;
  }
  return TextValue(encoding.ToUtf8(text));
}

}  // namespace imptable
