#ifndef AUTOMATION_COM_POINTER_H_
#define AUTOMATION_COM_POINTER_H_

#include <utility>

#include "automation/AutomationApi.h"

namespace imptable {

/// Owner of one reference to an object; may be empty.
template <typename Interface>
class ComPointer {
 public:
  ComPointer() = default;

  /// Takes a reference of its own.
  explicit ComPointer(Interface* object) : object_(object) {
    if (object_ != nullptr) object_->AddRef();
  }
  ComPointer(const ComPointer& other) : ComPointer(other.object_) {}
  ComPointer(ComPointer&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  ComPointer& operator=(ComPointer other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~ComPointer() {
    if (object_ != nullptr) object_->Release();
  }

  /// Takes over the reference that the caller has.
  static ComPointer Adopt(Interface* object) {
    ComPointer pointer;
    pointer.object_ = object;
    return pointer;
  }

  Interface* get() const { return object_; }
  Interface* operator->() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }

  /// Gives the reference away.
  Interface* Release() { return std::exchange(object_, nullptr); }

  /// For calls that fill in a pointer with a reference; drops the one that is held.
  Interface** Receive() {
    *this = ComPointer();
    return &object_;
  }
  void** ReceiveVoid() { return reinterpret_cast<void**>(Receive()); }

 private:
  Interface* object_ = nullptr;
};

/// Another interface of an object; empty when the object doesn't have it.
template <typename Interface>
ComPointer<Interface> Query(IUnknown* object, REFIID iid = __uuidof(Interface)) {
  void* found = nullptr;
  if (object == nullptr || FAILED(object->QueryInterface(iid, &found))) return {};
  return ComPointer<Interface>::Adopt(static_cast<Interface*>(found));
}

}  // namespace imptable

#endif  // AUTOMATION_COM_POINTER_H_
