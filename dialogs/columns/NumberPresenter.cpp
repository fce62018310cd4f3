#include "dialogs/columns/NumberPresenter.h"

#include <limits>

#include "core/NumberText.h"

namespace imptable {
namespace {

Message TitleOf(NumberKind kind) {
  switch (kind) {
    case NumberKind::kLength:
      return Message::kLength;
    case NumberKind::kDecimals:
      return Message::kDecimals;
  }
  return Message::kLength;
}

}  // namespace

NumberPresenter::NumberPresenter(const ModuleCommun& module, DialogBoxes& boxes, NumberView& view,
                                 NumberKind kind)
    : module_(module), boxes_(boxes), view_(view), state_{module.MessageText(TitleOf(kind)), {}} {}

void NumberPresenter::Open(std::string_view text) {
  state_.text = text;
  view_.Show(state_);
}

void NumberPresenter::Type(std::string_view text) { state_.text = text; }

void NumberPresenter::StepUp() {
  const std::int32_t number = ReadWholeNumber(state_.text).value_or(0);
  if (number < std::numeric_limits<std::int32_t>::max()) state_.text = std::to_string(number + 1);
  view_.Show(state_);
}

void NumberPresenter::StepDown() {
  const auto number = ReadWholeNumber(state_.text);
  if (number && *number > 1) state_.text = std::to_string(*number - 1);
  view_.Show(state_);
}

std::optional<std::string> NumberPresenter::Confirm() {
  const auto number = ReadWholeNumber(state_.text);
  if (number) return std::to_string(*number);
  boxes_.Warn(module_.MessageText(Message::kIncorrectValue), state_.title);
  view_.Show(state_);
  return std::nullopt;
}

}  // namespace imptable
