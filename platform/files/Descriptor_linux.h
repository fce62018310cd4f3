#ifndef PLATFORM_FILES_DESCRIPTOR_LINUX_H_
#define PLATFORM_FILES_DESCRIPTOR_LINUX_H_

#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace imptable {

/// What the last system call left in errno.
inline std::error_code LastError() { return {errno, std::generic_category()}; }

/// Repeats a system call that a signal cut short.
template <typename Call>
auto Retry(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

/// Sole owner of a file descriptor.
class Descriptor {
 public:
  Descriptor() = default;
  explicit Descriptor(int raw) : raw_(raw) {}
  ~Descriptor() { Close(); }
  Descriptor(Descriptor&& other) noexcept : raw_(std::exchange(other.raw_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(raw_, other.raw_);
    return *this;
  }

  int raw() const { return raw_; }
  bool is_open() const { return raw_ >= 0; }

  /// Called once only: even a failed close(2) frees the descriptor.
  std::error_code Close() {
    if (!is_open()) return {};
    return close(std::exchange(raw_, -1)) == 0 ? std::error_code() : LastError();
  }

 private:
  int raw_ = -1;
};

}  // namespace imptable

#endif  // PLATFORM_FILES_DESCRIPTOR_LINUX_H_
