#ifndef TESTS_WIN32_HOST_LATEBOUNDTASK_H_
#define TESTS_WIN32_HOST_LATEBOUNDTASK_H_

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "platform/windows/Windows_win32.h"

namespace imptable {

/// The registered class as a script sees it: created by its name, members called by theirs. Texts
/// are in UTF-8.
class LateBoundTask {
 public:
  using Argument = std::variant<std::int16_t, std::int32_t, std::string>;

  /// Loads the component; Create makes the object, of which there is one at most.
  /// @throws Failure  as all members.
  explicit LateBoundTask(const wchar_t* class_name);
  LateBoundTask(const LateBoundTask&) = delete;
  LateBoundTask& operator=(const LateBoundTask&) = delete;
  ~LateBoundTask();

  void Create();
  IDispatch* object() const { return object_; }

  /// A method; its arguments are handed over by reference.
  void Call(const std::string& method, std::vector<Argument> arguments);
  void Put(const std::string& property, Argument value);
  /// A method without arguments that gives a number.
  std::int32_t Number(const std::string& method);

 private:
  void Invoke(const std::string& member, WORD kind, DISPPARAMS& arguments, VARIANT* result);

  IClassFactory* factory_ = nullptr;
  IDispatch* object_ = nullptr;
};

}  // namespace imptable

#endif  // TESTS_WIN32_HOST_LATEBOUNDTASK_H_
