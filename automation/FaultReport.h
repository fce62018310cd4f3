#ifndef AUTOMATION_FAULT_REPORT_H_
#define AUTOMATION_FAULT_REPORT_H_

#include <string_view>

#include "automation/AutomationApi.h"
#include "core/ModuleCommun.h"

namespace imptable {

/// The class's name in the registry, and as the source of its errors: never change.
inline constexpr std::wstring_view kProgId = L"SQLTImpT.ImpTable";

/// Error result of a fault, from which script hosts show the number: never change.
HRESULT ResultOf(FaultNumber number);

/// Tells the thread's client about the fault that is being handled, in the current language.
/// To be called from within a handler.
/// @param iid  the interface that was called.
/// @return the fault's error result.
HRESULT ReportCurrentFault(const ModuleCommun& module, REFIID iid) noexcept;

}  // namespace imptable

#endif  // AUTOMATION_FAULT_REPORT_H_
