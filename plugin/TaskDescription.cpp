#include "plugin/TaskDescription.h"

#include <array>

namespace imptable {
namespace {

// Numbers of catalogue texts: never change.
constexpr std::int32_t kMessageTable = 15;
constexpr std::int32_t kMessageSource = 17;
constexpr std::int32_t kMessageUser = 19;
constexpr std::int32_t kMessageMode = 21;
constexpr std::int32_t kMessageAlias = 22;
constexpr std::int32_t kMessageDeletion = 24;
constexpr std::int32_t kMessageKey = 25;
constexpr std::int32_t kMessageDirectory = 28;
constexpr std::int32_t kMessageOptions = 39;
constexpr std::int32_t kMessageSeparator = 45;
constexpr std::int32_t kMessageColumns = 46;
constexpr std::int32_t kMessageFormat = 48;
constexpr std::int32_t kMessageColumn = 54;
constexpr std::int32_t kMessageDelimited = 56;
constexpr std::int32_t kMessageFixed = 58;
constexpr std::int32_t kMessageIgnoreDuplicates = 63;
constexpr std::int32_t kMessageErrorCode = 64;
constexpr std::int32_t kMessageTitle = 175;

// By the values of "Mode" and of "Suppression".
constexpr std::array<std::int32_t, 5> kModeMessages{29, 30, 31, 32, 33};
constexpr std::array<std::int32_t, 3> kDeletionMessages{34, 35, 36};
constexpr std::int16_t kModeInsert = 0;

constexpr std::string_view kOwnerGap = "   ";

/// The rows of the description, in the order in which they are added.
class Rows {
 public:
  explicit Rows(const ModuleCommun& module) : module_(module) {}

  void Add(std::int32_t label, const std::string& value) { Add(module_.MessageText(label), value); }

  void Add(const std::string& label, const std::string& value) {
    html_ += "<tr><td class=\"i\">" + label + "</td><td class=\"j\">" + value + "</td></tr>";
  }

  /// Adds the message of this index; no row when there is none.
  template <std::size_t count>
  void AddChoice(std::int32_t label, const std::array<std::int32_t, count>& messages,
                 std::int16_t index) {
    if (index < 0 || static_cast<std::size_t>(index) >= count) return;
    Add(label, module_.MessageText(messages[static_cast<std::size_t>(index)]));
  }

  const std::string& html() const { return html_; }

 private:
  const ModuleCommun& module_;
  std::string html_;
};

}  // namespace

std::string DescribeTask(const ModuleCommun& module, const std::string& task,
                         const ImportSettings& settings) {
  Rows rows(module);
  rows.Add(kMessageSource, settings.data_source);
  rows.Add(kMessageUser, settings.login);
  rows.Add(kMessageTable, settings.owner + std::string(kOwnerGap) + settings.table);
  rows.Add(kMessageAlias, settings.alias);
  rows.Add(kMessageDirectory, settings.directory);
  rows.Add(kMessageFormat,
           module.MessageText(settings.delimited != 0 ? kMessageDelimited : kMessageFixed));
  rows.Add(kMessageColumns, std::to_string(settings.column_count));
  for (std::size_t i = 0; i < settings.column_layout.size(); ++i) {
    rows.Add(module.MessageText(kMessageColumn) + std::to_string(i + 1), settings.column_layout[i]);
  }
  rows.AddChoice(kMessageMode, kModeMessages, settings.mode);
  const bool inserts = settings.mode == kModeInsert;
  if (inserts && settings.duplicate_key == 1) {
    rows.Add(kMessageOptions, module.MessageText(kMessageIgnoreDuplicates));
  }
  if (inserts && !settings.key_or_index.empty()) rows.Add(kMessageKey, settings.key_or_index);
  rows.Add(kMessageSeparator, std::to_string(settings.separator_option));
  rows.Add(kMessageErrorCode, settings.error_code);
  if (settings.empty_file_policy == 1) {
    rows.AddChoice(kMessageDeletion, kDeletionMessages, settings.deletion_mode);
  }
  return "<table class=\"t\"><tr><td class=\"k\">" + task + "</td><td class=\"n\">" +
         module.MessageText(kMessageTitle) +
         "</td></tr></table><table class=\"t\"><tr><td rowspan=\"7\" valign=\"top\" class=\"m\">"
         "<table class=\"l\">" +
         rows.html() + "<tr><td class=\"p\"></td><td class=\"o\">" + settings.comment +
         "</td></tr></table></td></tr></table><hr>";
}

}  // namespace imptable
