#include "tests/dialogs/WatchedBoxes.h"

#include <wx/dialog.h>

#include <chrono>
#include <optional>
#include <stdexcept>
#include <thread>

#include "tests/dialogs/FrontWindows.h"
#include "tests/dialogs/MainThread.h"
#include "tests/dialogs/Person.h"

namespace imptable {
namespace {

/// Until the next box, or the dialog, has the keyboard, keys get lost.
void WaitForTheKeyboard() {
  WaitFor(
      [] {
        wxDialog* const dialog = FrontDialog();
        const bool somebody_has_it = dialog == nullptr || dialog->IsActive() || FrontBox();
        return somebody_has_it ? std::optional<bool>(true) : std::nullopt;
      },
      "the keyboard");
}

}  // namespace

void WatchedBoxes::Open(const char* kind, std::string_view text, std::string_view caption) {
  const std::lock_guard lock(mutex_);
  pending_.push_back(std::string(kind) + '|' + std::string(caption) + '|' + std::string(text));
}

void WatchedBoxes::Close() {
  const std::lock_guard lock(mutex_);
  ++closed_;
}

std::size_t WatchedBoxes::Closed() {
  const std::lock_guard lock(mutex_);
  return closed_;
}

void WatchedBoxes::Warn(std::string_view text, std::string_view caption) {
  Open("Warn", text, caption);
  real_.Warn(text, caption);
  Close();
}

void WatchedBoxes::Inform(std::string_view text, std::string_view caption) {
  Open("Inform", text, caption);
  real_.Inform(text, caption);
  Close();
}

bool WatchedBoxes::Ask(std::string_view text, std::string_view caption) {
  Open("Ask", text, caption);
  const bool answer = real_.Ask(text, caption);
  Close();
  return answer;
}

std::string WatchedBoxes::Answer(const std::string& key) {
  constexpr std::chrono::seconds kUntilClosed{2};
  constexpr std::chrono::milliseconds kGlance{10};
  const std::string said = WaitFor(FrontBox, "a message box");
  const std::size_t before = Closed();
  const auto is_open = [&] { return Closed() == before; };
  const auto end = std::chrono::steady_clock::now() + kPatience;
  while (is_open() && std::chrono::steady_clock::now() < end) {
    // A key that comes before the box is drawn can get lost, so press it until it works.
    RunProgram({"xdotool", "key", key});
    const auto pressed = std::chrono::steady_clock::now();
    while (is_open() && std::chrono::steady_clock::now() < pressed + kUntilClosed) {
      std::this_thread::sleep_for(kGlance);
    }
  }
  if (is_open()) throw std::runtime_error("the box stays: " + said);
  WaitForTheKeyboard();
  const std::lock_guard lock(mutex_);
  pending_.erase(pending_.begin());
  return said;
}

}  // namespace imptable
