#ifndef TESTS_ROBUSTNESS_DIFFERENTIAL_COMPONENT_RECORD_H_
#define TESTS_ROBUSTNESS_DIFFERENTIAL_COMPONENT_RECORD_H_

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "import/target/RecordParser.h"
#include "tests/kit/TestComponent.h"
#include "tests/robustness/differential/RuleModel.h"

namespace imptable {

/// The component's own parser, set up by a task in the words of the rules.
class ComponentRecord {
 public:
  /// @param component  borrowed; of the task's code page.
  ComponentRecord(TestComponent& component, const rules::Task& task);

  /// @throws std::logic_error  when a buffer says what no buffer may.
  rules::Record Parse(std::string_view line);

 private:
  std::vector<TargetColumn> columns_;
  std::vector<ParameterBuffer> buffers_;
  std::optional<RecordParser> parser_;  // empty when the task is refused
};

}  // namespace imptable

#endif  // TESTS_ROBUSTNESS_DIFFERENTIAL_COMPONENT_RECORD_H_
