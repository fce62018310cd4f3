#ifndef TESTS_WIN32_COMPONENT_CLIENT_H_
#define TESTS_WIN32_COMPONENT_CLIENT_H_

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "automation/AutomationText.h"
#include "tests/win32/component/ComponentDll.h"

namespace imptable {

/// The value that a getter of the virtual table gives. The test fails when the getter does.
template <typename Result>
Result Get(const ComPointer<_ImpTable>& task,
           HRESULT (STDMETHODCALLTYPE _ImpTable::*getter)(Result*)) {
  Result result{};
  EXPECT_EQ((task.get()->*getter)(&result), S_OK);
  return result;
}
std::wstring GetText(const ComPointer<_ImpTable>& task,
                     HRESULT (STDMETHODCALLTYPE _ImpTable::*getter)(BSTR*));

/// Error information of the thread, taken from it; empty texts when there is none.
struct ErrorInformation {
  std::wstring source;
  std::wstring description;
  GUID interface_id{};
};
ErrorInformation TakeErrorInformation();

/// The arguments of a late-bound call, in their order.
class Arguments {
 public:
  Arguments() = default;
  Arguments(const Arguments&) = delete;
  Arguments& operator=(const Arguments&) = delete;
  ~Arguments();

  Arguments& Text(std::wstring_view text);
  Arguments& Number(LONG number);
  Arguments& Short(short number);
  Arguments& Double(double number);
  Arguments& Object(IDispatch* object);
  Arguments& Null();
  Arguments& Missing();
  Arguments& NumberAt(LONG* number);
  Arguments& VariantAt(VARIANT* value);
  Arguments& Raw(VARTYPE type, void* reference);

  /// Last one first.
  std::vector<VARIANT>& reversed() { return reversed_; }

 private:
  VARIANT& Add(VARTYPE type);

  std::vector<VARIANT> reversed_;
};

/// The result of a late-bound call.
struct Outcome {
  HRESULT result = S_OK;
  std::wstring text;        // of the value that was given back
  VARTYPE type = VT_EMPTY;  // of that value
  SCODE fault = 0;          // and the rest: when `result` is DISP_E_EXCEPTION
  std::wstring source;
  std::wstring description;
  UINT wrong_argument = 99;
};

inline constexpr WORD kCall = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

/// A late-bound call by name, as script hosts make it.
Outcome Call(IDispatch* object, const wchar_t* name, Arguments& arguments, WORD flags = kCall);
Outcome Call(IDispatch* object, const wchar_t* name);

/// A client's sink for the events, which counts them; lives as long as anybody refers to it.
class Sink final : public IDispatch {
 public:
  /// What the sink does at each event, and what it answers.
  std::function<HRESULT(DISPID)> on_event;

  std::vector<DISPID> events;
  bool arguments_were_empty = true;
  ULONG references() const { return references_; }

  /// Whether the sink says that it has the event interface itself.
  bool knows_event_interface = true;

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override;
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID event, REFIID iid, LCID locale, WORD flags, DISPPARAMS* arguments,
                      VARIANT* result, EXCEPINFO* fault, UINT* wrong_argument) override;

 private:
  ULONG references_ = 0;
};

/// The connection point for the events of an object.
ComPointer<IConnectionPoint> EventsOf(IUnknown* object);

/// A client on its own thread's apartment, with the DLL and one task.
class Client : public testing::Test {
 protected:
  Client();
  ~Client() override;

 private:
  struct Apartment {
    Apartment() { OleInitialize(nullptr); }
    ~Apartment() { OleUninitialize(); }
  } apartment_;

 protected:
  ComponentDll dll_;
  ComPointer<_ImpTable> task_;
};

}  // namespace imptable

#endif  // TESTS_WIN32_COMPONENT_CLIENT_H_
