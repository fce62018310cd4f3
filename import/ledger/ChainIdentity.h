#ifndef IMPORT_LEDGER_CHAIN_IDENTITY_H_
#define IMPORT_LEDGER_CHAIN_IDENTITY_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "core/RunState.h"
#include "platform/files/FileSystem.h"

namespace imptable {

/// A source file as it was at some time. Its contents decide whether another one is the same; path
/// and time only tell a person which one is meant.
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

/// Of the run's task and of its source as it is now; that of a missing file is empty but for its
/// path.
/// @throws RuntimeFault  the file fault, naming the source.
ChainIdentity IdentityOf(FileSystem& files, const RunState& run);

/// Whether the file begins with what the known one held: the same contents, or more.
/// @throws RuntimeFault  the file fault, naming the file.
bool GoesOnFrom(FileSystem& files, const SourceIdentity& known, const std::string& path);

/// As a line of text can hold it: control characters are blanks.
std::string OneLine(std::string_view text);

/// As "2006-11-15T08:30:00Z".
std::string TimeText(std::int64_t seconds_since_1970);

}  // namespace imptable

#endif  // IMPORT_LEDGER_CHAIN_IDENTITY_H_
