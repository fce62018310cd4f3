#ifndef PLATFORM_TESTING_TEMPORARYFOLDER_H_
#define PLATFORM_TESTING_TEMPORARYFOLDER_H_

#include <string>
#include <string_view>

namespace imptable {

/// A fresh folder. The destructor removes it and all that is in it. Names are relative to it, with
/// "/" for a separator on every system. What can't be done throws, so that a test fails.
class TemporaryFolder {
 public:
  /// Below the system's folder for temporary files.
  TemporaryFolder();
  /// Below `parent`, which must exist.
  explicit TemporaryFolder(const std::string& parent);
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  /// Ends with the system's separator.
  const std::string& path() const { return path_; }

  /// @return the path of the file.
  std::string Write(const std::string& name, std::string_view bytes) const;
  std::string Read(const std::string& name) const;
  bool Exists(const std::string& name) const;

 private:
  std::string path_;
};

}  // namespace imptable

#endif  // PLATFORM_TESTING_TEMPORARYFOLDER_H_
