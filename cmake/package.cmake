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
add_custom_target(package_files DEPENDS ${gzipped_files} imptable)

install(TARGETS imptable RUNTIME)
install(FILES "${CMAKE_BINARY_DIR}/package/imptable.1.gz"
  DESTINATION "${CMAKE_INSTALL_MANDIR}/man1")
install(FILES resources/completion/imptable
  DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions")
install(FILES "${CMAKE_BINARY_DIR}/package/changelog.gz" README.md docs/settings.md
  resources/package/copyright DESTINATION "${documents}")
install(DIRECTORY resources/demo/ DESTINATION "${documents}/examples")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_NAME imptable)
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_DIRECTORY "${CMAKE_BINARY_DIR}")
set(CPACK_PACKAGE_VENDOR "Importation Table")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "imports text files into ODBC tables, task by task")
set(CPACK_PACKAGE_DESCRIPTION
"Imports a delimited or fixed-width text file into a table of any ODBC data
source: by INSERT, UPDATE, UPDATE/INSERT or DELETE. Lines that can't go in are
kept with their reasons; mend them and resume, and only they are run again.")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE "")
set(CPACK_DEBIAN_PACKAGE_SECTION database)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "Importation Table maintainers <maintainers@localhost>")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS libsqliteodbc)
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "odbc-postgresql, odbc-mariadb")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
