#include "platform/files/FileSystem.h"

#include <algorithm>
#include <vector>

namespace imptable {
namespace {

constexpr std::uint64_t kMostAtOnce = std::uint64_t{64} << 10U;

}  // namespace

std::error_code InputFile::Skip(std::uint64_t bytes) {
  std::vector<char> block(static_cast<std::size_t>(std::min(bytes, kMostAtOnce)));
  std::error_code error;
  while (bytes > 0) {
    const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(bytes, block.size()));
    const std::size_t got = Read(block.data(), wanted, error);
    if (got == 0) break;
    bytes -= got;
  }
  return error;
}

}  // namespace imptable
