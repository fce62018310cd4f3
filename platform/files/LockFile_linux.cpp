#include "platform/files/LockFile_linux.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <array>
#include <charconv>
#include <string_view>
#include <utility>

namespace imptable {
namespace {

/// A further attempt is made only when another process has just removed the file.
constexpr int kMostAttempts = 1000;

constexpr int kFlags = O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC | O_NOCTTY;
constexpr mode_t kAnyMode = 0666;

bool IsThere(const std::string& path) {
  struct stat status {};
  return lstat(path.c_str(), &status) == 0;
}

}  // namespace

LockFile::LockFile(std::string path) : path_(std::move(path)) {
  for (int attempt = 0; attempt < kMostAttempts; ++attempt) {
    if (const std::optional<State> state = TryOnce()) {
      state_ = *state;
      return;
    }
  }
  state_ = State::kBusy;
}

LockFile::~LockFile() {
  // Remove the file before the lock ends. A process that has opened it by now gets the lock later,
  // and then sees that the file is gone.
  if (state_ == State::kLocked) unlink(path_.c_str());
}

std::optional<LockFile::State> LockFile::TryOnce() {
  if (!Open()) return IsThere(path_) ? State::kUnusable : State::kNone;
  if (Retry([this] { return flock(file_.raw(), LOCK_EX | LOCK_NB); }) != 0) {
    error_ = LastError();
    if (error_ != std::errc::operation_would_block) return State::kNone;
    ReadHolder();
    return State::kBusy;
  }
  if (!IsStillThere()) return std::nullopt;
  if (!LooksLikeALock()) return State::kForeign;
  NoteProcess();
  return State::kLocked;
}

bool LockFile::Open() {
  file_ = Descriptor(
      Retry([this] { return open(path_.c_str(), O_RDWR | O_CREAT | kFlags, kAnyMode); }));
  error_ = file_.is_open() ? std::error_code() : LastError();
  if (error_ == std::errc::permission_denied) {
    // Reading rights are enough to lock another user's file.
    file_ = Descriptor(Retry([this] { return open(path_.c_str(), O_RDONLY | kFlags); }));
    if (file_.is_open()) error_.clear();
  }
  if (error_) return false;
  struct stat status {};
  if (fstat(file_.raw(), &status) != 0) {
    error_ = LastError();
  } else if (!S_ISREG(status.st_mode)) {
    error_ = std::make_error_code(std::errc::invalid_argument);
  }
  return !error_;
}

bool LockFile::IsStillThere() const {
  struct stat locked {};
  struct stat found {};
  return fstat(file_.raw(), &locked) == 0 && lstat(path_.c_str(), &found) == 0 &&
         locked.st_dev == found.st_dev && locked.st_ino == found.st_ino;
}

bool LockFile::LooksLikeALock() const {
  // A process that was killed may have written a part of its number, or nothing.
  std::array<char, 24> text{};
  const ssize_t length = Retry([&] { return pread(file_.raw(), text.data(), text.size(), 0); });
  if (length < 0 || length == static_cast<ssize_t>(text.size())) return false;
  std::string_view number(text.data(), static_cast<std::size_t>(length));
  if (number.ends_with('\n')) number.remove_suffix(1);
  return number.find_first_not_of("0123456789") == std::string_view::npos;
}

void LockFile::NoteProcess() const {
  // The number is information only. The lock holds even when the number can't be written.
  const std::string text = std::to_string(getpid()) + '\n';
  if (ftruncate(file_.raw(), 0) == 0) {
    static_cast<void>(Retry([&] { return pwrite(file_.raw(), text.data(), text.size(), 0); }));
  }
}

void LockFile::ReadHolder() {
  std::array<char, 24> text{};
  const ssize_t length = pread(file_.raw(), text.data(), text.size(), 0);
  if (length <= 0) return;
  std::int64_t process = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + length, process);
  if (error == std::errc() && end != text.data() + length && *end == '\n' && process > 0) {
    holder_ = process;
  }
}

}  // namespace imptable
