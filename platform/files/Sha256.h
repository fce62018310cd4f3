#ifndef PLATFORM_FILES_SHA256_H_
#define PLATFORM_FILES_SHA256_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace imptable {

/// The SHA-256 digest (FIPS 180-4) of bytes that come in pieces.
class Sha256 {
 public:
  void Add(std::string_view bytes);

  /// In 64 hexadecimal digits, lower case. To be called once, at the end.
  std::string HexDigest();

 private:
  void TakeBlock(const char* block);

  static constexpr std::size_t kBlockBytes = 64;

  std::array<std::uint32_t, 8> state_{0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a,
                                      0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};
  std::string pending_;  // shorter than a block
  std::uint64_t bytes_ = 0;
};

}  // namespace imptable

#endif  // PLATFORM_FILES_SHA256_H_
