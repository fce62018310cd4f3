// Chains of runs of the command, killed, mended and resumed: kill_chains DATABASE [NAME=VALUE ...]

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <exception>
#include <filesystem>
#include <iostream>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "tests/robustness/kills/Chain.h"
#include "tests/robustness/kills/ChainPlans.h"

namespace imptable {
namespace {

constexpr std::int64_t kMostFaults = 10;

struct Options {
  DatabaseKind database = DatabaseKind::kSqlite;
  std::int64_t kills = 0;  ///< of random chains, at least
  std::int64_t every = 0;  ///< tries one call in so many of each stage; 0: none
  std::uint64_t seed = 0;
  int work = -1;            ///< only this one; -1: all
  int trace = -1;           ///< only this "RecTrace"; -1: both
  std::int64_t chain = -1;  ///< only this random one; -1: all
  std::string stage;        ///< only this one; empty: all
  int call = 0;             ///< only this one of the stages' calls; 0: all
  std::string keep;         ///< where the files of faults go
};

Options OptionsFrom(const std::vector<std::string>& words) {
  Options options;
  options.database = DatabaseKindFrom(words.at(0));
  std::map<std::string, std::string> values;
  for (std::size_t at = 1; at < words.size(); ++at) {
    const std::size_t equals = words[at].find('=');
    if (equals == std::string::npos) throw std::invalid_argument("No NAME=VALUE: " + words[at]);
    values[words[at].substr(0, equals)] = words[at].substr(equals + 1);
  }
  for (const auto& [name, value] : values) {
    if (name == "kills")
      options.kills = std::stoll(value);
    else if (name == "every")
      options.every = std::stoll(value);
    else if (name == "seed")
      options.seed = std::stoull(value);
    else if (name == "work")
      options.work = std::stoi(value);
    else if (name == "trace")
      options.trace = std::stoi(value);
    else if (name == "chain")
      options.chain = std::stoll(value);
    else if (name == "stage")
      options.stage = value;
    else if (name == "call")
      options.call = std::stoi(value);
    else if (name == "keep")
      options.keep = value;
    else
      throw std::invalid_argument("No such option: " + name);
  }
  return options;
}

/// One kind of work on one database, with its figures.
struct Bench {
  Bench(DatabaseKind kind, Work work, bool traced) : task(kind, work, traced) {}

  KillTask task;
  Figures figures;
  Pace pace;
};

class Program {
 public:
  explicit Program(Options options) : options_(std::move(options)) {
    for (std::size_t at = 0; at < kWorks.size(); ++at) {
      if (options_.work >= 0 && static_cast<std::size_t>(options_.work) != at) continue;
      for (const bool traced : {true, false}) {
        if (options_.trace >= 0 && (options_.trace == 1) != traced) continue;
        AddBench(kWorks[at], traced);
      }
    }
  }

  bool Go() {
    if (options_.every > 0) GoThroughStages();
    GoAtRandom();
    Figures all;
    for (const auto& bench : benches_) {
      bench->figures.Print(std::cout, Title(*bench));
      all.Add(bench->figures);
    }
    all.Print(std::cout, "all on " + std::string(NameOf(options_.database)));
    return all.faults == 0 && all.kills > 0;
  }

 private:
  void AddBench(Work work, bool traced) {
    benches_.push_back(std::make_unique<Bench>(options_.database, work, traced));
    Random random(options_.seed);
    Bench& bench = *benches_.back();
    bench.pace = PaceOf(bench.task, random);
    std::cout << Title(bench) << ": a whole run takes " << bench.pace.Calls(0) << " calls and "
              << static_cast<std::int64_t>(bench.pace.Microseconds(0)) << " us, a line "
              << bench.pace.calls_of_a_line << " calls and "
              << static_cast<std::int64_t>(bench.pace.microseconds_of_a_line) << " us\n";
  }

  std::string Title(const Bench& bench) const {
    return std::string(NameOf(bench.task.kind())) + ", " + std::string(NameOf(bench.task.work())) +
           (bench.task.traced() ? "" : ", RecTrace 0");
  }

  bool Enough() const { return faults_ >= kMostFaults; }

