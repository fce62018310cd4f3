#ifndef TESTS_DRIVERS_PERFORM_H_
#define TESTS_DRIVERS_PERFORM_H_

#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

#include "tests/drivers/Handles.h"

namespace imptable::scripted {

/// Plays one call: counts it, does what the script says about it, logs it.
/// @param describe  gives the arguments for the log; not called when the log is closed
/// @param work  does what the call does when the script doesn't refuse it; gives a return code
/// @return the script's code, unless the work gives another one than SQL_SUCCESS
template <typename Describe, typename Work>
SQLRETURN Perform(Handle& handle, Call call, const Occasion& occasion, Describe describe,
                  Work work) {
  handle.diagnostics.Clear();
  const bool logging = handle.log->IsOpen();
  const std::string arguments = logging ? describe() : std::string();
  const Playback::Step step = handle.playback->Next(call, occasion);
  if (step.crash) {
    if (logging) handle.log->WriteCrash(call, arguments);
    std::abort();
  }
  SQLRETURN code = SQL_SUCCESS;
  if (step.rule != nullptr) {
    code = step.rule->code;
    for (const Diagnostic& diagnostic : step.rule->diagnostics) {
      handle.diagnostics.Push(diagnostic);
    }
  }
  if (SQL_SUCCEEDED(code)) {
    const auto result = static_cast<SQLRETURN>(work());
    if (result != SQL_SUCCESS) code = result;
  }
  if (logging) handle.log->Write(call, arguments, code);
  return code;
}

inline std::string NoArguments() { return {}; }
inline SQLRETURN NoWork() { return SQL_SUCCESS; }

/// A text argument: nullopt for a null pointer, up to its terminator for SQL_NTS.
template <typename Length>
Cell TextArgument(const SQLCHAR* text, Length length) {
  if (text == nullptr) return std::nullopt;
  const char* start = reinterpret_cast<const char*>(text);
  if (length < 0) return std::string(start);
  return std::string(start, static_cast<std::size_t>(length));
}

inline std::string Shown(const Cell& cell) { return cell.value_or("<null>"); }

/// Copies with a terminator into a buffer of `size` bytes, which may be null.
/// @return SQL_SUCCESS_WITH_INFO when the text was cut; `full_length` is what it needs.
inline SQLRETURN CopyText(std::string_view text, SQLCHAR* target, SQLSMALLINT size,
                          SQLSMALLINT* full_length) {
  if (full_length != nullptr) *full_length = static_cast<SQLSMALLINT>(text.size());
  if (target == nullptr || size <= 0) return text.empty() ? SQL_SUCCESS : SQL_SUCCESS_WITH_INFO;
  const std::size_t taken =
      text.copy(reinterpret_cast<char*>(target), static_cast<std::size_t>(size) - 1);
  target[taken] = '\0';
  return taken == text.size() ? SQL_SUCCESS : SQL_SUCCESS_WITH_INFO;
}

}  // namespace imptable::scripted

#endif  // TESTS_DRIVERS_PERFORM_H_
