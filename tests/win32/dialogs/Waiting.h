#ifndef TESTS_WIN32_DIALOGS_WAITING_H_
#define TESTS_WIN32_DIALOGS_WAITING_H_

#include <chrono>
#include <stdexcept>
#include <string>
#include <thread>

namespace imptable {

inline constexpr std::chrono::milliseconds kGlance{30};  // between two looks

/// Looks until there is something. @return what `look` gave.
/// @throws std::runtime_error  after half a minute.
template <typename Look>
auto WaitFor(Look look, const std::string& what) {
  constexpr std::chrono::seconds kPatience{30};
  const auto end = std::chrono::steady_clock::now() + kPatience;
  while (std::chrono::steady_clock::now() < end) {
    if (const auto found = look()) return found;
    std::this_thread::sleep_for(kGlance);
  }
  throw std::runtime_error("waited in vain for " + what);
}

}  // namespace imptable

#endif  // TESTS_WIN32_DIALOGS_WAITING_H_
