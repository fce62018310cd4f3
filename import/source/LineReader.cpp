#include "import/source/LineReader.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

#include "core/FileLook.h"
#include "core/RuntimeFault.h"

namespace imptable {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

}  // namespace

LineReader::LineReader(std::unique_ptr<InputFile> file, std::string path, bool skip_mark,
                       std::size_t block_bytes)
    : file_(std::move(file)), path_(std::move(path)), buffer_(block_bytes), skip_mark_(skip_mark) {}

void LineReader::MakeRoom() {
  if (buffer_.size() >= kMostLineBytes) throw RuntimeFault(FaultNumber::kOutOfMemory, path_);
  try {
    buffer_.resize(2 * buffer_.size());
  } catch (const std::bad_alloc&) {
    throw RuntimeFault(FaultNumber::kOutOfMemory, path_);
  }
}

void LineReader::Refill() {
  const std::size_t kept = end_ - begin_;
  std::memmove(buffer_.data(), buffer_.data() + begin_, kept);
  begin_ = 0;
  end_ = kept;
  carriage_return_ = 0;
  if (kept == buffer_.size()) MakeRoom();
  std::error_code error;
  const std::size_t got = file_->Read(buffer_.data() + end_, buffer_.size() - end_, error);
  if (error) throw FileFault(error, path_);
  at_end_of_file_ = got == 0;
  end_ += got;
  const bool whole_mark = end_ >= kByteOrderMark.size() || at_end_of_file_;
  if (skip_mark_ && whole_mark) {
    skip_mark_ = false;
    if (std::string_view(buffer_.data(), end_).starts_with(kByteOrderMark)) {
      begin_ = kByteOrderMark.size();
      bytes_taken_ = begin_;
    }
  }
}

std::size_t LineReader::FindCarriageReturn() {
  // In a file that has no CR, this looks for one once a block instead of once a line.
  if (carriage_return_ < begin_ || begin_ == 0) {
    const void* const found = std::memchr(buffer_.data() + begin_, '\r', end_ - begin_);
    carriage_return_ =
        found == nullptr
            ? end_
            : static_cast<std::size_t>(static_cast<const char*>(found) - buffer_.data());
  }
  return carriage_return_;
}

std::string_view LineReader::Take(std::size_t length, std::size_t end_length) {
  const std::string_view line(buffer_.data() + begin_, length);
  begin_ += length + end_length;
  bytes_taken_ += length + end_length;
  ended_ = end_length > 0;
  return line;
}

bool LineReader::Next(std::string_view& line) {
  for (;;) {
    const char* const start = buffer_.data() + begin_;
    const void* const feed = skip_mark_ ? nullptr : std::memchr(start, '\n', end_ - begin_);
    const std::size_t line_feed =
        feed == nullptr ? end_
                        : static_cast<std::size_t>(static_cast<const char*>(feed) - buffer_.data());
    const std::size_t carriage_return = skip_mark_ ? end_ : FindCarriageReturn();
    if (carriage_return < line_feed) {
      const bool needs_next_byte = carriage_return + 1 == end_ && !at_end_of_file_;
      if (!needs_next_byte) {
        line = Take(carriage_return - begin_,
                    carriage_return + 1 == line_feed && line_feed < end_ ? 2 : 1);
        return true;
      }
    } else if (line_feed < end_) {
      line = Take(line_feed - begin_, 1);
      return true;
    } else if (at_end_of_file_) {
      if (begin_ == end_) return false;
      line = Take(end_ - begin_, 0);
      return true;
    }
    Refill();
  }
}

std::unique_ptr<LineReader> OpenLinesIfAny(FileSystem& files, const std::string& path,
                                           std::size_t block_bytes) {
  if (!LookAt(files, path)) return nullptr;
  std::error_code error;
  auto file = files.OpenForReading(path, error);
  if (!file) throw FileFault(error, path);
  return std::make_unique<LineReader>(std::move(file), path, false, block_bytes);
}

bool HasNoLine(FileSystem& files, const std::string& path, std::uint64_t size, bool skip_mark) {
  if (size == 0) return true;
  if (!skip_mark || size != kByteOrderMark.size()) return false;
  std::error_code error;
  auto file = files.OpenForReading(path, error);
  if (!file) throw FileFault(error, path);
  std::string_view line;
  return !LineReader(std::move(file), path, true, kByteOrderMark.size()).Next(line);
}

}  // namespace imptable
