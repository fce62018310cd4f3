#ifndef TESTS_ROBUSTNESS_FAULTS_WORKLOAD_H_
#define TESTS_ROBUSTNESS_FAULTS_WORKLOAD_H_

#include <cstdint>
#include <string>
#include <vector>

#include "tests/robustness/faults/ClientTable.h"

namespace imptable {

// Values of "Mode" and of "Suppression".
inline constexpr std::int32_t kInsert = 0;
inline constexpr std::int32_t kUpdate = 1;
inline constexpr std::int32_t kUpdateInsert = 3;
inline constexpr std::int32_t kDelete = 4;
inline constexpr std::int32_t kKeepRows = 0;
inline constexpr std::int32_t kEmptyTable = 1;
inline constexpr std::int32_t kDeleteSelected = 2;

/// A small task whose run is representative of its kind: five lines of CLIENTS.CSV into the table
/// CLIENT, rows that were there before and the rows that there must be once the work is complete.
struct Workload {
  std::string name;
  std::int32_t mode = kInsert;
  std::int32_t deletion = kKeepRows;
  std::int32_t record_errors = 1;  // "RecErreurs"
  bool rejects = false;            // two of its lines are rejected until somebody mends them
  bool stand_alone = false;        // the report is a file of the component's own
  int resumes = 0;  // the run is the last of so many; an error limit stopped those before it

  /// The first of five codes that the source is about.
  int FirstCode() const { return mode == kInsert || mode == kUpdateInsert ? 11 : 1; }
  bool HasUniqueKey() const { return mode != kInsert; }

  std::vector<std::string> SourceLines() const;
  std::vector<ClientTable::Row> RowsBefore() const;
  std::vector<ClientTable::Row> RowsAfter() const;

  /// The line that somebody puts in the place of a rejected one; a good line stays as it is.
  std::string Mended(const std::string& line) const;

  /// A line of a later source file, and the code that it is about.
  int LaterCode() const { return FirstCode() + 5; }
  std::string LaterLine() const { return std::to_string(LaterCode()) + ";later"; }

  /// The selection file of the task.
  static std::vector<std::string> Selection();
};

/// Every mode, fresh and resumed, with and without rejected lines and files for a resume, and the
/// deletions before it.
std::vector<Workload> AllWorkloads();

}  // namespace imptable

#endif  // TESTS_ROBUSTNESS_FAULTS_WORKLOAD_H_
