// What the system calls in the DLL.

#include "automation/AutomationEntry.h"
#include "automation/ClassFactory.h"
#include "automation/Registration.h"

namespace {

/// The one module of this DLL. It isn't destroyed at the end of the process: by then other DLLs and
/// threads that it needs are gone.
imptable::AutomationModule* this_module = nullptr;

}  // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID at_process_end) {
  if (reason == DLL_PROCESS_ATTACH) {
    this_module = new (std::nothrow) imptable::AutomationModule(instance);
    return this_module == nullptr ? FALSE : TRUE;
  }
  if (reason == DLL_PROCESS_DETACH && at_process_end == nullptr) {
    delete this_module;
    this_module = nullptr;
  }
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID class_id, REFIID iid, LPVOID* object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (class_id != CLSID_ImpTable) return CLASS_E_CLASSNOTAVAILABLE;
  return imptable::Enter([&] {
    return imptable::MakeObject<imptable::ClassFactory>(*this_module)->QueryInterface(iid, object);
  });
}

STDAPI DllCanUnloadNow() { return this_module->IsHeld() ? S_FALSE : S_OK; }

STDAPI DllRegisterServer() {
  return imptable::Enter([] { return imptable::RegisterComponent(this_module->Path()); });
}

STDAPI DllUnregisterServer() {
  return imptable::Enter([] { return imptable::UnregisterComponent(); });
}
