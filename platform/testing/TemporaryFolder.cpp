#include "platform/testing/TemporaryFolder.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <system_error>

#include "platform/files/FileSystem.h"

namespace imptable {
namespace {

/// @return the path of a folder that wasn't there before.
std::string MakeFolder(const std::filesystem::path& parent) {
  std::random_device random;
  for (;;) {
    const auto path = parent / ("imptable-" + std::to_string(random()));
    if (std::filesystem::create_directory(path)) return path.string();
  }
}

}  // namespace

TemporaryFolder::TemporaryFolder()
    : TemporaryFolder(std::filesystem::temp_directory_path().string()) {}

TemporaryFolder::TemporaryFolder(const std::string& parent)
    : path_(MakeFolder(std::filesystem::path(parent).make_preferred()) + SystemPathSeparator()) {}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::string TemporaryFolder::Write(const std::string& name, std::string_view bytes) const {
  std::ofstream file;
  file.exceptions(std::ios::failbit | std::ios::badbit);
  file.open(path_ + name, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  return path_ + name;
}

std::string TemporaryFolder::Read(const std::string& name) const {
  std::ifstream file;
  file.exceptions(std::ios::failbit | std::ios::badbit);
  file.open(path_ + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

bool TemporaryFolder::Exists(const std::string& name) const {
  return SystemFileSystem()->Query(path_ + name).has_value();
}

}  // namespace imptable
