#include "platform/testing/TemporaryFolder.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

namespace imptable {

TemporaryFolder::TemporaryFolder()
    : TemporaryFolder(std::filesystem::temp_directory_path().string()) {}

TemporaryFolder::TemporaryFolder(const std::string& parent) : path_(parent + "/imptable-XXXXXX") {
  if (mkdtemp(path_.data()) == nullptr) {
    throw std::system_error(errno, std::generic_category(), path_);
  }
  path_ += '/';
}

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
  return std::filesystem::exists(path_ + name);
}

}  // namespace imptable
