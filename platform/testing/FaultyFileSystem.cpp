#include "platform/testing/FaultyFileSystem.h"

#include <utility>

namespace imptable {

class FaultyFileSystem::Input : public InputFile {
 public:
  Input(FaultyFileSystem& owner, std::string path, std::unique_ptr<InputFile> file)
      : owner_(owner), path_(std::move(path)), file_(std::move(file)) {}

  std::size_t Read(char* buffer, std::size_t size, std::error_code& error) override {
    error = owner_.Next(FileOperation::kRead);
    const std::size_t count = error ? 0 : file_->Read(buffer, size, error);
    owner_.log_.push_back("read " + path_ + " " + std::to_string(count));
    return count;
  }

 private:
  FaultyFileSystem& owner_;
  std::string path_;
  std::unique_ptr<InputFile> file_;
};

class FaultyFileSystem::Output : public OutputFile {
 public:
  Output(FaultyFileSystem& owner, std::string path, std::unique_ptr<OutputFile> file)
      : owner_(owner), path_(std::move(path)), file_(std::move(file)) {}

  std::error_code Write(std::string_view bytes) override {
    owner_.log_.push_back("write " + path_ + " " + std::to_string(bytes.size()));
    const std::error_code error = owner_.Next(FileOperation::kWrite);
    return error ? error : file_->Write(bytes);
  }

  std::error_code Flush() override {
    owner_.log_.push_back("flush " + path_);
    const std::error_code error = owner_.Next(FileOperation::kFlush);
    return error ? error : file_->Flush();
  }

  std::error_code Close() override {
    owner_.log_.push_back("close " + path_);
    const std::error_code wanted = owner_.Next(FileOperation::kClose);
    const std::error_code error = file_->Close();
    return wanted ? wanted : error;
  }

 private:
  FaultyFileSystem& owner_;
  std::string path_;
  std::unique_ptr<OutputFile> file_;
};

void FaultyFileSystem::Fail(FileOperation operation, int nth, std::error_code error) {
  faults_.push_back({operation, nth, false, error});
}

void FaultyFileSystem::FailFrom(FileOperation operation, int nth, std::error_code error) {
  faults_.push_back({operation, nth, true, error});
}

std::error_code FaultyFileSystem::Next(FileOperation operation) {
  std::error_code result;
  for (Fault& fault : faults_) {
    if (fault.operation != operation) continue;
    --fault.countdown;
    if (fault.countdown == 0 || (fault.persists && fault.countdown < 0)) result = fault.error;
  }
  return result;
}

std::unique_ptr<InputFile> FaultyFileSystem::OpenForReading(const std::string& path,
                                                            std::error_code& error) {
  log_.push_back("open read " + path);
  error = Next(FileOperation::kOpenRead);
  if (error) return nullptr;
  auto file = files_.OpenForReading(path, error);
  if (!file) return nullptr;
  return std::make_unique<Input>(*this, path, std::move(file));
}

std::unique_ptr<OutputFile> FaultyFileSystem::OpenForWriting(const std::string& path,
                                                             WriteMode mode,
                                                             std::error_code& error) {
  log_.push_back((mode == WriteMode::kAppend ? "open append " : "open write ") + path);
  error = Next(FileOperation::kOpenWrite);
  if (error) return nullptr;
  auto file = files_.OpenForWriting(path, mode, error);
  if (!file) return nullptr;
  return std::make_unique<Output>(*this, path, std::move(file));
}

std::error_code FaultyFileSystem::Remove(const std::string& path) {
  log_.push_back("remove " + path);
  const std::error_code error = Next(FileOperation::kRemove);
  return error ? error : files_.Remove(path);
}

std::error_code FaultyFileSystem::Replace(const std::string& from, const std::string& to) {
  log_.push_back("replace " + to + " by " + from);
  const std::error_code error = Next(FileOperation::kReplace);
  return error ? error : files_.Replace(from, to);
}

}  // namespace imptable
