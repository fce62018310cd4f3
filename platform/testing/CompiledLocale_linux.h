#ifndef PLATFORM_TESTING_COMPILEDLOCALE_LINUX_H_
#define PLATFORM_TESTING_COMPILEDLOCALE_LINUX_H_

#include <string>

#include "platform/testing/ScopedVariable.h"
#include "platform/testing/TemporaryFolder.h"

namespace imptable {

/// A locale that no machine has by itself. Its code set is ISO 8859-1, of which it knows ASCII and
/// "\u00e9". The time 1 February 2003, 13:04:05 is "\u00e9t\u00e9 Sa 01.02.03 13h04m05". While it
/// lives, the system finds this locale by its name, and none in the system's own folder.
class CompiledLocale {
 public:
  /// @throws std::runtime_error  when localedef can't make it.
  CompiledLocale();

  std::string name() const { return "testing"; }

 private:
  TemporaryFolder folder_;
  ScopedVariable search_path_;
};

}  // namespace imptable

#endif  // PLATFORM_TESTING_COMPILEDLOCALE_LINUX_H_
