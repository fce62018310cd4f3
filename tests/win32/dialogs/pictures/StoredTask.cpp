#include "tests/win32/dialogs/pictures/StoredTask.h"

#include <fstream>
#include <stdexcept>
#include <string>

#include "platform/windows/Windows_win32.h"

namespace imptable {
namespace {

const std::wstring kScenario = L"SOFTWARE\\KALDO\\Scenarios\\S1";
constexpr const wchar_t* kFolder = L"C:\\Imports";
constexpr const char* kFile = "C:\\Imports\\CLIENTS.CSV";

void Require(bool is_done) {
  if (!is_done) throw std::runtime_error("The task can't be stored.");
}

void Store(const std::wstring& key, const wchar_t* name, const std::wstring& text) {
  Require(RegSetKeyValueW(HKEY_LOCAL_MACHINE, (kScenario + key).c_str(), name, REG_SZ, text.c_str(),
                          static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))) ==
          ERROR_SUCCESS);
}

void Store(const std::wstring& key, const wchar_t* name, DWORD number) {
  Require(RegSetKeyValueW(HKEY_LOCAL_MACHINE, (kScenario + key).c_str(), name, REG_DWORD, &number,
                          sizeof number) == ERROR_SUCCESS);
}

}  // namespace

StoredTask::StoredTask() {
  const std::wstring task = L"\\Taches\\T1";
  Store(task, L"Base Cible", L"Shop");
  Store(task, L"Login", L"anna");
  Store(task, L"Table", L"CLIENT");
  Store(task, L"Alias", L"CLIENTS");
  Store(task, L"Dir", kFolder);
  Store(task, L"FormatFile", 1);
  Store(task, L"NombreColonnes", 4);
  Store(task, L"Param", 1);
  const std::wstring columns = task + L"\\Colonnes";
  Store(columns, L"1", L"4");
  Store(columns, L"2", L"1");
  Store(columns, L"3", L"7,7,,/,");
  Store(columns, L"4", L"5,2");
  const std::wstring fields = task + L"\\Champs";
  Store(fields, L"1", L"ID,INTEGER,(Col)1");
  Store(fields, L"2", L"NAME,VARCHAR(20),(Col)2");
  Store(fields, L"3", L"BORN,DATE,(Col)3");
  Store(fields, L"4", L"AMOUNT,FLOAT,(Col)4");
  const std::wstring variables = L"\\Variables";
  Store(variables, L"SOURCE", L"Shop");
  Store(variables, L"FOLDER", kFolder);
  CreateDirectoryW(kFolder, nullptr);
  std::ofstream file(kFile);
  file << "1;Anna;15/11/2006;12.5\n2;Bob;01/02/1999;3\n" << std::flush;
  Require(file.good());
}

StoredTask::~StoredTask() {
  RegDeleteTreeW(HKEY_LOCAL_MACHINE, kScenario.c_str());
  DeleteFileA(kFile);
  RemoveDirectoryW(kFolder);
}

}  // namespace imptable
