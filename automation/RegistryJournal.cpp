#include "automation/RegistryJournal.h"

#include <algorithm>

namespace imptable {
namespace {

class OpenKey {
 public:
  OpenKey() = default;
  OpenKey(const OpenKey&) = delete;
  OpenKey& operator=(const OpenKey&) = delete;
  ~OpenKey() {
    if (key_ != nullptr) RegCloseKey(key_);
  }

  HKEY get() const { return key_; }
  HKEY* Receive() { return &key_; }

 private:
  HKEY key_ = nullptr;
};

}  // namespace

RegistryJournal::~RegistryJournal() {
  std::for_each(steps_.rbegin(), steps_.rend(), [this](const Step& step) { TakeBack(step); });
}

LSTATUS RegistryJournal::MakeKeys(const std::wstring& path) {
  for (std::size_t end = 0; end != std::wstring::npos;) {
    end = path.find(L'\\', end + 1);
    const std::wstring part = path.substr(0, end);
    OpenKey key;
    DWORD disposition = 0;
    const LSTATUS result = RegCreateKeyExW(root_, part.c_str(), 0, nullptr, 0, KEY_READ, nullptr,
                                           key.Receive(), &disposition);
    if (result != ERROR_SUCCESS) return result;
    if (disposition == REG_CREATED_NEW_KEY) steps_.push_back({part, std::nullopt, std::nullopt});
  }
  return ERROR_SUCCESS;
}

LSTATUS RegistryJournal::Write(const std::wstring& path, const std::wstring& name,
                               const std::wstring& text) {
  LSTATUS result = MakeKeys(path);
  if (result != ERROR_SUCCESS) return result;
  OpenKey key;
  result = RegOpenKeyExW(root_, path.c_str(), 0, KEY_QUERY_VALUE | KEY_SET_VALUE, key.Receive());
  if (result != ERROR_SUCCESS) return result;

  Value former;
  DWORD size = 0;
  const bool had_one = RegQueryValueExW(key.get(), name.c_str(), nullptr, &former.type, nullptr,
                                        &size) == ERROR_SUCCESS;
  former.data.resize(size);
  if (had_one) {
    result = RegQueryValueExW(key.get(), name.c_str(), nullptr, nullptr, former.data.data(), &size);
    if (result != ERROR_SUCCESS) return result;
  }
  steps_.push_back({path, name, had_one ? std::optional(former) : std::nullopt});
  const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
  result = RegSetValueExW(key.get(), name.c_str(), 0, REG_SZ,
                          reinterpret_cast<const BYTE*>(text.c_str()), static_cast<DWORD>(bytes));
  if (result != ERROR_SUCCESS) steps_.pop_back();
  return result;
}

void RegistryJournal::TakeBack(const Step& step) const {
  if (!step.name) {
    RegDeleteKeyW(root_, step.path.c_str());
    return;
  }
  OpenKey key;
  if (RegOpenKeyExW(root_, step.path.c_str(), 0, KEY_SET_VALUE, key.Receive()) != ERROR_SUCCESS) {
    return;
  }
  if (step.former) {
    RegSetValueExW(key.get(), step.name->c_str(), 0, step.former->type, step.former->data.data(),
                   static_cast<DWORD>(step.former->data.size()));
  } else {
    RegDeleteValueW(key.get(), step.name->c_str());
  }
}

}  // namespace imptable
