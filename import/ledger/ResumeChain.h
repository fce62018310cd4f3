#ifndef IMPORT_LEDGER_RESUME_CHAIN_H_
#define IMPORT_LEDGER_RESUME_CHAIN_H_

#include <cstdint>
#include <memory>
#include <string>

#include "import/ledger/ChainFile.h"
#include "platform/files/FileSystem.h"

namespace imptable {

/// The side file that holds the state of a chain of resumed runs. It is only ever replaced as a
/// whole, by a file that has reached the disk. So a run that dies at any moment leaves the old
/// state or the new one.
class ResumeChain {
 public:
  enum class State : std::uint8_t {
    kNone,     // no file: the chain is the last run's trace alone
    kFirst,    // likewise, but the file names the task and the source
    kOpen,     // there are lines to do (or the file is damaged: Advance says so)
    kVoid,     // over; what the last run left isn't to be resumed
    kForeign,  // the file isn't a chain's: it must not be touched
  };

  /// @param files  borrowed. @param path  of the chain's file.
  ResumeChain(FileSystem& files, const std::string& path);

  /// @throws RuntimeFault  the file fault.
  State state() const;

  /// @throws RuntimeFault  when the file isn't a chain's; the file fault.
  void RequireOwn() const;

  /// The last source line that the chain reached; 0 without an open chain.
  /// @throws RuntimeFault  invalid file format, naming the file and the line; file faults.
  std::int32_t Reached() const;

  /// Makes the file of a chain whose first run is about to begin. It replaces that of an older
  /// chain.
  /// @throws RuntimeFault  the file fault; the file is then as it was.
  void Begin(const ChainIdentity& identity);

  /// Merges what the last run left into the chain. Doing it again changes nothing. The trace says
  /// which lines are rejected. The text of a rejected line comes from the rejected-lines file (its
  /// nth line belongs to the nth rejection of the trace), else from the chain, else from the
  /// source. A file of the last run that doesn't exist counts as empty.
  /// @param identity  the chain's from now on.
  /// @throws RuntimeFault  for a damaged chain or trace, naming file and line; file faults. The
  /// chain is then as it was.
  void Advance(const std::string& trace, const std::string& rejected,
               const ChainIdentity& identity);

  /// Notes how the run has ended. When that can't be written, the run counts as one that didn't
  /// come to its end, which is the careful answer.
  void Mark(ChainMark mark);

  /// The chain's rejected lines; null without a file. @throws RuntimeFault  as Reached.
  std::unique_ptr<ChainReader> Open() const;

  /// Declares the chain over, whatever the last run has left. The file exists afterwards. When it
  /// existed before, a full disk is no obstacle.
  /// @throws RuntimeFault  the file fault.
  void Void();

  /// Deletes the file, if there is one. @throws RuntimeFault  the file fault.
  void Remove();

  const std::string& path() const { return path_; }

 private:
  bool IsForeign() const;
  void VoidInPlace();

  FileSystem& files_;
  std::string path_;      // as the file system locates it
  std::string new_path_;  // of the file that is to replace it
};

}  // namespace imptable

#endif  // IMPORT_LEDGER_RESUME_CHAIN_H_
