#include "tests/robustness/kills/SourceLines.h"

namespace imptable {
namespace {

// Codes of rows that no line names at first, of lines that name no row, and of rows that can't be
// deleted.
constexpr int kSpare = 1000;
constexpr int kUnknown = 5000;
constexpr int kKeptCode = 9000;

constexpr double kRepeatedShare = 0.06;
constexpr double kUnknownShare = 0.08;

enum class Fault { kNoDay, kNegative, kNoName, kNoCode, kOneField, kKeptRow };

std::vector<Fault> FaultsOf(Work work) {
  if (IsDelete(work)) return {Fault::kNoDay, Fault::kOneField, Fault::kKeptRow};
  if (work == Work::kUpdate) {
    return {Fault::kNoDay, Fault::kNegative, Fault::kNoName, Fault::kOneField};
  }
  return {Fault::kNoDay, Fault::kNegative, Fault::kNoName, Fault::kNoCode, Fault::kOneField};
}

std::string TwoDigits(int number) { return (number < 10 ? "0" : "") + std::to_string(number); }

}  // namespace

bool Chance(Random& random, double share) { return std::bernoulli_distribution(share)(random); }

int Between(Random& random, int low, int high) {
  return std::uniform_int_distribution<int>(low, high)(random);
}

SourceLines::SourceLines(Random& random, Work work, int count, double bad_share)
    : work_(work), versions_(static_cast<std::size_t>(count), 0), table_(work) {
  const bool needs_rows = !IsInsert(work);
  const std::string none = "<null>";
  for (int number = 1; number <= count; ++number) {
    int code = number;
    bool sure = true;
    if (number > 1 && Chance(random, kRepeatedShare)) {
      code = number - 1;
      sure = false;
    } else if (needs_rows && Chance(random, kUnknownShare)) {
      code = kUnknown + number;
      sure = work == Work::kUpdateInsert;
    }
    const bool bad = Chance(random, bad_share);
    texts_.push_back(Text(random, number, code, 0, bad));
    if (sure && !bad) {
      sure_.push_back({number, IsDelete(work) ? "D " + std::to_string(code) + " row"
                                              : "line " + std::to_string(number) + " v"});
    }
    if (!needs_rows) continue;
    const std::string name = "row " + std::to_string(number);
    table_.Put(number, {name, none, "0"});
    table_.Put(kSpare + number, {name, none, "0"});
    if (IsDelete(work)) table_.Put(kKeptCode + number, {std::string(kKept), none, "0"});
  }
}

std::string SourceLines::Mended(Random& random, int number, bool badly) {
  const int version = ++versions_[static_cast<std::size_t>(number) - 1];
  return Text(random, number, kSpare + number, version, badly);
}

std::string SourceLines::Text(Random& random, int number, int code, int version, bool bad) {
  std::string code_text = std::to_string(code);
  std::string name = "line " + std::to_string(number) + " v" + std::to_string(version);
  std::string day = "2001" + TwoDigits(1 + number % 12) + TwoDigits(1 + version % 28);
  std::string amount = std::to_string(number);
  if (bad) {
    const std::vector<Fault> faults = FaultsOf(work_);
    switch (
        faults[static_cast<std::size_t>(Between(random, 0, static_cast<int>(faults.size()) - 1))]) {
      case Fault::kNoDay:
        day = "2001AB99";
        break;
      case Fault::kNegative:
        amount = "-1";
        break;
      case Fault::kNoName:
        name.clear();
        break;
      case Fault::kNoCode:
        code_text.clear();
        break;
      case Fault::kOneField:
        amount += ";more";
        break;
      case Fault::kKeptRow:
        code_text = std::to_string(kKeptCode + number);
        break;
    }
  }
  return code_text + ';' + name + ';' + day + ';' + amount;
}

}  // namespace imptable
