#include "import/ledger/ReplacingFile.h"

#include <utility>
#include <vector>

#include "core/RuntimeFault.h"

namespace imptable {
namespace {

constexpr std::size_t kCopyBytes = std::size_t{64} << 10U;

}  // namespace

ReplacingFile::ReplacingFile(FileSystem& files, const std::string& path)
    : files_(files), file_(RunFile::Create(files, path)), path_(file_->path()) {}

ReplacingFile::~ReplacingFile() {
  file_.reset();  // some systems can't delete an open file
  if (!done_) static_cast<void>(files_.Remove(path_));
}

void ReplacingFile::Replace(const std::string& path) {
  file_->Flush();
  file_->Close();
  if (const std::error_code error = files_.Replace(path_, path)) throw FileFault(error, path);
  done_ = true;
}

CopiedFile::CopiedFile(FileSystem& files, std::string path) : path_(std::move(path)) {
  std::error_code error;
  file_ = files.OpenForReading(path_, error);
  if (!file_) throw FileFault(error, path_);
}

void CopiedFile::CopyTo(RunFile& to) {
  std::vector<char> block(kCopyBytes);
  std::error_code error;
  for (;;) {
    const std::size_t got = file_->Read(block.data(), block.size(), error);
    if (error) throw FileFault(error, path_);
    if (got == 0) return;
    to.Write({block.data(), got});
  }
}

}  // namespace imptable
