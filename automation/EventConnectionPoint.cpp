#include "automation/EventConnectionPoint.h"

#include <algorithm>

#include "automation/ComEnumerator.h"

namespace imptable {
namespace {

void Call(IDispatch& sink, DISPID event) {
  const DefaultFloatingPoint ours_after_theirs;
  DISPPARAMS arguments{};
  EXCEPINFO fault{};
  VARIANT result;
  VariantInit(&result);
  try {
    sink.Invoke(event, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &arguments, &result, &fault,
                nullptr);
  } catch (...) {
    // A sink's exception doesn't concern the other sinks and the run.
  }
  VariantClear(&result);
  SysFreeString(fault.bstrSource);
  SysFreeString(fault.bstrDescription);
  SysFreeString(fault.bstrHelpFile);
}

}  // namespace

CONNECTDATA EventConnectionPoint::Connection::Give() const {
  sink->AddRef();
  return {sink.get(), cookie};
}

STDMETHODIMP EventConnectionPoint::QueryInterface(REFIID iid, void** object) noexcept {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (iid != IID_IUnknown && iid != IID_IConnectionPoint) return E_NOINTERFACE;
  *object = static_cast<IConnectionPoint*>(this);
  AddRef();
  return S_OK;
}

STDMETHODIMP EventConnectionPoint::GetConnectionInterface(IID* iid) noexcept {
  if (iid == nullptr) return E_POINTER;
  *iid = DIID___ImpTable;
  return S_OK;
}

STDMETHODIMP EventConnectionPoint::GetConnectionPointContainer(
    IConnectionPointContainer** container) noexcept {
  if (container == nullptr) return E_POINTER;
  owner_.AddRef();
  *container = &owner_;
  return S_OK;
}

STDMETHODIMP EventConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) noexcept {
  if (cookie != nullptr) *cookie = 0;
  if (sink == nullptr || cookie == nullptr) return E_POINTER;
  return Enter([&] {
    ComPointer<IDispatch> events = Query<IDispatch>(sink, DIID___ImpTable);
    if (!events) events = Query<IDispatch>(sink);
    if (!events) return CONNECT_E_CANNOTCONNECT;
    connections_.push_back({last_cookie_ + 1, events});
    *cookie = ++last_cookie_;
    return S_OK;
  });
}

STDMETHODIMP EventConnectionPoint::Unadvise(DWORD cookie) noexcept {
  const auto found = std::find_if(connections_.begin(), connections_.end(),
                                  [cookie](const auto& each) { return each.cookie == cookie; });
  if (found == connections_.end()) return CONNECT_E_NOCONNECTION;
  // Remove the connection before the sink is released: the sink may call back then.
  const Connection leaving = std::move(*found);
  connections_.erase(found);
  return S_OK;
}

STDMETHODIMP EventConnectionPoint::EnumConnections(IEnumConnections** connections) noexcept {
  if (connections == nullptr) return E_POINTER;
  *connections = nullptr;
  return Enter([&] {
    using Enumerator = ComEnumerator<IEnumConnections, CONNECTDATA, Connection>;
    *connections = MakeObject<Enumerator>(module_, connections_).Release();
    return S_OK;
  });
}

bool EventConnectionPoint::IsConnected(DWORD cookie) const {
  return std::any_of(connections_.begin(), connections_.end(),
                     [cookie](const auto& each) { return each.cookie == cookie; });
}

void EventConnectionPoint::Raise(DISPID event) {
  const std::vector<Connection> connections = connections_;
  for (const Connection& connection : connections) {
    if (IsConnected(connection.cookie)) Call(*connection.sink.get(), event);
  }
}

}  // namespace imptable
