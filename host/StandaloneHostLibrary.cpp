#include "host/StandaloneHostLibrary.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include "host/HostTexts.h"
#include "host/ScenarioKeys.h"
#include "host/StoredValue.h"
#include "platform/NameFolding.h"
#include "plugin/ImpTable.h"

namespace imptable {
namespace {

constexpr std::int32_t kMessageTitle = 175;

// By their type numbers: never reorder.
constexpr std::array<std::string_view, 4> kActionKeys{"OnErr", "OnDec", "ExeIf", "Goto"};

void RequireOwnType(std::int16_t type) {
  if (type != kWrapperType) {
    throw RuntimeFault(FaultNumber::kNoHostObject, "type " + std::to_string(type));
  }
}

}  // namespace

class StandaloneHostLibrary::Writer : public ReportWriter {
 public:
  explicit Writer(StandaloneHostLibrary& library) : library_(library) {}

  void SetScenario(const std::string&) override {}  // the report names none

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

std::string StandaloneHostLibrary::Variable(const KeyPath& /*tasks*/, const std::string& scenario,
                                            const std::string& name) {
  const Registry& registry = Module().platform.registry;
  try {
    for (const KeyPath& key : {VariablesKey(scenario), ConstantsKey(scenario)}) {
      const std::optional<RegistryValue> value = registry.Read(key, name);
      if (!value) continue;
      if (const std::optional<std::string> text = TextOf(*value)) return *text;
    }
  } catch (const RegistryError& error) {
    throw RuntimeFault(FaultNumber::kDeviceError, error.what());
  }
  return {};
}

std::vector<ActionEntry> StandaloneHostLibrary::ActionEntries(const KeyPath& tasks,
                                                              const std::string& task) {
  ModuleCommun& module = Module();
  module.location = tasks;
  const std::string actions = task + "\\Action";
  const std::vector<std::string> stored = module.SubkeyNames(actions);
  std::vector<ActionEntry> entries;
  for (std::size_t type = 0; type < kActionKeys.size(); ++type) {
    const std::string folded = FoldName(kActionKeys[type]);
    if (std::none_of(stored.begin(), stored.end(),
                     [&](const std::string& key) { return FoldName(key) == folded; })) {
      continue;
    }
    const std::string key = actions + '\\' + std::string(kActionKeys[type]);
    entries.push_back({static_cast<ActionType>(type), AsText(module.ReadValue(key, "Variable")),
                       AsText(module.ReadValue(key, "Valeur"))});
  }
  return entries;
}

std::string StandaloneHostLibrary::TitleOfWrapperType(std::int16_t type) {
  RequireOwnType(type);
  return Module().MessageText(kMessageTitle);
}

std::string StandaloneHostLibrary::SummaryOfWrapperType(std::int16_t type) {
  RequireOwnType(type);
  const Language language =
      Module().language_offset == kEnglishOffset ? Language::kEnglish : Language::kFrench;
  return HostTexts(language, Module().platform.encoding).Text(HostText::kTypeSummary);
}

}  // namespace imptable
