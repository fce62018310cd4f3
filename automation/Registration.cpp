#include "automation/Registration.h"

#include <array>

#include "automation/AutomationEntry.h"
#include "automation/ComPointer.h"
#include "automation/FaultReport.h"
#include "automation/RegistryJournal.h"

// Exported by the system's library, but missing from the tool chain's header.
STDAPI RegisterTypeLibForUser(ITypeLib* library, OLECHAR* path, OLECHAR* help_folder);
STDAPI UnRegisterTypeLibForUser(REFGUID library, WORD major, WORD minor, LCID locale,
                                SYSKIND system);

namespace imptable {
namespace {

constexpr std::wstring_view kUserClasses = L"Software\\Classes\\";
constexpr std::wstring_view kClassName = L"Importation Table";

// Of the type library: never change.
constexpr WORD kMajorVersion = 2;
constexpr WORD kMinorVersion = 1;
constexpr LCID kLibraryLocale = 0x409;

/// One of the places where classes are registered.
struct Place {
  HKEY root;
  std::wstring prefix;
  decltype(&RegisterTypeLib) register_library;
  decltype(&UnRegisterTypeLib) unregister_library;
};

std::array<Place, 2> PlacesIn(const RegistrationRoots& roots) {
  return {{{roots.machine, L"", &RegisterTypeLib, &UnRegisterTypeLib},
           {roots.user, std::wstring(kUserClasses), &RegisterTypeLibForUser,
            &UnRegisterTypeLibForUser}}};
}

std::wstring Braced(REFGUID guid) {
  std::array<wchar_t, 39> text{};
  StringFromGUID2(guid, text.data(), static_cast<int>(text.size()));
  return text.data();
}

std::wstring ClassKey(const Place& place) {
  return place.prefix + L"CLSID\\" + Braced(CLSID_ImpTable);
}

std::wstring NameKey(const Place& place) { return place.prefix + std::wstring(kProgId); }

LSTATUS WriteClass(RegistryJournal& journal, const Place& place, const std::wstring& path) {
  const std::wstring class_key = ClassKey(place);
  const std::wstring name_key = NameKey(place);
  const std::wstring server_key = class_key + L"\\InprocServer32";
  const std::wstring name(kClassName);
  struct Entry {
    std::wstring path;
    std::wstring name;
    std::wstring text;
  };
  const std::array<Entry, 9> entries{{
      {name_key, L"", name},
      {name_key + L"\\CLSID", L"", Braced(CLSID_ImpTable)},
      {class_key, L"", name},
      {server_key, L"", path},
      {server_key, L"ThreadingModel", L"Apartment"},
      {class_key + L"\\ProgID", L"", std::wstring(kProgId)},
      {class_key + L"\\Programmable", L"", L""},
      {class_key + L"\\TypeLib", L"", Braced(LIBID_SQLTImpT)},
      {class_key + L"\\Version", L"",
       std::to_wstring(kMajorVersion) + L'.' + std::to_wstring(kMinorVersion)},
  }};
  for (const Entry& entry : entries) {
    const LSTATUS result = journal.Write(entry.path, entry.name, entry.text);
    if (result != ERROR_SUCCESS) return result;
  }
  return ERROR_SUCCESS;
}

/// @return true when the ProgID stands for this class and no other.
bool NamesThisClass(const Place& place) {
  std::array<wchar_t, 64> text{};
  DWORD size = sizeof(text);
  const LSTATUS result = RegGetValueW(place.root, (NameKey(place) + L"\\CLSID").c_str(), nullptr,
                                      RRF_RT_REG_SZ, nullptr, text.data(), &size);
  return result == ERROR_SUCCESS && Braced(CLSID_ImpTable) == text.data();
}

bool HasKey(HKEY root, const std::wstring& path) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return false;
  RegCloseKey(key);
  return true;
}

bool HasLibrary(const Place& place) {
  return HasKey(place.root, place.prefix + L"TypeLib\\" + Braced(LIBID_SQLTImpT) + L"\\2.1");
}

bool IsRegisteredIn(const Place& place) {
  return HasLibrary(place) || NamesThisClass(place) || HasKey(place.root, ClassKey(place));
}

HRESULT RemoveLibrary(const Place& place) {
  return place.unregister_library(LIBID_SQLTImpT, kMajorVersion, kMinorVersion, kLibraryLocale,
                                  SYS_WIN32);
}

HRESULT RegisterIn(const Place& place, std::wstring path, ITypeLib& library) {
  RegistryJournal journal(place.root);
  const LSTATUS written = WriteClass(journal, place, path);
  if (written != ERROR_SUCCESS) return HRESULT_FROM_WIN32(static_cast<DWORD>(written));
  const bool had_library = HasLibrary(place);
  const HRESULT registered = place.register_library(&library, path.data(), nullptr);
  if (SUCCEEDED(registered)) {
    journal.Keep();
  } else if (!had_library) {
    RemoveLibrary(place);
  }
  return registered;
}

/// @return a failure when something may still be there.
HRESULT UnregisterIn(const Place& place) {
  HRESULT result = RemoveLibrary(place);
  const auto remove = [&](const std::wstring& path) {
    const LSTATUS removed = RegDeleteTreeW(place.root, path.c_str());
    if (removed != ERROR_SUCCESS && removed != ERROR_FILE_NOT_FOUND) {
      result = HRESULT_FROM_WIN32(static_cast<DWORD>(removed));
    }
  };
  if (NamesThisClass(place)) remove(NameKey(place));
  remove(ClassKey(place));
  return result;
}

}  // namespace

HRESULT RegisterComponent(const std::wstring& path, const RegistrationRoots& roots) {
  ComPointer<ITypeLib> library;
  HRESULT result = LoadTypeLibEx(path.c_str(), REGKIND_NONE, library.Receive());
  if (FAILED(result)) return result;
  for (const Place& place : PlacesIn(roots)) {
    result = RegisterIn(place, path, *library.get());
    if (SUCCEEDED(result)) return S_OK;
  }
  return result;
}

HRESULT UnregisterComponent(const RegistrationRoots& roots) {
  // The first place may also show the entries of the second. So both are emptied before either is
  // checked.
  HRESULT result = S_OK;
  const std::array<Place, 2> places = PlacesIn(roots);
  for (const Place& place : places) {
    const HRESULT removed = UnregisterIn(place);
    if (FAILED(removed)) result = removed;
  }
  return IsRegisteredIn(places[0]) || IsRegisteredIn(places[1]) ? result : S_OK;
}

}  // namespace imptable
