#include "core/ModuleCommun.h"

#include <array>

#include "core/StoredValue.h"

namespace imptable {
namespace {

/// The size of the access layer's read buffer. A longer value can't be read, on any system.
constexpr std::size_t kReadBufferBytes = 65536;

struct HtmlStyle {
  ReportKind kind;
  std::string_view prefix;
  std::string_view suffix;
};

constexpr std::array<HtmlStyle, 3> kHtmlStyles{{
    {ReportKind::kHeading, "<font color=\"#004080\"><strong>", "</strong></font><br>"},
    {ReportKind::kError, "<font color=\"#FF0000\"><strong>", "</strong></font><br>"},
    {ReportKind::kSuccess, "<font color=\"#008000\"><strong>", "</strong></font><br>"},
}};
constexpr HtmlStyle kPlainHtmlStyle{ReportKind::kInformation, "<strong>", "</strong><br>"};

const HtmlStyle& HtmlStyleOf(ReportKind kind) {
  for (const HtmlStyle& style : kHtmlStyles) {
    if (style.kind == kind) return style;
  }
  return kPlainHtmlStyle;
}

/// The display shows at most this many lines before it starts afresh.
constexpr std::int32_t kDisplayLines = 5;

void ShowOnDisplay(HostForm& form, const std::string& line) {
  if (form.Tag() > kDisplayLines) {
    form.SetText(line);
    form.SetTag(1);
  } else {
    form.SetText(line + '\n' + form.Text());
    form.SetTag(form.Tag() + 1);
  }
}

/// A longer decimal separator is ignored.
constexpr std::size_t kSeparatorBytes = 255;

std::string_view WithoutTerminators(std::string_view text) {
  while (!text.empty() && text.back() == '\0') text.remove_suffix(1);
  return text;
}

/// A registry that can't be read at all is a fault, not a missing value.
template <typename Operation>
auto FaultWhenUnreadable(Operation operation) {
  try {
    return operation();
  } catch (const RegistryError& error) {
    throw RuntimeFault(FaultNumber::kDeviceError, error.what());
  }
}

}  // namespace

ModuleCommun::ModuleCommun(const Platform& ports, HostLibrary& host_library)
    : platform(ports), host(host_library), catalogue_(ports.encoding) {}

KeyPath ModuleCommun::KeyAt(std::string_view relative_path) const {
  KeyPath key = location;
  if (!relative_path.empty()) {
    key.path += '\\';
    key.path += relative_path;
  }
  return key;
}

SettingValue ModuleCommun::ReadValue(std::string_view relative_path, std::string_view name,
                                     SettingValue fallback) const {
  const std::optional<RegistryValue> value =
      FaultWhenUnreadable([&] { return platform.registry.Read(KeyAt(relative_path), name); });
  if (!value || value->data.empty() || value->data.size() > kReadBufferBytes) return fallback;
  switch (value->type) {
    case RegistryType::kText:
    case RegistryType::kExpandableText: {
      const std::optional<std::string> text = TextOf(*value);
      return text && !text->empty() ? SettingValue(*text) : fallback;
    }
    case RegistryType::kMultiText: {
      const std::string_view text = WithoutTerminators(value->data);
      if (text.empty()) return fallback;
      return std::string(text);
    }
    case RegistryType::kNumber: {
      const std::optional<std::int32_t> number = NumberOf(*value);
      return number ? SettingValue(*number) : fallback;
    }
    case RegistryType::kNone:
    case RegistryType::kBinary:
      return fallback;
  }
  return fallback;
}

std::int32_t ModuleCommun::WriteText(std::string_view relative_path, std::string_view name,
                                     std::string_view text) {
  return platform.registry.Write(KeyAt(relative_path), name, TextValue(text));
}

std::int32_t ModuleCommun::WriteNumber(std::string_view relative_path, std::string_view name,
                                       std::int32_t number) {
  return platform.registry.Write(KeyAt(relative_path), name, NumberValue(number));
}

std::int32_t ModuleCommun::DeleteKey(std::string_view relative_parent, std::string_view name) {
  const std::string path = relative_parent.empty()
                               ? std::string(name)
                               : std::string(relative_parent) + '\\' + std::string(name);
  const std::int32_t direct = platform.registry.DeleteKey(KeyAt(path));
  if (direct == kRegistryOk) return direct;
  for (const std::string& subkey : SubkeyNames(path)) DeleteKey(path, subkey);
  return platform.registry.DeleteKey(KeyAt(path));
}

std::vector<std::string> ModuleCommun::ValueNames(std::string_view relative_path) const {
  return FaultWhenUnreadable([&] { return platform.registry.ValueNames(KeyAt(relative_path)); });
}

std::vector<std::string> ModuleCommun::SubkeyNames(std::string_view relative_path) const {
  return FaultWhenUnreadable([&] { return platform.registry.SubkeyNames(KeyAt(relative_path)); });
}

void ModuleCommun::ReadDecimalSeparator() {
  const auto value =
      platform.registry.Read({kHkeyCurrentUser, "Control Panel\\International"}, "sDecimal");
  if (!value || value->data.size() <= 1 || value->data.size() > kSeparatorBytes) return;
  run.decimal_separator = value->data.substr(0, value->data.size() - 1);
}

std::string ModuleCommun::DateTimeText() const {
  return platform.clock.ShortDateLongTime(platform.clock.Now());
}

void ModuleCommun::WriteReport(const std::string& text, ReportKind kind) {
  if (report_writer == nullptr) throw RuntimeFault(FaultNumber::kNoHostObject, "ReportWriter");
  report_writer->WriteLine(text, run.display, kind);
}

bool ModuleCommun::AppendToReport(const std::string& text, ReportKind kind) const {
  std::error_code error;
  const auto file = platform.files.OpenForWriting(report_path, WriteMode::kAppend, error);
  if (!file) return false;
  std::string line = text + "\r\n";
  if (report_path.ends_with("tm")) {
    const HtmlStyle& style = HtmlStyleOf(kind);
    line = std::string(style.prefix) + text + std::string(style.suffix) + "\r\n";
  }
  return !file->Write(line) && !file->Close();
}

bool ModuleCommun::ReportLine(const std::string& text, HostDisplay* display, ReportKind kind) {
  bool written = false;
  try {
    const std::string line = DateTimeText() + ' ' + text;
    written = AppendToReport(line, kind);
    HostForm* const form = written && display != nullptr ? display->wForm() : nullptr;
    if (form != nullptr) {
      ShowOnDisplay(*form, line);
      platform.message_loop.Yield();
    }
  } catch (const std::exception&) {
    // A report or a display that fails is no reason to end the run.
  }
  return written;
}

std::string SignedText(std::int64_t number) {
  return (number < 0 ? "" : " ") + std::to_string(number);
}

}  // namespace imptable