  /// @return whether the attempt of this index was killed, or anything went wrong.
  bool Carry(Bench& bench, const ChainPlan& plan, Random& random, const std::string& which,
             std::size_t attempt = 0) {
    Chain chain(bench.task, random, bench.figures);
    try {
      chain.Go(plan);
    } catch (const std::exception& fault) {
      ++bench.figures.faults;
      ++faults_;
      std::cout << "FAULT: " << Title(bench) << ", seed=" << options_.seed << ' ' << which << '\n'
                << chain.story() << fault.what() << '\n';
      Keep(bench, which);
      return true;
    }
    return chain.WasKilled(attempt);
  }

  void Keep(const Bench& bench, const std::string& which) const {
    if (options_.keep.empty()) return;
    const std::string to = options_.keep + '/' + Title(bench) + ' ' + which;
    std::filesystem::remove_all(to);
    std::filesystem::create_directories(to);
    std::filesystem::copy(bench.task.folder().path(), to, std::filesystem::copy_options::recursive);
  }

  void GoThroughStages() {
    for (const auto& bench : benches_) {
      for (const Stage& stage : Stages()) {
        if (!options_.stage.empty() && options_.stage != stage.name) continue;
        GoThrough(*bench, stage);
      }
    }
  }

  /// A seed of data with which the chain reaches the stage, found by trying.
  std::uint64_t DataFor(Bench& bench, const Stage& stage) {
    constexpr std::uint64_t kMostTries = 30;
    for (std::uint64_t data = options_.seed; data < options_.seed + kMostTries; ++data) {
      Random random(data);
      Figures unused;
      Chain chain(bench.task, random, unused);
      try {
        chain.Go(PlanAt(stage, 1));
      } catch (const ChainFault&) {
        return data;  // the stage itself will find the fault
      }
      bool comes = chain.WasKilled(stage.killed);
      for (const std::size_t before : stage.killed_before) comes &= chain.WasKilled(before);
      if (comes) return data;
    }
    throw std::runtime_error("no data comes to the stage: " + stage.name);
  }

  void GoThrough(Bench& bench, const Stage& stage) {
    const std::uint64_t data = DataFor(bench, stage);
    const auto every = static_cast<int>(options_.every);
    // Begin at another call in each stage, but within the calls that every run makes.
    constexpr std::int64_t kSurelyCalled = 50;
    Random offset(data + stages_++);
    int call = Between(offset, 1, static_cast<int>(std::min(options_.every, kSurelyCalled)));
    if (options_.call > 0) call = options_.call;
    int tried = 0;
    for (bool killed = true; killed && !Enough(); call += every) {
      Random random(data);
      const std::string which = "stage=\"" + stage.name + "\" call=" + std::to_string(call);
      killed = Carry(bench, PlanAt(stage, call), random, which, stage.killed);
      if (killed) ++tried;
      if (options_.call > 0) break;
    }
    std::cout << Title(bench) << ", " << stage.name << ": killed at " << tried << " calls\n";
  }

  void GoAtRandom() {
    const auto kills = [this] {
      std::int64_t sum = 0;
      for (const auto& bench : benches_) sum += bench->figures.kills;
      return sum;
    };
    const std::int64_t most = kills() + options_.kills;
    for (std::int64_t index = 0; kills() < most && !Enough(); ++index) {
      if (options_.chain >= 0 && index != options_.chain) continue;
      for (const auto& bench : benches_) {
        Random random(options_.seed * 1000003 + static_cast<std::uint64_t>(index) * 101 +
                      static_cast<std::uint64_t>(bench->task.work()));
        Carry(*bench, RandomPlan(bench->pace, random), random,
              "work=" + std::to_string(static_cast<int>(bench->task.work())) +
                  (bench->task.traced() ? " trace=1" : " trace=0") +
                  " chain=" + std::to_string(index));
      }
      if (options_.chain >= 0) break;
    }
  }

  Options options_;
  std::vector<std::unique_ptr<Bench>> benches_;
  std::int64_t faults_ = 0;
  std::uint64_t stages_ = 0;
};

}  // namespace
}  // namespace imptable

int main(int argc, char** argv) {
  try {
    std::cout << std::unitbuf;
    const auto options = imptable::OptionsFrom({argv + 1, argv + argc});
    const auto start = std::chrono::steady_clock::now();
    const bool good = imptable::Program(options).Go();
    const auto lasted = std::chrono::steady_clock::now() - start;
    std::cout << "seed " << options.seed << ", "
              << std::chrono::duration_cast<std::chrono::seconds>(lasted).count() << " s\n";
    return good ? 0 : 1;
  } catch (const std::exception& error) {
    std::cerr << "kill_chains: " << error.what() << '\n';
    return 2;
  }
}
