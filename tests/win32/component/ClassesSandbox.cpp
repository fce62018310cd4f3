#include "tests/win32/component/ClassesSandbox.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>

namespace imptable {
namespace {

void List(HKEY key, const std::wstring& path, std::vector<std::wstring>& found) {
  std::array<wchar_t, 256> name{};
  for (DWORD i = 0;; ++i) {
    std::array<wchar_t, 512> text{};
    DWORD name_length = name.size();
    DWORD size = sizeof(text);
    if (RegEnumValueW(key, i, name.data(), &name_length, nullptr, nullptr,
                      reinterpret_cast<BYTE*>(text.data()), &size) != ERROR_SUCCESS) {
      break;
    }
    found.push_back(path + L'|' + name.data() + L'=' + text.data());
  }
  for (DWORD i = 0;; ++i) {
    DWORD length = name.size();
    if (RegEnumKeyExW(key, i, name.data(), &length, nullptr, nullptr, nullptr, nullptr) !=
        ERROR_SUCCESS) {
      break;
    }
    const std::wstring below = path.empty() ? name.data() : path + L'\\' + name.data();
    found.push_back(below);
    HKEY subkey = nullptr;
    if (RegOpenKeyExW(key, name.data(), 0, KEY_READ, &subkey) != ERROR_SUCCESS) continue;
    List(subkey, below, found);
    RegCloseKey(subkey);
  }
}

}  // namespace

std::wstring LowerCase(std::wstring text) {
  CharLowerW(text.data());
  return text;
}

SandboxKey::SandboxKey(const std::wstring& name)
    : path_(L"Software\\component_client_test\\" + std::to_wstring(GetCurrentProcessId()) + name) {
  if (RegCreateKeyW(HKEY_CURRENT_USER, path_.c_str(), &key_) != ERROR_SUCCESS) {
    throw std::runtime_error("no key for the test");
  }
}

SandboxKey::~SandboxKey() {
  RegCloseKey(key_);
  RegDeleteTreeW(HKEY_CURRENT_USER, path_.c_str());
}

void SandboxKey::Write(const std::wstring& path, const std::wstring& name,
                       const std::wstring& text) const {
  const std::size_t size = (text.size() + 1) * sizeof(wchar_t);
  if (RegSetKeyValueW(key_, path.c_str(), name.c_str(), REG_SZ, text.c_str(),
                      static_cast<DWORD>(size)) != ERROR_SUCCESS) {
    throw std::runtime_error("no value for the test");
  }
}

std::vector<std::wstring> SandboxKey::Contents() const {
  std::vector<std::wstring> found;
  List(key_, L"", found);
  for (std::wstring& each : found) each = LowerCase(std::move(each));
  std::sort(found.begin(), found.end());
  return found;
}

void SandboxKey::Seal() const { RegDeleteTreeW(HKEY_CURRENT_USER, path_.c_str()); }

}  // namespace imptable
