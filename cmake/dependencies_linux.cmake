# Libraries that the native build uses, as the targets that the folders name.

find_package(Threads REQUIRED)
find_package(PkgConfig REQUIRED)
pkg_check_modules(SQLITE REQUIRED IMPORTED_TARGET sqlite3)
pkg_check_modules(ODBC REQUIRED IMPORTED_TARGET odbc)
find_package(CLI11 REQUIRED)
find_package(nlohmann_json REQUIRED)

add_library(platform_system INTERFACE)
target_link_libraries(platform_system INTERFACE PkgConfig::SQLITE Threads::Threads)
add_library(odbc_system INTERFACE)
target_link_libraries(odbc_system INTERFACE PkgConfig::ODBC)

if(IMPTABLE_TESTS)
  enable_testing()
  include(GoogleTest)
  find_package(GTest REQUIRED)
endif()
