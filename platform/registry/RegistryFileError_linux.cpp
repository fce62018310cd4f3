#include "platform/registry/RegistryFileError.h"

namespace imptable {
namespace {

struct Wording {
  std::string_view problem;
  std::string_view remedy;
};

Wording WordingOf(RegistryFileFault fault) {
  switch (fault) {
    case RegistryFileFault::kNotARegistry:
      return {"is not a registry file", "name another file or move this one away"};
    case RegistryFileFault::kNewerFormat:
      return {"was written by a newer version of this program",
              "update this program or name another file"};
    case RegistryFileFault::kDamaged:
      return {"is damaged",
              "restore a copy of it with that of its \"-wal\" file, if there is one, or move both "
              "away and import a registry export"};
    case RegistryFileFault::kNoRights:
      return {"may not be used by this user",
              "check the owner and the mode of the file and of its directory"};
    case RegistryFileFault::kDiskFull:
      return {"can't be written, the disk is full", "make room and try again"};
    case RegistryFileFault::kLocked:
      return {"is locked by another process", "end that process or try again later"};
    case RegistryFileFault::kUnusable:
      return {"can't be used", "check that the path names a file on a disk that works"};
  }
  return {};
}

std::string OneLine(std::string_view text) {
  std::string line(text);
  for (char& byte : line) {
    if (static_cast<unsigned char>(byte) < 0x20) byte = '?';
  }
  return line;
}

std::string Sentence(const std::string& path, RegistryFileFault fault, std::string_view detail) {
  const Wording wording = WordingOf(fault);
  std::string sentence = "registry file \"" + OneLine(path) + "\" ";
  sentence += wording.problem;
  if (!detail.empty()) sentence += " (" + OneLine(detail) + ")";
  sentence += ": ";
  sentence += wording.remedy;
  return sentence;
}

}  // namespace

RegistryFileError::RegistryFileError(const std::string& path, RegistryFileFault fault,
                                     std::string_view detail)
    : RegistryError(Sentence(path, fault, detail)), path_(path), fault_(fault), detail_(detail) {}

}  // namespace imptable
