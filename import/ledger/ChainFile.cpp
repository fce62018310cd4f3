#include "import/ledger/ChainFile.h"

#include <array>
#include <charconv>
#include <chrono>
#include <utility>

#include "core/RuntimeFault.h"
#include "import/ledger/Trace.h"
#include "platform/files/FileSystem.h"

namespace imptable {
namespace {

// Words of the file format: never change, or a chain begun by an older version is refused.
constexpr std::string_view kWord = "REP ";
constexpr std::string_view kFormerVersion = "REP 1";
constexpr std::string_view kVersion = "REP 2";
constexpr std::string_view kVoid = "VOID";
constexpr std::string_view kScenario = "SCENARIO ";
constexpr std::string_view kTask = "TASK ";
constexpr std::string_view kDatabase = "DATABASE ";
constexpr std::string_view kOwner = "OWNER ";
constexpr std::string_view kTable = "TABLE ";
constexpr std::string_view kSource = "SOURCE ";
constexpr std::string_view kSize = "SIZE ";
constexpr std::string_view kTime = "TIME ";
constexpr std::string_view kHead = "HEAD ";
constexpr std::string_view kTail = "TAIL ";
constexpr std::string_view kFirst = "FIRST";
constexpr std::string_view kEnd = "END ";
constexpr std::string_view kRead = "READ";
constexpr std::string_view kStopped = "STOP";
constexpr char kOwnText = '1';
constexpr char kTextOfSource = '0';

constexpr std::size_t kBlockBytes = std::size_t{64} << 10U;

constexpr std::string_view kTimeForm = "0000-00-00T00:00:00Z";

/// @return false unless the whole text is such a number.
template <typename Number>
bool ReadDigits(std::string_view digits, Number& number) {
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return error == std::errc() && end == digits.data() + digits.size();
}

/// @return false when the text isn't as TimeText writes it.
bool ReadTime(std::string_view text, std::int64_t& seconds) {
  if (text.size() != kTimeForm.size()) return false;
  for (const std::size_t at : {4U, 7U, 10U, 13U, 16U, 19U}) {
    if (text[at] != kTimeForm[at]) return false;
  }
  int year = 0;
  std::array<unsigned, 5> rest{};  // month, day, hour, minute, second
  bool known = ReadDigits(text.substr(0, 4), year);
  for (std::size_t at = 0; at < rest.size(); ++at) {
    known = known && ReadDigits(text.substr(5 + 3 * at, 2), rest[at]);
  }
  const std::chrono::year_month_day date(std::chrono::year{year}, std::chrono::month{rest[0]},
                                         std::chrono::day{rest[1]});
  if (!known || !date.ok()) return false;
  const std::chrono::sys_seconds time = std::chrono::sys_days(date) + std::chrono::hours{rest[2]} +
                                        std::chrono::minutes{rest[3]} +
                                        std::chrono::seconds{rest[4]};
  seconds = time.time_since_epoch().count();
  return true;
}

}  // namespace

ChainReader::ChainReader(std::unique_ptr<LineReader> lines, std::string path)
    : lines_(std::move(lines)), path_(std::move(path)) {
  const std::string_view first = TakeLine();
  void_ = first == kVoid;
  at_end_ = void_;
  if (first == kVersion) {
    TakeIdentity();
  } else if (!void_ && first != kFormerVersion) {
    Refuse();
  }
}

void ChainReader::Refuse() const {
  throw RuntimeFault(FaultNumber::kInvalidFileFormat, path_ + ", " + std::to_string(number_));
}

std::string_view ChainReader::TakeLine() {
  ++number_;
  std::string_view text;
  if (!lines_->Next(text) || !lines_->ended()) Refuse();
  return text;
}

std::string_view ChainReader::TakeValue(std::string_view word) {
  std::string_view text = TakeLine();
  if (!text.starts_with(word)) Refuse();
  text.remove_prefix(word.size());
  return text;
}

void ChainReader::TakeIdentity() {
  ChainIdentity& identity = identity_.emplace();
  identity.scenario = TakeValue(kScenario);
  identity.task = TakeValue(kTask);
  identity.data_source = TakeValue(kDatabase);
  identity.owner = TakeValue(kOwner);
  identity.table = TakeValue(kTable);
  identity.source.path = TakeValue(kSource);
  if (!ReadDigits(TakeValue(kSize), identity.source.size)) Refuse();
  if (!ReadTime(TakeValue(kTime), identity.source.modified)) Refuse();
  identity.source.head = TakeValue(kHead);
  identity.source.tail = TakeValue(kTail);
}

void ChainReader::TakeEnd(std::string_view text) {
  at_end_ = true;
  const bool known = ReadLineNumber(text.substr(kEnd.size()), reached_);
  if (!known || reached_ < last_entry_) Refuse();
}

void ChainReader::TakeMark() {
  ++number_;
  std::string_view text;
  if (!lines_->Next(text)) return;
  if (!identity_) Refuse();
  if (!lines_->ended()) {
    if (!kRead.starts_with(text) && !kStopped.starts_with(text)) Refuse();
    return;
  }
  if (text != kRead && text != kStopped) Refuse();
  mark_ = text == kRead ? ChainMark::kRead : ChainMark::kStopped;
  ++number_;
  if (lines_->Next(text)) Refuse();
}

std::optional<ChainEntry> ChainReader::Next() {
  if (at_end_) return std::nullopt;
  const std::string_view text = TakeLine();
  first_ = identity_ && last_entry_ == 0 && text == kFirst;
  at_end_ = first_;
  if (text.starts_with(kEnd)) TakeEnd(text);
  if (at_end_) {
    TakeMark();
    return std::nullopt;
  }
  ChainEntry entry;
  const char kind = text.empty() ? '\0' : text.back();
  if ((kind != kOwnText && kind != kTextOfSource) ||
      !ReadLineNumber(text.substr(0, text.size() - 1), entry.line_number) ||
      entry.line_number <= last_entry_) {
    Refuse();
  }
  last_entry_ = entry.line_number;
  if (kind == kOwnText) entry.text = TakeLine();
  return entry;
}

ChainWriter::ChainWriter(RunFile& file, const ChainIdentity& identity) : file_(file) {
  const auto line = [this](std::string_view word, std::string_view value) {
    block_.append(word).append(value).append(SystemLineEnd());
  };
  const SourceIdentity& source = identity.source;
  line(kVersion, {});
  line(kScenario, identity.scenario);
  line(kTask, identity.task);
  line(kDatabase, identity.data_source);
  line(kOwner, identity.owner);
  line(kTable, identity.table);
  line(kSource, source.path);
  line(kSize, std::to_string(source.size));
  line(kTime, TimeText(source.modified));
  line(kHead, source.head);
  line(kTail, source.tail);
}

void ChainWriter::WriteBlock() {
  file_.Write(block_);
  block_.clear();
}

void ChainWriter::Add(const ChainEntry& entry) {
  AppendLineNumber(entry.line_number, block_);
  block_ += entry.text ? kOwnText : kTextOfSource;
  block_ += SystemLineEnd();
  if (entry.text) {
    if (entry.text->size() < kBlockBytes) {
      block_ += *entry.text;
    } else {
      WriteBlock();
      file_.Write(*entry.text);
    }
    block_ += SystemLineEnd();
  }
  if (block_.size() >= kBlockBytes) WriteBlock();
}

void ChainWriter::End(std::int32_t reached) {
  block_ += kEnd;
  AppendLineNumber(reached, block_);
  block_ += SystemLineEnd();
  WriteBlock();
}

void ChainWriter::First() {
  block_ += kFirst;
  block_ += SystemLineEnd();
  WriteBlock();
}

std::string VoidChainText() { return std::string(kVoid) + std::string(SystemLineEnd()); }

std::string MarkText(ChainMark mark) {
  if (mark == ChainMark::kNone) return {};
  return std::string(mark == ChainMark::kRead ? kRead : kStopped) + std::string(SystemLineEnd());
}

bool MayBeChain(std::string_view beginning) {
  static_assert(kWord.size() == kChainBeginning && kVoid.size() == kChainBeginning);
  return kWord.starts_with(beginning) || kVoid.starts_with(beginning);
}

}  // namespace imptable
