#ifndef IMPORT_TARGET_SENT_VALUES_H_
#define IMPORT_TARGET_SENT_VALUES_H_

#include <cstdint>
#include <optional>
#include <vector>

#include "import/target/TargetTable.h"

namespace imptable {

/// Looks at a line's values before they are sent. A database that can't read a key as its column's
/// type may compare by a part of it, or by zero, and change the rows of another key; so would a key
/// that is cut on its way. A driver that converts a value by itself may send another one.
class SentValues {
 public:
  /// @param module, session, table  borrowed; must outlive the object. The table's columns are
  /// bound.
  SentValues(const ModuleCommun& module, OdbcSession& session, const TargetTable& table);

  /// @return false after the first value that is none of its column has been reported.
  bool Check();

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
  /// @return nullopt for a column whose values go as they are.
  std::optional<Rule> ValueRuleOf(const TableColumn& column) const;
  bool Holds(Rule rule, const ParameterBuffer& buffer) const;
  void Report(const Checked& checked);

  const ModuleCommun& module_;
  OdbcSession& session_;
  const TargetTable& table_;
  std::vector<Checked> checked_;
};

}  // namespace imptable

#endif  // IMPORT_TARGET_SENT_VALUES_H_
