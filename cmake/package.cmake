# What an installation holds, and the Debian package of it (scripts/build package).

include(GNUInstallDirs)
set(documents "${CMAKE_INSTALL_DATADIR}/doc/imptable")

# gzip_file(SOURCE NAME): NAME in the build tree, without name and date inside, so that the same
# source gives the same package.
set(gzipped_files "")
function(gzip_file source name)
  set(result "${CMAKE_BINARY_DIR}/package/${name}")
  add_custom_command(OUTPUT "${result}"
    COMMAND "${CMAKE_COMMAND}" -E make_directory "${CMAKE_BINARY_DIR}/package"
    COMMAND gzip -9nc "${CMAKE_SOURCE_DIR}/${source}" > "${result}"
    DEPENDS "${source}" VERBATIM)
  set(gzipped_files ${gzipped_files} "${result}" PARENT_SCOPE)
endfunction()
gzip_file(docs/imptable.1 imptable.1.gz)
gzip_file(CHANGELOG.md changelog.gz)
add_custom_target(package_files DEPENDS ${gzipped_files} imptable imptable-config)

install(TARGETS imptable RUNTIME COMPONENT command)
install(FILES "${CMAKE_BINARY_DIR}/package/imptable.1.gz"
  DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT command)
install(FILES resources/completion/imptable
  DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions" COMPONENT command)
install(FILES "${CMAKE_BINARY_DIR}/package/changelog.gz" README.md
  resources/package/copyright DESTINATION "${documents}" COMPONENT command)
# The pages keep the places that they have in the tree, so that the links between them work.
install(DIRECTORY docs DESTINATION "${documents}" COMPONENT command
  FILES_MATCHING PATTERN "*.md" PATTERN "*.svg" PATTERN "*.png" PATTERN "*.txt")
install(DIRECTORY resources/demo/ DESTINATION "${documents}/examples" COMPONENT command)
# The dialogs are a package of their own: a server needs no windows.
install(TARGETS imptable-config RUNTIME COMPONENT dialogs)
install(FILES "${CMAKE_BINARY_DIR}/package/changelog.gz" resources/package/copyright
  DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/imptable-config" COMPONENT dialogs)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_NAME imptable)
set(CPACK_COMPONENTS_ALL command dialogs)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_COMMAND_PACKAGE_NAME imptable)
set(CPACK_DEBIAN_DIALOGS_PACKAGE_NAME imptable-config)
set(CPACK_DEBIAN_DIALOGS_PACKAGE_DEPENDS "imptable (= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_DIALOGS_DESCRIPTION
"The configuration dialogs of imptable: a task is made and changed in a window.")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_DIRECTORY "${CMAKE_BINARY_DIR}")
set(CPACK_PACKAGE_VENDOR "Importation Table")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "imports text files into ODBC tables, task by task")
set(CPACK_COMPONENT_COMMAND_DESCRIPTION
"Imports a delimited or fixed-width text file into a table of any ODBC data
source: by INSERT, UPDATE, UPDATE/INSERT or DELETE. A run keeps the lines that
it has to reject, with the reasons; mend them and resume: only they are run
again.")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE "")
set(CPACK_DEBIAN_PACKAGE_SECTION database)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "Importation Table maintainers <maintainers@localhost>")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_COMMAND_PACKAGE_RECOMMENDS libsqliteodbc)
set(CPACK_DEBIAN_COMMAND_PACKAGE_SUGGESTS "imptable-config, odbc-postgresql, odbc-mariadb")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
