#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iostream>
#include <memory>

#include "tests/robustness/faults/Consequence.h"

namespace imptable {
namespace {

constexpr std::string_view kScript =
    "column CODE 4 INTEGER 10 0 0\n"
    "column NOM 12 VARCHAR 30 0 1\n"
    "key CODE 1 PK_CLIENT\n";

/// More runs than any fault needs until the work is complete.
constexpr int kMostRounds = 4;

/// After so many findings the rest would tell nothing new.
constexpr int kMostFindings = 5;

/// Hits one operation in so many of each kind: under the sanitizers, all of them would take
/// minutes.
int Stride() {
#ifdef __SANITIZE_ADDRESS__
  return std::getenv("IMPTABLE_ROBUSTNESS_LONG") == nullptr ? 3 : 1;
#else
  return 1;
#endif
}

struct Case {
  int number;  // of this case among all
  Workload workload;
  OperationGroup group;
  bool traced_resume;  // "RecTrace"
};

std::string GroupName(OperationGroup group) {
  switch (group) {
    case OperationGroup::kFiles:
      return "Files";
    case OperationGroup::kRegistry:
      return "Registry";
    case OperationGroup::kHost:
      return "Host";
    case OperationGroup::kOdbc:
      return "Odbc";
  }
  return {};
}

std::vector<Case> AllCases() {
  std::vector<Case> cases;
  for (const Workload& workload : AllWorkloads()) {
    for (const OperationGroup group : {OperationGroup::kFiles, OperationGroup::kRegistry,
                                       OperationGroup::kHost, OperationGroup::kOdbc}) {
      const auto add = [&](bool traced_resume) {
        cases.push_back({static_cast<int>(cases.size()), workload, group, traced_resume});
      };
      add(false);
      // A run with "RecErreurs" 1 writes files for a resume, for which a trace may be enough.
      if (workload.record_errors == 1) add(true);
    }
  }
  return cases;
}

std::string NameOf(const testing::TestParamInfo<Case>& info) {
  return info.param.workload.name + GroupName(info.param.group) +
         (info.param.traced_resume ? "Traced" : "");
}

/// A call may fail by itself, and a file may be missing: then the fault has nothing to spoil.
bool MayHaveNothingToSpoil(const Fault& fault) {
  return fault.effect == Effect::kInformation || fault.effect == Effect::kAnswerLost ||
         fault.operation == Operation::kOpenRead || fault.operation == Operation::kRemove;
}

std::string Describe(const Fault& fault, const std::vector<Occurrence>& hits) {
  std::string text(imptable::NameOf(fault.operation));
  text += ' ' + std::to_string(fault.nth) + (fault.persists ? " and all after it " : " ");
  text += imptable::NameOf(fault.effect);
  if (hits.empty()) return text;
  return text + ", while " + std::string(imptable::NameOf(hits.front().phase)) + ": " +
         hits.front().about;
}

/// How many faults this program has injected, by operation.
class Figures : public testing::Environment {
 public:
  static void Add(Operation operation) { ++counts_[static_cast<std::size_t>(operation)]; }

  void TearDown() override {
    int all = 0;
    for (std::size_t number = 0; number < kOperations; ++number) {
      if (counts_[number] == 0) continue;
      all += counts_[number];
      std::cout << imptable::NameOf(static_cast<Operation>(number)) << ": " << counts_[number]
                << '\n';
    }
    std::cout << "ran: " << all << " faults";
    if (Stride() > 1) {
      std::cout << ", one operation in " << Stride() << " (all with IMPTABLE_ROBUSTNESS_LONG)";
    }
    std::cout << '\n';
  }

 private:
  static inline std::array<int, kOperations> counts_{};
};

const testing::Environment* const kFigures = testing::AddGlobalTestEnvironment(new Figures);

class EveryFault : public testing::TestWithParam<Case> {
 protected:
  static void SetUpTestSuite() {
    source_ = std::make_unique<ScriptedDataSource>(ScriptedDataSource::Logging::kOff);
    source_->Script(kScript);
  }
  static void TearDownTestSuite() { source_.reset(); }

  const Workload& workload() const { return GetParam().workload; }

  /// Every fault that can strike a run with these counts. With a stride, only one operation in so
  /// many, and others in the next case.
  std::vector<Fault> FaultsOf(const FaultPlan& counted) const {
    std::vector<Fault> faults;
    for (std::size_t number = 0; number < kOperations; ++number) {
      const auto operation = static_cast<Operation>(number);
      if (GroupOf(operation) != GetParam().group) continue;
      for (const Effect effect : EffectsOn(operation)) {
        for (int nth = 1 + GetParam().number % Stride(); nth <= counted.Count(operation);
             nth += Stride()) {
          faults.push_back({operation, nth, false, effect});
          faults.push_back({operation, nth, true, effect});
        }
      }
    }
    return faults;
  }

