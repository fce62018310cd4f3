# The package for Windows: build/win32/SQLTImpT-VERSION-win32.zip (scripts/build win32 zip).

set(name "SQLTImpT-${PROJECT_VERSION}-win32")
set(folder "${CMAKE_BINARY_DIR}/zip/${name}")
# zip_text(SOURCE TARGET): a text of the tree, with lines that end as Windows wants them.
set(zip_files "")
function(zip_text source target)
  configure_file("${source}" "${folder}/${target}" @ONLY NEWLINE_STYLE WIN32)
  set(zip_files ${zip_files} "${folder}/${target}" PARENT_SCOPE)
endfunction()
zip_text(docs/windows-install.txt INSTALL.txt)
zip_text(docs/settings.md settings.txt)
zip_text(docs/files.md files.txt)
zip_text(docs/resume.md resume.txt)
zip_text(resources/windows/register.cmd register.cmd)
zip_text(resources/windows/unregister.cmd unregister.cmd)

add_custom_command(OUTPUT "${CMAKE_BINARY_DIR}/${name}.zip"
  COMMAND "${CMAKE_COMMAND}" -E copy "$<TARGET_FILE:SQLTImpT>" "${folder}"
  COMMAND "${CMAKE_COMMAND}" -E remove "${CMAKE_BINARY_DIR}/${name}.zip"
  COMMAND "${CMAKE_COMMAND}" -E tar cf "${CMAKE_BINARY_DIR}/${name}.zip" --format=zip "${name}"
  WORKING_DIRECTORY "${CMAKE_BINARY_DIR}/zip"
  DEPENDS SQLTImpT ${zip_files} VERBATIM)
add_custom_target(zip DEPENDS "${CMAKE_BINARY_DIR}/${name}.zip")
