#include "tests/win32/component/TaskKeys.h"

namespace imptable {

TaskKeys::TaskKeys()
    : path_(L"Software\\component_client_test\\" + std::to_wstring(GetCurrentProcessId())) {}

TaskKeys::~TaskKeys() { RegDeleteTreeW(HKEY_CURRENT_USER, path_.c_str()); }

void TaskKeys::MakeUnreachable(const ComPointer<_ImpTable>& task, const std::wstring& name) const {
  const std::wstring key = path_ + L'\\' + name;
  const std::wstring source = L"there is no such source";
  const std::size_t size = (source.size() + 1) * sizeof(wchar_t);
  EXPECT_EQ(
      RegSetKeyValueW(HKEY_CURRENT_USER, key.c_str(), L"Base Cible", REG_SZ, source.c_str(), size),
      ERROR_SUCCESS);
  const AutomationString name_text(name);
  const AutomationString path_text(path_);
  const AutomationString report(ToWide(folder_.path()) + name + L".txt");
  EXPECT_EQ(task->put_Nom(name_text.get()), S_OK);
  EXPECT_EQ(task->put_RegstCle(path_text.get()), S_OK);
  EXPECT_EQ(task->put_Regst(static_cast<LONG>(0x80000001)), S_OK);
  EXPECT_EQ(task->put_Rapport(report.get()), S_OK);
}

LONG TaskKeys::Status(const std::wstring& name) const {
  DWORD status = 0;
  DWORD size = sizeof(status);
  const std::wstring key = path_ + L'\\' + name;
  if (RegGetValueW(HKEY_CURRENT_USER, key.c_str(), L"Etat", RRF_RT_REG_DWORD, nullptr, &status,
                   &size) != ERROR_SUCCESS) {
    return -1;
  }
  return static_cast<LONG>(status);
}

std::string TaskKeys::Report(const std::wstring& name) const {
  return folder_.Read(FromWide(name) + ".txt");
}

}  // namespace imptable
