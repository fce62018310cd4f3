#ifndef TESTS_WIN32_COMPONENT_COMPONENT_DLL_H_
#define TESTS_WIN32_COMPONENT_COMPONENT_DLL_H_

#include <string>

#include "automation/ComPointer.h"

namespace imptable {

/// The DLL that lies beside this program, loaded while this lives.
class ComponentDll {
 public:
  /// @throws std::runtime_error  when it can't be loaded or lacks one of its functions.
  ComponentDll();
  ComponentDll(const ComponentDll&) = delete;
  ComponentDll& operator=(const ComponentDll&) = delete;
  ~ComponentDll();

  static std::wstring Path();

  /// With a separator at its end.
  static std::wstring Folder();

  HMODULE handle() const { return handle_; }

  HRESULT GetClassObject(REFCLSID class_id, REFIID iid, void** object) const {
    return get_class_object_(class_id, iid, object);
  }
  bool CanUnloadNow() const { return can_unload_now_() == S_OK; }
  HRESULT RegisterServer() const { return register_server_(); }
  HRESULT UnregisterServer() const { return unregister_server_(); }

  /// Both are empty when the DLL refuses.
  ComPointer<IClassFactory> Factory() const;
  ComPointer<_ImpTable> NewTask() const;

 private:
  HMODULE handle_;
  decltype(&DllGetClassObject) get_class_object_;
  decltype(&DllCanUnloadNow) can_unload_now_;
  HRESULT(STDAPICALLTYPE* register_server_)();
  HRESULT(STDAPICALLTYPE* unregister_server_)();
};

}  // namespace imptable

#endif  // TESTS_WIN32_COMPONENT_COMPONENT_DLL_H_
