#include "dialogs/columns/DatePattern.h"

#include "platform/text/CharacterCount.h"

namespace imptable {
namespace {

/// One option: its tokens in order, and the styles that store it.
struct DateOrder {
  std::array<Message, 3> tokens;
  std::uint8_t style_without_separator;
  std::uint8_t style_with_separator;
};

// In the order of the dialog's options. The styles are stored in task settings: never change.
constexpr std::array<DateOrder, kDateOptionCount> kDateOrders{{
    {{Message::kDay, Message::kMonth, Message::kShortYear}, 2, 8},
    {{Message::kDay, Message::kMonth, Message::kLongYear}, 1, 7},
    {{Message::kMonth, Message::kDay, Message::kShortYear}, 4, 10},
    {{Message::kMonth, Message::kDay, Message::kLongYear}, 3, 9},
    {{Message::kLongYear, Message::kDay, Message::kMonth}, 13, 15},
    {{Message::kShortYear, Message::kDay, Message::kMonth}, 5, 11},
    {{Message::kLongYear, Message::kMonth, Message::kDay}, 14, 16},
    {{Message::kShortYear, Message::kMonth, Message::kDay}, 6, 12},
}};

std::string TimeSuffix(const ModuleCommun& module, TimeCode time) {
  switch (time) {
    case TimeCode::kNone:
      return {};
    case TimeCode::kMinutes:
      return ' ' + module.MessageText(Message::kMinutes);
    case TimeCode::kSeconds:
      return ' ' + module.MessageText(Message::kSeconds);
  }
  return {};
}

std::string DateText(const ModuleCommun& module, const DateOrder& order,
                     std::string_view separator) {
  std::string text = module.MessageText(order.tokens[0]);
  for (const Message token : {order.tokens[1], order.tokens[2]}) {
    text += separator;
    text += module.MessageText(token);
  }
  return text;
}

/// The only separator that could stand in the date if it has this order. Its length is half of what
/// the tokens leave over. nullopt when two equal separators can't have that length.
std::optional<std::string_view> SeparatorOf(const ModuleCommun& module, const DateOrder& order,
                                            std::string_view date) {
  const std::size_t tokens = DateText(module, order, {}).size();
  if (date.size() < tokens || (date.size() - tokens) % 2 != 0) return std::nullopt;
  return date.substr(module.MessageText(order.tokens[0]).size(), (date.size() - tokens) / 2);
}

TimeCode TakeTime(const ModuleCommun& module, std::string_view& text) {
  for (const TimeCode time : {TimeCode::kSeconds, TimeCode::kMinutes}) {
    const std::string suffix = TimeSuffix(module, time);
    if (!text.ends_with(suffix)) continue;
    text.remove_suffix(suffix.size());
    return time;
  }
  return TimeCode::kNone;
}

}  // namespace

std::uint8_t DateStyleOf(const DatePattern& pattern) {
  const DateOrder& order = kDateOrders[pattern.option];
  return pattern.separator.empty() ? order.style_without_separator : order.style_with_separator;
}

std::optional<DatePattern> DatePatternOf(std::uint8_t style, std::string_view separator,
                                         TimeCode time) {
  for (std::size_t option = 0; option < kDateOptionCount; ++option) {
    const DateOrder& order = kDateOrders[option];
    if (style == order.style_without_separator) return DatePattern{option, {}, time};
    if (style == order.style_with_separator) {
      return DatePattern{option, std::string(separator), time};
    }
  }
  return std::nullopt;
}

std::string DateFormatText(const ModuleCommun& module, const DatePattern& pattern) {
  return DateText(module, kDateOrders[pattern.option], pattern.separator) +
         TimeSuffix(module, pattern.time);
}

std::optional<DatePattern> ReadDateFormat(const ModuleCommun& module, std::string_view text) {
  const bool utf8 = module.platform.encoding.IsUtf8();
  const TimeCode time = TakeTime(module, text);
  for (std::size_t option = 0; option < kDateOptionCount; ++option) {
    const auto separator = SeparatorOf(module, kDateOrders[option], text);
    if (!separator || CountCharacters(*separator, utf8) > 1) continue;
    if (DateText(module, kDateOrders[option], *separator) == text) {
      return DatePattern{option, std::string(*separator), time};
    }
  }
  return std::nullopt;
}

}  // namespace imptable
