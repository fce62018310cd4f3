#ifndef TESTS_ROBUSTNESS_FAULTS_FAULTY_PORTS_H_
#define TESTS_ROBUSTNESS_FAULTS_FAULTY_PORTS_H_

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files/ProfileFile.h"
#include "platform/registry/Registry.h"
#include "tests/kit/TestHost.h"
#include "tests/robustness/faults/FaultPlan.h"

namespace imptable {

/// A registry that a fault plan makes unreadable (a RegistryError that names what was asked for) or
/// unwritable.
class FaultyRegistry : public Registry {
 public:
  /// Both are borrowed.
  FaultyRegistry(Registry& registry, FaultPlan& plan) : registry_(registry), plan_(plan) {}

  std::optional<RegistryValue> Read(const KeyPath& key, std::string_view name) const override;
  std::int32_t Write(const KeyPath& key, std::string_view name,
                     const RegistryValue& value) override;
  std::int32_t DeleteKey(const KeyPath& key) override;
  std::vector<std::string> ValueNames(const KeyPath& key) const override;
  std::vector<std::string> SubkeyNames(const KeyPath& key) const override;

 private:
  void Reading(Operation operation, const std::string& what) const;

  Registry& registry_;
  FaultPlan& plan_;
};

/// A profile file whose values a fault plan makes unreadable.
class FaultyProfileFile : public ProfileFile {
 public:
  /// Both are borrowed.
  FaultyProfileFile(ProfileFile& file, FaultPlan& plan) : file_(file), plan_(plan) {}

  std::string ReadString(const std::string& path, std::string_view section, std::string_view key,
                         std::string_view fallback, std::size_t most) const override;

 private:
  ProfileFile& file_;
  FaultPlan& plan_;
};

/// A host whose report and variables a fault plan breaks; it tells the plan how far the run is.
class FaultyHost : public TestHost {
 public:
  explicit FaultyHost(FaultPlan& plan) : plan_(plan) {}

  /// Report lines go to this library's writer as well. @param library  borrowed.
  void PassReportOn(HostLibrary& library) { passed_on_ = &library; }

  std::unique_ptr<ReportWriter> CreateReportWriter() override;
  std::optional<std::string> Variable(const KeyPath& tasks, const std::string& scenario,
                                      const std::string& name) override;

 private:
  class Writer;
  FaultPlan& plan_;
  HostLibrary* passed_on_ = nullptr;
};

/// The phase that a report line in French begins; nullopt when it begins none.
std::optional<Phase> PhaseBegunBy(std::string_view line);

}  // namespace imptable

#endif  // TESTS_ROBUSTNESS_FAULTS_FAULTY_PORTS_H_
