#ifndef AUTOMATION_AUTOMATION_MODULE_H_
#define AUTOMATION_AUTOMATION_MODULE_H_

#include <atomic>
#include <memory>
#include <string>

#include "automation/ComPointer.h"
#include "automation/LoadedComponent.h"

namespace imptable {

/// One loaded DLL (or program that has the component in itself): what keeps it loaded, its type
/// library, and the component's state.
class AutomationModule {
 public:
  /// @param handle  of the module that holds the type library and the pictures.
  explicit AutomationModule(HMODULE handle) : handle_(handle) {}
  AutomationModule(const AutomationModule&) = delete;
  AutomationModule& operator=(const AutomationModule&) = delete;

  HMODULE handle() const { return handle_; }

  /// The module's full path.
  std::wstring Path() const;

  /// True while something has to keep the module loaded, such as an object that a client holds.
  bool IsHeld() const { return holds_ != 0; }
  void Hold() { ++holds_; }
  void Drop() { --holds_; }

  /// Made at the first call; there until the module goes.
  LoadedComponent& component();

  /// The type library inside the module, whatever library is registered.
  ITypeLib& TypeLibrary();
  ComPointer<ITypeInfo> TypeInfo(REFGUID guid);

 private:
  HMODULE handle_;
  std::atomic<long> holds_ = 0;
  ComPointer<ITypeLib> type_library_;
  std::unique_ptr<LoadedComponent> component_;
};

/// Keeps a module loaded while it lives.
class ModuleHold {
 public:
  explicit ModuleHold(AutomationModule& module) : module_(module) { module_.Hold(); }
  ModuleHold(const ModuleHold& other) : ModuleHold(other.module_) {}
  ModuleHold& operator=(const ModuleHold&) = delete;
  ~ModuleHold() { module_.Drop(); }

  AutomationModule& module() const { return module_; }

 private:
  AutomationModule& module_;
};

}  // namespace imptable

#endif  // AUTOMATION_AUTOMATION_MODULE_H_
