#include "platform/testing/RegistryPlace.h"

#include "platform/testing/MemoryRegistry.h"
#include "platform/testing/PlainEncodings.h"

namespace imptable {
namespace {

class MemoryPlace : public RegistryPlace {
 public:
  Registry& registry() override { return registry_; }
  const TextEncoding& encoding() const override { return encoding_; }
  KeyPath Key(const std::string& path) const override { return {kHkeyLocalMachine, path}; }

 private:
  MemoryRegistry registry_;
  Utf8TextEncoding encoding_;
};

}  // namespace

std::unique_ptr<RegistryPlace> PlaceInMemory() { return std::make_unique<MemoryPlace>(); }

}  // namespace imptable
