#include "platform/files/OpeningForWriting_linux.h"

#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/vfs.h>

#include <array>
#include <climits>
#include <string_view>

namespace imptable {
namespace {

constexpr int kFlags = O_WRONLY | O_CREAT | O_CLOEXEC | O_NOCTTY;
constexpr int kMostLinks = 40;  // as many as the system itself follows
constexpr mode_t kAnyMode = 0666;

Descriptor Open(const std::string& path, int flags, std::error_code& error) {
  Descriptor file(Retry([&] { return open(path.c_str(), flags, kAnyMode); }));
  error = file.is_open() ? std::error_code() : LastError();
  return file;
}

bool IsLink(const std::error_code& error) {
  return error == std::errc::too_many_symbolic_link_levels;
}

/// Empties an open file. @return why that failed; only regular files can be emptied.
std::error_code Empty(int file) {
  struct stat status {};
  if (fstat(file, &status) != 0) return LastError();
  if (!S_ISREG(status.st_mode)) return std::make_error_code(std::errc::invalid_argument);
  return Retry([&] { return ftruncate(file, 0); }) == 0 ? std::error_code() : LastError();
}

/// One symbolic link. It is held open, so that nobody can exchange it after it was looked at.
class Link {
 public:
  explicit Link(const std::string& path) : path_(path) {
    link_ = Descriptor(Retry([&] { return open(path.c_str(), O_PATH | O_NOFOLLOW | O_CLOEXEC); }));
  }

  /// True for the links of /proc, for example behind /dev/stdout. The system makes them, and they
  /// have no path to follow.
  bool IsOfTheSystem() const {
    struct statfs status {};
    return link_.is_open() && fstatfs(link_.raw(), &status) == 0 &&
           status.f_type == PROC_SUPER_MAGIC;
  }

  bool IsTrusted() const {
    struct stat status {};
    return link_.is_open() && fstat(link_.raw(), &status) == 0 && S_ISLNK(status.st_mode) &&
           (status.st_uid == geteuid() || status.st_uid == 0);
  }

  /// Empty when it can't be read.
  std::string Target() const {
    std::array<char, PATH_MAX> text{};
    const ssize_t length = readlinkat(link_.raw(), "", text.data(), text.size());
    if (length <= 0) return {};
    const std::string target(text.data(), static_cast<std::size_t>(length));
    return target.front() == '/' ? target : path_.substr(0, path_.rfind('/') + 1) + target;
  }

 private:
  std::string path_;
  Descriptor link_;
};

}  // namespace

Descriptor OpenToReplace(const std::string& path, std::error_code& error) {
  // O_TRUNC would empty the file before we know what it is. Without O_NONBLOCK, opening a pipe
  // would wait for its reader.
  Descriptor file = Open(path, kFlags | O_NOFOLLOW | O_NONBLOCK, error);
  if (file.is_open()) {
    error = Empty(file.raw());
  } else if (error == std::errc::no_such_device_or_address) {
    error = std::make_error_code(std::errc::invalid_argument);
  }
  return error ? Descriptor() : std::move(file);
}

Descriptor OpenToAppend(const std::string& path, std::error_code& error) {
  constexpr int kAppendFlags = kFlags | O_APPEND;
  std::string at = path;
  for (int links = 0; links < kMostLinks; ++links) {
    Descriptor file = Open(at, kAppendFlags | O_NOFOLLOW, error);
    if (!IsLink(error)) return file;
    const Link link(at);
    if (link.IsOfTheSystem()) return Open(at, kAppendFlags, error);
    if (!link.IsTrusted()) return {};
    at = link.Target();
  }
  return {};
}

}  // namespace imptable
