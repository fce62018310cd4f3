#ifndef AUTOMATION_AUTOMATION_API_H_
#define AUTOMATION_AUTOMATION_API_H_

// The system's automation headers, and the contract that is compiled from resources/SQLTImpT.idl.
#include "platform/windows/Windows_win32.h"
#define interface struct
#include <SQLTImpT.h>
#include <olectl.h>
#undef interface

#endif  // AUTOMATION_AUTOMATION_API_H_
