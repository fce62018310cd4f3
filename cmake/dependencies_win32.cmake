# Libraries that the component for Windows uses: the tool chain's own, and GoogleTest from source.

enable_language(C RC)

add_library(platform_system INTERFACE)
target_link_libraries(platform_system INTERFACE advapi32 user32)
add_library(odbc_system INTERFACE)
target_link_libraries(odbc_system INTERFACE odbc32)

if(IMPTABLE_TESTS)
  enable_testing()
  add_subdirectory(/usr/src/googletest googletest EXCLUDE_FROM_ALL)
endif()
