#ifndef IMPORT_SOURCE_FIELD_SPLITTING_H_
#define IMPORT_SOURCE_FIELD_SPLITTING_H_

#include <cstddef>
#include <string_view>
#include <vector>

namespace imptable {

/// How many bytes after the start of a delimiter the search for the next one begins: the length of
/// the delimiter's first character. So delimiters of several characters may overlap.
std::size_t DelimiterStep(std::string_view delimiter, bool utf8);

/// Splits one delimited line into its fields; no text qualifier is recognised.
/// Shape:   one view per field, in file order, into `line`; valid while `line` is.
/// Stops:   after `most` fields, when the line has more.
/// Returns: at least one field. After a delimiter of several characters the next field starts at
///          the delimiter's second one.
/// @param step  DelimiterStep of the delimiter.
void SplitDelimited(std::string_view line, std::string_view delimiter, std::size_t step,
                    std::size_t most, std::vector<std::string_view>& fields);

/// Splits one fixed-width line.
/// Units:   widths count characters of the code page, not bytes.
/// Returns: one field for each width; fields past the end of the line are empty.
void SplitFixedWidth(std::string_view line, const std::vector<std::size_t>& widths, bool utf8,
                     std::vector<std::string_view>& fields);

}  // namespace imptable

#endif  // IMPORT_SOURCE_FIELD_SPLITTING_H_
