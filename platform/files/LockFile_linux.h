#ifndef PLATFORM_FILES_LOCK_FILE_LINUX_H_
#define PLATFORM_FILES_LOCK_FILE_LINUX_H_

#include <cstdint>
#include <optional>
#include <string>
#include <system_error>

#include "platform/files/Descriptor_linux.h"

namespace imptable {

/// A file that at most one process has locked. The system releases the lock when the process ends
/// in any way, so the file of a killed process keeps nobody out. The destructor removes a file that
/// it has locked.
class LockFile {
 public:
  enum class State : std::uint8_t {
    kLocked,
    kBusy,      // another process has it
    kUnusable,  // what stands at the path can't be locked
    kForeign,   // the file holds something that isn't a lock file's text
    kNone,      // no file can be made at the path, or its file system has no locks
  };

  /// Doesn't wait. A file that is created gets the rights that the umask leaves; a link isn't
  /// followed.
  explicit LockFile(std::string path);
  ~LockFile();
  LockFile(const LockFile&) = delete;
  LockFile& operator=(const LockFile&) = delete;

  State state() const { return state_; }
  const std::string& path() const { return path_; }

  /// When kBusy: the process that has the lock, if the file names it.
  const std::optional<std::int64_t>& holder() const { return holder_; }

  /// When kUnusable or kNone: why.
  const std::error_code& error() const { return error_; }

 private:
  /// @return nullopt when the file was removed while it was being locked.
  std::optional<State> TryOnce();
  bool Open();
  bool IsStillThere() const;
  bool LooksLikeALock() const;
  void NoteProcess() const;
  void ReadHolder();

  std::string path_;
  Descriptor file_;
  std::optional<std::int64_t> holder_;
  std::error_code error_;
  State state_ = State::kNone;
};

}  // namespace imptable

#endif  // PLATFORM_FILES_LOCK_FILE_LINUX_H_
