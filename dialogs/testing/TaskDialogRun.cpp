#include "dialogs/testing/TaskDialogRun.h"

#include <gtest/gtest.h>

#include <utility>

namespace imptable {

TaskDialogRun::TaskDialogRun(std::unique_ptr<TextEncoding> code_page)
    : folder(testing::TempDir()),
      ports(std::move(code_page)),
      state(Platform{journal, ports.message_loop, ports.clock, *ports.encoding, ports.files,
                     ports.warnings, ports.pointer, ports.profile_file},
            ports.host) {
  state.commun.location = {kHkeyLocalMachine, kTasks};
}

void TaskDialogRun::Stored(std::string_view name, std::string_view text) {
  ports.registry.SetText(kTask, name, text);
}

void TaskDialogRun::Stored(std::string_view name, std::int32_t number) {
  ports.registry.SetNumber(kTask, name, number);
}

void TaskDialogRun::StoredIn(std::string_view subkey, const std::vector<std::string>& values) {
  for (std::size_t n = 0; n < values.size(); ++n) {
    ports.registry.SetText(std::string(kTask) + '\\' + std::string(subkey), std::to_string(n + 1),
                           values[n]);
  }
}

ImpTablePresenter& TaskDialogRun::Open(std::int16_t working_mode) {
  presenter_ = std::make_unique<ImpTablePresenter>(services, view, *this, working_mode, "T1", "S1");
  presenter_->Load();
  return *presenter_;
}

ImpTablePresenter& TaskDialogRun::OpenComplete() {
  ImpTablePresenter& dialog = OpenNew();
  dialog.OnText("Combo1", source.name());
  dialog.OnText("txtLogin", "sa");
  dialog.OnText("txtTable", "CLIENT");
  dialog.OnText("txtAlias", "CLIENTS");
  return dialog;
}

std::vector<std::string> TaskDialogRun::Boxes() {
  std::vector<std::string> texts = std::exchange(boxes.shown, {});
  const auto& warnings = ports.warnings.warnings();
  for (; warnings_seen_ < warnings.size(); ++warnings_seen_) {
    texts.push_back("Database|" + warnings[warnings_seen_].text);
  }
  return texts;
}

}  // namespace imptable
