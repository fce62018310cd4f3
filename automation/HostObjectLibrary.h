#ifndef AUTOMATION_HOST_OBJECT_LIBRARY_H_
#define AUTOMATION_HOST_OBJECT_LIBRARY_H_

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "core/HostLibrary.h"

namespace imptable {

/// The host's own object library, by the names of HostObjectNames.h. A service is an object of one
/// of its classes. It is created for each call; only a report writer keeps its object. The
/// stand-alone service replaces a class that isn't registered. A class that is registered but can't
/// be created, or that fails, is a fault.
class HostObjectLibrary : public HostLibrary {
 public:
  /// @param standalone  serves what isn't registered; borrowed, must outlive the library.
  explicit HostObjectLibrary(HostLibrary& standalone) : standalone_(standalone) {}

  /// Displays of report lines are DispatchDisplay; any other reaches the host as Nothing.
  std::unique_ptr<ReportWriter> CreateReportWriter() override;
  std::optional<std::string> Variable(const KeyPath& tasks, const std::string& scenario,
                                      const std::string& name) override;
  std::vector<std::string> ReferenceNames(const KeyPath& tasks, const std::string& scenario,
                                          ReferenceKind kind) override;

  /// Type numbers are passed on as the host gives them.
  std::vector<ActionEntry> ActionEntries(const KeyPath& tasks, const std::string& task) override;
  std::string TitleOfWrapperType(std::int16_t type) override;
  std::string SummaryOfWrapperType(std::int16_t type) override;

 private:
  HostLibrary& standalone_;
};

}  // namespace imptable

#endif  // AUTOMATION_HOST_OBJECT_LIBRARY_H_
