#include "automation/ImpTableObject.h"

#include "automation/ComEnumerator.h"
#include "automation/DispatchArguments.h"

namespace imptable {
namespace {

/// An element of the enumerator of connection points.
struct PointElement {
  ComPointer<IConnectionPoint> point;

  IConnectionPoint* Give() const { return ComPointer(point).Release(); }
};

}  // namespace

ImpTableObject::ImpTableObject(AutomationModule& module)
    : hold_(module),
      commun_(module.component().state().commun),
      events_(module, *this),
      task_(module.component().state(), &events_, &module.component().dialogs()) {
  task_.Bouton = &button_;
}

ImpTableObject::~ImpTableObject() = default;

STDMETHODIMP ImpTableObject::QueryInterface(REFIID iid, void** object) noexcept {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (iid == IID_IUnknown || iid == IID_IDispatch || iid == IID__ImpTable) {
    *object = static_cast<_ImpTable*>(this);
  } else if (iid == IID_ISupportErrorInfo) {
    *object = static_cast<ISupportErrorInfo*>(this);
  } else if (iid == IID_IProvideClassInfo || iid == IID_IProvideClassInfo2) {
    *object = static_cast<IProvideClassInfo2*>(this);
  } else if (iid == IID_IConnectionPointContainer) {
    *object = static_cast<IConnectionPointContainer*>(this);
  } else {
    return E_NOINTERFACE;
  }
  AddRef();
  return S_OK;
}

STDMETHODIMP_(ULONG) ImpTableObject::AddRef() noexcept { return ++references_; }

STDMETHODIMP_(ULONG) ImpTableObject::Release() noexcept {
  const ULONG left = --references_;
  if (left != 0) return left;
  // Releasing the host's objects may call back into this one. Its count must not reach 0 again
  // then.
  references_ = 1;
  delete this;
  return 0;
}

STDMETHODIMP ImpTableObject::GetTypeInfoCount(UINT* count) noexcept {
  if (count == nullptr) return E_POINTER;
  *count = 1;
  return S_OK;
}

STDMETHODIMP ImpTableObject::GetTypeInfo(UINT index, LCID /*locale*/, ITypeInfo** info) noexcept {
  if (info == nullptr) return E_POINTER;
  *info = nullptr;
  if (index != 0) return DISP_E_BADINDEX;
  return Enter([&] {
    *info = hold_.module().TypeInfo(IID__ImpTable).Release();
    return S_OK;
  });
}

STDMETHODIMP ImpTableObject::GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID /*locale*/,
                                           DISPID* ids) noexcept {
  if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  if (names == nullptr || ids == nullptr) return E_POINTER;
  if (count == 0) return E_INVALIDARG;
  for (UINT i = 0; i < count; ++i) {
    ids[i] = DISPID_UNKNOWN;
    if (names[i] == nullptr) return E_POINTER;
  }
  return Enter(
      [&] { return hold_.module().TypeInfo(IID__ImpTable)->GetIDsOfNames(names, count, ids); });
}

STDMETHODIMP ImpTableObject::Invoke(DISPID id, REFIID iid, LCID locale, WORD flags,
                                    DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* fault,
                                    UINT* wrong_argument) noexcept {
  if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  return Enter([&]() -> HRESULT {
    const ComPointer<_ImpTable> alive(this);
    const ComPointer<ITypeInfo> info = hold_.module().TypeInfo(IID__ImpTable);
    DispatchArguments converted;
    const HRESULT prepared =
        converted.Prepare(*info.get(), id, flags, locale, arguments, wrong_argument);
    if (FAILED(prepared)) return prepared;
    return info->Invoke(static_cast<_ImpTable*>(this), id, converted.flags(),
                        converted.parameters(), result, fault, wrong_argument);
  });
}

STDMETHODIMP ImpTableObject::InterfaceSupportsErrorInfo(REFIID iid) noexcept {
  return iid == IID__ImpTable || iid == IID_IDispatch ? S_OK : S_FALSE;
}

STDMETHODIMP ImpTableObject::GetClassInfo(ITypeInfo** info) noexcept {
  if (info == nullptr) return E_POINTER;
  *info = nullptr;
  return Enter([&] {
    *info = hold_.module().TypeInfo(CLSID_ImpTable).Release();
    return S_OK;
  });
}

STDMETHODIMP ImpTableObject::GetGUID(DWORD kind, GUID* guid) noexcept {
  if (guid == nullptr) return E_POINTER;
  *guid = GUID_NULL;
  if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) return E_INVALIDARG;
  *guid = DIID___ImpTable;
  return S_OK;
}

STDMETHODIMP ImpTableObject::EnumConnectionPoints(IEnumConnectionPoints** points) noexcept {
  if (points == nullptr) return E_POINTER;
  *points = nullptr;
  return Enter([&] {
    using Enumerator = ComEnumerator<IEnumConnectionPoints, IConnectionPoint*, PointElement>;
    std::vector<PointElement> all{{ComPointer<IConnectionPoint>(&events_)}};
    *points = MakeObject<Enumerator>(hold_.module(), std::move(all)).Release();
    return S_OK;
  });
}

STDMETHODIMP ImpTableObject::FindConnectionPoint(REFIID iid, IConnectionPoint** point) noexcept {
  if (point == nullptr) return E_POINTER;
  *point = nullptr;
  if (iid != DIID___ImpTable) return CONNECT_E_NOCONNECTION;
  *point = ComPointer<IConnectionPoint>(&events_).Release();
  return S_OK;
}

}  // namespace imptable
