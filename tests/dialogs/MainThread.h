#ifndef TESTS_DIALOGS_MAIN_THREAD_H_
#define TESTS_DIALOGS_MAIN_THREAD_H_

#include <wx/app.h>
#include <wx/thread.h>

#include <chrono>
#include <exception>
#include <future>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <type_traits>
#include <utility>

namespace imptable {

/// How long the dialogs may take to answer, or to show what somebody waits for.
inline constexpr std::chrono::seconds kPatience{20};

/// Runs a question on the main thread, where the windows live, and hands its answer back.
/// @throws std::runtime_error  when that thread doesn't get to it; what the question throws.
template <typename Question>
auto OnMainThread(Question question) -> decltype(question()) {
  using Answer = decltype(question());
  if (wxIsMainThread()) return question();
  auto answer = std::make_shared<std::promise<Answer>>();
  std::future<Answer> result = answer->get_future();
  wxTheApp->CallAfter([answer, question = std::move(question)]() mutable {
    try {
      if constexpr (std::is_void_v<Answer>) {
        question();
        answer->set_value();
      } else {
        answer->set_value(question());
      }
    } catch (...) {
      answer->set_exception(std::current_exception());
    }
  });
  if (result.wait_for(kPatience) != std::future_status::ready) {
    throw std::runtime_error("the dialogs don't answer");
  }
  return result.get();
}

/// Asks on the main thread until there is an answer.
/// @param look  gives an optional.
/// @param what  is waited for, for the failure's text.
/// @throws std::runtime_error  when none comes; what `look` throws.
template <typename Look>
auto WaitFor(Look look, const std::string& what) {
  constexpr std::chrono::milliseconds kGlance{20};  // between two looks
  const auto end = std::chrono::steady_clock::now() + kPatience;
  while (std::chrono::steady_clock::now() < end) {
    if (auto found = OnMainThread(look)) return *found;
    std::this_thread::sleep_for(kGlance);
  }
  throw std::runtime_error("waited in vain for " + what);
}

}  // namespace imptable

#endif  // TESTS_DIALOGS_MAIN_THREAD_H_
