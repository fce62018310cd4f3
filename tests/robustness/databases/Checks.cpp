#include "tests/robustness/databases/Checks.h"

#include <algorithm>

namespace imptable {
namespace {

/// MariaDB's driver refuses to send this value. A row that has it shows which other keys find it.
constexpr std::string_view kNeverSent = "0000-00-00 00:00:00";

std::string Rows(const std::vector<std::string>& rows) {
  std::string text;
  for (const std::string& row : rows) text += (text.empty() ? "(" : ",(") + row + ')';
  return text;
}

void Expect(Findings& findings, bool holds, const std::string& finding) {
  if (!holds) findings.push_back(finding);
}

void ExpectCount(Findings& findings, const RunResult& run, const std::string& name,
                 std::size_t count) {
  Expect(
      findings, run.Count(name) == static_cast<long>(count),
      name + ": " + std::to_string(run.Count(name)) + " said, " + std::to_string(count) + " there");
}

/// Checks what every run has in common: the counts and the exit code, and that each rejected line
/// is a line of the source and is rejected once.
/// @return the rejected lines.
std::set<std::string> ExpectRejected(Findings& findings, const RunResult& run,
                                     const std::vector<std::string>& lines) {
  const std::set<std::string> source(lines.begin(), lines.end());
  std::set<std::string> rejected;
  for (const std::string& line : run.rejected) {
    Expect(findings, source.contains(line), "rejected, but never read: " + line);
    Expect(findings, rejected.insert(line).second, "rejected twice: " + line);
  }
  ExpectCount(findings, run, "read", lines.size());
  ExpectCount(findings, run, "errors", run.rejected.size());
  Expect(findings, run.code == (rejected.empty() ? 0 : 1),
         "code " + std::to_string(run.code) + ": " + run.error_line);
  return rejected;
}

}  // namespace

CheckedRun CheckValues(const ValueTask& task, ImportMode mode, const ColumnType& type, int lines,
                       RandomValues& random) {
  std::vector<std::string> rows;
  std::set<long> before;
  for (long id = 1; id <= lines; ++id) {
    if (mode == ImportMode::kUpdate ? id % 10 != 0
                                    : mode == ImportMode::kUpdateInsert && id % 2 == 0) {
      before.insert(id);
      rows.push_back(std::to_string(id) + ",0");
    }
  }
  task.database().Execute("DROP TABLE IF EXISTS t;\nCREATE TABLE t (id INTEGER PRIMARY KEY, v " +
                          std::string(type.sql) + ", m INTEGER);\n" +
                          (rows.empty() ? "" : "INSERT INTO t (id, m) VALUES " + Rows(rows) + ";"));
  std::vector<std::string> source;
  for (long id = 1; id <= lines; ++id) {
    source.push_back(std::to_string(id) + ';' + random.Any() + ";1");
  }
  const RunResult run = task.Run(mode, false, source);

  CheckedRun checked{lines, static_cast<long>(run.rejected.size()), {}};
  const std::set<std::string> rejected = ExpectRejected(checked.findings, run, source);
  const std::set<long> changed = task.Numbers("SELECT id FROM t WHERE m = 1");
  std::size_t modified = 0;
  for (long id = 1; id <= lines; ++id) {
    const std::string& line = source[static_cast<std::size_t>(id - 1)];
    const bool is_rejected = rejected.contains(line);
    const bool has_row = before.contains(id);
    const bool may_be_neither = mode == ImportMode::kUpdate && !has_row;
    if (changed.contains(id) && has_row) ++modified;
    Expect(checked.findings, !(changed.contains(id) && is_rejected), "both: " + line);
    Expect(checked.findings, changed.contains(id) || is_rejected || may_be_neither,
           "neither: " + line);
  }
  ExpectCount(checked.findings, run, "modified", modified);
  ExpectCount(checked.findings, run, "inserted", changed.size() - modified);
  ExpectCount(checked.findings, run, "deleted", 0);
  Expect(checked.findings,
         task.Numbers("SELECT COUNT(*) FROM t") ==
             std::set<long>{static_cast<long>(before.size() + changed.size() - modified)},
         "rows came or went");
  return checked;
}

CheckedRun CheckKeys(const ValueTask& task, ImportMode mode, const ColumnType& type, int lines,
                     bool zero_dates, RandomValues& random) {
  const std::vector<std::string> keys = RowKeys(type.key, zero_dates);
  std::vector<std::string> rows;
  for (std::size_t id = 0; id < keys.size(); ++id) {
    rows.push_back(Literal(type.key, keys[id]) + ",0," + std::to_string(id));
  }
  task.database().Execute("DROP TABLE IF EXISTS t;\nCREATE TABLE t (v " + std::string(type.sql) +
                          ", m INTEGER, id INTEGER);\nINSERT INTO t VALUES " + Rows(rows) + ";");
  std::vector<std::string> line_keys;
  std::vector<std::string> source;
  for (int n = 1; n <= lines; ++n) {
    line_keys.push_back(random.KeyLike(keys));
    source.push_back(line_keys.back() + ';' + std::to_string(n));
  }
  const RunResult run = task.Run(mode, true, source);

  CheckedRun checked{lines, static_cast<long>(run.rejected.size()), {}};
  Findings& findings = checked.findings;
  const std::set<std::string> rejected = ExpectRejected(findings, run, source);
  // For each row's id, the number of the line that changed the row last.
  const std::map<long, long> left = task.Pairs("SELECT id, m FROM t WHERE id IS NOT NULL");
  std::size_t changed = 0;
  for (std::size_t id = 0; id < keys.size(); ++id) {
    const auto row = left.find(static_cast<long>(id));
    const bool gone = row == left.end();
    if (gone || row->second != 0) ++changed;
    bool named = false;
    std::size_t last_exact = 0;
    for (std::size_t n = 0; n < source.size(); ++n) {
      const bool done = !rejected.contains(source[n]);
      const bool exact = line_keys[n] == keys[id] && keys[id] != kNeverSent;
      Expect(findings, done || !exact, "refused, though it is a row's: " + source[n]);
      if (done && exact) last_exact = n + 1;
      if (done && MayName(type.key, line_keys[n], keys[id]) &&
          (gone || row->second == static_cast<long>(n + 1))) {
        named = true;
      }
    }
    const std::string what = "row " + keys[id];
    Expect(findings, !gone || mode == ImportMode::kDelete, what + " is gone");
    if (gone || row->second != 0) {
      Expect(findings, named,
             what + " changed by a line that doesn't name it" +
                 (gone ? "" : ": " + source[static_cast<std::size_t>(row->second - 1)]));
    }
    Expect(findings,
           gone || row->second >= static_cast<long>(last_exact) || mode == ImportMode::kDelete,
           what + " not changed by line " + std::to_string(last_exact));
    Expect(findings, gone || last_exact == 0 || mode != ImportMode::kDelete,
           what + " not deleted by line " + std::to_string(last_exact));
  }
  const std::size_t done = source.size() - rejected.size();
  if (mode == ImportMode::kDelete) {
    ExpectCount(findings, run, "deleted", changed);
  } else {
    const std::set<long> inserted = task.Numbers("SELECT COUNT(*) FROM t WHERE id IS NULL");
    ExpectCount(findings, run, "inserted", static_cast<std::size_t>(*inserted.begin()));
    Expect(findings, run.Count("modified") >= static_cast<long>(changed), "modified: too few");
    Expect(findings, run.Count("modified") <= static_cast<long>(done), "modified: too many");
    if (mode == ImportMode::kUpdateInsert) {
      ExpectCount(findings, run, "modified", done - static_cast<std::size_t>(*inserted.begin()));
    }
  }
  return checked;
}

}  // namespace imptable
