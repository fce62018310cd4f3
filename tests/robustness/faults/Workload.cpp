#include "tests/robustness/faults/Workload.h"

#include <algorithm>

namespace imptable {
namespace {

constexpr int kLines = 5;

std::string NewName(int line) { return std::string(1, static_cast<char>('a' + line)); }

}  // namespace

std::vector<std::string> Workload::SourceLines() const {
  std::vector<std::string> lines;
  for (int line = 0; line < kLines; ++line) {
    lines.push_back(std::to_string(FirstCode() + line) + ';' + NewName(line));
  }
  const std::string refused = std::to_string(ClientTable::kRefusedCode) + ';';
  if (rejects || resumes > 0) lines[1] = refused + NewName(1);
  if (rejects) lines[2] += ";one field too many";
  if (resumes > 1) lines[3] = refused + NewName(3);
  return lines;
}

std::string Workload::Mended(const std::string& line) const {
  const std::vector<std::string> lines = SourceLines();
  const auto found = std::find(lines.begin(), lines.end(), line);
  if (found == lines.end()) return line;
  const auto number = static_cast<int>(found - lines.begin());
  return std::to_string(FirstCode() + number) + ';' + NewName(number);
}

std::vector<ClientTable::Row> Workload::RowsBefore() const {
  std::vector<ClientTable::Row> rows{{100, "a"}, {101, "z"}, {250, "q"}, {300, "q"}};
  for (int line = 0; line <= kLines; ++line) {
    // UPDATE/INSERT finds every other row.
    if (mode == kInsert || (mode == kUpdateInsert && line % 2 == 1)) continue;
    rows.emplace_back(FirstCode() + line, "old");
  }
  return rows;
}

std::vector<ClientTable::Row> Workload::RowsAfter() const {
  std::vector<ClientTable::Row> rows = RowsBefore();
  if (deletion == kEmptyTable) rows.clear();
  if (deletion == kDeleteSelected) {
    std::erase_if(rows, [](const auto& row) { return row.first == 100 || row.first == 250; });
  }
  std::erase_if(rows, [this](const auto& row) {
    return row.first >= FirstCode() && row.first < FirstCode() + kLines;
  });
  for (int line = 0; line < kLines && mode != kDelete; ++line) {
    rows.emplace_back(FirstCode() + line, NewName(line));
  }
  std::sort(rows.begin(), rows.end());
  return rows;
}

std::vector<std::string> Workload::Selection() {
  return {"[Table01]", "01=CODE,100,199", "02=NOM,a,m", "[Table03]", "01=CODE,250,250"};
}

std::vector<Workload> AllWorkloads() {
  std::vector<Workload> all;
  struct Mode {
    const char* name;
    std::int32_t number;
  };
  for (const Mode& mode : {Mode{"Insert", kInsert}, Mode{"Update", kUpdate},
                           Mode{"UpdateInsert", kUpdateInsert}, Mode{"Delete", kDelete}}) {
    const std::string name = mode.name;
    all.push_back({.name = name, .mode = mode.number});
    all.push_back({.name = name + "Rejecting", .mode = mode.number, .rejects = true});
    all.push_back({.name = name + "Untraced", .mode = mode.number, .record_errors = 0});
    all.push_back({.name = name + "Resumed", .mode = mode.number, .resumes = 1});
    all.push_back({.name = name + "ResumedAgain", .mode = mode.number, .resumes = 2});
  }
  all.push_back({.name = "InsertResumedRejecting", .rejects = true, .resumes = 1});
  all.push_back({.name = "UpdateResumedRejecting", .mode = kUpdate, .rejects = true, .resumes = 1});
  all.push_back({.name = "InsertUntracedRejecting", .record_errors = 0, .rejects = true});
  all.push_back({.name = "InsertStandAlone", .stand_alone = true});
  all.push_back({.name = "InsertAfterGlobalDeletion", .deletion = kEmptyTable});
  all.push_back({.name = "InsertAfterSelectiveDeletion", .deletion = kDeleteSelected});
  all.push_back({.name = "UpdateAfterSelectiveDeletion",
                 .mode = kUpdate,
                 .deletion = kDeleteSelected,
                 .record_errors = 0,
                 .rejects = true});
  return all;
}

}  // namespace imptable
