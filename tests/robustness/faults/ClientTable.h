#ifndef TESTS_ROBUSTNESS_FAULTS_CLIENT_TABLE_H_
#define TESTS_ROBUSTNESS_FAULTS_CLIENT_TABLE_H_

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace imptable {

/// What a database answers to a statement. Codes and native codes are those of ODBC and SQLite.
struct Answer {
  std::int16_t code = 0;
  std::int64_t rows = 0;
  std::int32_t native = 0;
  std::string text;
};

/// The rows of the table CLIENT (CODE, NOM). It executes the statements that the component makes,
/// in place of the scripted driver, which keeps no rows. It refuses the code kRefusedCode as a
/// constraint would, and with a unique key a code that exists already.
class ClientTable {
 public:
  using Row = std::pair<int, std::string>;

  static constexpr int kRefusedCode = 666;

  /// @param rows  in any order.
  ClientTable(std::vector<Row> rows, bool unique_key)
      : rows_(std::move(rows)), unique_key_(unique_key) {}

  /// @param values  of the parameters, in order.
  /// @throws std::invalid_argument  for a statement that the component has no reason to make.
  Answer Execute(const std::string& text, const std::vector<std::string>& values);

  /// In ascending order.
  std::vector<Row> Rows() const;

  /// How many statements with parameters have had an effect on each code.
  const std::map<int, int>& effects() const { return effects_; }

 private:
  Answer Insert(const std::vector<std::string>& values);
  Answer Update(const std::vector<std::string>& values);
  Answer Delete(int code);
  Answer DeleteRanges(const std::string& text);

  std::vector<Row> rows_;
  bool unique_key_;
  std::map<int, int> effects_;
};

}  // namespace imptable

#endif  // TESTS_ROBUSTNESS_FAULTS_CLIENT_TABLE_H_
