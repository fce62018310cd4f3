#ifndef AUTOMATION_COM_OBJECT_H_
#define AUTOMATION_COM_OBJECT_H_

#include "automation/AutomationModule.h"

namespace imptable {

/// An object with one interface besides IUnknown: its identity, its count of references, and the
/// hold on its module. Made by MakeObject, gone with its last reference.
template <typename Interface>
class ComObject : public Interface {
 public:
  explicit ComObject(AutomationModule& module) : hold_(module) {}
  ComObject(const ComObject&) = delete;
  ComObject& operator=(const ComObject&) = delete;
  virtual ~ComObject() = default;

  STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (iid != IID_IUnknown && iid != __uuidof(Interface)) return E_NOINTERFACE;
    *object = static_cast<Interface*>(this);
    AddRef();
    return S_OK;
  }

  STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references_; }

  STDMETHODIMP_(ULONG) Release() noexcept override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

 protected:
  AutomationModule& module() const { return hold_.module(); }

 private:
  ModuleHold hold_;
  std::atomic<ULONG> references_ = 0;
};

/// A new object and the first reference to it.
template <typename Object, typename... Arguments>
ComPointer<Object> MakeObject(Arguments&&... arguments) {
  return ComPointer<Object>(new Object(std::forward<Arguments>(arguments)...));
}

}  // namespace imptable

#endif  // AUTOMATION_COM_OBJECT_H_
