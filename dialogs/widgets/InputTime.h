#ifndef DIALOGS_WIDGETS_INPUT_TIME_H_
#define DIALOGS_WIDGETS_INPUT_TIME_H_

#include <cstdint>
#include <optional>

class wxWindow;

namespace imptable {

// Times of the clock of keys and clicks, in milliseconds, which begins anew after 49 days; nullopt
// where the system tells none.

/// When the key or click was made that is being handled.
std::optional<std::uint32_t> TimeOfInput();

std::optional<std::uint32_t> PresentTime(const wxWindow& window);

}  // namespace imptable

#endif  // DIALOGS_WIDGETS_INPUT_TIME_H_
