#ifndef TESTS_WIN32_HOST_EVENTCOUNTER_H_
#define TESTS_WIN32_HOST_EVENTCOUNTER_H_

#include "platform/windows/Windows_win32.h"

struct IConnectionPoint;

namespace imptable {

/// Counts the events of an object for as long as it lives. Takes any dispatch events, of whatever
/// interface the object's connection point names.
class EventCounter : public IDispatch {
 public:
  static constexpr DISPID kProgress = 1;
  static constexpr DISPID kComplete = 2;

  /// Connects to the first connection point of `source`.
  /// @throws Failure
  explicit EventCounter(IUnknown* source);
  EventCounter(const EventCounter&) = delete;
  EventCounter& operator=(const EventCounter&) = delete;
  ~EventCounter();

  int progress() const { return progress_; }
  int complete() const { return complete_; }
  int others() const { return others_; }  ///< events that aren't known, or with arguments

  STDMETHODIMP QueryInterface(REFIID id, void** out) override;
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override { return --references_; }
  STDMETHODIMP GetTypeInfoCount(UINT* count) override;
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*, EXCEPINFO*,
                      UINT*) override;

 private:
  IConnectionPoint* point_ = nullptr;
  IID interface_{};
  DWORD cookie_ = 0;
  ULONG references_ = 1;
  int progress_ = 0;
  int complete_ = 0;
  int others_ = 0;
};

}  // namespace imptable

#endif  // TESTS_WIN32_HOST_EVENTCOUNTER_H_
