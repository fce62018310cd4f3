# Flags shared by every target, and the two shapes of target that the tree is made of.

add_library(imptable_flags INTERFACE)
target_compile_options(imptable_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
target_include_directories(imptable_flags INTERFACE "${CMAKE_SOURCE_DIR}")
target_compile_definitions(imptable_flags INTERFACE IMPTABLE_VERSION="${PROJECT_VERSION}")
if(IMPTABLE_SANITIZE)
  target_compile_options(imptable_flags INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  target_link_options(imptable_flags INTERFACE -fsanitize=address,undefined)
endif()

# imptable_library(NAME SOURCES... [DEPENDS libraries...]): one library a folder, so that a
# dependency that the tree does not allow fails to link.
function(imptable_library name)
  cmake_parse_arguments(LIB "" "" "SOURCES;DEPENDS" ${ARGN})
  add_library(${name} STATIC ${LIB_SOURCES})
  target_link_libraries(${name} PUBLIC imptable_flags ${LIB_DEPENDS})
endfunction()

# imptable_test(NAME SOURCES... [DEPENDS libraries...]): one test program a folder.
function(imptable_test name)
  if(NOT IMPTABLE_TESTS)
    return()
  endif()
  cmake_parse_arguments(TEST "" "" "SOURCES;DEPENDS" ${ARGN})
  add_executable(${name} ${TEST_SOURCES})
  target_link_libraries(${name} PRIVATE ${TEST_DEPENDS} GTest::gmock GTest::gtest_main)
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 120)
endfunction()
