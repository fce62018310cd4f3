// The members of _ImpTable: pointers checked, texts and numbers translated, faults reported.

#include "plugin/automation/AutomationEntry.h"
#include "plugin/automation/AutomationText.h"
#include "plugin/automation/FaultReport.h"
#include "plugin/automation/ImpTableObject.h"
#include "plugin/automation/WrapperPicture.h"

namespace imptable {
namespace {

BSTR Translated(const std::string& text) { return ToAutomation(text); }
VARIANT_BOOL Translated(bool value) { return value ? VARIANT_TRUE : VARIANT_FALSE; }
short Translated(std::int16_t number) { return number; }
LONG Translated(std::int32_t number) { return number; }

}  // namespace

template <typename Body>
HRESULT ImpTableObject::Serve(Body body) noexcept {
  return Enter([&]() -> HRESULT {
    const ComPointer<_ImpTable> alive(this);
    SetErrorInfo(0, nullptr);
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
  if (result == nullptr) return E_POINTER;
  *result = {};
  return Serve([&] { *result = Translated(body()); });
}

STDMETHODIMP ImpTableObject::get_Nom(BSTR* value) noexcept {
  return Give(value, [&] { return task_.Nom; });
}

STDMETHODIMP ImpTableObject::put_Nom(BSTR value) noexcept {
  return Serve([&] { task_.Nom = FromAutomation(value); });
}

STDMETHODIMP ImpTableObject::get_Regst(LONG* value) noexcept {
  return Give(value, [&] { return task_.Regst; });
}

STDMETHODIMP ImpTableObject::put_Regst(LONG value) noexcept {
  return Serve([&] { task_.Regst = value; });
}

STDMETHODIMP ImpTableObject::get_RegstCle(BSTR* value) noexcept {
  return Give(value, [&] { return task_.RegstCle; });
}

STDMETHODIMP ImpTableObject::put_RegstCle(BSTR value) noexcept {
  return Serve([&] { task_.RegstCle = FromAutomation(value); });
}

STDMETHODIMP ImpTableObject::get_Etat(short* value) noexcept {
  return Give(value, [&] { return task_.Etat; });
}

STDMETHODIMP ImpTableObject::put_Etat(short value) noexcept {
  return Serve([&] { task_.Etat = value; });
}

STDMETHODIMP ImpTableObject::get_Rapport(BSTR* value) noexcept {
  return Give(value, [&] { return task_.Rapport; });
}

STDMETHODIMP ImpTableObject::put_Rapport(BSTR value) noexcept {
  return Serve([&] { task_.Rapport = FromAutomation(value); });
}

STDMETHODIMP ImpTableObject::get_Scen(BSTR* value) noexcept {
  return Give(value, [&] { return task_.Scen; });
}

STDMETHODIMP ImpTableObject::put_Scen(BSTR value) noexcept {
  return Serve([&] { task_.Scen = FromAutomation(value); });
}

STDMETHODIMP ImpTableObject::get_Bouton(IDispatch** value) noexcept {
  if (value == nullptr) return E_POINTER;
  *value = nullptr;
  return Serve([&] { *value = ComPointer(button_.object()).Release(); });
}

STDMETHODIMP ImpTableObject::putref_Bouton(IDispatch* value) noexcept {
  return Serve([&] { button_.Set(value); });
}

STDMETHODIMP ImpTableObject::RunT(short deferred_request) noexcept {
  return Serve([&] { task_.RunT(deferred_request); });
}

STDMETHODIMP ImpTableObject::put_Run(short request) noexcept {
  return Serve([&] { task_.Run(request); });
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
  if (result != nullptr) *result = VARIANT_FALSE;
  if (action_type == nullptr) return E_POINTER;
  return Give(result, [&] { return task_.IsActionSupported(*action_type); });
}

STDMETHODIMP ImpTableObject::ShowWrapper(LONG* result) noexcept {
  return Give(result, [&] { return task_.ShowWrapper(); });
}

STDMETHODIMP ImpTableObject::GetPicture(IPictureDisp** result) noexcept {
  if (result == nullptr) return E_POINTER;
  *result = nullptr;
  return Serve(
      [&] { *result = LoadPicture(hold_.module().handle(), task_.GetPicture()).Release(); });
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
  if (language == nullptr) return E_POINTER;
  return Serve([&] { task_.SetLanguage(*language); });
}

STDMETHODIMP ImpTableObject::SetName(BSTR* name) noexcept {
  if (name == nullptr) return E_POINTER;
  return Serve([&] { task_.SetName(FromAutomation(*name)); });
}

STDMETHODIMP ImpTableObject::SetRegistryRoot(LONG* root) noexcept {
  if (root == nullptr) return E_POINTER;
  return Serve([&] { task_.SetRegistryRoot(*root); });
}

STDMETHODIMP ImpTableObject::SetRegistrySubKey(BSTR* path) noexcept {
  if (path == nullptr) return E_POINTER;
  return Serve([&] { task_.SetRegistrySubKey(FromAutomation(*path)); });
}

STDMETHODIMP ImpTableObject::SetReportFilePath(BSTR* path) noexcept {
  if (path == nullptr) return E_POINTER;
  return Serve([&] { task_.SetReportFilePath(FromAutomation(*path)); });
}

STDMETHODIMP ImpTableObject::SetScenario(BSTR* scenario) noexcept {
  if (scenario == nullptr) return E_POINTER;
  return Serve([&] { task_.SetScenario(FromAutomation(*scenario)); });
}

STDMETHODIMP ImpTableObject::SetWorkingMode(LONG* mode) noexcept {
  if (mode == nullptr) return E_POINTER;
  return Serve([&] { task_.SetWorkingMode(*mode); });
}

STDMETHODIMP ImpTableObject::ExecuteTache() noexcept {
  return Serve([&] { task_.ExecuteTache(); });
}

STDMETHODIMP ImpTableObject::InitializeProperties(BSTR* name, BSTR* scenario,
                                                  LONG* language) noexcept {
  if (name == nullptr || scenario == nullptr || language == nullptr) return E_POINTER;
  return Serve([&] {
    task_.InitializeProperties(FromAutomation(*name), FromAutomation(*scenario), *language);
  });
}

}  // namespace imptable
