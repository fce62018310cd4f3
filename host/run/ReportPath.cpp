#include "host/run/ReportPath.h"

#include <sys/stat.h>

#include <filesystem>
#include <optional>
#include <system_error>

#include "host/HostError.h"
#include "import/ledger/TaskFiles.h"
#include "platform/text/NameFolding.h"

namespace imptable {
namespace {

using std::filesystem::path;

constexpr int kMostLinks = 40;  // as many as the system itself follows

std::optional<struct stat> StatusOf(const path& file) {
  struct stat status {};
  if (stat(file.c_str(), &status) != 0) return std::nullopt;
  return status;
}

bool IsSame(const std::optional<struct stat>& left, const std::optional<struct stat>& right) {
  return left && right && left->st_dev == right->st_dev && left->st_ino == right->st_ino;
}

/// Where the links that begin at `file` lead, whether anything is there or not.
path EndOfLinks(path file) {
  std::error_code error;
  for (int links = 0; links < kMostLinks && std::filesystem::is_symlink(file, error); ++links) {
    file = file.parent_path() / std::filesystem::read_symlink(file, error);
  }
  return file;
}

/// A file, known by its folder and its name, and by its inode when it exists.
class FilePlace {
 public:
  FilePlace(const std::string& file, const TextEncoding& encoding)
      : file_(file), status_(StatusOf(file)) {
    const path end = EndOfLinks(file);
    folder_ = StatusOf(end.has_parent_path() ? end.parent_path() : path("."));
    folded_name_ = FoldName(encoding.ToUtf8(end.filename().string()));
  }

  bool Is(const FilePlace& other) const {
    return IsSame(status_, other.status_) ||
           (folded_name_ == other.folded_name_ && IsSame(folder_, other.folder_));
  }

  /// Whether this is a pipe that lies in a folder. A pipe that a process got as its output, through
  /// /dev/stdout for example, is not.
  bool IsNamedPipe() const {
    std::error_code error;
    return status_ && S_ISFIFO(status_->st_mode) &&
           std::filesystem::is_fifo(std::filesystem::canonical(file_, error), error);
  }

  bool IsPipeOrDevice() const {
    return status_ && !S_ISREG(status_->st_mode) && !S_ISDIR(status_->st_mode);
  }

 private:
  path file_;
  std::optional<struct stat> status_;
  std::optional<struct stat> folder_;
  std::string folded_name_;
};

std::vector<std::string> RegistryFiles(const std::string& path) {
  return {path, path + "-wal", path + "-shm", path + "-journal"};
}

/// Finds which of the files is at this place, and gives the path that the system finds it by;
/// nullopt when none is.
std::optional<std::string> FirstOf(const std::vector<std::string>& files, const FilePlace& place,
                                   const FileSystem& file_system, const TextEncoding& encoding) {
  for (const std::string& file : files) {
    // A run finds its files without regard to case.
    std::string found = file_system.Locate(file);
    if (place.Is(FilePlace(file, encoding)) || place.Is(FilePlace(found, encoding))) return found;
  }
  return std::nullopt;
}

}  // namespace

std::vector<std::string> FilesOfRun(const OpenedTask& task, const std::string& registry_path) {
  std::vector<std::string> files = RegistryFiles(registry_path);
  files.push_back(DataFilePath(task));
  for (const std::string_view extension :
       {kErrorExtension, kRejectedExtension, kTraceExtension, kRejectedCopyExtension,
        kTraceCopyExtension, kChainExtension, kSelectionExtension, std::string_view(".LCK"),
        std::string_view(".LER.OLD")}) {
    files.push_back(SideFilePath(task, extension));
    files.push_back(files.back() + ".NEW");
  }
  return files;
}

void RequireNoRegistryFile(const std::string& path, const std::string& registry_path,
                           const FileSystem& file_system, const TextEncoding& encoding) {
  if (FirstOf(RegistryFiles(registry_path), FilePlace(path, encoding), file_system, encoding)) {
    throw HostError(ExitCode::kUsage, HostText::kExportIsRegistry, {path});
  }
}

void RequireReportOfItsOwn(const std::string& report, ReportName name,
                           const std::vector<std::string>& files, const FileSystem& file_system,
                           const TextEncoding& encoding) {
  const FilePlace place(report, encoding);
  if (const auto found = FirstOf(files, place, file_system, encoding)) {
    throw HostError(ExitCode::kUsage, HostText::kReportIsRunFile, {report, *found});
  }
  // Each line of the report is appended on its own, so the reader of a named pipe sees the end of
  // its input after the first line.
  const bool is_unusable =
      name == ReportName::kDefault ? place.IsPipeOrDevice() : place.IsNamedPipe();
  if (is_unusable) {
    throw HostError(ExitCode::kUsage, HostText::kReportIsNoFile, {report});
  }
}

}  // namespace imptable
