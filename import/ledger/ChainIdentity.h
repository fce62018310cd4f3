#ifndef IMPORT_LEDGER_CHAIN_IDENTITY_H_
#define IMPORT_LEDGER_CHAIN_IDENTITY_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "core/RunState.h"
#include "platform/files/FileSystem.h"

namespace imptable {

/// A source file as it was at some time. Another file is the same source when it has the same
/// contents. Path and time only tell a person which file is meant.
struct SourceIdentity {
  std::string path = {};
  std::uint64_t size = 0;     // bytes
  std::int64_t modified = 0;  // seconds since 1970 UTC
  std::string head = {};      // SHA-256 of its first MiB
  std::string tail = {};      // SHA-256 of its last 64 KiB
  bool operator==(const SourceIdentity&) const = default;
};

/// What a chain of runs works on. Texts hold no control characters.
struct ChainIdentity {
  std::string scenario = {};
  std::string task = {};
  std::string data_source = {};
  std::string owner = {};
  std::string table = {};
  SourceIdentity source = {};
  bool operator==(const ChainIdentity&) const = default;
};

/// The identity of the run's task and of its source as it is now. For a missing source only its
/// path is set.
/// @throws RuntimeFault  the file fault, naming the source.
ChainIdentity IdentityOf(FileSystem& files, const RunState& run);

/// Whether the file begins with the contents of the known source, and may go on with more.
/// @throws RuntimeFault  the file fault, naming the file.
bool GoesOnFrom(FileSystem& files, const SourceIdentity& known, const std::string& path);

/// The text as one line: control characters become blanks.
std::string OneLine(std::string_view text);

/// The time as "2006-11-15T08:30:00Z".
std::string TimeText(std::int64_t seconds_since_1970);

}  // namespace imptable

#endif  // IMPORT_LEDGER_CHAIN_IDENTITY_H_
