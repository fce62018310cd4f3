# Libraries that the native build uses, as the targets that the folders name.

find_package(Threads REQUIRED)
find_package(PkgConfig REQUIRED)
pkg_check_modules(SQLITE REQUIRED IMPORTED_TARGET sqlite3)
pkg_check_modules(ODBC REQUIRED IMPORTED_TARGET odbc)
find_package(CLI11 REQUIRED)
find_package(nlohmann_json REQUIRED)

add_library(system_libraries INTERFACE)
target_link_libraries(system_libraries INTERFACE PkgConfig::SQLITE Threads::Threads)
add_library(odbc_system INTERFACE)
target_link_libraries(odbc_system INTERFACE PkgConfig::ODBC)

if(IMPTABLE_DIALOGS)
  find_package(wxWidgets 3.2 REQUIRED COMPONENTS core base)
  add_library(dialog_toolkit INTERFACE)
  target_include_directories(dialog_toolkit SYSTEM INTERFACE ${wxWidgets_INCLUDE_DIRS})
  target_compile_definitions(dialog_toolkit INTERFACE ${wxWidgets_DEFINITIONS})
  target_compile_options(dialog_toolkit INTERFACE ${wxWidgets_CXX_FLAGS})
  # The toolkit's own toolkit, for the names that screen readers use.
  pkg_check_modules(GTK REQUIRED IMPORTED_TARGET gtk+-3.0)
  target_link_libraries(dialog_toolkit INTERFACE ${wxWidgets_LIBRARIES} PkgConfig::GTK)
endif()

if(IMPTABLE_TESTS)
  enable_testing()
  include(GoogleTest)
  find_package(GTest REQUIRED)
endif()
