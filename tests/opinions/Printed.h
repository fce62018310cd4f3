#ifndef TESTS_OPINIONS_PRINTED_H_
#define TESTS_OPINIONS_PRINTED_H_

#include <string>
#include <string_view>

namespace imptable {

/// The bytes in quotes, on one line and in ASCII. Of a long text the start, its length and a sum
/// over all of it.
std::string Printed(std::string_view bytes);

}  // namespace imptable

#endif  // TESTS_OPINIONS_PRINTED_H_
