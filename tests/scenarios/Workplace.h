#ifndef TESTS_SCENARIOS_WORKPLACE_H_
#define TESTS_SCENARIOS_WORKPLACE_H_

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/testing/TemporaryFolder.h"
#include "tests/scenarios/ChildProcess.h"
#include "tests/scenarios/Database.h"

namespace imptable {

/// The name of the data source in every workplace.
inline constexpr const char* kSourceName = "ScenarioSource";

/// All that the command needs, and nothing of the machine's: a registry, data sources, a database,
/// the run's folder with the data file.
class Workplace {
 public:
  explicit Workplace(DatabaseKind kind);

  /// Makes a locale that the machine needn't have; the command runs in it.
  /// @param input  e.g. "fr_FR". @param code_set  e.g. "ISO-8859-1".
  void UseLocale(const std::string& input, const std::string& code_set);

  /// Imports an export file, and sets the variables SOURCE, FOLDER, USER and PASSWORD of scenario
  /// S1.
  /// @throws std::runtime_error
  void LoadTask(const std::string& path) const;

  /// Ready to be started with these words; a test may change it before.
  Invocation Command(const std::vector<std::string>& words) const;
  Ending Imptable(const std::vector<std::string>& words) const { return Finish(Command(words)); }

  /// The same for a command as somebody types it in a shell: "imptable" and its words.
  Invocation Typed(const std::string& command) const;

  Database& database() const { return *database_; }
  /// The run's folder, that of the data file: ends with "/".
  std::string RunFolder() const { return RunFolderName() + '/'; }
  const TemporaryFolder& folder() const { return folder_; }

  /// A text of a run without what differs from run to run: {FOLDER}, {SOURCE}, {DATE}...
  std::string Lasting(std::string text) const;

 private:
  std::string RunFolderName() const { return folder_.path() + "run"; }

  TemporaryFolder folder_;
  std::unique_ptr<Database> database_;
  Environment environment_;
};

}  // namespace imptable

#endif  // TESTS_SCENARIOS_WORKPLACE_H_
