// Any lines in any layout: compares the parser with the rules.
#include <array>
#include <memory>
#include <string>

#include "tests/robustness/differential/ComponentRecord.h"
#include "tests/robustness/fuzz/FuzzInput.h"
#include "tests/robustness/fuzz/Property.h"

namespace imptable {
namespace {

constexpr std::size_t kMostColumns = 8;
constexpr std::array<std::int16_t, 8> kTypes{12, 1, 6, 9, 11, 5, 3, 8};
constexpr std::array<const char*, 8> kDelimiters{";", ",", "\t", "|", " ", "||", "\xC2\xA7", "a"};
constexpr std::array<const char*, 4> kSeparators{".", ",", "::", ""};

rules::Task TaskOf(FuzzInput& input) {
  rules::Task task;
  const std::uint8_t flags = input.Byte();
  task.utf8 = (flags & 1U) != 0;
  task.delimited = (flags & 2U) != 0;
  task.explicit_separator = (flags & 4U) != 0;
  task.blanks_are_null = (flags & 8U) != 0;
  task.assigned = (flags & 16U) != 0;
  task.user_separator = kSeparators[flags >> 6U];
  task.delimiter = kDelimiters[input.Below(kDelimiters.size())];
  const std::uint8_t counts = input.Byte();
  for (std::size_t i = (counts & 7U) + 1U; i > 0; --i) {
    const std::uint8_t column = input.Byte();
    task.columns.push_back({kTypes[column % kTypes.size()], (column & 0x80U) != 0});
  }
  for (std::size_t i = counts >> 4U; i > 0; --i) task.layout.emplace_back(input.Upto('\n'));
  if (task.assigned) {
    for (std::size_t i = input.Below(kMostColumns + 2); i > 0; --i) {
      // Registry texts end at their first NUL.
      const std::string_view value = input.Upto('\n');
      task.assignment.emplace_back(value.substr(0, value.find('\0')));
    }
    task.variables["A"] = input.Upto('\n');
  }
  return task;
}

void CheckRecords(FuzzInput input) {
  static TestComponent of_utf8;
  static TestComponent of_bytes(std::make_unique<Latin1TextEncoding>());
  const rules::Task task = TaskOf(input);
  ComponentRecord component(task.utf8 ? of_utf8 : of_bytes, task);
  for (int lines = 4; lines > 0 && !input.empty(); --lines) {
    const std::string line(input.Upto('\n'));
    const rules::Record expected = RecordByTheRules(task, line);
    const rules::Record given = component.Parse(line);
    if (given == expected) continue;
    std::fprintf(stderr, "rules:     %s\ncomponent: %s\n", Described(expected).c_str(),
                 Described(given).c_str());
    Require(false, "a record is as the rules have it");
  }
}

}  // namespace
}  // namespace imptable

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  imptable::CheckRecords({data, size});
  return 0;
}
