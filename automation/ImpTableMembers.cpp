// The members of _ImpTable: pointers checked, texts and numbers translated, faults reported.

#include <algorithm>

#include "automation/AutomationEntry.h"
#include "automation/AutomationText.h"
#include "automation/FaultReport.h"
#include "automation/ImpTableObject.h"
#include "automation/WrapperPicture.h"

namespace imptable {
namespace {

BSTR Translated(const std::string& text) { return ToAutomation(text); }
VARIANT_BOOL Translated(bool value) { return value ? VARIANT_TRUE : VARIANT_FALSE; }
short Translated(std::int16_t number) { return number; }
LONG Translated(std::int32_t number) { return number; }
template <typename Interface>
Interface* Translated(ComPointer<Interface> object) {
  return object.Release();
}

}  // namespace

template <typename Body>
HRESULT ImpTableObject::Serve(std::initializer_list<const void*> pointers, Body body) noexcept {
  return Enter([&]() -> HRESULT {
    const ComPointer<_ImpTable> alive(this);
    SetErrorInfo(0, nullptr);
    if (std::find(pointers.begin(), pointers.end(), nullptr) != pointers.end()) return E_POINTER;
    try {
      body();
      return S_OK;
    } catch (const AutomationError&) {
      throw;
    } catch (...) {
      return ReportCurrentFault(commun_, IID__ImpTable);
    }
  });
}

template <typename Result, typename Body>
HRESULT ImpTableObject::Give(Result* result, Body body) noexcept {
  Result unwanted{};
  Result& place = result == nullptr ? unwanted : *result;
  place = {};
  return Serve({result}, [&] { place = Translated(body()); });
}

STDMETHODIMP ImpTableObject::get_Nom(BSTR* value) noexcept {
  return Give(value, [&] { return task_.Nom; });
}

STDMETHODIMP ImpTableObject::put_Nom(BSTR value) noexcept {
  return Serve({}, [&] { task_.Nom = FromAutomation(value); });
}

STDMETHODIMP ImpTableObject::get_Regst(LONG* value) noexcept {
  return Give(value, [&] { return task_.Regst; });
}

STDMETHODIMP ImpTableObject::put_Regst(LONG value) noexcept {
  return Serve({}, [&] { task_.Regst = value; });
}

STDMETHODIMP ImpTableObject::get_RegstCle(BSTR* value) noexcept {
  return Give(value, [&] { return task_.RegstCle; });
}

STDMETHODIMP ImpTableObject::put_RegstCle(BSTR value) noexcept {
  return Serve({}, [&] { task_.RegstCle = FromAutomation(value); });
}

STDMETHODIMP ImpTableObject::get_Etat(short* value) noexcept {
  return Give(value, [&] { return task_.Etat; });
}

STDMETHODIMP ImpTableObject::put_Etat(short value) noexcept {
  return Serve({}, [&] { task_.Etat = value; });
}

STDMETHODIMP ImpTableObject::get_Rapport(BSTR* value) noexcept {
  return Give(value, [&] { return task_.Rapport; });
}

STDMETHODIMP ImpTableObject::put_Rapport(BSTR value) noexcept {
  return Serve({}, [&] { task_.Rapport = FromAutomation(value); });
}

STDMETHODIMP ImpTableObject::get_Scen(BSTR* value) noexcept {
  return Give(value, [&] { return task_.Scen; });
}

STDMETHODIMP ImpTableObject::put_Scen(BSTR value) noexcept {
  return Serve({}, [&] { task_.Scen = FromAutomation(value); });
}

STDMETHODIMP ImpTableObject::get_Bouton(IDispatch** value) noexcept {
  return Give(value, [&] { return ComPointer(button_.object()); });
}

STDMETHODIMP ImpTableObject::putref_Bouton(IDispatch* value) noexcept {
  return Serve({}, [&] { button_.Set(value); });
}

STDMETHODIMP ImpTableObject::RunT(short deferred_request) noexcept {
  return Serve({}, [&] { task_.RunT(deferred_request); });
}

STDMETHODIMP ImpTableObject::put_Run(short request) noexcept {
  return Serve({}, [&] { task_.Run(request); });
}

STDMETHODIMP ImpTableObject::GetTaskDescription(BSTR* result) noexcept {
  return Give(result, [&] { return task_.GetTaskDescription(); });
}

STDMETHODIMP ImpTableObject::Affiche(short* result) noexcept {
  return Give(result, [&] { return task_.Affiche(); });
}

STDMETHODIMP ImpTableObject::IsTrigger(VARIANT_BOOL* result) noexcept {
  return Give(result, [&] { return task_.IsTrigger(); });
}

STDMETHODIMP ImpTableObject::IsActionSupported(LONG* action_type, VARIANT_BOOL* result) noexcept {
  return Give(result, [&] {
    if (action_type == nullptr) throw AutomationError(E_POINTER);
    return task_.IsActionSupported(*action_type);
  });
}

STDMETHODIMP ImpTableObject::ShowWrapper(LONG* result) noexcept {
  return Give(result, [&] { return task_.ShowWrapper(); });
}

STDMETHODIMP ImpTableObject::GetPicture(IPictureDisp** result) noexcept {
  return Give(result, [&] { return LoadPicture(hold_.module().handle(), task_.GetPicture()); });
}

STDMETHODIMP ImpTableObject::GetStatus(LONG* result) noexcept {
  return Give(result, [&] { return task_.GetStatus(); });
}

STDMETHODIMP ImpTableObject::GetSummary(BSTR* result) noexcept {
  return Give(result, [&] { return task_.GetSummary(); });
}

STDMETHODIMP ImpTableObject::GetTitle(BSTR* result) noexcept {
  return Give(result, [&] { return task_.GetTitle(); });
}

STDMETHODIMP ImpTableObject::GetWrapperType(LONG* result) noexcept {
  return Give(result, [&] { return task_.GetWrapperType(); });
}

STDMETHODIMP ImpTableObject::GetActions(BSTR* result) noexcept {
  return Give(result, [&] { return task_.GetActions(); });
}

STDMETHODIMP ImpTableObject::GetWorkingMode(LONG* result) noexcept {
  return Give(result, [&] { return task_.GetWorkingMode(); });
}

STDMETHODIMP ImpTableObject::GetName(BSTR* result) noexcept {
  return Give(result, [&] { return task_.GetName(); });
}

STDMETHODIMP ImpTableObject::SetLanguage(LONG* language) noexcept {
  return Serve({language}, [&] { task_.SetLanguage(*language); });
}

STDMETHODIMP ImpTableObject::SetName(BSTR* name) noexcept {
  return Serve({name}, [&] { task_.SetName(FromAutomation(*name)); });
}

STDMETHODIMP ImpTableObject::SetRegistryRoot(LONG* root) noexcept {
  return Serve({root}, [&] { task_.SetRegistryRoot(*root); });
}

STDMETHODIMP ImpTableObject::SetRegistrySubKey(BSTR* path) noexcept {
  return Serve({path}, [&] { task_.SetRegistrySubKey(FromAutomation(*path)); });
}

STDMETHODIMP ImpTableObject::SetReportFilePath(BSTR* path) noexcept {
  return Serve({path}, [&] { task_.SetReportFilePath(FromAutomation(*path)); });
}

STDMETHODIMP ImpTableObject::SetScenario(BSTR* scenario) noexcept {
  return Serve({scenario}, [&] { task_.SetScenario(FromAutomation(*scenario)); });
}

STDMETHODIMP ImpTableObject::SetWorkingMode(LONG* mode) noexcept {
  return Serve({mode}, [&] { task_.SetWorkingMode(*mode); });
}

STDMETHODIMP ImpTableObject::ExecuteTache() noexcept {
  return Serve({}, [&] { task_.ExecuteTache(); });
}

STDMETHODIMP ImpTableObject::InitializeProperties(BSTR* name, BSTR* scenario,
                                                  LONG* language) noexcept {
  return Serve({name, scenario, language}, [&] {
    task_.InitializeProperties(FromAutomation(*name), FromAutomation(*scenario), *language);
  });
}

}  // namespace imptable
