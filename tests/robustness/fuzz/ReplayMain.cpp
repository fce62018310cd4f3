// Takes the fuzzer's place: runs the target on every file of the folders that are named.
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

#include "tests/robustness/fuzz/Property.h"

int main(int count, char** arguments) {
  int replayed = 0;
  for (int i = 1; i < count; ++i) {
    for (const auto& entry : std::filesystem::directory_iterator(arguments[i])) {
      std::ifstream file(entry.path(), std::ios::binary);
      const std::string bytes{std::istreambuf_iterator<char>(file),
                              std::istreambuf_iterator<char>()};
      std::cout << entry.path().filename().string() << std::endl;
      LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
      ++replayed;
    }
  }
  std::cout << replayed << " inputs replayed\n";
  return replayed > 0 ? 0 : 1;
}
