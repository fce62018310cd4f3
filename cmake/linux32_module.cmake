# A loadable library for the 32-bit Linux that Wine runs in, made by the machine's own compiler in
# the middle of the cross build.
find_program(linux_compiler g++ REQUIRED)

# linux32_module(NAME SOURCES file... LIBRARY soname LINK file)
#
# Makes lib/libNAME.so in the build folder. Its target is NAME, whose property MODULE_FILE is the
# library's path. LINK is a C file with the functions that the library takes from LIBRARY at run
# time.
function(linux32_module name)
  cmake_parse_arguments(ARG "" "LIBRARY;LINK" "SOURCES" ${ARGN})
  set(folder "${CMAKE_CURRENT_BINARY_DIR}/${name}")
  set(module "${CMAKE_BINARY_DIR}/lib/lib${name}.so")
  set(system_library "${folder}/${ARG_LIBRARY}")
  file(MAKE_DIRECTORY "${folder}" "${CMAKE_BINARY_DIR}/lib")

  # unixODBC's headers describe the machine's own system, where a long has another size.
  set(flags -m32 -msse2 -mfpmath=sse -fPIC -O2 -std=c++20 -DSIZEOF_LONG_INT=4
    -fvisibility=hidden -fvisibility-inlines-hidden "-I${CMAKE_SOURCE_DIR}"
    "$<TARGET_PROPERTY:imptable_flags,INTERFACE_COMPILE_OPTIONS>")
  set(objects "")
  foreach(source IN LISTS ARG_SOURCES)
    set(object "${folder}/${source}.o")
    add_custom_command(OUTPUT "${object}"
      COMMAND ${CMAKE_CXX_COMPILER_LAUNCHER} "${linux_compiler}" ${flags}
        -MD -MF "${object}.d" -MT "${object}"
        -c "${CMAKE_CURRENT_SOURCE_DIR}/${source}" -o "${object}"
      DEPENDS "${source}" DEPFILE "${object}.d" COMMAND_EXPAND_LISTS VERBATIM
      COMMENT "Building 32-bit Linux object ${source}.o")
    list(APPEND objects "${object}")
  endforeach()
  add_custom_command(OUTPUT "${system_library}"
    COMMAND "${linux_compiler}" -m32 -shared -nostdlib -x c
      "${CMAKE_CURRENT_SOURCE_DIR}/${ARG_LINK}" -o "${system_library}"
      "-Wl,-soname,${ARG_LIBRARY}"
    DEPENDS "${ARG_LINK}" VERBATIM)
  add_custom_command(OUTPUT "${module}"
    COMMAND "${linux_compiler}" -m32 -shared -static-libstdc++ -static-libgcc
      -Wl,-Bsymbolic,-z,defs -o "${module}" ${objects} "${system_library}"
    DEPENDS ${objects} "${system_library}" VERBATIM
    COMMENT "Linking 32-bit Linux library lib${name}.so")
  add_custom_target(${name} DEPENDS "${module}")
  set_target_properties(${name} PROPERTIES MODULE_FILE "${module}")
endfunction()
