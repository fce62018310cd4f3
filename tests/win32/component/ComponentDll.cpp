#include "tests/win32/component/ComponentDll.h"

#include <stdexcept>

namespace imptable {
namespace {

template <typename Function>
void Find(HMODULE handle, const char* name, Function& function) {
  function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(handle, name)));
  if (function == nullptr) throw std::runtime_error(name);
}

}  // namespace

std::wstring ComponentDll::Folder() {
  std::wstring path(MAX_PATH, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), MAX_PATH));
  return path.substr(0, path.rfind(L'\\') + 1);
}

std::wstring ComponentDll::Path() { return Folder() + L"SQLTImpT.dll"; }

ComponentDll::ComponentDll() : handle_(LoadLibraryW(Path().c_str())) {
  if (handle_ == nullptr) throw std::runtime_error("SQLTImpT.dll");
  Find(handle_, "DllGetClassObject", get_class_object_);
  Find(handle_, "DllCanUnloadNow", can_unload_now_);
  Find(handle_, "DllRegisterServer", register_server_);
  Find(handle_, "DllUnregisterServer", unregister_server_);
}

ComponentDll::~ComponentDll() { FreeLibrary(handle_); }

ComPointer<IClassFactory> ComponentDll::Factory() const {
  ComPointer<IClassFactory> factory;
  GetClassObject(CLSID_ImpTable, IID_IClassFactory, factory.ReceiveVoid());
  return factory;
}

ComPointer<_ImpTable> ComponentDll::NewTask() const {
  ComPointer<_ImpTable> task;
  const ComPointer<IClassFactory> factory = Factory();
  if (factory) factory->CreateInstance(nullptr, IID__ImpTable, task.ReceiveVoid());
  return task;
}

}  // namespace imptable
