#include "core/FileLook.h"

#include <gtest/gtest.h>

#include "core/RuntimeFault.h"
#include "platform/testing/FaultyFileSystem.h"
#include "platform/testing/TemporaryFolder.h"

namespace imptable {
namespace {

class UnseenFiles : public FaultyFileSystem {
 public:
  using FaultyFileSystem::FaultyFileSystem;

  std::optional<FileInfo> Query(const std::string&, std::error_code& error) const override {
    error = std::make_error_code(std::errc::permission_denied);
    return std::nullopt;
  }
};

class FileLook : public testing::Test {
 protected:
  std::unique_ptr<FileSystem> files_ = SystemFileSystem();
  TemporaryFolder folder_;
  std::string path_ = folder_.Write("CLIENTS.TRC", "1234");
};

TEST_F(FileLook, TellsAFileFromNone) {
  EXPECT_EQ(LookAt(*files_, path_)->size, 4U);
  EXPECT_FALSE(LookAt(*files_, folder_.path())->is_file);
  EXPECT_FALSE(LookAt(*files_, folder_.path() + "none"));
  EXPECT_FALSE(LookAt(*files_, path_ + "/none"));
  EXPECT_FALSE(LookAt(*files_, folder_.path() + std::string(1000, 'x')));
}

TEST_F(FileLook, DoesNotTakeAFileThatCannotBeLookedAtForNone) {
  try {
    LookAt(UnseenFiles(*files_), path_);
    ADD_FAILURE() << "taken for none";
  } catch (const RuntimeFault& fault) {
    EXPECT_EQ(fault.number(), FaultNumber::kPermissionDenied);
    EXPECT_EQ(fault.detail(), path_);
  }
}

TEST_F(FileLook, RemovesAFileAndComplainsOfNoneThatIsNotThere) {
  EXPECT_FALSE(RemoveIfAny(*files_, path_ + "/none"));
  EXPECT_FALSE(RemoveIfAny(*files_, folder_.path() + std::string(1000, 'x')));
  EXPECT_FALSE(RemoveIfAny(*files_, path_));
  EXPECT_FALSE(folder_.Exists("CLIENTS.TRC"));
  EXPECT_FALSE(RemoveIfAny(*files_, path_));
}

TEST_F(FileLook, SaysWhyAFileCannotBeRemoved) {
  const std::error_code busy = std::make_error_code(std::errc::device_or_resource_busy);
  FaultyFileSystem files(*files_);
  files.Fail(FileOperation::kRemove, 1, busy);
  EXPECT_EQ(RemoveIfAny(files, path_), busy);
  UnseenFiles unseen(*files_);
  unseen.Fail(FileOperation::kRemove, 1, busy);
  EXPECT_EQ(RemoveIfAny(unseen, folder_.path() + "none"), busy) << "it may be there";
}

}  // namespace
}  // namespace imptable
