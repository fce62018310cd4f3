#include <gmock/gmock.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <iostream>
#include <string>

#include "tests/scenarios/ClientTask.h"

namespace imptable {
namespace {

using testing::HasSubstr;

constexpr int kLines = 2000;
constexpr std::uint64_t kRoom = std::uint64_t{128} << 10U;

/// A run's folder with little room. Where it may be mounted, that is a file system of its own; else
/// no file in the folder may grow beyond what would fit.
class SmallRoom {
 public:
  explicit SmallRoom(const std::string& folder) : folder_(folder) {
    const std::string size = "size=" + std::to_string(kRoom);
    mounted_ = mount("tmpfs", folder_.c_str(), "tmpfs", 0, size.c_str()) == 0;
    if (!mounted_) {
      std::cout << "No mount here (" << std::strerror(errno) << "): files are limited instead.\n";
    }
  }
  ~SmallRoom() {
    if (mounted_) umount2(folder_.c_str(), MNT_DETACH);
  }
  SmallRoom(const SmallRoom&) = delete;
  SmallRoom& operator=(const SmallRoom&) = delete;

  Invocation In(Invocation invocation) const {
    if (!mounted_) invocation.limits[RLIMIT_FSIZE] = kRoom;
    return invocation;
  }

  void MakeMore() const {
    if (mounted_) {
      ASSERT_EQ(mount("tmpfs", folder_.c_str(), "tmpfs", MS_REMOUNT, "size=16m"), 0);
    }
  }

 private:
  std::string folder_;
  bool mounted_ = false;
};

/// Every second line has no name.
std::string HalfOfTheLinesAreBad() {
  std::string lines;
  for (int code = 1; code <= kLines; ++code) {
    lines += std::to_string(code) + (code % 2 == 0 ? ";name\n" : ";\n");
  }
  return lines;
}

TEST(FullDisk, EndsTheRunWithItsFaultAndAResumeLosesNothing_on_postgresql) {
  const ClientTask task(DatabaseKind::kPostgresql, "\"Erreurs\"=\"30000\"\n");
  const SmallRoom room(task.RunFolder());
  task.Source(HalfOfTheLinesAreBad());
  const Ending full = Finish(room.In(task.RunCommand()));
  EXPECT_EQ(full.code, 1) << full.out << full.err;
  EXPECT_TRUE(full.err.starts_with("imptable: ")) << full.err;
  EXPECT_THAT(task.Report(), HasSubstr("Error during processing - N° 61 ,"));
  EXPECT_THAT(task.Report(), HasSubstr(" record(s) read"));
  EXPECT_EQ(task.Status(), "3");
  EXPECT_NE(task.Rows("SELECT COUNT(*) FROM client"), std::to_string(kLines / 2) + '\n');

  room.MakeMore();
  const Ending resumed = task.Run({"--resume"});
  EXPECT_EQ(resumed.code, 1) << resumed.err;
  EXPECT_EQ(task.Rows("SELECT COUNT(*), COUNT(DISTINCT code) FROM client"),
            std::to_string(kLines / 2) + '|' + std::to_string(kLines / 2) + '\n');
}

TEST(FileSizeLimit, IsAFullDiskAndNoSignalThatEndsTheRun) {
  const ClientTask task(DatabaseKind::kSqlite, "\"Erreurs\"=\"30000\"\n");
  task.Source(HalfOfTheLinesAreBad());
  Invocation invocation = task.RunCommand();
  invocation.limits[RLIMIT_FSIZE] = kRoom / 2;
  const Ending full = Finish(invocation);
  EXPECT_EQ(full.code, 1) << full.out << full.err;
  EXPECT_THAT(full.err, HasSubstr("Disk full : "));
  EXPECT_THAT(full.err, HasSubstr("CLIENTS.ERR"));
  EXPECT_EQ(task.Status(), "3");
}

/// The superuser, to whom no folder is closed, gives up that right.
Invocation WithoutSpecialRights(Invocation invocation) {
  if (geteuid() != 0) return invocation;
  const std::string without = "-dac_override,-dac_read_search";
  invocation.words.insert(invocation.words.begin(),
                          {"setpriv", "--bounding-set=" + without, "--inh-caps=" + without});
  return invocation;
}

TEST(ClosedFolder, EndsTheRunWithItsFault) {
  const ClientTask task(DatabaseKind::kSqlite);
  task.Source("1;one\n");
  ASSERT_EQ(chmod(task.RunFolder().c_str(), 0555), 0);
  const Ending ending = Finish(WithoutSpecialRights(task.RunCommand()));
  chmod(task.RunFolder().c_str(), 0755);
  EXPECT_EQ(ending.code, 1) << ending.out;
  EXPECT_TRUE(ending.err.starts_with("imptable: ")) << ending.err;
  EXPECT_THAT(task.Report(), HasSubstr("Error during processing - N° 70 ,"));
  EXPECT_THAT(task.Report(), HasSubstr("CLIENTS.ERR"));
  EXPECT_EQ(task.Status(), "3");
  EXPECT_EQ(task.Rows("SELECT COUNT(*) FROM client"), "0\n");
}

TEST(ClosedFile, IsAFaultAndNoMissingFile) {
  const ClientTask task(DatabaseKind::kSqlite);
  task.Source("1;one\n");
  ASSERT_EQ(chmod((task.RunFolder() + "CLIENTS.CSV").c_str(), 0), 0);
  const Ending ending = Finish(WithoutSpecialRights(task.RunCommand()));
  EXPECT_NE(ending.code, 0) << ending.out;
  EXPECT_TRUE(ending.err.starts_with("imptable: ")) << ending.err;
  EXPECT_THAT(ending.err, HasSubstr("CLIENTS.CSV"));
  EXPECT_EQ(task.Rows("SELECT COUNT(*) FROM client"), "0\n");
}

}  // namespace
}  // namespace imptable
