#ifndef BENCH_BENCH_FILES_H_
#define BENCH_BENCH_FILES_H_

#include <string>

namespace imptable {

/// Writes a delimited file of `lines` lines of eight columns: an integer, texts, decimals and a
/// date. The integers run from `first` on.
void WriteLines(const std::string& path, int first, int lines);

/// Makes an SQLite database with the table that these lines fit, holding the rows 1 to `rows`.
void MakeDatabase(const std::string& path, int rows);

/// The number of rows in the table.
int CountRows(const std::string& path);

void WriteFile(const std::string& path, const std::string& text);
void CopyFile(const std::string& from, const std::string& to);

}  // namespace imptable

#endif  // BENCH_BENCH_FILES_H_
