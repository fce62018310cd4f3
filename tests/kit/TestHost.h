#ifndef TESTS_KIT_TEST_HOST_H_
#define TESTS_KIT_TEST_HOST_H_

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "core/HostLibrary.h"
#include "platform/system/MousePointer.h"

namespace imptable {

/// One line that a run wrote to its report.
struct WrittenLine {
  std::string text;
  ReportKind kind;
  HostDisplay* display;

  bool operator==(const WrittenLine&) const = default;
};

/// A host object library that remembers what it was given.
class TestHost : public HostLibrary {
 public:
  std::unique_ptr<ReportWriter> CreateReportWriter() override;
  std::optional<std::string> Variable(const KeyPath& tasks, const std::string& scenario,
                                      const std::string& name) override;
  std::vector<std::string> ReferenceNames(const KeyPath& tasks, const std::string& scenario,
                                          ReferenceKind kind) override;
  std::vector<ActionEntry> ActionEntries(const KeyPath& tasks, const std::string& task) override;
  std::string TitleOfWrapperType(std::int16_t type) override;
  std::string SummaryOfWrapperType(std::int16_t type) override;

  /// The report's lines without their kinds.
  std::vector<std::string> Texts() const;

  std::map<std::string, std::string> variables;
  std::map<std::string, std::string> constants;
  std::vector<WrittenLine> lines;
  std::string scenario;                   // given to the report writer
  std::string report_path;                // given to the report writer
  std::vector<std::string> looked_up;     // "scenario|root path|name" of each variable, in order
  std::vector<std::int16_t> asked_types;  // wrapper types asked for, in order
  std::vector<ActionEntry> actions;       // of every task
  int writers_made = 0;

  /// When set, no variable can be looked up.
  bool unavailable = false;

  /// When not 0, the report's write of this number (from 1) throws.
  int failing_write = 0;
};

/// Counts what the pointer was told.
class CountingPointer : public MousePointer {
 public:
  void ShowHourglass() override { ++shown; }
  void Reset() override { ++reset; }
  int shown = 0;
  int reset = 0;
};

}  // namespace imptable

#endif  // TESTS_KIT_TEST_HOST_H_
