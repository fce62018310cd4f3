#ifndef TESTS_ROBUSTNESS_RESOURCES_SMALLFOLDER_H_
#define TESTS_ROBUSTNESS_RESOURCES_SMALLFOLDER_H_

#include <string>

namespace imptable {

/// The unit in which such a folder counts its room.
inline constexpr int kPageBytes = 4096;

/// A folder with little room: a file system of its own, mounted over it. Empty at first.
/// @throws std::runtime_error  from each, where that can't be mounted.
class SmallFolder {
 public:
  /// @param folder  exists.
  /// @param room  e.g. "size=4k", "nr_inodes=3".
  SmallFolder(const std::string& folder, const std::string& room);
  ~SmallFolder();
  SmallFolder(const SmallFolder&) = delete;
  SmallFolder& operator=(const SmallFolder&) = delete;

  /// What is in it stays, and must fit.
  void Resize(const std::string& room) const;
  void MakeMuchRoom() const { Resize("size=64m,nr_inodes=1000"); }

 private:
  void Mount(unsigned long flags, const std::string& room) const;

  std::string folder_;
};

std::string Pages(int pages);

}  // namespace imptable

#endif  // TESTS_ROBUSTNESS_RESOURCES_SMALLFOLDER_H_
