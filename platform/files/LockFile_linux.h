#ifndef PLATFORM_FILES_LOCK_FILE_LINUX_H_
#define PLATFORM_FILES_LOCK_FILE_LINUX_H_

#include <cstdint>
#include <optional>
#include <string>
#include <system_error>

#include "platform/files/Descriptor_linux.h"

namespace imptable {

/// A file that one process at a time has locked. The system lets a lock go with its process,
/// however that ends, so a file that a killed one left behind keeps nobody out. It goes with its
/// object.
class LockFile {
 public:
  enum class State : std::uint8_t {
    kLocked,
    kBusy,      // another process has it
    kUnusable,  // what stands at the path can't be locked
    kForeign,   // it holds something that no lock does
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

  /// When busy: the process that has it, as far as it said so.
  const std::optional<std::int64_t>& holder() const { return holder_; }

  /// When unusable or none: why.
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
