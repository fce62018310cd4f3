#ifndef PLATFORM_FILES_PROFILE_FILE_H_
#define PLATFORM_FILES_PROFILE_FILE_H_

#include <cstddef>
#include <string>
#include <string_view>

namespace imptable {

/// Initialisation files: sections in brackets, key=value lines, ";" comments.
class ProfileFile {
 public:
  virtual ~ProfileFile() = default;

  /// Reads one value: the first key of that name in the first section of that name. Both names are
  /// matched without regard to case and to blanks around them. The value comes without the blanks
  /// around it and without one pair of quotes that encloses it.
  /// @param most  bytes that are returned of a longer value.
  /// @return `fallback` when the file, the section or the key doesn't exist.
  /// @throws std::system_error  when the file is there but can't be read. Windows' own reader gives
  /// `fallback` instead.
  virtual std::string ReadString(const std::string& path, std::string_view section,
                                 std::string_view key, std::string_view fallback,
                                 std::size_t most) const = 0;
};

}  // namespace imptable

#endif  // PLATFORM_FILES_PROFILE_FILE_H_
