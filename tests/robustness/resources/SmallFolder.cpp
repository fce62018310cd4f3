#include "tests/robustness/resources/SmallFolder.h"

#include <sys/mount.h>

#include <cerrno>
#include <cstring>
#include <stdexcept>

namespace imptable {

SmallFolder::SmallFolder(const std::string& folder, const std::string& room) : folder_(folder) {
  Mount(0, room);
}

SmallFolder::~SmallFolder() { umount2(folder_.c_str(), MNT_DETACH); }

void SmallFolder::Resize(const std::string& room) const { Mount(MS_REMOUNT, room); }

void SmallFolder::Mount(unsigned long flags, const std::string& room) const {
  if (mount("tmpfs", folder_.c_str(), "tmpfs", flags, room.c_str()) == 0) return;
  throw std::runtime_error("can't mount a file system (" + room + ") at " + folder_ + ": " +
                           std::strerror(errno) + "; tests/robustness/resources/run says how");
}

std::string Pages(int pages) { return "size=" + std::to_string(pages * kPageBytes); }

}  // namespace imptable
