#include "import/layout/ColumnEntry.h"

#include <string>

namespace imptable {

ColumnEntry::ColumnEntry(std::string_view text) {
  for (std::string_view& item : items_) {
    const std::size_t comma = text.find(',');
    item = text.substr(0, comma);
    if (comma == std::string_view::npos) return;
    text.remove_prefix(comma + 1);
  }
  too_many_ = true;
}

std::optional<FileColumnType> ColumnEntry::type() const {
  const std::string_view code = items_[0];
  if (code.size() != 1 || code[0] < '1' || code[0] > '8') return std::nullopt;
  return static_cast<FileColumnType>(code[0] - '0');
}

std::uint8_t ColumnEntry::date_style() const {
  for (std::size_t style = 1; style <= kDateStyles.size(); ++style) {
    if (items_[1] == std::to_string(style)) return static_cast<std::uint8_t>(style);
  }
  return 0;
}

TimeCode ColumnEntry::time() const {
  for (const TimeCode code : {TimeCode::kSeconds, TimeCode::kMinutes}) {
    if (time_item() == TimeItem(code)) return code;
  }
  return TimeCode::kNone;
}

std::string_view TimeItem(TimeCode time) {
  switch (time) {
    case TimeCode::kNone:
      return "";
    case TimeCode::kMinutes:
      return "0";
    case TimeCode::kSeconds:
      return "1";
  }
  return "";
}

}  // namespace imptable
