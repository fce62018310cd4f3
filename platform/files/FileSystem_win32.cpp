#include <algorithm>
#include <utility>

#include "platform/files/FileSystem.h"
#include "platform/windows/WindowsError_win32.h"
#include "platform/windows/Windows_win32.h"

namespace imptable {
namespace {

/// As much as one call takes on any file system, network drives included.
constexpr std::size_t kMostAtOnce = 1 << 24;

/// Sole owner of a file handle.
class FileHandle {
 public:
  explicit FileHandle(HANDLE raw) : raw_(raw) {}
  ~FileHandle() { Close(); }
  FileHandle(FileHandle&& other) noexcept : raw_(std::exchange(other.raw_, INVALID_HANDLE_VALUE)) {}
  FileHandle& operator=(FileHandle&&) = delete;

  HANDLE raw() const { return raw_; }
  bool is_open() const { return raw_ != INVALID_HANDLE_VALUE; }

  std::error_code Close() {
    if (!is_open()) return {};
    return CloseHandle(std::exchange(raw_, INVALID_HANDLE_VALUE)) != 0 ? std::error_code()
                                                                       : LastError();
  }

 private:
  HANDLE raw_;
};

class WindowsInputFile : public InputFile {
 public:
  explicit WindowsInputFile(FileHandle file) : file_(std::move(file)) {}

  std::size_t Read(char* buffer, std::size_t size, std::error_code& error) override {
    DWORD count = 0;
    const auto wanted = static_cast<DWORD>(std::min(size, kMostAtOnce));
    if (ReadFile(file_.raw(), buffer, wanted, &count, nullptr) == 0) {
      error = LastError();
      return 0;
    }
    error.clear();
    return count;
  }

  std::error_code Skip(std::uint64_t bytes) override {
    LARGE_INTEGER distance{};
    distance.QuadPart = static_cast<LONGLONG>(bytes);
    return SetFilePointerEx(file_.raw(), distance, nullptr, FILE_CURRENT) != 0 ? std::error_code()
                                                                               : LastError();
  }

 private:
  FileHandle file_;
};

class WindowsOutputFile : public OutputFile {
 public:
  explicit WindowsOutputFile(FileHandle file) : file_(std::move(file)) {}

  std::error_code Write(std::string_view bytes) override {
    while (!bytes.empty()) {
      DWORD count = 0;
      const auto wanted = static_cast<DWORD>(std::min(bytes.size(), kMostAtOnce));
      if (WriteFile(file_.raw(), bytes.data(), wanted, &count, nullptr) == 0) return LastError();
      if (count == 0) return std::make_error_code(std::errc::io_error);
      bytes.remove_prefix(count);
    }
    return {};
  }

  std::error_code Flush() override {
    return FlushFileBuffers(file_.raw()) != 0 ? std::error_code() : LastError();
  }

  std::error_code Close() override { return file_.Close(); }

 private:
  FileHandle file_;
};

bool IsDirectory(const std::string& path) {
  const DWORD attributes = GetFileAttributesA(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

/// @return why the last system call refused this path. For a directory the system itself says only
/// "access denied".
std::error_code LastErrorAt(const std::string& path) {
  const std::error_code error = LastError();
  return IsDirectory(path) ? std::make_error_code(std::errc::is_a_directory) : error;
}

/// True when the code says that no file of this name exists or can exist. A server out of reach
/// doesn't say that: the file may be there.
bool MeansNone(DWORD code) {
  switch (code) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_DIRECTORY:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_BUFFER_OVERFLOW:
      return true;
    default:
      return false;
  }
}

std::int64_t SecondsSince1970(const FILETIME& time) {
  constexpr std::int64_t kTicksOfASecond = 10'000'000;
  constexpr std::int64_t kSecondsFrom1601To1970 = 11'644'473'600;
  const auto ticks =
      static_cast<std::int64_t>(std::uint64_t{time.dwHighDateTime} << 32U | time.dwLowDateTime);
  return ticks / kTicksOfASecond - kSecondsFrom1601To1970;
}

class WindowsFileSystem : public FileSystem {
 public:
  std::string Locate(std::string_view path) const override { return std::string(path); }

  using FileSystem::Query;
  std::optional<FileInfo> Query(const std::string& path, std::error_code& error) const override {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    error.clear();
    if (GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &data) == 0) {
      const DWORD code = GetLastError();
      if (!MeansNone(code)) error = ErrorOf(code);
      return std::nullopt;
    }
    return FileInfo{.size = std::uint64_t{data.nFileSizeHigh} << 32 | data.nFileSizeLow,
                    .is_file = (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0,
                    .modified = SecondsSince1970(data.ftLastWriteTime)};
  }

  std::unique_ptr<InputFile> OpenForReading(const std::string& path,
                                            std::error_code& error) override {
    constexpr DWORD kShare = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    FileHandle file(CreateFileA(path.c_str(), GENERIC_READ, kShare, nullptr, OPEN_EXISTING,
                                FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    error = file.is_open() ? std::error_code() : LastErrorAt(path);
    if (error) return nullptr;
    if (GetFileType(file.raw()) != FILE_TYPE_DISK) {
      error = std::make_error_code(std::errc::invalid_argument);
      return nullptr;
    }
    return std::make_unique<WindowsInputFile>(std::move(file));
  }

  std::unique_ptr<OutputFile> OpenForWriting(const std::string& path, WriteMode mode,
                                             std::error_code& error) override {
    // Without FILE_WRITE_DATA the system itself puts each write at the end of the file.
    const bool append = mode == WriteMode::kAppend;
    const DWORD access = append ? FILE_GENERIC_WRITE & ~FILE_WRITE_DATA : FILE_GENERIC_WRITE;
    FileHandle file(CreateFileA(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                append ? OPEN_ALWAYS : CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL,
                                nullptr));
    error = file.is_open() ? std::error_code() : LastErrorAt(path);
    if (error) return nullptr;
    return std::make_unique<WindowsOutputFile>(std::move(file));
  }

  std::error_code Remove(const std::string& path) override {
    return DeleteFileA(path.c_str()) != 0 ? std::error_code() : LastErrorAt(path);
  }

  std::error_code Replace(const std::string& from, const std::string& to) override {
    constexpr DWORD kHow = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    return MoveFileExA(from.c_str(), to.c_str(), kHow) != 0 ? std::error_code() : LastErrorAt(to);
  }
};

}  // namespace

std::unique_ptr<FileSystem> SystemFileSystem() { return std::make_unique<WindowsFileSystem>(); }

std::string_view SystemLineEnd() { return "\r\n"; }

char SystemPathSeparator() { return '\\'; }

}  // namespace imptable
