#include "platform/testing/CompiledLocale_linux.h"

#include <cstdlib>
#include <stdexcept>

// For the leak sanitizer, where there is one. The C library's newlocale never frees its list of the
// folders in LOCPATH.
// NOLINTBEGIN(bugprone-reserved-identifier): the sanitizer's own name
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() { return "leak:argz_add_sep\n"; }
// NOLINTEND(bugprone-reserved-identifier)

namespace imptable {
namespace {

constexpr const char* kCharacterMap = R"(<code_set_name> ISO-8859-1
<comment_char> %
<escape_char> /
CHARMAP
<U0020>..<U007E> /x20 x
<U00E9> /xe9 x
END CHARMAP
)";

constexpr const char* kSource = R"(LC_TIME
abday "Su";"Mo";"Tu";"We";"Th";"Fr";"Sa"
day "Sunday";"Monday";"Tuesday";"Wednesday";"Thursday";"Friday";"Saturday"
abmon "J";"F";"M";"A";"M";"J";"J";"A";"S";"O";"N";"D"
mon "J";"F";"M";"A";"M";"J";"J";"A";"S";"O";"N";"D"
d_t_fmt "%d"
d_fmt "<U00E9>t<U00E9> %a %d.%m.%y"
t_fmt "%Hh%Mm%S"
am_pm "a";"p"
t_fmt_ampm "%r"
date_fmt "%d"
END LC_TIME
)";

}  // namespace

CompiledLocale::CompiledLocale() : search_path_("LOCPATH", folder_.path()) {
  folder_.Write("charmap", kCharacterMap);
  folder_.Write("source", kSource);
  const std::string command = "cd '" + folder_.path() +
                              "' && localedef -c -f ./charmap -i ./source ./" + name() +
                              " >log 2>&1";
  // The exit code doesn't tell success: localedef complains of all that these files leave out.
  [[maybe_unused]] const int result = std::system(command.c_str());
  if (!folder_.Exists(name() + "/LC_TIME")) throw std::runtime_error(folder_.Read("log"));
}

}  // namespace imptable
