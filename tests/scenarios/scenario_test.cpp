#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <memory>
#include <utility>

#include "tests/scenarios/CommandUnderTest.h"
#include "tests/scenarios/ScenarioRun.h"

namespace imptable {
namespace {

class ScenarioTest : public testing::Test {
 public:
  ScenarioTest(Scenario scenario, DatabaseKind kind)
      : scenario_(std::move(scenario)), kind_(kind) {}

  void TestBody() override {
    const ResultFiles found = PerformScenario(scenario_, kind_);
    const char* const record = std::getenv("IMPTABLE_RECORD_SCENARIOS");
    if (record != nullptr && record == std::string("1")) {
      if (!HasFailure()) Record(scenario_, kind_, found);
    } else {
      Compare(ReadExpected(scenario_, kind_), found);
    }
  }

 private:
  Scenario scenario_;
  DatabaseKind kind_;
};

void RegisterScenarios() {
  for (const Scenario& scenario : ReadScenarios(SCENARIOS_FOLDER)) {
    for (const DatabaseKind kind : scenario.databases) {
      const bool windows = TheCommand().is_windows();
      if (windows && kind != DatabaseKind::kSqlite) continue;
      const std::string name =
          scenario.name + (windows ? "_through_the_component" : "_on_" + std::string(NameOf(kind)));
      testing::RegisterTest("Scenario", name.c_str(), nullptr, nullptr, __FILE__, __LINE__,
                            [scenario, kind]() -> testing::Test* {
                              return std::make_unique<ScenarioTest>(scenario, kind).release();
                            });
    }
  }
}

}  // namespace
}  // namespace imptable

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  try {
    imptable::RegisterScenarios();
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
  const int result = RUN_ALL_TESTS();
  // The scenario may have gone since the tests were listed. That must not look like a pass.
  const auto* const tests = testing::UnitTest::GetInstance();
  if (tests->test_to_run_count() > 0 || GTEST_FLAG_GET(list_tests)) return result;
  std::cerr << "No such test.\n";
  return 1;
}
