#ifndef TESTS_WIN32_HOST_WIDETEXT_H_
#define TESTS_WIN32_HOST_WIDETEXT_H_

#include <string>
#include <string_view>

namespace imptable {

/// UTF-8 and UTF-16 into each other; what is no text becomes U+FFFD.
std::wstring Wide(std::string_view text);
std::string Narrow(std::wstring_view text);

}  // namespace imptable

#endif  // TESTS_WIN32_HOST_WIDETEXT_H_
