#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <memory>
#include <string>
#include <utility>

#include "platform/files/Descriptor_linux.h"
#include "platform/files/FileSystem.h"
#include "platform/files/OpeningForWriting_linux.h"
#include "platform/text/NameFolding.h"

namespace imptable {
namespace {

std::error_code FlushDescriptor(const Descriptor& file) {
  return Retry([&] { return fsync(file.raw()); }) == 0 ? std::error_code() : LastError();
}

class LinuxInputFile : public InputFile {
 public:
  explicit LinuxInputFile(Descriptor file) : file_(std::move(file)) {}

  std::size_t Read(char* buffer, std::size_t size, std::error_code& error) override {
    const ssize_t count = Retry([&] { return read(file_.raw(), buffer, size); });
    if (count < 0) {
      error = LastError();
      return 0;
    }
    error.clear();
    return static_cast<std::size_t>(count);
  }

  std::error_code Skip(std::uint64_t bytes) override {
    const off_t at = lseek(file_.raw(), static_cast<off_t>(bytes), SEEK_CUR);
    return at < 0 ? LastError() : std::error_code();
  }

 private:
  Descriptor file_;
};

class LinuxOutputFile : public OutputFile {
 public:
  explicit LinuxOutputFile(Descriptor file) : file_(std::move(file)) {}

  std::error_code Write(std::string_view bytes) override {
    while (!bytes.empty()) {
      const ssize_t count = Retry([&] { return write(file_.raw(), bytes.data(), bytes.size()); });
      if (count < 0) return LastError();
      bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return {};
  }

  std::error_code Flush() override { return FlushDescriptor(file_); }

  std::error_code Close() override { return file_.Close(); }

 private:
  Descriptor file_;
};

/// @return why an open file can't be read as data; no error when it can.
std::error_code WhyUnreadable(int file) {
  struct stat status {};
  if (fstat(file, &status) != 0) return LastError();
  if (S_ISDIR(status.st_mode)) return std::make_error_code(std::errc::is_a_directory);
  if (!S_ISREG(status.st_mode)) return std::make_error_code(std::errc::invalid_argument);
  return {};
}

/// @return the first entry of the directory, in alphabetical order, whose name differs from `name`
/// in case at most; empty when there is none or the directory can't be read.
std::string FirstOfThatName(const std::string& directory, std::string_view name) {
  const auto close = [](DIR* entries) { closedir(entries); };
  const std::unique_ptr<DIR, decltype(close)> entries(opendir(directory.c_str()), close);
  if (!entries) return {};
  const std::string folded = FoldName(name);
  std::string first;
  while (const dirent* entry = readdir(entries.get())) {
    const std::string_view found = entry->d_name;
    if ((first.empty() || found < first) && FoldName(found) == folded) first = found;
  }
  return first;
}

/// The directory of a file, as a path of its own.
std::string DirectoryOf(std::string_view path) {
  const std::size_t name_at = path.rfind('/') + 1;  // npos + 1 is 0
  return name_at == 0 ? "." : std::string(path.substr(0, name_at));
}

class LinuxFileSystem : public FileSystem {
 public:
  std::string Locate(std::string_view path) const override {
    std::string exact(path);
    if (Query(exact)) return exact;
    const std::size_t name_at = path.rfind('/') + 1;  // npos + 1 is 0
    const std::string name = FirstOfThatName(DirectoryOf(path), path.substr(name_at));
    return name.empty() ? exact : std::string(path.substr(0, name_at)) + name;
  }

  using FileSystem::Query;
  std::optional<FileInfo> Query(const std::string& path, std::error_code& error) const override {
    struct stat status {};
    error.clear();
    if (stat(path.c_str(), &status) != 0) {
      const bool absent = errno == ENOENT || errno == ENOTDIR || errno == ENAMETOOLONG;
      if (!absent) error = LastError();
      return std::nullopt;
    }
    return FileInfo{.size = static_cast<std::uint64_t>(status.st_size),
                    .is_file = S_ISREG(status.st_mode),
                    .modified = status.st_mtim.tv_sec};
  }

  std::unique_ptr<InputFile> OpenForReading(const std::string& path,
                                            std::error_code& error) override {
    // Without O_NONBLOCK, opening a pipe would wait for its writer.
    constexpr int kFlags = O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
    Descriptor file(Retry([&] { return open(path.c_str(), kFlags); }));
    error = file.is_open() ? WhyUnreadable(file.raw()) : LastError();
    if (error) return nullptr;
    if (fcntl(file.raw(), F_SETFL, 0) != 0) {
      error = LastError();
      return nullptr;
    }
    posix_fadvise(file.raw(), 0, 0, POSIX_FADV_SEQUENTIAL);
    return std::make_unique<LinuxInputFile>(std::move(file));
  }

  std::unique_ptr<OutputFile> OpenForWriting(const std::string& path, WriteMode mode,
                                             std::error_code& error) override {
    Descriptor file =
        mode == WriteMode::kAppend ? OpenToAppend(path, error) : OpenToReplace(path, error);
    if (error) return nullptr;
    return std::make_unique<LinuxOutputFile>(std::move(file));
  }

  std::error_code Remove(const std::string& path) override {
    return unlink(path.c_str()) == 0 ? std::error_code() : LastError();
  }

  std::error_code Replace(const std::string& from, const std::string& to) override {
    if (rename(from.c_str(), to.c_str()) != 0) return LastError();
    const Descriptor directory(
        Retry([&] { return open(DirectoryOf(to).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
    // The name has changed already. A directory that can't be read can't be flushed.
    return directory.is_open() ? FlushDescriptor(directory) : std::error_code();
  }
};

}  // namespace

std::unique_ptr<FileSystem> SystemFileSystem() { return std::make_unique<LinuxFileSystem>(); }

std::string_view SystemLineEnd() { return "\n"; }

char SystemPathSeparator() { return '/'; }

}  // namespace imptable