  /// How many extra rows may be left by lines that are executed twice.
  static int RowsTooMany(const Fault& fault, const std::vector<Occurrence>& hits) {
    if (fault.effect == Effect::kAnswerLost && fault.operation == Operation::kExecute) {
      return static_cast<int>(hits.size());
    }
    // A line may have been executed although its trace couldn't be written.
    const bool untraced = std::any_of(hits.begin(), hits.end(), [](const Occurrence& hit) {
      return hit.operation == Operation::kWrite && hit.about.ends_with(".TRC");
    });
    return untraced ? 1 : 0;
  }

  /// Does what somebody does who sees that a run stopped. Begins again if the run hadn't touched
  /// anything. Puts the rows back and begins again if the deletion broke off or nothing was kept
  /// for a resume. Else mends what was rejected and resumes, until the run is a success.
  void Complete(FaultedTask& task, const RunRecord& struck, Consequence consequence,
                int rows_too_many, std::vector<std::string>& objections) {
    std::vector<std::string> lines = workload().SourceLines();
    for (std::string& line : lines) line = workload().Mended(line);
    const bool traced = GetParam().traced_resume && workload().record_errors == 1;
    const bool untouched =
        !struck.Says(" --> TRAITEMENT DE LA TABLE") || consequence == Consequence::kRefused;
    bool afresh = untouched && workload().resumes == 0;
    RunStatus status = RunStatus::kFailed;
    for (int round = 0; round < kMostRounds && status != RunStatus::kSucceeded; ++round) {
      task.MendRejectedLines();
      const bool half_deleted = round == 0 && consequence == Consequence::kFaultInDeletion;
      if (half_deleted || (!afresh && !traced && !task.CanGoOn())) {
        task.RestoreRows();
        afresh = true;
      }
      if (afresh) task.WriteSource(lines);
      status = task.Run(afresh ? 1 : 2, std::nullopt).status;
      afresh = false;
    }
    if (status != RunStatus::kSucceeded) objections.push_back("no resume completes the work");
    ObjectToRows(task, rows_too_many, objections);
  }

  void ObjectToRows(const FaultedTask& task, int rows_too_many,
                    std::vector<std::string>& objections) const {
    const std::vector<ClientTable::Row> wanted = workload().RowsAfter();
    std::vector<ClientTable::Row> rows = task.table().Rows();
    const auto all = static_cast<int>(rows.size());
    std::vector<ClientTable::Row> missing;
    std::set_difference(wanted.begin(), wanted.end(), rows.begin(), rows.end(),
                        std::back_inserter(missing));
    for (const auto& row : missing) {
      objections.push_back("lost after the resume: " + std::to_string(row.first) + row.second);
    }
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    std::vector<ClientTable::Row> strange;
    std::set_difference(rows.begin(), rows.end(), wanted.begin(), wanted.end(),
                        std::back_inserter(strange));
    for (const auto& row : strange) {
      objections.push_back("unwanted after the resume: " + std::to_string(row.first) + row.second);
    }
    if (all - static_cast<int>(rows.size()) > rows_too_many) {
      objections.push_back(std::to_string(all - static_cast<int>(rows.size())) +
                           " rows too many after the resume");
    }
  }

  /// Resumes a run that was done but whose status couldn't be stored: there must be nothing to do.
  void ResumeWhatIsDone(FaultedTask& task, const RunRecord& struck,
                        std::vector<std::string>& objections) const {
    if (struck.etat == static_cast<std::int32_t>(RunStatus::kSucceeded)) return;
    if (workload().record_errors == 0) return;
    task.LetTracesCount();
    const RunRecord again = task.Run(2, std::nullopt);
    if (again.status != RunStatus::kSucceeded) objections.push_back("it can't be resumed");
    if (again.rows != struck.rows) objections.push_back("its resume did something");
  }

  /// A run that ended accounts for every line that it traced, and a success for every line: the
  /// line's work is done, or the line is among the rejected ones.
  void ObjectToAccount(const RunRecord& struck, std::vector<std::string>& objections) const {
    const bool success = struck.status == RunStatus::kSucceeded;
    if (!success && (struck.status != RunStatus::kFailed || workload().resumes > 0)) return;
    std::vector<std::string> lines = workload().SourceLines();
    if (workload().resumes > 0) {
      for (std::string& line : lines) line = workload().Mended(line);
    }
    std::size_t last = success ? lines.size() : 0;
    // A run that reached no line may have left an earlier run's trace.
    if (!success && struck.progress.read > 0 && !struck.trace.empty()) {
      last = std::stoul(struck.trace.back().substr(0, 8));
    }
    for (std::size_t at = 0; at < std::min(last, lines.size()); ++at) {
      const bool rejected = std::find(struck.rejected.begin(), struck.rejected.end(), lines[at]) !=
                            struck.rejected.end();
      if (!rejected && !IsDone(struck.rows, workload().FirstCode() + static_cast<int>(at))) {
        objections.push_back("line " + std::to_string(at + 1) + " is in neither");
      }
    }
  }

  bool IsDone(const std::vector<ClientTable::Row>& rows, int code) const {
    const auto of_code = [code](std::vector<ClientTable::Row> all) {
      std::erase_if(all, [code](const auto& row) { return row.first != code; });
      return all;
    };
    const auto wanted = of_code(workload().RowsAfter());
    const auto found = of_code(rows);
    return wanted.empty() ? found.empty()
                          : std::find(found.begin(), found.end(), wanted.front()) != found.end();
  }

