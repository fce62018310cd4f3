#include "tests/scenarios/ResultFiles.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace imptable {
namespace {

namespace fs = std::filesystem;

void ReadInto(const std::string& folder, ResultFiles& files) {
  if (!fs::exists(folder)) return;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
    if (!entry.is_regular_file()) continue;
    files[entry.path().lexically_relative(folder).string()] = FileText(entry.path().string());
  }
}

std::string OwnFolder(const Scenario& scenario, DatabaseKind kind) {
  return scenario.folder + "expected." + std::string(NameOf(kind));
}

}  // namespace

ResultFiles ReadExpected(const Scenario& scenario, DatabaseKind kind) {
  ResultFiles files;
  ReadInto(scenario.folder + "expected", files);
  ReadInto(OwnFolder(scenario, kind), files);
  return files;
}

void Compare(const ResultFiles& expected, const ResultFiles& found) {
  for (const auto& [name, text] : expected) {
    const auto file = found.find(name);
    if (file == found.end()) {
      ADD_FAILURE() << name << " is missing";
    } else {
      EXPECT_EQ(text, file->second) << "in " << name;
    }
  }
  for (const auto& [name, text] : found) {
    EXPECT_TRUE(expected.contains(name)) << name << " isn't expected; it holds:\n" << text;
  }
}

void Record(const Scenario& scenario, DatabaseKind kind, const ResultFiles& found) {
  const bool first = kind == scenario.databases.front();
  const std::string folder = first ? scenario.folder + "expected" : OwnFolder(scenario, kind);
  fs::remove_all(folder);
  ResultFiles shared;
  if (!first) ReadInto(scenario.folder + "expected", shared);
  for (const auto& [name, text] : found) {
    const auto same = shared.find(name);
    if (same != shared.end() && same->second == text) continue;
    const fs::path path = fs::path(folder) / name;
    fs::create_directories(path.parent_path());
    std::ofstream file(path, std::ios::binary);
    file << text;
    if (!file.flush()) throw std::runtime_error("Can't write " + path.string());
  }
}

}  // namespace imptable
