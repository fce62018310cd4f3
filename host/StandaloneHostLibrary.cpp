#include "host/StandaloneHostLibrary.h"

#include <array>
#include <optional>
#include <string_view>

#include "host/HostTexts.h"
#include "host/ScenarioKeys.h"
#include "host/StoredValue.h"
#include "plugin/ImpTable.h"

namespace imptable {
namespace {

constexpr std::int32_t kMessageTitle = 175;

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
