#include "tests/kit/TestHost.h"

#include "core/RuntimeFault.h"

namespace imptable {
namespace {

class RecordingReportWriter final : public ReportWriter {
 public:
  explicit RecordingReportWriter(TestHost& host) : host_(host) {}
  void SetScenario(const std::string& scenario) override { host_.scenario = scenario; }
  void SetReportPath(const std::string& path) override { host_.report_path = path; }
  void WriteLine(const std::string& text, HostDisplay* display, ReportKind kind) override {
    if (++writes_ == host_.failing_write) throw RuntimeFault(FaultNumber::kNoHostObject, "report");
    host_.lines.push_back({text, kind, display});
  }

 private:
  TestHost& host_;
  int writes_ = 0;
};

}  // namespace

std::unique_ptr<ReportWriter> TestHost::CreateReportWriter() {
  ++writers_made;
  return std::make_unique<RecordingReportWriter>(*this);
}

std::optional<std::string> TestHost::Variable(const KeyPath& tasks, const std::string& of_scenario,
                                              const std::string& name) {
  if (unavailable) throw RuntimeFault(FaultNumber::kNoHostObject, name);
  looked_up.push_back(of_scenario + '|' + tasks.path + '|' + name);
  const auto variable = variables.find(name);
  if (variable != variables.end()) return variable->second;
  const auto constant = constants.find(name);
  if (constant != constants.end()) return constant->second;
  return std::nullopt;
}

std::vector<std::string> TestHost::ReferenceNames(const KeyPath& /*tasks*/,
                                                  const std::string& /*of_scenario*/,
                                                  ReferenceKind kind) {
  std::vector<std::string> names;
  for (const auto& [name, value] : kind == ReferenceKind::kVariable ? variables : constants) {
    names.push_back(name);
  }
  return names;
}

std::vector<ActionEntry> TestHost::ActionEntries(const KeyPath& tasks, const std::string& task) {
  looked_up.push_back(task + '|' + tasks.path + "|Action");
  return actions;
}

std::string TestHost::TitleOfWrapperType(std::int16_t type) {
  asked_types.push_back(type);
  return "Title";
}

std::string TestHost::SummaryOfWrapperType(std::int16_t type) {
  asked_types.push_back(type);
  return "Summary";
}

std::vector<std::string> TestHost::Texts() const {
  std::vector<std::string> texts;
  for (const WrittenLine& line : lines) texts.push_back(line.text);
  return texts;
}

}  // namespace imptable
