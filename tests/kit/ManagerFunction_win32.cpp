#include "platform/windows/Windows_win32.h"
#include "tests/kit/ManagerFunction.h"

namespace imptable {

void* ManagerFunction(const char* name) {
  return reinterpret_cast<void*>(GetProcAddress(LoadLibraryA("odbc32.dll"), name));
}

}  // namespace imptable
