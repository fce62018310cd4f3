#ifndef ODBC_DIALECT_H_
#define ODBC_DIALECT_H_

#include <span>
#include <string_view>

namespace imptable {

/// What one kind of database, behind its driver, does in a way of its own.
struct Dialect {
  std::string_view dbms_name;  // as SQLGetInfo gives it; empty for one that nothing is known of

  /// A statement that the server refuses may end as a success with information: the refusal's
  /// native code is the server's, any but 0.
  bool refuses_with_information = false;

  /// A key that the database can't read as its column's type isn't refused: it is compared by the
  /// part of it that can be read, or as zero.
  bool misreads_keys = false;

  /// The same for keys that are times, be it by the driver.
  bool misreads_times = false;

  /// A text ends at its first NUL, be it by the driver.
  bool cuts_at_nul = false;

  /// A driver that takes the length of the first text for those of all that follow, where the type
  /// is one of bytes; as texts they are stored whole.
  bool binds_bytes_as_text = false;

  /// The driver converts times and bytes by itself: what it can't read becomes another value, and
  /// the database never sees the text.
  bool driver_converts = false;

  /// A column of several bits takes a number; as a text its characters would be the bits.
  bool bits_are_numbers = false;

  /// Whether a time may be written as hhmmss, have a sign, and be a span of up to 838:59:59.
  bool has_packed_times = false;

  /// Words that are numbers there, in lower case and without a sign.
  std::span<const std::string_view> number_words = {};
};

/// @param dbms_name  SQL_DBMS_NAME.
const Dialect& DialectOf(std::string_view dbms_name);

}  // namespace imptable

#endif  // ODBC_DIALECT_H_
