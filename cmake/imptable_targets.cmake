# Flags that every target shares, and the functions that make the tree's targets.

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
if(IMPTABLE_FUZZ)
  target_compile_options(imptable_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()

if(WIN32)
  set(other_system linux)
else()
  set(other_system win32)
endif()

# Headers that nearly every test includes, compiled once. They take longer to compile than the
# tests' own lines, and so does optimising those lines: together two thirds of the time.
set(test_flags -O0)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  list(APPEND test_flags -fpch-preprocess)  # What ccache needs to know these objects again.
endif()
if(IMPTABLE_TESTS AND IMPTABLE_PRECOMPILE)
  add_library(test_headers OBJECT "${CMAKE_SOURCE_DIR}/cmake/test_headers.cpp")
  target_link_libraries(test_headers PRIVATE imptable_flags GTest::gmock)
  target_compile_options(test_headers PRIVATE ${test_flags})
  if(NOT WIN32)
    # The objects of a program are compiled so, and can only use headers that are compiled alike.
    set_target_properties(test_headers PROPERTIES POSITION_INDEPENDENT_CODE OFF)
    target_compile_options(test_headers PRIVATE -fPIE)
  endif()
  target_precompile_headers(test_headers PRIVATE
    <gmock/gmock.h> <gtest/gtest.h> <algorithm> <filesystem> <fstream> <functional> <map>
    <memory> <optional> <sstream> <string> <string_view> <utility> <vector>)
endif()

# imptable_quick_build(PROGRAM [WITH_TOOLKIT])
#
# Compiles a test program without optimisation, and its tests (*_test.cpp) with the headers above. A
# program with the dialogs' toolkit does without those: the toolkit defines macros that they look
# at.
function(imptable_quick_build program)
  target_compile_options(${program} PRIVATE ${test_flags})
  if(NOT IMPTABLE_PRECOMPILE OR "WITH_TOOLKIT" IN_LIST ARGN)
    return()
  endif()
  target_precompile_headers(${program} REUSE_FROM test_headers)
  get_target_property(sources ${program} SOURCES)
  list(FILTER sources EXCLUDE REGEX "_test\\.cpp$")
  set_source_files_properties(${sources} PROPERTIES SKIP_PRECOMPILE_HEADERS ON)
endfunction()

# imptable_tests(PROGRAM [SHARDS] [LABEL label])
#
# The tests of a program, each as one of CTest's. Under Wine a process takes its time to start:
# there the whole program is one of CTest's, or so many shards of it. "scripts/test quick" leaves
# out tests with the label "slow".
function(imptable_tests program)
  cmake_parse_arguments(ARG "" "LABEL" "" ${ARGN})
  set(label)
  if(ARG_LABEL)
    set(label LABELS ${ARG_LABEL})
  endif()
  if(WIN32)
    set(shards 1)
    if(ARG_UNPARSED_ARGUMENTS)
      set(shards ${ARG_UNPARSED_ARGUMENTS})
    endif()
    foreach(shard RANGE 1 ${shards})
      set(name ${program})
      if(shards GREATER 1)
        string(APPEND name /${shard})
      endif()
      add_test(NAME ${name}
        COMMAND "${CMAKE_SOURCE_DIR}/tests/win32/unit-tests" "$<TARGET_FILE:${program}>")
      math(EXPR index "${shard} - 1")
      set_tests_properties(${name} PROPERTIES TIMEOUT 300 ${label}
        ENVIRONMENT "GTEST_TOTAL_SHARDS=${shards};GTEST_SHARD_INDEX=${index}")
    endforeach()
  else()
    gtest_discover_tests(${program} DISCOVERY_TIMEOUT 60
      PROPERTIES TIMEOUT 120 ${label})
  endif()
endfunction()

# The headers that nearly every file of the libraries includes, compiled once: for who builds the
# command alone and for the first time. Otherwise ccache is faster, which can't share such objects
# between clones.
if(IMPTABLE_PRECOMPILE AND IMPTABLE_PRECOMPILE_LIBRARIES)
  add_library(library_headers OBJECT "${CMAKE_SOURCE_DIR}/cmake/library_headers.cpp")
  target_link_libraries(library_headers PRIVATE imptable_flags)
  target_compile_options(library_headers PRIVATE -fpch-preprocess)
  target_precompile_headers(library_headers PRIVATE
    <algorithm> <array> <atomic> <cstdint> <functional> <map> <memory> <optional> <string>
    <string_view> <system_error> <unordered_map> <utility> <variant> <vector>)
endif()

# imptable_sources(SOURCES TESTS folders...)
#
# The C++ files of folders, and the tests among them in a list of their own. Files for another
# system (*_linux.cpp, *_win32.cpp, *_linux_test.cpp, *_win32_test.cpp) are left out.
function(imptable_sources sources_out tests_out)
  set(patterns ${ARGN})
  list(TRANSFORM patterns APPEND "/*.cpp")
  file(GLOB sources CONFIGURE_DEPENDS ${patterns})
  set(tests ${sources})
  list(FILTER sources EXCLUDE REGEX "_test\\.cpp$|_${other_system}\\.cpp$")
  list(FILTER tests INCLUDE REGEX "_test\\.cpp$")
  list(FILTER tests EXCLUDE REGEX "_${other_system}_test\\.cpp$")
  set(${sources_out} ${sources} PARENT_SCOPE)
  set(${tests_out} ${tests} PARENT_SCOPE)
endfunction()

# imptable_library(NAME SOURCES [sources...] DEPENDS [libraries...])
function(imptable_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
  if(ARG_SOURCES)
    add_library(${name} STATIC ${ARG_SOURCES})
    target_link_libraries(${name} PUBLIC imptable_flags ${ARG_DEPENDS})
    if(TARGET library_headers)
      target_compile_options(${name} PRIVATE -fpch-preprocess)
      target_precompile_headers(${name} REUSE_FROM library_headers)
    endif()
  else()
    add_library(${name} INTERFACE)
    target_link_libraries(${name} INTERFACE imptable_flags ${ARG_DEPENDS})
  endif()
endfunction()

# imptable_folder(NAME [DEPENDS libraries...] [TEST_DEPENDS libraries...] [FLOORS folders...]
#                 [ROOMS folders...] [LEAVE_OUT sources...] [TEST_SHARDS number] [WITH_TOOLKIT])
#
# The current folder as one library NAME and one test program NAME_test. Unit tests stand beside
# what they test (*_test.cpp). FLOORS are folders in it, from the lowest up. Each floor is a library
# NAME_FOLDER, which depends on DEPENDS and on the floors before it; NAME depends on all floors.
# ROOMS are folders that belong to NAME itself. WITH_TOOLKIT: as imptable_quick_build has it. A
# dependency that the tree doesn't allow isn't linked, so its use fails.
function(imptable_folder name)
  cmake_parse_arguments(ARG "WITH_TOOLKIT" "TEST_SHARDS" "DEPENDS;TEST_DEPENDS;FLOORS;ROOMS;LEAVE_OUT" ${ARGN})
  set(here "${CMAKE_CURRENT_SOURCE_DIR}")
  set(below ${ARG_DEPENDS})
  set(all_tests "")
  foreach(floor IN LISTS ARG_FLOORS)
    imptable_sources(sources tests "${here}/${floor}")
    imptable_library(${name}_${floor} SOURCES ${sources} DEPENDS ${below})
    list(APPEND below ${name}_${floor})
    list(APPEND all_tests ${tests})
  endforeach()
  set(rooms "${here}")
  foreach(room IN LISTS ARG_ROOMS)
    list(APPEND rooms "${here}/${room}")
  endforeach()
  imptable_sources(sources tests ${rooms})
  list(APPEND all_tests ${tests})
  foreach(file IN LISTS ARG_LEAVE_OUT)
    list(REMOVE_ITEM sources "${here}/${file}")
  endforeach()
  imptable_library(${name} SOURCES ${sources} DEPENDS ${below})
  if(IMPTABLE_TESTS AND all_tests)
    add_executable(${name}_test ${all_tests})
    target_link_libraries(${name}_test PRIVATE ${name} ${ARG_TEST_DEPENDS}
      GTest::gmock GTest::gtest_main)
    set(toolkit "")
    if(ARG_WITH_TOOLKIT)
      set(toolkit WITH_TOOLKIT)
    endif()
    imptable_quick_build(${name}_test ${toolkit})
    imptable_tests(${name}_test ${ARG_TEST_SHARDS})
  endif()
endfunction()
