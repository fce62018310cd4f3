# Fails when the component's DLL isn't for 32-bit Windows, needs a DLL that isn't part of Windows,
# or exports other functions than it should.
# cmake -DOBJDUMP=... -DDLL=... -P check_dll.cmake
cmake_minimum_required(VERSION 3.25)

set(system_dlls advapi32.dll comctl32.dll comdlg32.dll gdi32.dll kernel32.dll msvcrt.dll odbc32.dll
  odbccp32.dll ole32.dll oleacc.dll oleaut32.dll rpcrt4.dll shell32.dll shlwapi.dll user32.dll
  uxtheme.dll version.dll winmm.dll winspool.drv)
set(functions DllCanUnloadNow DllGetClassObject DllRegisterServer DllUnregisterServer)

execute_process(COMMAND "${OBJDUMP}" -p "${DLL}" OUTPUT_VARIABLE headers
  COMMAND_ERROR_IS_FATAL ANY)
if(NOT headers MATCHES "file format pei-i386")
  message(FATAL_ERROR "${DLL} isn't for 32-bit Windows")
endif()

string(REGEX MATCHALL "DLL Name: [^\n]+" imports "${headers}")
if(NOT imports)
  message(FATAL_ERROR "${DLL} imports nothing, which can't be")
endif()
foreach(import IN LISTS imports)
  string(REPLACE "DLL Name: " "" name "${import}")
  string(TOLOWER "${name}" lower)
  if(NOT lower IN_LIST system_dlls)
    message(FATAL_ERROR "${DLL} needs ${name}, which isn't a part of Windows")
  endif()
endforeach()

string(FIND "${headers}" "[Ordinal/Name Pointer] Table" names)
string(FIND "${headers}" "PE File Base Relocations" names_end)
math(EXPR names_length "${names_end} - ${names}")
string(SUBSTRING "${headers}" ${names} ${names_length} names)
string(REGEX MATCHALL "\\[ *[0-9]+\\] [^\n]+" exports "${names}")
list(TRANSFORM exports REPLACE "^\\[ *[0-9]+\\] " "")
if(NOT "${exports}" STREQUAL "${functions}")
  message(FATAL_ERROR "${DLL} exports ${exports} in place of ${functions}")
endif()
message(STATUS "${DLL}: needs Windows alone")
