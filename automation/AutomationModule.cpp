#include "automation/AutomationModule.h"

#include "automation/AutomationEntry.h"

namespace imptable {

std::wstring AutomationModule::Path() const {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(handle_, path.data(), static_cast<DWORD>(path.size()));
    if (length == 0) throw AutomationError(HRESULT_FROM_WIN32(GetLastError()));
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(2 * path.size());
  }
}

LoadedComponent& AutomationModule::component() {
  if (!component_) component_ = std::make_unique<LoadedComponent>(*this);
  return *component_;
}

ITypeLib& AutomationModule::TypeLibrary() {
  if (!type_library_) {
    Require(LoadTypeLibEx(Path().c_str(), REGKIND_NONE, type_library_.Receive()));
  }
  return *type_library_.get();
}

ComPointer<ITypeInfo> AutomationModule::TypeInfo(REFGUID guid) {
  ComPointer<ITypeInfo> info;
  Require(TypeLibrary().GetTypeInfoOfGuid(guid, info.Receive()));
  return info;
}

}  // namespace imptable
