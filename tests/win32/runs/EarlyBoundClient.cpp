// A client of the component that was compiled against its type library: members through the virtual
// table, arguments by reference, events through the connection point of their own interface, and a
// live display for the report's lines.
//
//   EarlyBoundClient FOLDER     runs the task "Clients" of scenario "Clients", in FOLDER
//
// Prints what it found; ends with 1 where a call fails.

#include <SQLTImpT.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <stdexcept>
#include <string>

namespace {

void Require(HRESULT result, const char* what) {
  if (SUCCEEDED(result)) return;
  char code[16];
  std::snprintf(code, sizeof code, "0x%08lx", static_cast<unsigned long>(result));
  throw std::runtime_error(std::string(what) + " failed with " + code);
}

/// Sole owner of a text that goes through the interface.
class Text {
 public:
  explicit Text(const wchar_t* text = nullptr) : raw_(SysAllocString(text)) {}
  explicit Text(const std::wstring& text) : Text(text.c_str()) {}
  Text(const Text&) = delete;
  Text& operator=(const Text&) = delete;
  ~Text() { SysFreeString(raw_); }

  BSTR raw() const { return raw_; }
  BSTR* Receive() { return &raw_; }
  std::wstring value() const { return raw_ == nullptr ? L"" : std::wstring(raw_); }

 private:
  BSTR raw_;
};

/// What the objects that this client hands out have in common. They live on the stack.
class HandedOut : public IDispatch {
 public:
  explicit HandedOut(REFIID also) : also_(also) {}
  HandedOut(const HandedOut&) = delete;
  HandedOut& operator=(const HandedOut&) = delete;

  ULONG references() const { return references_; }

  STDMETHODIMP QueryInterface(REFIID id, void** out) override {
    const bool known = id == IID_IUnknown || id == IID_IDispatch || id == also_;
    *out = known ? static_cast<IDispatch*>(this) : nullptr;
    if (!known) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override { return --references_; }
  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* id) override {
    *id = IdOf(names[0]);
    return *id == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK;
  }

 protected:
  virtual DISPID IdOf(const std::wstring&) { return DISPID_UNKNOWN; }

 private:
  const IID also_;
  ULONG references_ = 1;
};

class Events : public HandedOut {
 public:
  Events() : HandedOut(DIID___ImpTable) {}

  int progress = 0;
  int complete = 0;
  int after_complete = 0;

  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                      UINT*) override {
    after_complete += complete;
    if (id == 1) ++progress;
    if (id == 2) ++complete;
    return id == 1 || id == 2 ? S_OK : DISP_E_MEMBERNOTFOUND;
  }
};

/// The form with the display: the newest lines of the report, and how many.
class Form : public HandedOut {
 public:
  Form() : HandedOut(IID_IDispatch) {}

  std::wstring text;
  int tag = 0;
  int most = 0;

  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* arguments, VARIANT* result,
                      EXCEPINFO*, UINT*) override {
    if ((kind & DISPATCH_PROPERTYPUT) != 0) {
      const VARTYPE wanted = id == 1 ? VT_BSTR : VT_I4;
      VARIANT value{};
      const HRESULT converted = VariantChangeType(&value, arguments->rgvarg, 0, wanted);
      if (FAILED(converted)) return converted;
      if (id == 1) text = value.bstrVal;
      if (id == 2) most = std::max(most, tag = value.lVal);
      return VariantClear(&value);
    }
    result->vt = id == 1 ? VT_BSTR : VT_I4;
    if (id == 1) {
      result->bstrVal = SysAllocString(text.c_str());
    } else {
      result->lVal = tag;
    }
    return S_OK;
  }

 protected:
  DISPID IdOf(const std::wstring& name) override {
    return name == L"Text" ? 1 : name == L"Tag" ? 2 : DISPID_UNKNOWN;
  }
};

/// What the host hands in as `Bouton`.
class Button : public HandedOut {
 public:
  explicit Button(Form& form) : HandedOut(IID_IDispatch), form_(form) {}

  STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                      UINT*) override {
    result->vt = VT_DISPATCH;
    result->pdispVal = &form_;
    form_.AddRef();
    return S_OK;
  }

 protected:
  DISPID IdOf(const std::wstring& name) override { return name == L"wForm" ? 1 : DISPID_UNKNOWN; }

 private:
  Form& form_;
};

