#ifndef IMPORT_SOURCE_LINE_READER_H_
#define IMPORT_SOURCE_LINE_READER_H_

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files/FileSystem.h"

namespace imptable {

/// A line has to be shorter than this: it has to be held in memory, and may have to be written to
/// the rejected-lines file as it stands.
inline constexpr std::size_t kMostLineBytes = std::size_t{256} << 20U;

/// The memory that a reader begins with.
inline constexpr std::size_t kLineBlockBytes = std::size_t{256} << 10U;

/// Reads a text file line by line. Lines end with CR LF, LF or CR; the last one needs no end.
/// Memory: one block, or the longest line.
class LineReader {
 public:
  /// @param path  names the file in faults.
  /// @param skip_mark  whether a UTF-8 byte order mark at the start is skipped.
  /// @param block_bytes  of memory to begin with, at least one; doubled while a line is longer.
  LineReader(std::unique_ptr<InputFile> file, std::string path, bool skip_mark,
             std::size_t block_bytes = kLineBlockBytes);

  /// @param line  the next line without its end; valid until the next call.
  /// @return false at the end of the file.
  /// @throws RuntimeFault  the file fault when reading fails; out of memory for a line of
  /// kMostLineBytes or more, and for a line that there is no memory for.
  bool Next(std::string_view& line);

  /// Bytes of the file that the lines so far have taken, line ends included.
  std::uint64_t bytes_taken() const { return bytes_taken_; }

  /// Whether the line that Next gave last had a line end.
  bool ended() const { return ended_; }

  const std::string& path() const { return path_; }

 private:
  void Refill();
  void MakeRoom();
  std::string_view Take(std::size_t length, std::size_t end_length);
  std::size_t FindCarriageReturn();

  std::unique_ptr<InputFile> file_;
  std::string path_;
  std::vector<char> buffer_;
  std::size_t begin_ = 0;            // of what isn't taken yet
  std::size_t end_ = 0;              // of what has been read
  std::size_t carriage_return_ = 0;  // first CR at or after begin_, or end_; stale below begin_
  bool at_end_of_file_ = false;
  bool ended_ = false;
  bool skip_mark_;
  std::uint64_t bytes_taken_ = 0;
};

/// Opens a file of lines that may be missing. A byte order mark in it isn't skipped.
/// @return null when there is no such file. @throws RuntimeFault  the file fault.
std::unique_ptr<LineReader> OpenLinesIfAny(FileSystem& files, const std::string& path,
                                           std::size_t block_bytes = kLineBlockBytes);

/// Whether a file has no line: it is empty, or a byte order mark is all it holds.
/// @param size  the file's, in bytes. @param skip_mark  as for LineReader.
/// @throws RuntimeFault  the file fault.
bool HasNoLine(FileSystem& files, const std::string& path, std::uint64_t size, bool skip_mark);

}  // namespace imptable

#endif  // IMPORT_SOURCE_LINE_READER_H_
