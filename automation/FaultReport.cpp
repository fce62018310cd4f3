#include "automation/FaultReport.h"

#include "automation/AutomationEntry.h"
#include "automation/AutomationText.h"
#include "automation/ComPointer.h"
#include "plugin/RunDriver.h"

namespace imptable {
namespace {

void SetDescription(const std::string& text, REFIID iid) {
  ComPointer<ICreateErrorInfo> info;
  if (FAILED(CreateErrorInfo(info.Receive()))) return;
  std::wstring source(kProgId);
  std::wstring description = ToWide(text);
  info->SetGUID(iid);
  info->SetSource(source.data());
  info->SetDescription(description.data());
  const ComPointer<IErrorInfo> error = Query<IErrorInfo>(info.get());
  if (error) SetErrorInfo(0, error.get());
}

}  // namespace

HRESULT ResultOf(FaultNumber number) {
  return MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, static_cast<std::int32_t>(number));
}

HRESULT ReportCurrentFault(const ModuleCommun& module, REFIID iid) noexcept {
  return Enter([&] {
    const RuntimeFault fault = CurrentFault();
    const HRESULT result = ResultOf(fault.number());
    try {
      SetDescription(module.FaultText(fault), iid);
    } catch (const std::bad_alloc&) {
      // Out of memory: the client gets the number without a text.
    }
    return result;
  });
}

}  // namespace imptable
