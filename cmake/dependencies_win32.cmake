# Libraries that the component for Windows uses: the tool chain's own, the dialogs' toolkit as
# cmake/wxwidgets-win32 builds it, and GoogleTest from source.

enable_language(C RC)

add_library(system_libraries INTERFACE)
target_link_libraries(system_libraries INTERFACE advapi32 user32)
add_library(odbc_system INTERFACE)
target_link_libraries(odbc_system INTERFACE odbc32)

message(STATUS "The dialogs' toolkit: built when it isn't there yet, which takes about ten minutes")
execute_process(COMMAND "${CMAKE_SOURCE_DIR}/cmake/wxwidgets-win32"
  OUTPUT_VARIABLE toolkit OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
# toolkit_flags(VARIABLE OPTION...): what the toolkit's wx-config prints, as a list.
function(toolkit_flags variable)
  execute_process(COMMAND "${toolkit}/bin/wx-config" ${ARGN}
    OUTPUT_VARIABLE flags OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  separate_arguments(flags UNIX_COMMAND "${flags}")
  set(${variable} ${flags} PARENT_SCOPE)
endfunction()
toolkit_flags(toolkit_compile --cxxflags)
toolkit_flags(toolkit_link --libs core,base)
set(toolkit_includes ${toolkit_compile})
list(FILTER toolkit_includes INCLUDE REGEX "^-I")
list(TRANSFORM toolkit_includes REPLACE "^-I" "")
# -mthreads is for older tool chains; clang-tidy doesn't know it.
list(FILTER toolkit_compile EXCLUDE REGEX "^-I|^-mthreads$")
# These flags are for programs; the component is a DLL.
list(FILTER toolkit_link EXCLUDE REGEX "subsystem|^-mwindows$")
add_library(dialog_toolkit INTERFACE)
target_include_directories(dialog_toolkit SYSTEM INTERFACE ${toolkit_includes})
target_compile_options(dialog_toolkit INTERFACE ${toolkit_compile})
target_link_libraries(dialog_toolkit INTERFACE ${toolkit_link})

if(IMPTABLE_TESTS)
  enable_testing()
  add_subdirectory(/usr/src/googletest googletest EXCLUDE_FROM_ALL)
endif()
