#ifndef ODBC_DIALECT_H_
#define ODBC_DIALECT_H_

#include <span>
#include <string_view>

namespace imptable {

/// How one kind of database, with its driver, differs from the others.
struct Dialect {
  std::string_view dbms_name;  // as SQLGetInfo gives it; empty for an unknown database

  /// A statement that the server refuses may end as a success with information. Its diagnostic then
  /// has the server's native code, which isn't 0.
  bool refuses_with_information = false;

  /// The database doesn't refuse a key that it can't read as its column's type. It compares the
  /// part that it can read, or zero.
  bool misreads_keys = false;

  /// The same for keys that are times, whether the database or its driver does it.
  bool misreads_times = false;

  /// The database or its driver cuts a text at its first NUL.
  bool cuts_at_nul = false;

  /// In a column of bytes, the driver gives every text the length of the first one. Values that are
  /// bound as texts are stored whole.
  bool binds_bytes_as_text = false;

  /// The driver converts times and bytes by itself: what it can't read becomes another value, and
  /// the database never sees the text.
  bool driver_converts = false;

  /// A column of several bits takes a number. It would take the characters of a text for the bits.
  bool bits_are_numbers = false;

  /// Whether a time may be written as hhmmss, have a sign, and be a span of up to 838:59:59.
  bool has_packed_times = false;

  /// Words that the database reads as numbers, in lower case and without a sign.
  std::span<const std::string_view> number_words = {};
};

/// @param dbms_name  SQL_DBMS_NAME.
const Dialect& DialectOf(std::string_view dbms_name);

}  // namespace imptable

#endif  // ODBC_DIALECT_H_
