#ifndef IMPORT_CHAIN_FILE_H_
#define IMPORT_CHAIN_FILE_H_

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "import/LineReader.h"
#include "plugin/core/RunFile.h"

namespace imptable {

// The state of a chain of resumed runs (".REP"): text, in the system's line ends.
//
//   REP 1            version
//   000000071        a rejected line of the source, by its number; "1": its text is the next line
//   7;as mended
//   000000090        "0": its text is the source's own
//   END 00000120     the last source line that the chain reached: all others up to it are done
//
// A chain that is over says so in one line, until the file is deleted:
//
//   VOID

/// One rejected line of a chain. `text`: nullopt for the source's own; valid until the next read.
struct ChainEntry {
  std::int32_t line_number = 0;  // of the source, from 1
  std::optional<std::string_view> text;
};

class ChainReader {
 public:
  /// @throws RuntimeFault  as Next.
  ChainReader(std::unique_ptr<LineReader> lines, std::string path);

  /// True for a chain that is over; it has no entries and reached nothing.
  bool is_void() const { return void_; }

  /// @return the next rejected line, in the source's order; nullopt at the end.
  /// @throws RuntimeFault  invalid file format, naming the file and the line; file faults.
  std::optional<ChainEntry> Next();

  /// The last source line that the chain reached; known once Next has come to the end.
  std::int32_t reached() const { return reached_; }

 private:
  std::string_view TakeLine();
  void TakeEnd(std::string_view text);
  [[noreturn]] void Refuse() const;

  std::unique_ptr<LineReader> lines_;
  std::string path_;
  std::int64_t number_ = 0;  // of the line in the file
  std::int32_t last_entry_ = 0;
  std::int32_t reached_ = 0;
  bool void_ = false;
  bool at_end_ = false;
};

/// Writes such a file, in blocks.
class ChainWriter {
 public:
  /// @param file  borrowed.
  explicit ChainWriter(RunFile& file);

  /// @param entry  its number above the one before. @throws RuntimeFault  the file fault.
  void Add(const ChainEntry& entry);

  /// @param reached  at least the last entry's number. @throws RuntimeFault  the file fault.
  void End(std::int32_t reached);

 private:
  void WriteBlock();

  RunFile& file_;
  std::string block_;
};

/// The whole content of a chain that is over.
std::string VoidChainText();

}  // namespace imptable

#endif  // IMPORT_CHAIN_FILE_H_
