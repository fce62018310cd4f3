#ifndef BENCH_BENCH_FILES_H_
#define BENCH_BENCH_FILES_H_

#include <string>
#include <vector>

namespace imptable {

/// Writes a delimited file of `lines` lines of eight columns: an integer, texts, decimals and a
/// date. The integers run from `first` on.
void WriteLines(const std::string& path, int first, int lines);

/// The settings of a task that imports such a file, as NAME=VALUE; its mode is INSERT unless
/// another one is set.
std::vector<std::string> CustomerTask(const std::string& source, const std::string& folder,
                                      const std::string& alias);

/// Makes an SQLite database with the table that these lines fit, holding the rows 1 to `rows`.
void MakeDatabase(const std::string& path, int rows);

/// The number of rows in the table.
int CountRows(const std::string& path);

void WriteFile(const std::string& path, const std::string& text);
void CopyFile(const std::string& from, const std::string& to);

}  // namespace imptable

#endif  // BENCH_BENCH_FILES_H_
