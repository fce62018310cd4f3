#ifndef AUTOMATION_TESTING_REGISTERED_CLASS_H_
#define AUTOMATION_TESTING_REGISTERED_CLASS_H_

#include <functional>
#include <optional>
#include <string>

#include "automation/ComPointer.h"

namespace imptable {

/// A ProgID in the system's registry while it lives. If the process dies, the entry disappears with
/// the session. Every process of this Windows sees it: no other test may run at the same time.
class RegisteredProgId {
 public:
  /// @param class_id  without one the entry is there but names no class.
  /// @throws std::runtime_error  when the registry refuses it.
  RegisteredProgId(std::wstring prog_id, std::optional<CLSID> class_id);
  RegisteredProgId(const RegisteredProgId&) = delete;
  RegisteredProgId& operator=(const RegisteredProgId&) = delete;
  ~RegisteredProgId();

 private:
  std::wstring prog_id_;
};

/// A class of this process that others find by its ProgID, while it lives.
class RegisteredClass {
 public:
  /// Makes a new object. @throws HRESULT  why there is none.
  using Maker = std::function<ComPointer<IDispatch>()>;

  RegisteredClass(const std::wstring& prog_id, Maker maker);
  RegisteredClass(const RegisteredClass&) = delete;
  RegisteredClass& operator=(const RegisteredClass&) = delete;
  ~RegisteredClass();

  /// The ProgID stays, the objects can't be found any more.
  void Revoke();

 private:
  CLSID class_id_{};
  DWORD cookie_ = 0;
  std::optional<RegisteredProgId> prog_id_;
};

}  // namespace imptable

#endif  // AUTOMATION_TESTING_REGISTERED_CLASS_H_
