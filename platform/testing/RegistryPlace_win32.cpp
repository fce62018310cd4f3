#include <random>

#include "platform/registry/Registry_win32.h"
#include "platform/testing/RegistryPlace.h"
#include "platform/windows/Windows_win32.h"

namespace imptable {
namespace {

class WindowsPlace : public RegistryPlace {
 public:
  ~WindowsPlace() override { RegDeleteTreeA(HKEY_CURRENT_USER, path_.c_str()); }

  Registry& registry() override { return *registry_; }
  const TextEncoding& encoding() const override { return *encoding_; }
  KeyPath Key(const std::string& path) const override {
    return {kHkeyCurrentUser, path.empty() ? path_ : path_ + '\\' + path};
  }

 private:
  std::string path_ = "imptable-test-" + std::to_string(std::random_device()());
  std::unique_ptr<Registry> registry_ = SystemRegistry();
  std::unique_ptr<TextEncoding> encoding_ = SystemTextEncoding();
};

}  // namespace

std::unique_ptr<RegistryPlace> PlaceInTheSystem() { return std::make_unique<WindowsPlace>(); }

}  // namespace imptable
