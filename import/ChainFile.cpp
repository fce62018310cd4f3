#include "import/ChainFile.h"

#include <utility>

#include "import/LineNumberText.h"
#include "platform/FileSystem.h"
#include "plugin/core/RuntimeFault.h"

namespace imptable {
namespace {

// Words of the file format: never change, or a chain begun by an older version is refused.
constexpr std::string_view kVersion = "REP 1";
constexpr std::string_view kVoid = "VOID";
constexpr std::string_view kEnd = "END ";
constexpr char kOwnText = '1';
constexpr char kTextOfSource = '0';

constexpr std::size_t kBlockBytes = std::size_t{64} << 10U;

}  // namespace

ChainReader::ChainReader(std::unique_ptr<LineReader> lines, std::string path)
    : lines_(std::move(lines)), path_(std::move(path)) {
  const std::string_view first = TakeLine();
  void_ = first == kVoid;
  at_end_ = void_;
  if (!void_ && first != kVersion) Refuse();
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

void ChainReader::TakeEnd(std::string_view text) {
  at_end_ = true;
  const bool known = ReadNumberText(text.substr(kEnd.size()), reached_);
  if (!known || reached_ < last_entry_) Refuse();
  ++number_;
  if (lines_->Next(text)) Refuse();
}

std::optional<ChainEntry> ChainReader::Next() {
  if (at_end_) return std::nullopt;
  const std::string_view text = TakeLine();
  if (text.starts_with(kEnd)) {
    TakeEnd(text);
    return std::nullopt;
  }
  ChainEntry entry;
  const char kind = text.empty() ? '\0' : text.back();
  if ((kind != kOwnText && kind != kTextOfSource) ||
      !ReadNumberText(text.substr(0, text.size() - 1), entry.line_number) ||
      entry.line_number <= last_entry_) {
    Refuse();
  }
  last_entry_ = entry.line_number;
  if (kind == kOwnText) entry.text = TakeLine();
  return entry;
}

ChainWriter::ChainWriter(RunFile& file) : file_(file) {
  block_ += kVersion;
  block_ += SystemLineEnd();
}

void ChainWriter::WriteBlock() {
  file_.Write(block_);
  block_.clear();
}

void ChainWriter::Add(const ChainEntry& entry) {
  AppendNumberText(entry.line_number, block_);
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
  AppendNumberText(reached, block_);
  block_ += SystemLineEnd();
  WriteBlock();
}

std::string VoidChainText() { return std::string(kVoid) + std::string(SystemLineEnd()); }

}  // namespace imptable
