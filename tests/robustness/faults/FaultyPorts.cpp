#include "tests/robustness/faults/FaultyPorts.h"

#include <array>
#include <system_error>
#include <utility>

#include "core/RuntimeFault.h"

namespace imptable {
namespace {

struct Beginning {
  std::string_view text;
  Phase phase;
};

constexpr std::array<Beginning, 12> kBeginnings{{
    {" --> Exécution du Traitement", Phase::kConnecting},
    {" ... Suppression des fichiers d'erreurs", Phase::kPreparing},
    {" --> TRAITEMENT DE LA TABLE", Phase::kImportPreparing},
    {" -->   Suppression Globale", Phase::kDeleting},
    {" -->   Suppression Sélective", Phase::kDeleting},
    {" -->   Mode INSERT", Phase::kImportPreparing},
    {" -->   Mode UPDATE", Phase::kImportPreparing},
    {" -->   Mode UPDATE/INSERT", Phase::kImportPreparing},
    {" -->   Mode DELETE", Phase::kImportPreparing},
    {" ----->  ", Phase::kClosing},
    {" --------------- PROCEDURE TERMINEE", Phase::kEnding},
    {" ARRET DE LA PROCEDURE", Phase::kEnding},
}};

}  // namespace

std::optional<Phase> PhaseBegunBy(std::string_view line) {
  for (const Beginning& each : kBeginnings) {
    if (line.starts_with(each.text)) return each.phase;
  }
  return std::nullopt;
}

void FaultyRegistry::Reading(Operation operation, const std::string& what) const {
  if (plan_.Next(operation, what)) throw RegistryError("the registry can't be read: " + what);
}

std::optional<RegistryValue> FaultyRegistry::Read(const KeyPath& key, std::string_view name) const {
  Reading(Operation::kRegistryRead, std::string(name));
  return registry_.Read(key, name);
}

std::int32_t FaultyRegistry::Write(const KeyPath& key, std::string_view name,
                                   const RegistryValue& value) {
  if (plan_.Next(Operation::kRegistryWrite, name)) return kRegistryAccessDenied;
  return registry_.Write(key, name, value);
}

std::int32_t FaultyRegistry::DeleteKey(const KeyPath& key) { return registry_.DeleteKey(key); }

std::vector<std::string> FaultyRegistry::ValueNames(const KeyPath& key) const {
  Reading(Operation::kRegistryList, key.path);
  return registry_.ValueNames(key);
}

std::vector<std::string> FaultyRegistry::SubkeyNames(const KeyPath& key) const {
  Reading(Operation::kRegistryList, key.path);
  return registry_.SubkeyNames(key);
}

std::string FaultyProfileFile::ReadString(const std::string& path, std::string_view section,
                                          std::string_view key, std::string_view fallback,
                                          std::size_t most) const {
  if (plan_.Next(Operation::kProfileRead, path)) {
    throw std::system_error(std::make_error_code(std::errc::io_error), path);
  }
  return file_.ReadString(path, section, key, fallback, most);
}

class FaultyHost::Writer : public ReportWriter {
 public:
  Writer(FaultyHost& host, std::unique_ptr<ReportWriter> writer,
         std::unique_ptr<ReportWriter> passed_on)
      : host_(host), writer_(std::move(writer)), passed_on_(std::move(passed_on)) {}

  void SetScenario(const std::string& scenario) override { writer_->SetScenario(scenario); }
  void SetReportPath(const std::string& path) override { writer_->SetReportPath(path); }
  void WriteLine(const std::string& text, HostDisplay* display, ReportKind kind) override {
    if (const auto phase = PhaseBegunBy(text)) host_.plan_.phase = *phase;
    if (host_.plan_.Next(Operation::kReportLine, text)) {
      throw RuntimeFault(FaultNumber::kNoHostObject, "report: " + text);
    }
    writer_->WriteLine(text, display, kind);
    if (passed_on_) passed_on_->WriteLine(text, display, kind);
  }

 private:
  FaultyHost& host_;
  std::unique_ptr<ReportWriter> writer_;
  std::unique_ptr<ReportWriter> passed_on_;  // may be null
};

std::unique_ptr<ReportWriter> FaultyHost::CreateReportWriter() {
  return std::make_unique<Writer>(
      *this, TestHost::CreateReportWriter(),
      passed_on_ == nullptr ? nullptr : passed_on_->CreateReportWriter());
}

std::optional<std::string> FaultyHost::Variable(const KeyPath& tasks,
                                                const std::string& of_scenario,
                                                const std::string& name) {
  if (plan_.Next(Operation::kVariable, name)) throw RuntimeFault(FaultNumber::kNoHostObject, name);
  return TestHost::Variable(tasks, of_scenario, name);
}

}  // namespace imptable
