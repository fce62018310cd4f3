#ifndef IMPORT_TARGET_SENT_VALUES_H_
#define IMPORT_TARGET_SENT_VALUES_H_

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "import/target/Record.h"
#include "import/target/TargetTable.h"

namespace imptable {

/// Checks a line's values before they are sent. A database that can't read a key as its column's
/// type may compare a part of it, or zero, and change the rows of another key. A key that is cut on
/// its way could do the same. A driver that converts a value by itself may send another value.
class SentValues {
 public:
  /// @param session, table  borrowed; must outlive the object. The table's columns are bound
  /// already.
  /// @param decimal_separator  the user's; some databases accept it in a number.
  SentValues(const OdbcSession& session, const TargetTable& table, std::string decimal_separator);

  /// @param parser  has read the line into the table's buffers.
  /// @return what is wrong with the first value that its column can't take; nullopt when all are
  /// fit to be sent.
  std::optional<RecordDiagnostic> Check(const RecordParser& parser, std::string_view line) const;

 private:
  enum class Rule : std::uint8_t {
    kWhole,
    kNumber,
    kBit,
    kDate,
    kDateAndTime,
    kTime,
    kBytes,
    kBits
  };

  struct Checked {
    std::size_t column;
    Rule rule;
  };

  Rule KeyRuleOf(const TableColumn& column) const;
  /// @return nullopt for a column whose values aren't checked.
  std::optional<Rule> ValueRuleOf(const TableColumn& column) const;
  static Complaint ComplaintOf(Rule rule);
  bool Holds(Rule rule, const ParameterBuffer& buffer) const;
  RecordDiagnostic DiagnosticOf(const Checked& checked) const;

  const OdbcSession& session_;
  const TargetTable& table_;
  std::string decimal_separator_;
  std::vector<Checked> checked_;
};

}  // namespace imptable

#endif  // IMPORT_TARGET_SENT_VALUES_H_
