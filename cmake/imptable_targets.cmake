# Flags shared by every target, and the shape of target that the tree is made of.

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

# imptable_folder(NAME [DEPENDS libraries...] [TEST_DEPENDS libraries...]
#                 [LEAVE_OUT sources...])
#
# The current folder as one library NAME and one test program NAME_test. Unit tests stand beside
# what they test (*_test.cpp); bodies for another system (*_win32.cpp) are left out. A dependency
# that the tree doesn't allow isn't linked, so it fails.
function(imptable_folder name)
  cmake_parse_arguments(ARG "" "" "DEPENDS;TEST_DEPENDS;LEAVE_OUT" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp")
  set(tests ${sources})
  list(FILTER tests INCLUDE REGEX "_test\\.cpp$")
  list(FILTER sources EXCLUDE REGEX "_(test|win32)\\.cpp$")
  foreach(file IN LISTS ARG_LEAVE_OUT)
    list(REMOVE_ITEM sources "${CMAKE_CURRENT_SOURCE_DIR}/${file}")
  endforeach()
  if(sources)
    add_library(${name} STATIC ${sources})
    target_link_libraries(${name} PUBLIC imptable_flags ${ARG_DEPENDS})
  else()
    add_library(${name} INTERFACE)
    target_link_libraries(${name} INTERFACE imptable_flags ${ARG_DEPENDS})
  endif()
  if(IMPTABLE_TESTS AND tests)
    add_executable(${name}_test ${tests})
    target_link_libraries(${name}_test PRIVATE ${name} ${ARG_TEST_DEPENDS}
      GTest::gmock GTest::gtest_main)
    gtest_discover_tests(${name}_test DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 120)
  endif()
endfunction()
