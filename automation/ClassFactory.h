#ifndef AUTOMATION_CLASS_FACTORY_H_
#define AUTOMATION_CLASS_FACTORY_H_

#include "automation/ComObject.h"

namespace imptable {

/// Makes ImpTable objects. Can't be part of an aggregate.
class ClassFactory final : public ComObject<IClassFactory> {
 public:
  using ComObject::ComObject;

  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) noexcept override;
  STDMETHODIMP LockServer(BOOL lock) noexcept override;
};

}  // namespace imptable

#endif  // AUTOMATION_CLASS_FACTORY_H_