  /// A resume after a success starts afresh, with the file that is there then.
  void ImportLaterFile(FaultedTask& task, std::vector<std::string>& objections) const {
    task.WriteSource({workload().LaterLine()});
    const RunRecord later = task.Run(2, std::nullopt);
    const auto effects = task.table().effects().find(workload().LaterCode());
    if (later.status != RunStatus::kSucceeded || effects == task.table().effects().end()) {
      objections.push_back("the next file isn't imported");
    }
  }

  static std::unique_ptr<ScriptedDataSource> source_;
};

std::unique_ptr<ScriptedDataSource> EveryFault::source_;

TEST_P(EveryFault, LeavesARunThatEndsSaysSoAndCanBeCompleted) {
  FaultedTask undisturbed(*source_, workload(), GetParam().traced_resume);
  const RunRecord plain = undisturbed.RunWorkload(std::nullopt);
  EXPECT_THAT(plain.dropped_files, testing::IsEmpty());
  const std::vector<Fault> faults = FaultsOf(undisturbed.plan());
  ASSERT_FALSE(faults.empty());
  int injected = 0;
  int findings = 0;
  for (const Fault& fault : faults) {
    FaultedTask task(*source_, workload(), GetParam().traced_resume);
    const RunRecord struck = task.RunWorkload(fault);
    const std::vector<Occurrence> hits = task.plan().hits();
    if (hits.empty() && MayHaveNothingToSpoil(fault)) continue;
    ++injected;
    Figures::Add(fault.operation);
    std::vector<std::string> objections = Objections(fault, hits, workload(), plain, struck);
    ObjectToAccount(struck, objections);
    if (!hits.empty()) {
      if (struck.status == RunStatus::kSucceeded) ResumeWhatIsDone(task, struck, objections);
      if (struck.status != RunStatus::kSucceeded) {
        const Occurrence& decisive = DecisiveOf(fault, hits, workload());
        Complete(task, struck, ConsequenceOf(fault, decisive, workload()), RowsTooMany(fault, hits),
                 objections);
      }
      ImportLaterFile(task, objections);
    }
    if (const std::size_t kept = task.Unload()) {
      objections.push_back(std::to_string(kept) + " handles are kept for ever");
    }
    if (objections.empty()) continue;
    std::string text = Describe(fault, hits);
    for (const std::string& objection : objections) text += "\n    " + objection;
    text += "\n  its report:";
    for (const std::string& line : struck.report) text += "\n    |" + line;
    text += "\n  .ERR: " + struck.diagnostics + "\n  fault: " + struck.fault;
    ADD_FAILURE() << text;
    if (++findings == kMostFindings) break;
  }
  EXPECT_GT(injected, 0);
}

/// How often the driver's log names a call, with this text in its line.
std::ptrdiff_t CountIn(const std::vector<std::string>& log, std::string_view call,
                       std::string_view text = {}) {
  return std::count_if(log.begin(), log.end(), [&](const std::string& line) {
    return line.substr(0, line.find(' ')) == call && line.find(text) != std::string::npos;
  });
}

bool IsFaulted(std::string_view function) {
  for (std::size_t number = 0; number < kOperations; ++number) {
    if (imptable::NameOf(static_cast<Operation>(number)) == function) return true;
  }
  return false;
}

TEST(FaultyCalls, AreAllThatTheDriverIsAskedFor) {
  ScriptedDataSource source;
  source.Script(kScript);
  for (const Workload& workload : AllWorkloads()) {
    if (workload.resumes > 0) continue;
    source.ClearLog();
    FaultedTask task(source, workload, false);
    task.RunWorkload(std::nullopt);
    EXPECT_EQ(task.Unload(), 0U);
    const std::vector<std::string> log = source.LogLines();
    for (std::size_t number = static_cast<std::size_t>(Operation::kAllocStmt);
         number <= static_cast<std::size_t>(Operation::kRowCount); ++number) {
      const auto operation = static_cast<Operation>(number);
      EXPECT_EQ(CountIn(log, imptable::NameOf(operation)), task.plan().Count(operation))
          << workload.name << ", " << imptable::NameOf(operation);
    }
    for (const std::string& line : log) {
      EXPECT_TRUE(IsFaulted(line.substr(0, line.find(' ')))) << workload.name << ", " << line;
    }
    EXPECT_EQ(CountIn(log, "SQLAllocStmt"), CountIn(log, "SQLFreeStmt", " DROP"));
    EXPECT_EQ(CountIn(log, "SQLAllocConnect"), CountIn(log, "SQLFreeConnect"));
    EXPECT_EQ(CountIn(log, "SQLAllocEnv"), CountIn(log, "SQLFreeEnv"));
  }
}

void PrintTo(const Case& each, std::ostream* out) { *out << each.workload.name; }

INSTANTIATE_TEST_SUITE_P(, EveryFault, testing::ValuesIn(AllCases()), NameOf);

}  // namespace
}  // namespace imptable
