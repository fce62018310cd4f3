#include "plugin/TaskDescription.h"

#include <array>

namespace imptable {
namespace {

// The index is the value of "Mode" and of "Suppression".
constexpr std::array<Message, 5> kModeMessages{Message::kUsingInsert, Message::kUsingUpdate,
                                               Message::kUsingInsertUpdate,
                                               Message::kUsingUpdateInsert, Message::kUsingDelete};
constexpr std::array<Message, 3> kDeletionMessages{Message::kNoDeletion, Message::kGlobalDeletion,
                                                   Message::kSelectiveDeletion};

constexpr std::string_view kOwnerGap = "   ";

/// The rows of the description, in the order in which they are added.
class Rows {
 public:
  explicit Rows(const ModuleCommun& module) : module_(module) {}

  void Add(Message label, const std::string& value) { Add(module_.MessageText(label), value); }

  void Add(const std::string& label, const std::string& value) {
    html_ += "<tr><td class=\"i\">" + label + "</td><td class=\"j\">" + value + "</td></tr>";
  }

  /// Adds the message of this index; adds no row when there is no such message.
  template <std::size_t count>
  void AddChoice(Message label, const std::array<Message, count>& messages, int index) {
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
  rows.Add(Message::kOdbcSource, settings.data_source);
  rows.Add(Message::kUser, settings.login);
  rows.Add(Message::kTable, settings.owner + std::string(kOwnerGap) + settings.table);
  rows.Add(Message::kAlias, settings.alias);
  rows.Add(Message::kDirectory, settings.directory);
  rows.Add(Message::kFileFormat,
           module.MessageText(settings.file_format != FileFormat::kFixedWidth ? Message::kDelimited
                                                                              : Message::kFixed));
  rows.Add(Message::kColumnCount, std::to_string(settings.column_count));
  for (std::size_t i = 0; i < settings.column_layout.size(); ++i) {
    rows.Add(module.MessageText(Message::kColumnName) + std::to_string(i + 1),
             settings.column_layout[i]);
  }
  rows.AddChoice(Message::kImportMode, kModeMessages, static_cast<int>(settings.mode));
  const bool inserts = settings.mode == ImportMode::kInsert;
  if (inserts && settings.duplicate_key == Flag::kOn) {
    rows.Add(Message::kOptions, module.MessageText(Message::kIgnoreDuplicates));
  }
  if (inserts && !settings.key_or_index.empty()) rows.Add(Message::kKeyUsed, settings.key_or_index);
  rows.Add(Message::kDecimalSeparator, std::to_string(static_cast<int>(settings.separator_option)));
  rows.Add(Message::kErrorCode, settings.error_code);
  if (settings.empty_file_policy == Flag::kOn) {
    rows.AddChoice(Message::kDeletion, kDeletionMessages, static_cast<int>(settings.deletion));
  }
  return "<table class=\"t\"><tr><td class=\"k\">" + task + "</td><td class=\"n\">" +
         module.MessageText(Message::kTitle) +
         "</td></tr></table><table class=\"t\"><tr><td rowspan=\"7\" valign=\"top\" class=\"m\">"
         "<table class=\"l\">" +
         rows.html() + "<tr><td class=\"p\"></td><td class=\"o\">" + settings.comment +
         "</td></tr></table></td></tr></table><hr>";
}

}  // namespace imptable
