#include <dlfcn.h>

#include "tests/kit/ManagerFunction.h"

namespace imptable {

void* ManagerFunction(const char* name) { return dlsym(RTLD_NEXT, name); }

}  // namespace imptable
