#ifndef AUTOMATION_EVENT_CONNECTION_POINT_H_
#define AUTOMATION_EVENT_CONNECTION_POINT_H_

#include <vector>

#include "automation/AutomationModule.h"
#include "plugin/ImpTable.h"

namespace imptable {

/// Where clients connect their sinks for the class's events. It is a part of its object: a
/// reference to one of them keeps both alive.
class EventConnectionPoint final : public IConnectionPoint, public ImpTableEvents {
 public:
  /// @param owner  the object that contains this connection point; borrowed.
  EventConnectionPoint(AutomationModule& module, IConnectionPointContainer& owner)
      : module_(module), owner_(owner) {}
  EventConnectionPoint(const EventConnectionPoint&) = delete;
  EventConnectionPoint& operator=(const EventConnectionPoint&) = delete;

  STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override;
  STDMETHODIMP_(ULONG) AddRef() noexcept override { return owner_.AddRef(); }
  STDMETHODIMP_(ULONG) Release() noexcept override { return owner_.Release(); }

  STDMETHODIMP GetConnectionInterface(IID* iid) noexcept override;
  STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) noexcept override;
  STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) noexcept override;
  STDMETHODIMP Unadvise(DWORD cookie) noexcept override;
  STDMETHODIMP EnumConnections(IEnumConnections** connections) noexcept override;

  /// Call every sink that was connected when the event began and still is. A failure in a sink is
  /// ignored.
  void Progress() override { Raise(kProgress); }
  void Complete() override { Raise(kComplete); }

 private:
  // Dispatch ids of the events: never change.
  static constexpr DISPID kProgress = 1;
  static constexpr DISPID kComplete = 2;

  struct Connection {
    DWORD cookie;
    ComPointer<IDispatch> sink;

    CONNECTDATA Give() const;
  };

  void Raise(DISPID event);
  bool IsConnected(DWORD cookie) const;

  AutomationModule& module_;
  IConnectionPointContainer& owner_;
  std::vector<Connection> connections_;
  DWORD last_cookie_ = 0;
};

}  // namespace imptable

#endif  // AUTOMATION_EVENT_CONNECTION_POINT_H_
