#ifndef PLUGIN_STANDALONE_HOST_LIBRARY_H_
#define PLUGIN_STANDALONE_HOST_LIBRARY_H_

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/HostLibrary.h"
#include "core/ModuleCommun.h"

namespace imptable {

/// The host's object library where no scenario host is present: report lines go through the
/// component's own line writer, scenario variables come from the scenario's registry keys.
class StandaloneHostLibrary : public HostLibrary {
 public:
  /// The module needs the library when it is made, so it is attached later. Until then every member
  /// fails.
  /// @param module  borrowed; must outlive the library's use.
  void Attach(ModuleCommun& module) { module_ = &module; }

  /// True once a report line didn't reach its file.
  bool report_failed() const { return report_failed_; }

  std::unique_ptr<ReportWriter> CreateReportWriter() override;
  std::optional<std::string> Variable(const KeyPath& tasks, const std::string& scenario,
                                      const std::string& name) override;

  /// The names of the texts in the scenario's key of that kind, in the registry's order.
  std::vector<std::string> ReferenceNames(const KeyPath& tasks, const std::string& scenario,
                                          ReferenceKind kind) override;

  /// Entries are the keys "OnErr", "OnDec", "ExeIf" and "Goto" below the task's key "Action", in
  /// this order; their assignment is in their values "Variable" and "Valeur".
  std::vector<ActionEntry> ActionEntries(const KeyPath& tasks, const std::string& task) override;
  std::string TitleOfWrapperType(std::int16_t type) override;
  std::string SummaryOfWrapperType(std::int16_t type) override;

 private:
  class Writer;

  ModuleCommun& Module() const;

  ModuleCommun* module_ = nullptr;
  bool report_failed_ = false;
};

}  // namespace imptable

#endif  // PLUGIN_STANDALONE_HOST_LIBRARY_H_
