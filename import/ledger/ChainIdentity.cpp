#include "import/ledger/ChainIdentity.h"

#include <algorithm>
#include <chrono>
#include <vector>

#include "core/FileLook.h"
#include "import/ledger/TaskFiles.h"
#include "platform/files/Sha256.h"

namespace imptable {
namespace {

// Stored identities were made with these sizes: never change.
constexpr std::uint64_t kHeadBytes = std::uint64_t{1} << 20U;
constexpr std::uint64_t kTailBytes = std::uint64_t{64} << 10U;

constexpr std::size_t kBlockBytes = std::size_t{64} << 10U;

/// The last second of the year 9999: TimeText has room for four digits of a year.
constexpr std::int64_t kLastSecond = 253'402'300'799;

/// Digests of the first `size` bytes of a file.
class SourceDigest {
 public:
  /// @throws RuntimeFault  the file fault.
  SourceDigest(FileSystem& files, const std::string& path, std::uint64_t size) : path_(path) {
    head_ = Digest(files, 0, std::min(size, kHeadBytes));
    const std::uint64_t tail = std::min(size, kTailBytes);
    tail_ = Digest(files, size - tail, tail);
  }

  const std::string& head() const { return head_; }
  const std::string& tail() const { return tail_; }

 private:
  std::string Digest(FileSystem& files, std::uint64_t from, std::uint64_t count) const {
    std::error_code error;
    const auto file = files.OpenForReading(path_, error);
    if (!file) throw FileFault(error, path_);
    if (from > 0) error = file->Skip(from);
    if (error) throw FileFault(error, path_);
    Sha256 digest;
    std::vector<char> block(kBlockBytes);
    while (count > 0) {
      const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(count, block.size()));
      const std::size_t got = file->Read(block.data(), wanted, error);
      if (error) throw FileFault(error, path_);
      if (got == 0) break;
      digest.Add({block.data(), got});
      count -= got;
    }
    return digest.HexDigest();
  }

  std::string path_;
  std::string head_;
  std::string tail_;
};

void AppendDigits(std::int64_t number, std::size_t width, std::string& out) {
  const std::string digits = std::to_string(number);
  if (digits.size() < width) out.append(width - digits.size(), '0');
  out += digits;
}

}  // namespace

std::string OneLine(std::string_view text) {
  constexpr unsigned char kBlank = ' ';
  std::string line(text);
  std::replace_if(
      line.begin(), line.end(), [](char each) { return static_cast<unsigned char>(each) < kBlank; },
      ' ');
  return line;
}

std::string TimeText(std::int64_t seconds_since_1970) {
  const std::chrono::sys_seconds time{std::chrono::seconds{seconds_since_1970}};
  const auto day = std::chrono::floor<std::chrono::days>(time);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss clock(time - day);
  std::string text;
  AppendDigits(static_cast<int>(date.year()), 4, text);
  text += '-';
  AppendDigits(static_cast<unsigned>(date.month()), 2, text);
  text += '-';
  AppendDigits(static_cast<unsigned>(date.day()), 2, text);
  text += 'T';
  AppendDigits(clock.hours().count(), 2, text);
  text += ':';
  AppendDigits(clock.minutes().count(), 2, text);
  text += ':';
  AppendDigits(clock.seconds().count(), 2, text);
  return text + 'Z';
}

ChainIdentity IdentityOf(FileSystem& files, const RunState& run) {
  ChainIdentity identity{.scenario = OneLine(run.scenario),
                         .task = OneLine(run.task),
                         .data_source = OneLine(run.data_source),
                         .owner = OneLine(run.owner),
                         .table = OneLine(run.table)};
  const std::string path = files.Locate(DataFilePath(run));
  identity.source.path = OneLine(path);
  const auto info = LookAt(files, path);
  if (!info) return identity;
  const SourceDigest digest(files, path, info->size);
  identity.source.size = info->size;
  identity.source.modified = std::clamp(info->modified, std::int64_t{0}, kLastSecond);
  identity.source.head = digest.head();
  identity.source.tail = digest.tail();
  return identity;
}

bool GoesOnFrom(FileSystem& files, const SourceIdentity& known, const std::string& path) {
  const auto info = LookAt(files, path);
  if (!info || info->size < known.size) return false;
  const SourceDigest digest(files, path, known.size);
  return digest.head() == known.head && digest.tail() == known.tail;
}

}  // namespace imptable
