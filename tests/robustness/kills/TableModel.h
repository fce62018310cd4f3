#ifndef TESTS_ROBUSTNESS_KILLS_TABLEMODEL_H_
#define TESTS_ROBUSTNESS_KILLS_TABLEMODEL_H_

#include <array>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace imptable {

/// What a task does with its table.
enum class Work {
  kInsert,          // into a table with a primary key
  kInsertIgnoring,  // the same, but a row that the database refuses is a duplicate to ignore
  kInsertUnkeyed,   // into a table without any key: a line executed twice is there twice
  kUpdate,
  kUpdateInsert,
  kDelete,
  kDeleteReturning,  // a trigger puts each deleted row back, its amount one higher
};

inline constexpr std::array kWorks{
    Work::kInsert,       Work::kInsertIgnoring, Work::kInsertUnkeyed,  Work::kUpdate,
    Work::kUpdateInsert, Work::kDelete,         Work::kDeleteReturning};

std::string_view NameOf(Work work);
bool IsInsert(Work work);
bool IsDelete(Work work);

struct Row {
  std::string name;
  std::string born;
  std::string amount;
};

/// Rows whose names begin so can't be deleted.
inline constexpr std::string_view kKept = "kept";

/// What became of one execution of a line.
struct LineOutcome {
  bool failed = false;
  std::vector<std::string> effects = {};  ///< what the table's triggers log of it
};

/// Table client (code, name, born, amount), and what a line code;name;born;amount does to it.
class TableModel {
 public:
  explicit TableModel(Work work) : work_(work) {}

  void Put(int code, Row row) { rows_.emplace(code, std::move(row)); }
  const std::multimap<int, Row>& rows() const { return rows_; }

  LineOutcome Execute(std::string_view line);

  /// As Database::Rows gives them, by code.
  std::string Text() const;

 private:
  LineOutcome Insert(std::string_view code, const Row& row);
  LineOutcome Update(std::string_view code, const Row& row);
  LineOutcome Delete(std::string_view code);

  Work work_;
  std::multimap<int, Row> rows_;
};

}  // namespace imptable

#endif  // TESTS_ROBUSTNESS_KILLS_TABLEMODEL_H_
