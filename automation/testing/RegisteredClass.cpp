#include "automation/testing/RegisteredClass.h"

#include <array>
#include <stdexcept>
#include <utility>

namespace imptable {
namespace {

class Factory final : public IClassFactory {
 public:
  explicit Factory(RegisteredClass::Maker maker) : maker_(std::move(maker)) {}

  STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override {
    *object = nullptr;
    if (iid != IID_IUnknown && iid != IID_IClassFactory) return E_NOINTERFACE;
    *object = static_cast<IClassFactory*>(this);
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() noexcept override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }
  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) noexcept override {
    *object = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    try {
      const ComPointer<IDispatch> made = maker_();
      return made->QueryInterface(iid, object);
    } catch (const HRESULT result) {
      return result;
    }
  }
  STDMETHODIMP LockServer(WINBOOL /*lock*/) noexcept override { return S_OK; }

 private:
  ~Factory() = default;

  RegisteredClass::Maker maker_;
  ULONG references_ = 0;
};

void WriteKey(const std::wstring& path, const std::wstring& text) {
  HKEY key = nullptr;
  if (RegCreateKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, nullptr, REG_OPTION_VOLATILE,
                      KEY_ALL_ACCESS, nullptr, &key, nullptr) != ERROR_SUCCESS) {
    throw std::runtime_error("HKEY_CLASSES_ROOT can't be written");
  }
  const auto bytes = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
  RegSetValueExW(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()), bytes);
  RegCloseKey(key);
}

}  // namespace

RegisteredProgId::RegisteredProgId(std::wstring prog_id, std::optional<CLSID> class_id)
    : prog_id_(std::move(prog_id)) {
  WriteKey(prog_id_, L"");
  if (!class_id) return;
  std::array<wchar_t, 64> text{};
  StringFromGUID2(*class_id, text.data(), static_cast<int>(text.size()));
  WriteKey(prog_id_ + L"\\CLSID", text.data());
}

RegisteredProgId::~RegisteredProgId() { RegDeleteTreeW(HKEY_CLASSES_ROOT, prog_id_.c_str()); }

RegisteredClass::RegisteredClass(const std::wstring& prog_id, Maker maker) {
  const ComPointer<IClassFactory> factory(new Factory(std::move(maker)));
  if (FAILED(CoCreateGuid(&class_id_)) ||
      FAILED(CoRegisterClassObject(class_id_, factory.get(),
                                   CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER, REGCLS_MULTIPLEUSE,
                                   &cookie_))) {
    throw std::runtime_error("a class of the test can't be registered");
  }
  prog_id_.emplace(prog_id, class_id_);
}

RegisteredClass::~RegisteredClass() { Revoke(); }

void RegisteredClass::Revoke() {
  if (cookie_ != 0) CoRevokeClassObject(std::exchange(cookie_, 0));
}

}  // namespace imptable
