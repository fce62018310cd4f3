#include "automation/ClassFactory.h"

#include "automation/AutomationEntry.h"
#include "automation/FaultReport.h"
#include "automation/ImpTableObject.h"

namespace imptable {

STDMETHODIMP ClassFactory::CreateInstance(IUnknown* outer, REFIID iid, void** object) noexcept {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (outer != nullptr) return CLASS_E_NOAGGREGATION;
  return Enter([&] {
    const ModuleCommun& commun = module().component().state().commun;
    try {
      return MakeObject<ImpTableObject>(module())->QueryInterface(iid, object);
    } catch (const RuntimeFault&) {
      return ReportCurrentFault(commun, IID_IClassFactory);
    }
  });
}

STDMETHODIMP ClassFactory::LockServer(BOOL lock) noexcept {
  if (lock != FALSE) {
    module().Hold();
  } else {
    module().Drop();
  }
  return S_OK;
}

}  // namespace imptable
