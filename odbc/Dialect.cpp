#include "odbc/Dialect.h"

#include <algorithm>
#include <array>

namespace imptable {
namespace {

constexpr std::array<std::string_view, 3> kPostgresqlNumbers{"nan", "infinity", "inf"};

constexpr Dialect kUnknown{};

constexpr std::array<Dialect, 3> kDialects{{
    {.dbms_name = "SQLite", .binds_bytes_as_text = true},
    {.dbms_name = "PostgreSQL",
     .misreads_times = true,
     .cuts_at_nul = true,
     .driver_converts = true,
     .number_words = kPostgresqlNumbers},
    {.dbms_name = "MariaDB",
     .refuses_with_information = true,
     .misreads_keys = true,
     .misreads_times = true,
     .bits_are_numbers = true,
     .has_packed_times = true},
}};

}  // namespace

const Dialect& DialectOf(std::string_view dbms_name) {
  const auto* const found =
      std::find_if(kDialects.begin(), kDialects.end(),
                   [&](const Dialect& each) { return each.dbms_name == dbms_name; });
  return found == kDialects.end() ? kUnknown : *found;
}

}  // namespace imptable
