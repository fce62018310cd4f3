#include "tests/win32/host/EventCounter.h"

#include <ocidl.h>

#include "tests/win32/host/Failure.h"

namespace imptable {
namespace {

void Require(HRESULT result, const char* what) {
  if (FAILED(result)) throw Failure(ExitCode::kFault, std::string("events: no ") + what);
}

IConnectionPoint* FirstPoint(IUnknown* source) {
  IConnectionPointContainer* container = nullptr;
  Require(
      source->QueryInterface(IID_IConnectionPointContainer, reinterpret_cast<void**>(&container)),
      "IConnectionPointContainer");
  IEnumConnectionPoints* points = nullptr;
  const HRESULT result = container->EnumConnectionPoints(&points);
  container->Release();
  Require(result, "list of connection points");
  IConnectionPoint* point = nullptr;
  const HRESULT next = points->Next(1, &point, nullptr);
  points->Release();
  Require(next == S_OK ? S_OK : E_FAIL, "connection point");
  return point;
}

}  // namespace

EventCounter::EventCounter(IUnknown* source) : point_(FirstPoint(source)) {
  Require(point_->GetConnectionInterface(&interface_), "interface of events");
  Require(point_->Advise(this, &cookie_), "connection");
}

EventCounter::~EventCounter() {
  point_->Unadvise(cookie_);
  point_->Release();
}

STDMETHODIMP EventCounter::QueryInterface(REFIID id, void** out) {
  const bool known =
      IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDispatch) || IsEqualIID(id, interface_);
  *out = known ? static_cast<IDispatch*>(this) : nullptr;
  if (!known) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

STDMETHODIMP EventCounter::GetTypeInfoCount(UINT* count) {
  *count = 0;
  return S_OK;
}

STDMETHODIMP EventCounter::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*,
                                  EXCEPINFO*, UINT*) {
  int& count = arguments->cArgs != 0 ? others_
               : id == kProgress     ? progress_
               : id == kComplete     ? complete_
                                     : others_;
  ++count;
  return S_OK;
}

}  // namespace imptable
