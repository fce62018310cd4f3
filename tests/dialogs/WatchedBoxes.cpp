#include "tests/dialogs/WatchedBoxes.h"

#include <chrono>
#include <stdexcept>
#include <thread>

#include "tests/dialogs/Person.h"

namespace imptable {
namespace {

constexpr std::chrono::seconds kPatience{20};
constexpr std::chrono::milliseconds kUntilShown{400};
constexpr std::chrono::milliseconds kUntilAnswered{700};

}  // namespace

void WatchedBoxes::Open(const char* kind, std::string_view text, std::string_view caption) {
  const std::lock_guard lock(mutex_);
  pending_.push_back(std::string(kind) + '|' + std::string(caption) + '|' + std::string(text));
  open_ = true;
  changed_.notify_all();
}

void WatchedBoxes::Close() {
  const std::lock_guard lock(mutex_);
  open_ = false;
  changed_.notify_all();
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
  std::unique_lock lock(mutex_);
  if (!changed_.wait_for(lock, kPatience, [this] { return open_; })) {
    throw std::runtime_error("no message box comes");
  }
  const std::string said = pending_.front();
  // The box is recorded just before the window manager shows it: a key that comes too early goes
  // astray, so it is pressed until it has worked.
  const auto end = std::chrono::steady_clock::now() + kPatience;
  while (open_ && std::chrono::steady_clock::now() < end) {
    lock.unlock();
    std::this_thread::sleep_for(kUntilShown);
    RunProgram({"xdotool", "key", key});
    lock.lock();
    changed_.wait_for(lock, kUntilAnswered, [this] { return !open_; });
  }
  if (open_) throw std::runtime_error("the box stays: " + said);
  pending_.erase(pending_.begin());
  return said;
}

}  // namespace imptable
