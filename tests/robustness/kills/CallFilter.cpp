#include "tests/robustness/kills/CallFilter.h"

#include <fcntl.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>

#include <array>
#include <cstddef>
#include <cstdint>

namespace imptable {
namespace {

constexpr auto kCalls = std::to_array<std::uint32_t>({
    __NR_write,    __NR_writev,          __NR_pwrite64,   __NR_pwritev,   __NR_ftruncate,
    __NR_truncate, __NR_fsync,           __NR_fdatasync,  __NR_renameat2, __NR_unlinkat,
    __NR_linkat,   __NR_symlinkat,       __NR_mkdirat,    __NR_fallocate, __NR_sendfile,
    __NR_fchmod,   __NR_copy_file_range, __NR_connect,    __NR_sendto,    __NR_sendmsg,
    __NR_recvfrom, __NR_recvmsg,         __NR_exit_group,
#ifdef __NR_rename
    __NR_rename,   __NR_unlink,          __NR_rmdir,      __NR_link,      __NR_symlink,
    __NR_mkdir,    __NR_creat,
#endif
#ifdef __NR_renameat
    __NR_renameat,
#endif
});

struct OpenCall {
  std::uint32_t number;
  std::uint32_t flags_at;  // offset of its flags' lower half
};

constexpr std::uint32_t Argument(std::size_t index) {
  return static_cast<std::uint32_t>(offsetof(seccomp_data, args) + index * sizeof(std::uint64_t));
}

constexpr auto kOpenCalls = std::to_array<OpenCall>({
    {__NR_openat, Argument(2)},
#ifdef __NR_open
    {__NR_open, Argument(1)},
#endif
});

constexpr std::uint32_t kWritingFlags = O_WRONLY | O_RDWR | O_CREAT | O_TRUNC;

sock_filter Load(std::uint32_t offset) { return {BPF_LD | BPF_W | BPF_ABS, 0, 0, offset}; }
sock_filter Return(std::uint32_t action) { return {BPF_RET | BPF_K, 0, 0, action}; }
/// Goes on with the next statement when the test holds, else skips `otherwise` statements.
sock_filter Test(std::uint16_t test, std::uint32_t operand, std::uint8_t otherwise) {
  return {static_cast<std::uint16_t>(BPF_JMP | test | BPF_K), 0, otherwise, operand};
}

}  // namespace

std::vector<sock_filter> CallFilter() {
  std::vector<sock_filter> filter{Load(offsetof(seccomp_data, nr))};
  for (const std::uint32_t call : kCalls) {
    filter.push_back(Test(BPF_JEQ, call, 1));
    filter.push_back(Return(SECCOMP_RET_TRACE));
  }
  for (const OpenCall& call : kOpenCalls) {
    filter.push_back(Test(BPF_JEQ, call.number, 4));
    filter.push_back(Load(call.flags_at));
    filter.push_back(Test(BPF_JSET, kWritingFlags, 1));
    filter.push_back(Return(SECCOMP_RET_TRACE));
    filter.push_back(Return(SECCOMP_RET_ALLOW));
  }
  filter.push_back(Return(SECCOMP_RET_ALLOW));
  return filter;
}

bool InstallFilter(const std::vector<sock_filter>& filter) {
  const sock_fprog program{static_cast<unsigned short>(filter.size()),
                           const_cast<sock_filter*>(filter.data())};
  return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
         prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

}  // namespace imptable
