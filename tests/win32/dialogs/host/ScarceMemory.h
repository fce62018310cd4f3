#ifndef TESTS_WIN32_DIALOGS_HOST_SCARCE_MEMORY_H_
#define TESTS_WIN32_DIALOGS_HOST_SCARCE_MEMORY_H_

#include <cstddef>

#include "platform/windows/Windows_win32.h"

namespace imptable {

/// From now on a module gets no block of memory of that many bytes, or more, from the run-time
/// library. @throws std::runtime_error  when it doesn't import "malloc".
void RefuseBlocks(HMODULE module, std::size_t bytes);

}  // namespace imptable

#endif  // TESTS_WIN32_DIALOGS_HOST_SCARCE_MEMORY_H_
