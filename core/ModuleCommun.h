#ifndef CORE_MODULE_COMMUN_H_
#define CORE_MODULE_COMMUN_H_

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "core/HostLibrary.h"
#include "core/MessageCatalogue.h"
#include "core/RunState.h"
#include "core/Texts.h"
#include "platform/Platform.h"

namespace imptable {

/// A value as the registry access layer gives it: a text or a 32-bit number.
using SettingValue = std::variant<std::string, std::int32_t>;

/// What all objects of one loaded component share: their state, the registry access layer, the
/// messages and the report lines. The last object to write a value wins.
class ModuleCommun {
 public:
  /// @param platform, host  borrowed; must outlive the module.
  ModuleCommun(const Platform& platform, HostLibrary& host);
  ModuleCommun(const ModuleCommun&) = delete;
  ModuleCommun& operator=(const ModuleCommun&) = delete;

  Platform platform;
  HostLibrary& host;

  /// Added to every message number: 0 French, 10000 English.
  std::int32_t language_offset = kFrenchOffset;

  /// The current registry location: every relative path below is relative to it.
  KeyPath location;

  /// Path of the execution report, as given to the run.
  std::string report_path;

  /// The report writer of the run; borrowed from the plug-in object that runs.
  ReportWriter* report_writer = nullptr;

  RunState run;

  /// A task that was read already, before its run. The next run uses it instead of reading the
  /// settings again, provided that it runs this task.
  std::optional<OpenedTask> opened_task;

  /// One character; "P" makes modes and deletions show the hourglass. The host's display owns it:
  /// nothing in the component assigns it.
  std::string pointer_mode;

  /// Whether a run shows the hourglass.
  bool ShowsHourglass() const { return pointer_mode == "P"; }

  /// @return the text for text types, the number for a number; `fallback` when the key can't be
  /// opened, the value can't be read, has another type or is empty.
  SettingValue ReadValue(std::string_view relative_path, std::string_view name,
                         SettingValue fallback = std::string()) const;

  /// Writes a text. An empty text is stored as a lone terminator.
  /// @return the system result code, 0 = success.
  std::int32_t WriteText(std::string_view relative_path, std::string_view name,
                         std::string_view text);

  /// @return the system result code, 0 = success.
  std::int32_t WriteNumber(std::string_view relative_path, std::string_view name,
                           std::int32_t number);

  /// Deletes a key with all its subkeys.
  /// @return the system result code, 0 = success.
  std::int32_t DeleteKey(std::string_view relative_parent, std::string_view name);

  std::vector<std::string> ValueNames(std::string_view relative_path) const;
  std::vector<std::string> SubkeyNames(std::string_view relative_path) const;

  /// The catalogue entry in the current language.
  /// @throws RuntimeFault  as MessageCatalogue::Text.
  const std::string& MessageText(Message message) const {
    return catalogue_.Text(static_cast<std::int32_t>(message), language_offset);
  }

  /// One of the component's own texts in the current language.
  std::string Words(ComponentText text, const std::vector<std::string>& arguments = {}) const {
    return InWords(text, language_offset, platform.encoding, arguments);
  }

  /// The fault's description in the current language.
  std::string FaultText(const RuntimeFault& fault) const {
    return DescribeFault(fault, language_offset, platform.encoding);
  }

  /// Reads the user's decimal separator into the run; keeps the former one when there is none.
  void ReadDecimalSeparator();

  /// The current date and time in the user's form.
  std::string DateTimeText() const;

  /// Writes one line through the run's report writer, with the run's display object.
  void WriteReport(const std::string& text, ReportKind kind);

  /// The component's own report writer: appends one line to `report_path` (HTML when the path ends
  /// with "tm"), echoes it to the live display and yields. Silent about every failure.
  /// @return false when the line did not reach the report file.
  bool ReportLine(const std::string& text, HostDisplay* display, ReportKind kind);

 private:
  KeyPath KeyAt(std::string_view relative_path) const;
  bool AppendToReport(const std::string& text, ReportKind kind) const;

  MessageCatalogue catalogue_;
};

/// The value as text: a number in decimal.
std::string AsText(const SettingValue& value);

/// The value as a number of 16 or 32 bits; a text is read as ParseNumberText does, with a decimal
/// point, and rounded half to even.
/// @param name  names the value in the fault.
/// @throws RuntimeFault  type mismatch when the text is no number, overflow when it doesn't fit.
std::int16_t AsInt16(const SettingValue& value, std::string_view name);
std::int32_t AsInt32(const SettingValue& value, std::string_view name);

/// A number as report and error lines show it: one leading blank in place of a plus sign.
std::string SignedText(std::int64_t number);

}  // namespace imptable

#endif  // CORE_MODULE_COMMUN_H_
