// Any bytes as what a run left behind: the chain's state, the trace and the rejected lines.
#include <charconv>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "core/RuntimeFault.h"
#include "import/ledger/ResumeChain.h"
#include "import/ledger/ResumeDecisions.h"
#include "tests/robustness/fuzz/FuzzInput.h"
#include "tests/robustness/fuzz/MemoryFiles.h"
#include "tests/robustness/fuzz/Property.h"
#include "tests/robustness/fuzz/SlowLines.h"

namespace imptable {
namespace {

constexpr char kNextFile = '\x01';
constexpr std::size_t kSmallBlock = 64;

/// The lines of a chain that are not done, each with its text when the chain has one.
struct ChainState {
  std::map<std::int32_t, std::optional<std::string>> open;
  std::int32_t reached = 0;

  bool operator==(const ChainState&) const = default;
};

ChainState Read(ChainReader& reader) {
  ChainState state;
  std::int32_t last = 0;
  while (const auto entry = reader.Next()) {
    Require(entry->line_number > last, "a chain's entries are in order");
    last = entry->line_number;
    state.open[last] = entry->text ? std::optional(std::string(*entry->text)) : std::nullopt;
  }
  state.reached = reader.reached();
  Require(state.reached >= last, "a chain reaches its last entry");
  Require(!reader.Next(), "the end of a chain stays its end");
  Require(!reader.is_void() || state == ChainState{}, "a chain that is over holds nothing");
  return state;
}

/// @return nullopt for bytes that are no chain.
std::optional<ChainState> StateOf(const std::string& bytes) {
  try {
    ChainReader reader(std::make_unique<LineReader>(std::make_unique<MemoryInput>(bytes), "chain",
                                                    false, kSmallBlock),
                       "chain");
    return Read(reader);
  } catch (const RuntimeFault& fault) {
    Require(fault.number() == FaultNumber::kInvalidFileFormat, "a damaged chain is called that");
    return std::nullopt;
  }
}

std::string Written(const ChainState& state) {
  MemoryFiles files;
  RunFile file = RunFile::Create(files, "chain");
  ChainWriter writer(file, {});
  for (const auto& [number, text] : state.open) {
    writer.Add({number, text ? std::optional<std::string_view>(*text) : std::nullopt});
  }
  writer.End(state.reached);
  file.Close();
  return files.files["chain"];
}

/// A trace made from the bytes. Each byte tells how many lines further the next one is, and whether
/// that line failed.
std::string BuiltTrace(std::string_view bytes) {
  std::string trace;
  std::int32_t number = 0;
  for (const char byte : bytes) {
    const auto step = static_cast<unsigned char>(byte);
    number += 1 + (step >> 1U) % 8;
    const std::string digits = std::to_string(number);
    trace += std::string(8 - digits.size(), '0') + digits + ((step & 1U) != 0 ? '1' : '0') +
             "00000000\n";
  }
  return trace;
}

struct SlowTraceLine {
  std::int32_t number;
  bool failed;
};

std::optional<std::int32_t> Number(const std::string& digits) {
  if (digits.size() < 8 || digits.find_first_not_of("0123456789") != std::string::npos) {
    return std::nullopt;
  }
  std::int32_t number = 0;
  const auto end = digits.data() + digits.size();
  if (std::from_chars(digits.data(), end, number).ec != std::errc()) return std::nullopt;
  return number;
}

/// @return nullopt for a damaged trace.
std::optional<std::vector<SlowTraceLine>> SlowTrace(const std::string& bytes) {
  std::vector<SlowTraceLine> lines;
  for (const SlowLine& line : SlowLines(bytes, false)) {
    if (!line.ended) break;
    if (line.text.size() < 17) return std::nullopt;
    const std::size_t status_at = line.text.size() - 9;
    const char status = line.text[status_at];
    const auto number = Number(line.text.substr(0, status_at));
    if (!number || (status != '0' && status != '1') || !Number(line.text.substr(status_at + 1))) {
      return std::nullopt;
    }
    if (*number <= (lines.empty() ? 0 : lines.back().number)) return std::nullopt;
    lines.push_back({*number, status == '1'});
  }
  return lines;
}

ChainState Merged(const ChainState& chain, const std::vector<SlowTraceLine>& trace,
                  const std::string& rejected) {
  const auto texts = SlowLines(rejected, false);
  const std::int32_t last = trace.empty() ? 0 : trace.back().number;
  ChainState merged;
  std::size_t rejections = 0;
  for (const SlowTraceLine& line : trace) {
    if (!line.failed) continue;
    const auto known = chain.open.find(line.number);
    auto& text = merged.open[line.number];
    if (known != chain.open.end()) text = known->second;
    if (rejections < texts.size()) text = texts[rejections].text;
    ++rejections;
  }
  for (const auto& [number, text] : chain.open) {
    if (number > last) merged.open[number] = text;
  }
  merged.reached = std::max(last, chain.reached);
  return merged;
}

void CheckDecisions(const ResumeChain& chain, const ChainState& state, bool skip_mark) {
  ResumeDecisions decisions(chain.Open(), skip_mark);
  // Lines are asked for in order, from the first. A chain may have more lines than there is time
  // for.
  const std::int32_t lines = std::min(state.reached, 300) + 2;
  for (std::int32_t number = 1; number <= lines; ++number) {
    std::string_view line = "the source's own";
    const ResumeDecision decision = decisions.Decide(number, line);
    const auto open = state.open.find(number);
    if (open == state.open.end()) {
      Require(decision == (number <= state.reached ? ResumeDecision::kSkip : ResumeDecision::kTake),
              "lines that the chain reached are done, others are new");
    } else if (open->second) {
      std::string_view text = *open->second;
      if (skip_mark && text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
      Require(decision == ResumeDecision::kReplace && line == text,
              "a rejected line is replaced by its text");
    } else {
      Require(decision == ResumeDecision::kTake && line == "the source's own",
              "a rejected line without a text is the source's");
    }
  }
}

void CheckMerge(const std::string& chain_bytes, const std::string& trace,
                const std::string& rejected, bool skip_mark) {
  MemoryFiles files;
  files.files = {{"chain", chain_bytes}, {"trace", trace}, {"rejected", rejected}};
  if (chain_bytes.empty()) files.files.erase("chain");
  const auto before = files.files;
  const auto state = chain_bytes.empty() ? ChainState{} : StateOf(chain_bytes);
  const auto lines = SlowTrace(trace);
  ResumeChain chain(files, "chain");
  const ChainIdentity identity{.scenario = "S", .task = "T", .source = {.path = "/T.CSV"}};
  try {
    chain.Advance("trace", "rejected", identity);
  } catch (const RuntimeFault&) {
    Require(!state || !lines, "only damaged files are refused");
    Require(files.files == before, "a refused merge leaves every file as it was");
    return;
  }
  Require(state && lines, "damaged files are refused");
  const ChainState merged = Merged(*state, *lines, rejected);
  const std::string once = files.files["chain"];
  Require(StateOf(once) == merged, "a chain is merged as a slow merge does it");
  Require(files.files.size() == before.size() + (chain_bytes.empty() ? 1 : 0),
          "a merge leaves no other file");
  chain.Advance("trace", "rejected", identity);
  Require(files.files["chain"] == once, "merging again changes nothing");
  Require(chain.Open()->identity() == identity, "a chain is of the run that advanced it");
  CheckDecisions(chain, merged, skip_mark);
}

void CheckChain(FuzzInput input) {
  const std::uint8_t how = input.Byte();
  std::string chain(input.Upto(kNextFile));
  std::string trace(input.Upto(kNextFile));
  const std::string rejected(input.Rest());
  if ((how & 1U) != 0) trace = BuiltTrace(trace);

  const auto state = StateOf(chain);
  if (state) {
    const std::string written = Written(*state);
    Require(StateOf(written) == state, "a written chain reads the same");
  }
  if ((how & 2U) != 0 && !state) chain.clear();
  CheckMerge(chain, trace, rejected, (how & 4U) != 0);
}

}  // namespace
}  // namespace imptable

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  imptable::CheckChain({data, size});
  return 0;
}
