#include "automation/HostObjectLibrary.h"

#include <limits>
#include <utility>

#include "automation/DispatchDisplay.h"
#include "automation/HostObjectNames.h"

namespace imptable {
namespace {

/// The host's writer; its members are looked up once.
class HostReportWriter : public ReportWriter {
 public:
  explicit HostReportWriter(LateBound report)
      : report_(std::move(report)),
        set_scenario_(report_.Find(report_class::kSetScenario)),
        set_path_(report_.Find(report_class::kSetReportFilePath)),
        write_line_(report_.Find(report_class::kWriteLine)) {}

  void SetScenario(const std::string& scenario) override { report_.Call(set_scenario_, scenario); }

  void SetReportPath(const std::string& path) override { report_.Call(set_path_, path); }

  void WriteLine(const std::string& text, HostDisplay* display, ReportKind kind) override {
    const auto* button = dynamic_cast<const DispatchDisplay*>(display);
    report_.Call(write_line_, text, button == nullptr ? nullptr : button->object(),
                 static_cast<std::int16_t>(kind));
  }

 private:
  LateBound report_;
  LateBoundMember set_scenario_;
  LateBoundMember set_path_;
  LateBoundMember write_line_;
};

std::string TextOf(const LateBound& object, const wchar_t* member, std::int16_t type) {
  const LateBoundMember found = object.Find(member);
  return TextFrom(found, object.Call(found, type));
}

}  // namespace

std::unique_ptr<ReportWriter> HostObjectLibrary::CreateReportWriter() {
  std::optional<LateBound> report = CreateLateBound(report_class::kProgId);
  if (!report) return standalone_.CreateReportWriter();
  return std::make_unique<HostReportWriter>(*std::move(report));
}

std::optional<std::string> HostObjectLibrary::Variable(const KeyPath& tasks,
                                                       const std::string& scenario,
                                                       const std::string& name) {
  const std::optional<LateBound> variables = CreateLateBound(variables_class::kProgId);
  if (!variables) return standalone_.Variable(tasks, scenario, name);
  const LateBoundMember get_value = variables->Find(variables_class::kGetValue);
  const AutomationValue value = variables->Call(get_value, tasks.root, tasks.path, scenario, name);
  if (value.IsEmpty()) return std::nullopt;
  return TextFrom(get_value, value);
}

std::vector<std::string> HostObjectLibrary::ReferenceNames(const KeyPath& tasks,
                                                           const std::string& scenario,
                                                           ReferenceKind kind) {
  const std::optional<LateBound> variables = CreateLateBound(variables_class::kProgId);
  if (!variables) return standalone_.ReferenceNames(tasks, scenario, kind);
  const std::int16_t kind_number = kind == ReferenceKind::kVariable ? 0 : 1;
  variables->Call(variables_class::kOpenNames, tasks.root, tasks.path, scenario, kind_number);
  const LateBoundMember next = variables->Find(variables_class::kNextName);
  std::vector<std::string> names;
  for (;;) {
    std::string name = TextFrom(next, variables->Call(next));
    if (name.empty()) return names;
    names.push_back(std::move(name));
  }
}

std::vector<ActionEntry> HostObjectLibrary::ActionEntries(const KeyPath& tasks,
                                                          const std::string& task) {
  const std::optional<LateBound> registry = CreateLateBound(registry_class::kProgId);
  if (!registry) return standalone_.ActionEntries(tasks, task);
  registry->Call(registry_class::kSetRegistryRoot, tasks.root);
  registry->Call(registry_class::kSetRegistrySubKey, tasks.path);
  registry->Call(registry_class::kOpenActions, task);
  const LateBoundMember next = registry->Find(registry_class::kNextAction);
  const LateBoundMember variable = registry->Find(registry_class::kVariable);
  const LateBoundMember value = registry->Find(registry_class::kValeur);
  std::vector<ActionEntry> entries;
  for (;;) {
    const std::int32_t type = NumberFrom(next, registry->Call(next));
    if (type < 0) return entries;
    if (type > std::numeric_limits<std::int16_t>::max()) {
      throw RuntimeFault(FaultNumber::kOverflow, next.name);
    }
    entries.push_back({static_cast<ActionType>(type), TextFrom(variable, registry->Get(variable)),
                       TextFrom(value, registry->Get(value))});
  }
}

std::string HostObjectLibrary::TitleOfWrapperType(std::int16_t type) {
  const std::optional<LateBound> wrappers = CreateLateBound(wrappers_class::kProgId);
  if (!wrappers) return standalone_.TitleOfWrapperType(type);
  return TextOf(*wrappers, wrappers_class::kGetTitle, type);
}

std::string HostObjectLibrary::SummaryOfWrapperType(std::int16_t type) {
  const std::optional<LateBound> wrappers = CreateLateBound(wrappers_class::kProgId);
  if (!wrappers) return standalone_.SummaryOfWrapperType(type);
  return TextOf(*wrappers, wrappers_class::kGetSummary, type);
}

}  // namespace imptable
