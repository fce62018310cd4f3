#include "automation/EventConnectionPoint.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace imptable {
namespace {

/// The object that a connection point is a part of.
class Container : public IConnectionPointContainer {
 public:
  STDMETHODIMP QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints**) override { return E_NOTIMPL; }
  STDMETHODIMP FindConnectionPoint(REFIID, IConnectionPoint**) override { return E_NOTIMPL; }
};

/// Breaks the rule that no exception leaves a sink.
class ThrowingSink : public IDispatch {
 public:
  int events = 0;

  STDMETHODIMP QueryInterface(REFIID, void** object) override {
    *object = this;
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                      UINT*) override {
    ++events;
    throw std::runtime_error("not my day");
  }
};

TEST(EventConnectionPoint, IsNotImpressedBySinksThatThrow) {
  AutomationModule module(nullptr);
  Container container;
  ThrowingSink first;
  ThrowingSink second;
  EventConnectionPoint point(module, container);
  DWORD cookie = 0;
  ASSERT_EQ(point.Advise(&first, &cookie), S_OK);
  ASSERT_EQ(point.Advise(&second, &cookie), S_OK);
  point.Progress();
  point.Complete();
  EXPECT_EQ(first.events, 2);
  EXPECT_EQ(second.events, 2);
}

}  // namespace
}  // namespace imptable
