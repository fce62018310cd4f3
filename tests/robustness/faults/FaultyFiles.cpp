#include "tests/robustness/faults/FaultyFiles.h"

#include <utility>

namespace imptable {
namespace {

std::error_code ErrorOf(Effect effect) {
  return std::make_error_code(effect == Effect::kFails ? std::errc::io_error
                                                       : std::errc::no_space_on_device);
}

/// Counts itself as an open file as long as it lives.
class Opened {
 public:
  explicit Opened(int& open_files) : open_files_(open_files) { ++open_files_; }
  Opened(const Opened&) = delete;
  Opened& operator=(const Opened&) = delete;
  ~Opened() { --open_files_; }

 private:
  int& open_files_;
};

}  // namespace

class FaultyFiles::Input : public InputFile {
 public:
  Input(FaultyFiles& owner, std::string path, std::unique_ptr<InputFile> file)
      : owner_(owner), opened_(owner.open_files_), path_(std::move(path)), file_(std::move(file)) {}

  std::size_t Read(char* buffer, std::size_t size, std::error_code& error) override {
    error = owner_.Next(Operation::kRead, path_);
    return error ? 0 : file_->Read(buffer, size, error);
  }

 private:
  FaultyFiles& owner_;
  Opened opened_;
  std::string path_;
  std::unique_ptr<InputFile> file_;
};

class FaultyFiles::Output : public OutputFile {
 public:
  Output(FaultyFiles& owner, std::string path, std::unique_ptr<OutputFile> file)
      : owner_(owner), opened_(owner.open_files_), path_(std::move(path)), file_(std::move(file)) {}

  ~Output() override {
    if (!closed_) owner_.dropped_.push_back(path_);
  }

  std::error_code Write(std::string_view bytes) override {
    const auto effect = owner_.plan_.Next(Operation::kWrite, path_);
    if (!effect) return file_->Write(bytes);
    if (*effect == Effect::kTorn) {
      if (const std::error_code error = file_->Write(bytes.substr(0, bytes.size() / 2))) {
        return error;
      }
    }
    return ErrorOf(*effect);
  }

  std::error_code Flush() override {
    const std::error_code error = owner_.Next(Operation::kFlush, path_);
    return error ? error : file_->Flush();
  }

  std::error_code Close() override {
    closed_ = true;
    const std::error_code wanted = owner_.Next(Operation::kClose, path_);
    const std::error_code error = file_->Close();
    return wanted ? wanted : error;
  }

 private:
  FaultyFiles& owner_;
  Opened opened_;
  std::string path_;
  std::unique_ptr<OutputFile> file_;
  bool closed_ = false;
};

std::error_code FaultyFiles::Next(Operation operation, const std::string& path) const {
  const auto effect = plan_.Next(operation, path);
  return effect ? ErrorOf(*effect) : std::error_code();
}

std::error_code FaultyFiles::NextOfExisting(Operation operation, const std::string& path) const {
  const std::error_code error = Next(operation, path);
  if (!error || files_.Query(path)) return error;
  plan_.TakeBack();
  return {};
}

std::optional<FileInfo> FaultyFiles::Query(const std::string& path, std::error_code& error) const {
  error = Next(Operation::kQuery, path);
  if (error) return std::nullopt;
  return files_.Query(path, error);
}

std::unique_ptr<InputFile> FaultyFiles::OpenForReading(const std::string& path,
                                                       std::error_code& error) {
  error = NextOfExisting(Operation::kOpenRead, path);
  if (error) return nullptr;
  auto file = files_.OpenForReading(path, error);
  if (!file) return nullptr;
  return std::make_unique<Input>(*this, path, std::move(file));
}

std::unique_ptr<OutputFile> FaultyFiles::OpenForWriting(const std::string& path, WriteMode mode,
                                                        std::error_code& error) {
  error = Next(Operation::kOpenWrite, path);
  if (error) return nullptr;
  auto file = files_.OpenForWriting(path, mode, error);
  if (!file) return nullptr;
  return std::make_unique<Output>(*this, path, std::move(file));
}

std::error_code FaultyFiles::Remove(const std::string& path) {
  const std::error_code error = NextOfExisting(Operation::kRemove, path);
  return error ? error : files_.Remove(path);
}

std::error_code FaultyFiles::Replace(const std::string& from, const std::string& to) {
  const std::error_code error = Next(Operation::kReplace, to);
  return error ? error : files_.Replace(from, to);
}

}  // namespace imptable
