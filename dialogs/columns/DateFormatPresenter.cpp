#include "dialogs/columns/DateFormatPresenter.h"

#include "platform/text/CharacterCount.h"

namespace imptable {
namespace {

constexpr std::size_t kMinutesBox = 0;

}  // namespace

DateFormatPresenter::DateFormatPresenter(const ModuleCommun& module, DateFormatView& view)
    : module_(module), view_(view) {}

void DateFormatPresenter::Open(std::string_view format) {
  const DatePattern pattern = ReadDateFormat(module_, format).value_or(DatePattern{});
  state_ = {pattern.option, !pattern.separator.empty(), pattern.separator, pattern.time};
  view_.Show(state_);
}

void DateFormatPresenter::ChooseStyle(std::size_t style) {
  if (style < kDateOptionCount) state_.style = style;
  view_.Show(state_);
}

void DateFormatPresenter::ChooseSeparator(bool with) {
  state_.has_separator = with;
  view_.Show(state_);
}

void DateFormatPresenter::TypeSeparator(std::string_view text) {
  const bool utf8 = module_.platform.encoding.IsUtf8();
  state_.separator = text.substr(0, BytesOfCharacters(text, 1, utf8));
  view_.Show(state_);
}

void DateFormatPresenter::ToggleTime(std::size_t box, bool checked) {
  const TimeCode time = box == kMinutesBox ? TimeCode::kMinutes : TimeCode::kSeconds;
  if (checked) {
    state_.time = time;
  } else if (state_.time == time) {
    state_.time = TimeCode::kNone;
  }
  view_.Show(state_);
}

std::string DateFormatPresenter::Confirm() const {
  return DateFormatText(
      module_,
      {state_.style, state_.has_separator ? state_.separator : std::string(), state_.time});
}

}  // namespace imptable
