#include "tests/robustness/kills/ChainModel.h"

#include <algorithm>
#include <stdexcept>

namespace imptable {
namespace {

constexpr std::size_t kDigits = 8;
constexpr std::size_t kTraceLine = 2 * kDigits + 1;

std::string Digits(int number) {
  const std::string text = std::to_string(number);
  return std::string(kDigits - text.size(), '0') + text;
}

}  // namespace

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  for (std::size_t from = 0; from < text.size();) {
    const std::size_t at = std::min(text.find('\n', from), text.size());
    lines.push_back(text.substr(from, at - from));
    from = at + 1;
  }
  return lines;
}

std::string Joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + '\n';
  return text;
}

std::vector<Traced> ReadTrace(const std::string& trace) {
  if (!trace.empty() && !trace.ends_with('\n')) throw std::runtime_error("torn trace");
  std::vector<Traced> lines;
  for (const std::string& line : LinesOf(trace)) {
    if (line.size() != kTraceLine || line.find_first_not_of("0123456789") != std::string::npos) {
      throw std::runtime_error("no trace line: " + line);
    }
    lines.push_back({std::stoi(line.substr(0, kDigits)), line[kDigits] == '1'});
  }
  return lines;
}

ChainState Merged(ChainState state, const SideTexts& left, const std::vector<std::string>& source) {
  const std::vector<std::string> texts = LinesOf(left.rejected);
  std::size_t next = 0;
  for (const Traced& traced : ReadTrace(left.trace)) {
    state.reached = std::max(state.reached, traced.line);
    if (!traced.failed) {
      state.rejected.erase(traced.line);
      continue;
    }
    if (next < texts.size()) {
      state.rejected[traced.line] = texts[next];
    } else {
      state.rejected.try_emplace(traced.line, source.at(static_cast<std::size_t>(traced.line) - 1));
    }
    ++next;
  }
  return state;
}

std::vector<PlannedLine> PlanOf(const ChainState& state, const std::vector<std::string>& source) {
  std::vector<PlannedLine> plan;
  int number = 0;
  for (const std::string& line : source) {
    ++number;
    const auto rejected = state.rejected.find(number);
    if (rejected != state.rejected.end()) {
      plan.push_back({number, rejected->second});
    } else if (number > state.reached) {
      plan.push_back({number, line});
    }
  }
  return plan;
}

std::string ExpectedRun::Trace(std::size_t count) const {
  std::string text;
  int so_far = 0;
  for (std::size_t at = 0; at < count; ++at) {
    const bool failed = lines[at].outcome.failed;
    if (failed) ++so_far;
    text += Digits(lines[at].line.number) + (failed ? '1' : '0') + Digits(so_far) + '\n';
  }
  return text;
}

std::string ExpectedRun::RejectedText(std::size_t count) const {
  std::string text;
  for (std::size_t at = 0; at < count; ++at) {
    if (lines[at].outcome.failed) text += lines[at].line.text + '\n';
  }
  return text;
}

std::vector<std::string> ExpectedRun::Effects(std::size_t count) const {
  std::vector<std::string> effects;
  for (std::size_t at = 0; at < count; ++at) {
    const auto& some = lines[at].outcome.effects;
    effects.insert(effects.end(), some.begin(), some.end());
  }
  return effects;
}

ExpectedRun Expect(TableModel table, const std::vector<PlannedLine>& plan, int error_limit) {
  ExpectedRun run;
  for (const PlannedLine& line : plan) {
    run.lines.push_back({line, table.Execute(line.text)});
    if (run.lines.back().outcome.failed) ++run.errors;
    run.stopped = run.errors > error_limit;
    if (run.stopped) break;
  }
  return run;
}

}  // namespace imptable
