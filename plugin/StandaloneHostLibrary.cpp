#include "plugin/StandaloneHostLibrary.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include "core/LocationRestorer.h"
#include "core/StoredValue.h"
#include "core/TaskDialog.h"
#include "plugin/ScenarioKeys.h"

namespace imptable {
namespace {

// The index is the action's type number: never reorder.
constexpr std::array<std::string_view, 4> kActionKeys{"OnErr", "OnDec", "ExeIf", "Goto"};

char Folded(char letter) {
  return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

/// Names of actions are ASCII.
bool IsSameAction(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char a, char b) { return Folded(a) == Folded(b); });
}

void RequireOwnType(std::int16_t type) {
  if (type != kWrapperType) {
    throw RuntimeFault(FaultNumber::kNoHostObject, "type " + std::to_string(type));
  }
}

}  // namespace

class StandaloneHostLibrary::Writer : public ReportWriter {
 public:
  explicit Writer(StandaloneHostLibrary& library) : library_(library) {}

  void SetScenario(const std::string&) override {}  // the report names no scenario

  void SetReportPath(const std::string& path) override { library_.Module().report_path = path; }

  void WriteLine(const std::string& text, HostDisplay* display, ReportKind kind) override {
    if (!library_.Module().ReportLine(text, display, kind)) library_.report_failed_ = true;
  }

 private:
  StandaloneHostLibrary& library_;
};

ModuleCommun& StandaloneHostLibrary::Module() const {
  if (module_ == nullptr) throw RuntimeFault(FaultNumber::kNoHostObject, "ModuleCommun");
  return *module_;
}

std::unique_ptr<ReportWriter> StandaloneHostLibrary::CreateReportWriter() {
  Module();
  return std::make_unique<Writer>(*this);
}

std::optional<std::string> StandaloneHostLibrary::Variable(const KeyPath& /*tasks*/,
                                                           const std::string& scenario,
                                                           const std::string& name) {
  const Registry& registry = Module().platform.registry;
  try {
    for (const KeyPath& key : {VariablesKey(scenario), ConstantsKey(scenario)}) {
      const std::optional<RegistryValue> value = registry.Read(key, name);
      if (!value) continue;
      if (std::optional<std::string> text = TextOf(*value)) return text;
    }
  } catch (const RegistryError& error) {
    throw RuntimeFault(FaultNumber::kDeviceError, error.what());
  }
  return std::nullopt;
}

std::vector<std::string> StandaloneHostLibrary::ReferenceNames(const KeyPath& /*tasks*/,
                                                               const std::string& scenario,
                                                               ReferenceKind kind) {
  const Registry& registry = Module().platform.registry;
  const KeyPath key =
      kind == ReferenceKind::kVariable ? VariablesKey(scenario) : ConstantsKey(scenario);
  try {
    std::vector<std::string> names = registry.ValueNames(key);
    std::erase_if(names, [&](const std::string& name) {
      const std::optional<RegistryValue> value = registry.Read(key, name);
      return name.empty() || !value || !TextOf(*value);
    });
    return names;
  } catch (const RegistryError& error) {
    throw RuntimeFault(FaultNumber::kDeviceError, error.what());
  }
}

std::vector<ActionEntry> StandaloneHostLibrary::ActionEntries(const KeyPath& tasks,
                                                              const std::string& task) {
  ModuleCommun& module = Module();
  const LocationRestorer restorer(module.location);
  module.location = tasks;
  const std::string actions = task + "\\Action";
  const std::vector<std::string> stored = module.SubkeyNames(actions);
  std::vector<ActionEntry> entries;
  for (std::size_t type = 0; type < kActionKeys.size(); ++type) {
    const std::string_view name = kActionKeys[type];
    if (std::none_of(stored.begin(), stored.end(),
                     [&](const std::string& key) { return IsSameAction(key, name); })) {
      continue;
    }
    const std::string key = actions + '\\' + std::string(name);
    entries.push_back({static_cast<ActionType>(type), AsText(module.ReadValue(key, "Variable")),
                       AsText(module.ReadValue(key, "Valeur"))});
  }
  return entries;
}

std::string StandaloneHostLibrary::TitleOfWrapperType(std::int16_t type) {
  RequireOwnType(type);
  return Module().MessageText(Message::kTitle);
}

std::string StandaloneHostLibrary::SummaryOfWrapperType(std::int16_t type) {
  RequireOwnType(type);
  return Module().Words(ComponentText::kSummary);
}

}  // namespace imptable
