#include "platform/registry/RegistryStore.h"
#include "platform/registry/SqliteRegistry.h"
#include "platform/testing/PlainEncodings.h"
#include "platform/testing/RegistryPlace.h"
#include "platform/testing/TemporaryFolder.h"

namespace imptable {
namespace {

class FilePlace : public RegistryPlace {
 public:
  Registry& registry() override { return registry_; }
  const TextEncoding& encoding() const override { return encoding_; }
  KeyPath Key(const std::string& path) const override { return {kHkeyLocalMachine, path}; }

 private:
  TemporaryFolder folder_;
  RegistryStore store_{folder_.path() + "registry.db"};
  Utf8TextEncoding encoding_;
  SqliteRegistry registry_{store_, encoding_};
};

}  // namespace

std::unique_ptr<RegistryPlace> PlaceInTheSystem() { return std::make_unique<FilePlace>(); }

}  // namespace imptable
