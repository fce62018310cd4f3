#ifndef DIALOGS_WIDGETS_INPUT_TIME_H_
#define DIALOGS_WIDGETS_INPUT_TIME_H_

#include <cstdint>
#include <optional>

class wxWindow;

namespace imptable {

// Times on the system's clock for keys and clicks, in milliseconds. The clock starts again at 0
// after 49 days. nullopt where the system tells no time.

/// The time of the key or click that is being handled.
std::optional<std::uint32_t> TimeOfInput();

std::optional<std::uint32_t> PresentTime(const wxWindow& window);

}  // namespace imptable

#endif  // DIALOGS_WIDGETS_INPUT_TIME_H_
