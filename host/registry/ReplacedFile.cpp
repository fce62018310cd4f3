#include "host/registry/ReplacedFile.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>

#include "platform/files/FileSystem.h"

namespace imptable {
namespace {

std::error_code LastError() { return {errno, std::generic_category()}; }

/// A temporary file beside the file that it is to replace. Removed unless Replace has succeeded.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::string& path) : path_(path + ".XXXXXX") {
    descriptor_ = mkstemp(path_.data());
    if (descriptor_ < 0) error_ = LastError();
  }
  ~TemporaryFile() {
    if (descriptor_ >= 0) close(descriptor_);
    if (!error_ && !renamed_) unlink(path_.c_str());
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  std::error_code error() const { return error_; }

  std::error_code Write(std::string_view bytes) {
    while (!bytes.empty()) {
      const ssize_t count = write(descriptor_, bytes.data(), bytes.size());
      if (count < 0 && errno == EINTR) continue;
      if (count < 0) return LastError();
      bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return fsync(descriptor_) == 0 ? std::error_code() : LastError();
  }

  std::error_code SetMode(mode_t mode) {
    return fchmod(descriptor_, mode) == 0 ? std::error_code() : LastError();
  }

  std::error_code Replace(const std::string& path) {
    if (rename(path_.c_str(), path.c_str()) != 0) return LastError();
    renamed_ = true;
    return {};
  }

 private:
  std::string path_;
  int descriptor_ = -1;
  bool renamed_ = false;
  std::error_code error_;
};

std::error_code WriteDirectly(const std::string& path, std::string_view bytes) {
  std::error_code error;
  const auto file = SystemFileSystem()->OpenForWriting(path, WriteMode::kAppend, error);
  if (!file) return error;
  if (const std::error_code failed = file->Write(bytes)) return failed;
  return file->Close();
}

constexpr int kMostLinks = 40;  // as many as the system itself follows

/// The file that `path` leads to when it is a link, so that the link itself stays. The file needn't
/// exist yet.
std::string Target(const std::string& path) {
  const std::unique_ptr<char, decltype(&free)> resolved(realpath(path.c_str(), nullptr), &free);
  if (resolved != nullptr) return resolved.get();
  std::filesystem::path target = path;
  std::error_code error;
  for (int links = 0; links < kMostLinks && std::filesystem::is_symlink(target, error); ++links) {
    target = target.parent_path() / std::filesystem::read_symlink(target, error);
  }
  return target.string();
}

}  // namespace

std::error_code ReplaceFile(const std::string& path, std::string_view bytes) {
  struct stat old {};
  const bool exists = stat(path.c_str(), &old) == 0;
  if (exists && !S_ISREG(old.st_mode)) return WriteDirectly(path, bytes);
  const std::string target = Target(path);
  TemporaryFile file(target);
  if (file.error()) return file.error();
  if (const std::error_code error = file.Write(bytes)) return error;
  if (exists) {
    if (const std::error_code error = file.SetMode(old.st_mode & 07777)) return error;
  }
  return file.Replace(target);
}

}  // namespace imptable
