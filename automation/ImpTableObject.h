#ifndef AUTOMATION_IMP_TABLE_OBJECT_H_
#define AUTOMATION_IMP_TABLE_OBJECT_H_

#include <initializer_list>

#include "automation/AutomationModule.h"
#include "automation/DispatchDisplay.h"
#include "automation/EventConnectionPoint.h"
#include "plugin/ImpTable.h"

namespace imptable {

/// One ImpTable as automation clients see it: early bound through the virtual table, late bound by
/// name. Only translates; see ImpTable for what the members do.
/// Errors: 0x800A0000 + the fault's number, with error information; E_POINTER for a null pointer.
class ImpTableObject final : public _ImpTable,
                             public ISupportErrorInfo,
                             public IProvideClassInfo2,
                             public IConnectionPointContainer {
 public:
  explicit ImpTableObject(AutomationModule& module);
  ImpTableObject(const ImpTableObject&) = delete;
  ImpTableObject& operator=(const ImpTableObject&) = delete;

  // IUnknown
  STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override;
  STDMETHODIMP_(ULONG) AddRef() noexcept override;
  STDMETHODIMP_(ULONG) Release() noexcept override;

  // IDispatch
  STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override;
  STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override;
  STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                             DISPID* ids) noexcept override;
  STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* arguments,
                      VARIANT* result, EXCEPINFO* fault, UINT* wrong_argument) noexcept override;

  // ISupportErrorInfo
  STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) noexcept override;

  // IProvideClassInfo2
  STDMETHODIMP GetClassInfo(ITypeInfo** info) noexcept override;
  STDMETHODIMP GetGUID(DWORD kind, GUID* guid) noexcept override;

  // IConnectionPointContainer
  STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) noexcept override;
  STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** point) noexcept override;

  // _ImpTable: properties
  STDMETHODIMP get_Nom(BSTR* value) noexcept override;
  STDMETHODIMP put_Nom(BSTR value) noexcept override;
  STDMETHODIMP get_Regst(LONG* value) noexcept override;
  STDMETHODIMP put_Regst(LONG value) noexcept override;
  STDMETHODIMP get_RegstCle(BSTR* value) noexcept override;
  STDMETHODIMP put_RegstCle(BSTR value) noexcept override;
  STDMETHODIMP get_Etat(short* value) noexcept override;
  STDMETHODIMP put_Etat(short value) noexcept override;
  STDMETHODIMP get_Rapport(BSTR* value) noexcept override;
  STDMETHODIMP put_Rapport(BSTR value) noexcept override;
  STDMETHODIMP get_Scen(BSTR* value) noexcept override;
  STDMETHODIMP put_Scen(BSTR value) noexcept override;
  STDMETHODIMP get_Bouton(IDispatch** value) noexcept override;
  STDMETHODIMP putref_Bouton(IDispatch* value) noexcept override;

  // _ImpTable: methods
  STDMETHODIMP RunT(short deferred_request) noexcept override;
  STDMETHODIMP put_Run(short request) noexcept override;
  STDMETHODIMP GetTaskDescription(BSTR* result) noexcept override;
  STDMETHODIMP Affiche(short* result) noexcept override;
  STDMETHODIMP IsTrigger(VARIANT_BOOL* result) noexcept override;
  STDMETHODIMP IsActionSupported(LONG* action_type, VARIANT_BOOL* result) noexcept override;
  STDMETHODIMP ShowWrapper(LONG* result) noexcept override;
  STDMETHODIMP GetPicture(IPictureDisp** result) noexcept override;
  STDMETHODIMP GetStatus(LONG* result) noexcept override;
  STDMETHODIMP GetSummary(BSTR* result) noexcept override;
  STDMETHODIMP GetTitle(BSTR* result) noexcept override;
  STDMETHODIMP GetWrapperType(LONG* result) noexcept override;
  STDMETHODIMP GetActions(BSTR* result) noexcept override;
  STDMETHODIMP GetWorkingMode(LONG* result) noexcept override;
  STDMETHODIMP GetName(BSTR* result) noexcept override;
  STDMETHODIMP SetLanguage(LONG* language) noexcept override;
  STDMETHODIMP SetName(BSTR* name) noexcept override;
  STDMETHODIMP SetRegistryRoot(LONG* root) noexcept override;
  STDMETHODIMP SetRegistrySubKey(BSTR* path) noexcept override;
  STDMETHODIMP SetReportFilePath(BSTR* path) noexcept override;
  STDMETHODIMP SetScenario(BSTR* scenario) noexcept override;
  STDMETHODIMP SetWorkingMode(LONG* mode) noexcept override;
  STDMETHODIMP ExecuteTache() noexcept override;
  STDMETHODIMP InitializeProperties(BSTR* name, BSTR* scenario, LONG* language) noexcept override;

 private:
  ~ImpTableObject();

  /// Runs `body`, a member of _ImpTable, for the client. The object lives at least until `body`
  /// ends.
  /// @param pointers  the client's pointers that must not be null.
  template <typename Body>
  HRESULT Serve(std::initializer_list<const void*> pointers, Body body) noexcept;

  /// The same for a member that gives something back.
  template <typename Result, typename Body>
  HRESULT Give(Result* result, Body body) noexcept;

  ModuleHold hold_;
  std::atomic<ULONG> references_ = 0;
  ModuleCommun& commun_;
  EventConnectionPoint events_;
  DispatchDisplay button_;
  ImpTable task_;
};

}  // namespace imptable

#endif  // AUTOMATION_IMP_TABLE_OBJECT_H_
