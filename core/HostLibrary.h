#ifndef CORE_HOST_LIBRARY_H_
#define CORE_HOST_LIBRARY_H_

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/registry/Registry.h"

namespace imptable {

/// How a report line is shown. Stored and seen by the host: never change.
enum class ReportKind : std::int16_t { kHeading = 0, kError = 1, kInformation = 2, kSuccess = 4 };

/// The small live display on a host window: what the host object's `wForm` property gives.
class HostForm {
 public:
  virtual ~HostForm() = default;
  virtual std::string Text() const = 0;
  virtual void SetText(const std::string& text) = 0;
  virtual std::int32_t Tag() const = 0;
  virtual void SetTag(std::int32_t tag) = 0;
};

/// The object that the host hands in as `Bouton`.
class HostDisplay {
 public:
  virtual ~HostDisplay() = default;

  /// @return the form, borrowed; null when the object has none.
  virtual HostForm* wForm() = 0;
};

/// The host's report writer: appends lines to the execution report.
class ReportWriter {
 public:
  virtual ~ReportWriter() = default;
  virtual void SetScenario(const std::string& scenario) = 0;
  virtual void SetReportPath(const std::string& path) = 0;

  /// @param display  the host object of the run, passed on unchanged; may be null.
  virtual void WriteLine(const std::string& text, HostDisplay* display, ReportKind kind) = 0;
};

/// Type numbers of scenario actions, as the host numbers them: never change.
enum class ActionType : std::int16_t { kOnError = 0, kOnDecision = 1, kConditional = 2, kJump = 3 };

/// One scenario action of a task. `variable` and `value` are empty when it assigns nothing.
struct ActionEntry {
  ActionType type = ActionType::kOnError;
  std::string variable;
  std::string value;
};

/// What an "@" reference may name.
enum class ReferenceKind : std::uint8_t { kVariable, kConstant };

/// The host's object library, as far as the component needs it.
/// @throws RuntimeFault (no such host object) from any member when the host can't serve it.
class HostLibrary {
 public:
  virtual ~HostLibrary() = default;
  virtual std::unique_ptr<ReportWriter> CreateReportWriter() = 0;

  /// @param tasks  registry root and base path of the scenario's tasks.
  /// @return the value of a scenario variable; nullopt when it doesn't exist.
  virtual std::optional<std::string> Variable(const KeyPath& tasks, const std::string& scenario,
                                              const std::string& name) = 0;

  /// @return the names of the scenario's variables or constants, in the host's order.
  virtual std::vector<std::string> ReferenceNames(const KeyPath& tasks, const std::string& scenario,
                                                  ReferenceKind kind) = 0;

  /// The action entries of a task, in the host's order.
  virtual std::vector<ActionEntry> ActionEntries(const KeyPath& tasks, const std::string& task) = 0;

  virtual std::string TitleOfWrapperType(std::int16_t type) = 0;
  virtual std::string SummaryOfWrapperType(std::int16_t type) = 0;
};

}  // namespace imptable

#endif  // CORE_HOST_LIBRARY_H_