/// Listens from its making to its end.
class Listening {
 public:
  Listening(_ImpTable* task, Events& events) {
    IConnectionPointContainer* container = nullptr;
    Require(
        task->QueryInterface(IID_IConnectionPointContainer, reinterpret_cast<void**>(&container)),
        "QueryInterface of the connection points");
    const HRESULT result = container->FindConnectionPoint(DIID___ImpTable, &point_);
    container->Release();
    Require(result, "FindConnectionPoint");
    Require(point_->Advise(&events, &cookie_), "Advise");
  }
  Listening(const Listening&) = delete;
  Listening& operator=(const Listening&) = delete;
  ~Listening() {
    point_->Unadvise(cookie_);
    point_->Release();
  }

 private:
  IConnectionPoint* point_ = nullptr;
  DWORD cookie_ = 0;
};

void Print(const char* what, long value) { std::printf("%s: %ld\n", what, value); }
void PrintWhether(const char* what, bool holds) {
  std::printf("%s: %s\n", what, holds ? "yes" : "no");
}

void AskForNumbers(_ImpTable* task) {
  long number = 0;
  Require(task->GetWrapperType(&number), "GetWrapperType");
  Print("wrapper type", number);
  Require(task->GetWorkingMode(&number), "GetWorkingMode");
  Print("working mode", number);
  Require(task->GetStatus(&number), "GetStatus");
  Print("status", number);
  long mode = 40000;
  Print("a working mode beyond 16 bits gives fault", task->SetWorkingMode(&mode) & 0xFFFF);
  VARIANT_BOOL supported = VARIANT_FALSE;
  for (long type = 1; type <= 3; ++type) {
    long by_reference = type;
    Require(task->IsActionSupported(&by_reference, &supported), "IsActionSupported");
    const std::string action = "action " + std::to_string(type);
    PrintWhether(action.c_str(), supported != VARIANT_FALSE);
  }
}

void Run(_ImpTable* task, const std::wstring& folder) {
  Text name(L"Clients");
  Text scenario(L"Clients");
  long english = 10000;
  Require(task->InitializeProperties(name.Receive(), scenario.Receive(), &english),
          "InitializeProperties");
  std::printf("arguments by reference are left alone: %ls %ls %ld\n", name.value().c_str(),
              scenario.value().c_str(), english);
  Text report(folder + L"\\report.txt");
  Require(task->SetReportFilePath(report.Receive()), "SetReportFilePath");
  AskForNumbers(task);

  Events events;
  Form form;
  Button button(form);
  Require(task->putref_Bouton(&button), "Bouton");
  {
    const Listening listening(task, events);
    Require(task->put_Run(0), "Run 0");
    Print("Complete of a run that isn't one", events.complete);
    events.complete = 0;
    Require(task->put_Run(1), "Run 1");
  }
  Require(task->putref_Bouton(nullptr), "Bouton, none");
  Print("Complete", events.complete);
  Print("events after Complete", events.after_complete);
  PrintWhether("Progress at each milestone", events.progress >= 3);
  Print("most lines of the display", form.most);
  const std::wstring newest = form.text.substr(0, form.text.find(L'\n'));
  PrintWhether("the newest line is the first",
               newest.find(L"PROCEDURE TERMINATED") != std::wstring::npos);
  Print("references left to the display", static_cast<long>(button.references() - 1));
  Print("references left to its form", static_cast<long>(form.references() - 1));
  Print("references left to the listener", static_cast<long>(events.references() - 1));
  long status = 0;
  Require(task->GetStatus(&status), "GetStatus");
  Print("status", status);
}

}  // namespace

int main() {
  try {
    int count = 0;
    wchar_t** const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    if (count != 2) throw std::runtime_error("wanted: FOLDER");
    Require(CoInitialize(nullptr), "CoInitialize");
    _ImpTable* task = nullptr;
    Require(CoCreateInstance(CLSID_ImpTable, nullptr, CLSCTX_INPROC_SERVER, IID__ImpTable,
                             reinterpret_cast<void**>(&task)),
            "CoCreateInstance");
    Run(task, arguments[1]);
    Print("references left to the task", static_cast<long>(task->Release()));
    CoUninitialize();
    return 0;
  } catch (const std::exception& error) {
    std::printf("%s\n", error.what());
    return 1;
  }
}
