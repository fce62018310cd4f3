#ifndef IMPORT_LEDGER_CHAIN_FILE_H_
#define IMPORT_LEDGER_CHAIN_FILE_H_

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "core/RunFile.h"
#include "import/ledger/ChainIdentity.h"
#include "import/source/LineReader.h"

namespace imptable {

// The state of a chain of resumed runs (".REP"): text, in the system's line ends.
//
//   REP 2            version; "REP 1" has no identity and nothing after its end
//   SCENARIO Night   whose chain it is: scenario, task, where its rows go
//   TASK Clients
//   DATABASE Shop
//   OWNER
//   TABLE CLIENT
//   SOURCE /home/me/in/CLIENTS.CSV
//   SIZE 3072        of the source, in bytes
//   TIME 2006-11-15T08:30:00Z
//   HEAD ba78...     SHA-256 of its first MiB
//   TAIL 16bf...     and of its last 64 KiB
//   000000071        a rejected line of the source, by its number; "1": its text is the next line
//   7;as mended
//   000000090        "0": its text is the source's own
//   END 00000120     the last source line that the chain reached: all others up to it are done
//   READ             the last run read the source to its end; STOP: it ended before. Neither: it
//                    was killed, or a fault ended it
//
// Until the first resume, the trace of the chain's only run says all. The identity is then followed
// by
//
//   FIRST            in the place of the lines up to END
//
// A chain that is over says so in one line, until the file is deleted:
//
//   VOID

/// One rejected line of a chain. `text` is nullopt when the source's own text counts; it is valid
/// until the next read.
struct ChainEntry {
  std::int32_t line_number = 0;  // of the source, from 1
  std::optional<std::string_view> text;
};

/// How the last run of a chain ended.
enum class ChainMark : std::uint8_t {
  kNone,     // killed, or ended by a fault
  kStopped,  // in good order, before the end of its source
  kRead,     // in good order, at the end of its source
};

class ChainReader {
 public:
  /// @throws RuntimeFault  as Next.
  ChainReader(std::unique_ptr<LineReader> lines, std::string path);

  /// True for a chain that is over; it has no entries and reached nothing.
  bool is_void() const { return void_; }

  /// Nullopt for a chain that an older version began, and for one that is over.
  const std::optional<ChainIdentity>& identity() const { return identity_; }

  /// @return the next rejected line, in the source's order; nullopt at the end.
  /// @throws RuntimeFault  invalid file format, naming the file and the line; file faults.
  std::optional<ChainEntry> Next();

  // Known once Next has come to the end.

  /// The last source line that the chain reached.
  std::int32_t reached() const { return reached_; }

  /// Whether the chain was never resumed: it has no entries, and the trace of its only run says
  /// all.
  bool is_first() const { return first_; }

  /// A torn mark counts as none.
  ChainMark mark() const { return mark_; }

 private:
  std::string_view TakeLine();
  std::string_view TakeValue(std::string_view word);
  void TakeIdentity();
  void TakeEnd(std::string_view text);
  void TakeMark();
  [[noreturn]] void Refuse() const;

  std::unique_ptr<LineReader> lines_;
  std::string path_;
  std::optional<ChainIdentity> identity_;
  std::int64_t number_ = 0;  // of the line in the file
  std::int32_t last_entry_ = 0;
  std::int32_t reached_ = 0;
  bool void_ = false;
  bool first_ = false;
  ChainMark mark_ = ChainMark::kNone;
  bool at_end_ = false;
};

/// Writes the file of a chain, in blocks.
class ChainWriter {
 public:
  /// @param file  borrowed.
  ChainWriter(RunFile& file, const ChainIdentity& identity);

  /// @param entry  its line number is above that of the entry before. @throws RuntimeFault  the
  /// file fault.
  void Add(const ChainEntry& entry);

  /// @param reached  at least the last entry's number. @throws RuntimeFault  the file fault.
  void End(std::int32_t reached);

  /// To be called instead of Add and End. @throws RuntimeFault  the file fault.
  void First();

 private:
  void WriteBlock();

  RunFile& file_;
  std::string block_;
};

/// The whole content of a chain that is over.
std::string VoidChainText();

/// The text to append to a chain's file when a run of the chain ends; empty for kNone.
std::string MarkText(ChainMark mark);

/// Whether a file with this beginning can be a chain's, even one that is torn or of a newer
/// version.
/// @param beginning  its first kChainBeginning bytes, or the whole of a shorter file.
bool MayBeChain(std::string_view beginning);
inline constexpr std::size_t kChainBeginning = 4;

}  // namespace imptable

#endif  // IMPORT_LEDGER_CHAIN_FILE_H_
