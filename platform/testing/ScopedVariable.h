#ifndef PLATFORM_TESTING_SCOPEDVARIABLE_H_
#define PLATFORM_TESTING_SCOPEDVARIABLE_H_

#include <optional>
#include <string>

namespace imptable {

/// Sets a variable of the environment. The destructor puts the former value back. On Windows an
/// empty value removes the variable.
class ScopedVariable {
 public:
  ScopedVariable(const char* name, const std::string& value);
  ~ScopedVariable();
  ScopedVariable(const ScopedVariable&) = delete;
  ScopedVariable& operator=(const ScopedVariable&) = delete;

 private:
  std::string name_;
  std::optional<std::string> before_;
};

}  // namespace imptable

#endif  // PLATFORM_TESTING_SCOPEDVARIABLE_H_
