#ifndef IMPORT_TARGET_KEY_VALUES_H_
#define IMPORT_TARGET_KEY_VALUES_H_

#include <cstdint>
#include <vector>

#include "import/target/TargetTable.h"

namespace imptable {

/// Looks at a line's key values before they are sent. A database that can't read one as its
/// column's type may compare by a part of it, or by zero, and change the rows of another key; so
/// would a key that is cut on its way.
class KeyValues {
 public:
  /// @param module, session, table  borrowed; must outlive the object. The table's keys are bound.
  KeyValues(const ModuleCommun& module, OdbcSession& session, const TargetTable& table);

  /// @return false after the first key value that is none of its column has been reported.
  bool Check();

 private:
  enum class Rule : std::uint8_t { kWhole, kNumber, kBit, kDate, kDateAndTime, kTime };

  struct Key {
    std::size_t column;
    Rule rule;
  };

  Rule RuleOf(const TableColumn& column) const;
  bool Holds(Rule rule, const ParameterBuffer& buffer) const;
  void Report(const Key& key);

  const ModuleCommun& module_;
  OdbcSession& session_;
  const TargetTable& table_;
  std::vector<Key> keys_;
};

}  // namespace imptable

#endif  // IMPORT_TARGET_KEY_VALUES_H_
